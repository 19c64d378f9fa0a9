// Dates and times as people and programs write them.
#pragma once

#include <string_view>

namespace corvan {

/// Day number (days since 1899-12-30) of a date and time. Date: y-m-d when the first number has four digits, else
/// d-m-y, and m-d-y only where the second number is over 12; separated by "/", "-" or "."; two-digit years 00 to 29 are
/// 20xx, the others 19xx. Time: h:mm, h:mm:ss or h:mm:ss.f, with AM or PM behind it; may be missing.
/// @throws RunTimeError naming the text when it is no date
double DataDaTesto(std::string_view text);

}  // namespace corvan

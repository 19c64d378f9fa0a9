// Dates and times as people and programs write them.
#pragma once

#include <string_view>

namespace corvan {

/// Day number (days since 1899-12-30) of a date and time. Date: y-m-d when the first number has four digits, else
/// d-m-y, and m-d-y only where the second number is over 12; separated by "/", "-" or "."; two-digit years 00 to 29 are
/// 20xx, the others 19xx. Time: h:mm, h:mm:ss or h:mm:ss.f, with AM or PM behind it; may be missing.
/// @throws RunTimeError naming the text when it is no date
double DataDaTesto(std::string_view text);

/// The same with the zone that may stand behind the time: "Z", or the hours and minutes that the clock is ahead of UTC
/// ("+02:00", "-0330", "+1"). @return day number, UTC where a zone stands there
double IstanteDaTesto(std::string_view text);

}  // namespace corvan

// A measurement described in one line, as the point labels and the panel of the extremes show it.
#pragma once

#include <cstddef>
#include <string>

#include "survey/Survey.h"

namespace corvan {

/// "File." name, " Data. " date and time, " Lg." longitude, " Lt." latitude (as the file lays them out), " D.Prog. "
/// distance along the track in metres. @param k 1-based
std::string DescriviMisura(const Survey& survey, std::size_t k);

}  // namespace corvan

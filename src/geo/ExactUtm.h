// Grid places to latitude and longitude without the error of the series that older files were made with.
#pragma once

#include <optional>

#include "base/Position.h"

namespace corvan {

/// Latitude and longitude (WGS84) of a place on a UTM grid, exact to nanometres within 30 degrees of the zone's central
/// meridian: a survey that runs on into neighbour zones keeps the grid of its first fix. VersoUTM of geo/Utm.h is left
/// again with the error of its own, below 0.11 m within 3 degrees.
/// Source: C. F. F. Karney, Transverse Mercator with an accuracy of a few nanometers, J. Geodesy 85 (2011), 475-485,
/// as GeographicLib computes it.
/// @param place of a stated zone, 1 to 60
/// @return nothing for another zone and for numbers that are not finite
std::optional<Geographic> DaUTMEsatto(const Grid& place);

}  // namespace corvan

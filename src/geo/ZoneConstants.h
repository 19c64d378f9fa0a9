// Ellipsoid constants and the coefficients of the Krüger series of the transverse Mercator projection.
#pragma once

#include <array>
#include <cstdint>

namespace corvan {

/// Computed anew whenever the zone of a survey is set. GeoGeo does not use them: its series is one of its own.
/// Source: C. F. F. Karney, Transverse Mercator with an accuracy of a few nanometers, J. Geodesy 85 (2011), eq. 12,
/// 14, 35.
struct ZoneConstants {
  std::int16_t zone = 32;
  double centralMeridian = 0;     ///< rad
  double n = 0;                   ///< third flattening
  double rectifyingRadius = 0;    ///< m
  std::array<double, 7> alpha{};  ///< forward coefficients 1..6
  std::array<double, 7> beta{};   ///< inverse coefficients 1..6
  double eccentricity = 0;        ///< first eccentricity
};

/// @param zone held to 1..60
ZoneConstants InizializzaUTM(std::int16_t zone);

}  // namespace corvan

// A GPS and depth track recorded apart from the instrument.
#pragma once

#include <cstdint>

namespace corvan {

/// One fix of the track.
struct PuntoGPSEst {
  double GeoA = 0;            ///< latitude in the layout of the coordinate format in use
  double GeoB = 0;            ///< longitude, likewise
  double X = 0;               ///< easting, m
  double Y = 0;               ///< northing, m
  double Prof = 0;            ///< water depth, m
  double DataOra = 0;         ///< days since 1899-12-30, UTC
  std::uint32_t Riserva = 0;  ///< reserved
  double Progressiva = 0;     ///< distance along the track from its first fix, m
};

}  // namespace corvan

// A GPS and depth track recorded apart from the instrument.
#pragma once

#include <cstdint>
#include <string>

#include "base/Array1.h"

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

struct ExternalTrack {
  Array1<PuntoGPSEst> PuntiGPSEst;
  bool loaded = false;     ///< a track was read, be it an empty one
  std::int16_t zone = 0;   ///< UTM zone of X and Y
  std::string layout;      ///< of GeoA and GeoB, e.g. "DMM.MMM"
  double meanSpacing = 0;  ///< m; 0 below two fixes

  std::int32_t NumGPSEst() const { return static_cast<std::int32_t>(PuntiGPSEst.size()); }
};

}  // namespace corvan

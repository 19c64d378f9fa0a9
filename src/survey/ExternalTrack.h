// A GPS and depth track recorded apart from the instrument.
#pragma once

#include <cstdint>

#include "base/Array1.h"
#include "base/Position.h"

namespace corvan {

/// One fix of the track. What follows the source is derived from it whenever the track is put on another grid.
struct PuntoGPSEst {
  double GeoA = 0;            ///< latitude in the layout of the coordinate format in use
  double GeoB = 0;            ///< longitude, likewise
  double X = 0;               ///< easting on the track's grid, m
  double Y = 0;               ///< northing, m
  double Prof = 0;            ///< water depth, m; 0 where there is none
  double DataOra = 0;         ///< days since 1899-12-30, UTC
  std::uint32_t Riserva = 0;  ///< reserved
  double Progressiva = 0;     ///< distance along the track from its first fix, m

  PositionSource sorgente;  ///< as read: geographic, or grid numbers that lie on the survey's grid
  bool haProf = false;      ///< the fix has a depth; 0 is one
};

struct ExternalTrack {
  Array1<PuntoGPSEst> PuntiGPSEst;
  bool loaded = false;                        ///< a track was read, be it an empty one
  GridZone griglia;                           ///< the grid of X and Y; zone 0 before there is one
  AngleFormat layout = AngleFormat::DMM_MMM;  ///< of GeoA and GeoB
  double meanSpacing = 0;                     ///< m; 0 below two fixes

  std::int32_t NumGPSEst() const { return static_cast<std::int32_t>(PuntiGPSEst.size()); }
};

}  // namespace corvan

// Derives from the raw readings what view, selection and writers need: factors, resistivities, positions, distances.
#pragma once

#include <cstddef>

#include "base/Findings.h"
#include "geo/GeoGeo.h"
#include "survey/Survey.h"

namespace corvan {

/// What became of the positions.
struct TrackResult {
  std::size_t bad = 0;           ///< measurements without a position as read
  std::size_t discarded = 0;     ///< of them left out
  std::size_t interpolated = 0;  ///< of them given a position between their neighbours
};

/// The first measurement with a position of its own; 0 when there is none.
std::size_t PrimaPosizione(const Survey& survey);

/// Recomputes, for every measurement, the resistivities (channels with a current of 0 keep theirs), the coordinates
/// that its source does not give, the treatment of lost fixes (settings.filter) and the distance along the track, and
/// for the whole survey geometric factors, extremes, bounding box, scene origin and mean spacing. May run any number
/// of times: what it derives never becomes its source.
///
/// @param geo the survey's converter: its zone is fixed by the first usable longitude unless set before; its hemisphere
/// is taken from the first usable latitude, but for UTM positions, whose hemisphere the caller has set
/// Errors: an arithmetic fault of one step leaves that step's target as it was and is one finding a kind; a position
/// that cannot be converted counts as lost.
TrackResult AnalisiFile(Survey& survey, GeoGeo& geo, Findings& findings);

}  // namespace corvan

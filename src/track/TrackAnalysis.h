// Derives from the raw readings what view, selection and writers need: factors, resistivities, positions, distances.
#pragma once

#include <cstddef>
#include <optional>

#include "base/Findings.h"
#include "base/Position.h"
#include "survey/Survey.h"

namespace corvan {

/// What became of the positions.
struct TrackResult {
  std::size_t bad = 0;           ///< measurements without a position as read
  std::size_t discarded = 0;     ///< measurements left out
  std::size_t empty = 0;         ///< measurements of which no reading was stored, all of them left out
  std::size_t interpolated = 0;  ///< measurements given a position between their neighbours
};

/// The grid that the survey's first usable position fixes: its zone and hemisphere. Nothing when there is none, or when
/// the survey holds UTM coordinates.
std::optional<GridZone> GrigliaDelPrimoFix(const Survey& survey);

/// The survey holds positions on a grid whose zone nobody has stated: their numbers stand on whichever is.
bool SenzaZona(const Survey& survey);

/// Recomputes, for every measurement, the resistivities of the readings that exist (those with a current of 0 keep
/// theirs), both forms of its position straight from its source on the survey's grid (settings.griglia), the treatment
/// of lost fixes (settings.filter) and the distance along the track, and for the whole survey geometric factors,
/// extremes, bounding box, scene origin, mean spacing and height of the cells. May run any number of times: what it
/// derives never becomes a source.
///
/// Errors: an arithmetic fault of one step leaves that step's target as it was and is one finding a kind; a position
/// that cannot be converted counts as lost.
TrackResult AnalisiFile(Survey& survey, Findings& findings);

}  // namespace corvan

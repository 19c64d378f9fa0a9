// Positions and depths of an external track handed on to the measurements.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "survey/Survey.h"

namespace corvan {

/// What a link did to depths and what it saw between fixes.
struct LinkNotes {
  std::size_t keptDepth = 0;  ///< measurements linked to fixes without a depth: they kept their own
  std::size_t holes = 0;      ///< measurements between two fixes that lie over 60 s apart
  double longestHole = 0;     ///< the longest time between two such fixes, s
};

/// What a link by time did.
struct TimeLink {
  bool done = false;             ///< false when no track was ever loaded or none of its fixes has a date
  bool undated = false;          ///< the track has fixes but no date: nothing was linked
  std::size_t exact = 0;         ///< measurements recorded at a fix's second
  std::size_t between = 0;       ///< interpolated between two fixes
  std::size_t outside = 0;       ///< before or after all fixes: they took the first or last one
  double farthest = 0;           ///< largest distance in time from the track of those, s
  std::size_t withoutTime = 0;   ///< measurements that have no time: left as they were; empty firings are not counted
  std::size_t withoutTrack = 0;  ///< of an empty track: discarded
  LinkNotes notes;
};

/// Gives each measurement the position and depth of the track at its own second, interpolated linearly between the
/// fixes around it; the source of its position is then the track's grid. A depth is set only where both fixes have one:
/// it is not carried across a fix without. The earlier fix and the first later one are found as by a
/// scan from the first fix that stops when it has both or an exact one, also when the fixes are not in order, by binary
/// search. Lat takes the second geographic coordinate and Lon the first: the analysis that follows derives both anew.
/// @param clockOffset seconds added to the measurements' times
TimeLink LinkDataGPST(Survey& survey, double clockOffset);

/// Marks the measurements of a survey linked to an empty track as discarded; the analysis takes the marks away.
void ScartaSenzaTraccia(Survey& survey);

/// Two measurements and the fixes recorded at the same places, all 1-based.
struct Collegamenti {
  std::array<std::int32_t, 2> measurement{};
  std::array<std::int32_t, 2> fix{};
};

enum class PlaceLink {
  Linked,
  SomethingWrong,  ///< both connections lead to one place of the track
  Nothing          ///< a measurement or fix does not exist, or the measurements are at one place
};

/// Stretches the measurements between the two connections along the track by progressive distance; downwards when the
/// fixes are in the other order. Depths as in the link by time.
PlaceLink LinkDataGPSP(Survey& survey, const Collegamenti& connections, LinkNotes& notes);

}  // namespace corvan

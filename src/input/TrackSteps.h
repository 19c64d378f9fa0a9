// The steps of a track from fix to fix.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "survey/ExternalTrack.h"

namespace corvan {

/// Length of a track, m: on the grid of its first fix, or on the grid that its numbers were read on. A fix that cannot
/// be converted makes no step.
double LunghezzaTraccia(const Array1<PuntoGPSEst>& fixes);

/// Says which steps are faster than 50 m/s by the two fixes' own times, in whole seconds, one at least. Two mistyped
/// digits make such steps; no boat does.
/// @param lines of the fixes in their file, from 1 @return one sentence for a finding; empty when there is none
std::string PassiVeloci(const Array1<PuntoGPSEst>& fixes, const std::vector<std::size_t>& lines);

}  // namespace corvan

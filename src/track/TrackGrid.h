// The external track on the survey's grid.
#pragma once

#include <cstddef>

#include "base/Position.h"
#include "survey/Survey.h"

namespace corvan {

/// Puts the fixes of a track on the survey's grid: X, Y and the distances along the track straight from each fix's
/// source, GeoA and GeoB in the survey's layout. Fixes read as grid numbers lie on the survey's grid: they take its
/// zone for good once both are there and the survey's is known, and stand with its numbers as long as nobody has stated
/// it. Without a survey a track of latitudes and longitudes stands on the grid of its first fix. Nothing is done when
/// nothing has changed.
/// @return fixes taken out because they cannot be converted
std::size_t CollocaTraccia(Survey& survey);

/// From the middle of the survey to its nearest fix, m.
double DistanzaDaTraccia(const Survey& survey);

/// Bounding box and scene origin of a track without a survey, so that it can be looked at.
void EstensioneDaTraccia(Survey& survey);

/// Fills Progressiva. @return the mean spacing of the fixes, m; 0 below two
double CalcolaProgressiva(Array1<PuntoGPSEst>& fixes);

}  // namespace corvan

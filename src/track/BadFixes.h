// The treatment of measurements without a position.
#pragma once

#include "survey/Survey.h"
#include "track/TrackAnalysis.h"

namespace corvan {

/// Applies settings.filter to every measurement without a position. An interpolated one gets the position at its share
/// of the way between the fixes around its gap (UTM, and latitude and longitude in the file's layout), a source to
/// match (the grid where one of the two fixes was read or linked on it, else geographic), and cable positions moved on
/// by its distance from the first of them. A gap that is open at either end, or that reaches from one file into the
/// next, is left out: nobody knows what the boat did there. Empty firings are left out under every filter.
TrackResult TrattaFixPersi(Survey& survey);

}  // namespace corvan

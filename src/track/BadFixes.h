// The treatment of measurements without a position.
#pragma once

#include "geo/GeoGeo.h"
#include "survey/Survey.h"
#include "track/TrackAnalysis.h"

namespace corvan {

/// Applies settings.filter to every measurement without a position. An interpolated one gets the position at its share
/// of the way between the fixes around its gap (UTM, and latitude and longitude in the file's layout) and cable
/// positions moved on by its distance from the first of them; a gap open at either end of the survey is left out.
TrackResult TrattaFixPersi(Survey& survey, const GeoGeo& geo);

}  // namespace corvan

// The small line that explains a saved picture.
#pragma once

#include "picture/Caption.h"
#include "survey/Survey.h"
#include "view3d/ViewState.h"

namespace corvan {

/// Files, date and time span of their measurements, zone and hemisphere of the grid; empty without a survey. More than
/// three files: the first two and how many more.
Caption DidascaliaRilievo(const Survey& survey);

/// The same, then how the survey is looked at: angles, projection, the level of the map's band where it is shown,
/// vertical exaggeration where there is one.
/// @param band the map's band takes the curtain's place
Caption DidascaliaVista(const Survey& survey, const ViewState& view, bool band, double exaggeration);

}  // namespace corvan

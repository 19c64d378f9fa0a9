// The whole curtain in the picture, however it is looked at.
#pragma once

#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// The window at zoom 1 around the survey; where the curtain, seen at these angles in the straight projection, would be
/// cut by the picture's edge or run into the legend's band, about its middle and at the zoom that shows all of it.
void InquadraScena(ViewState& view, const Scene& scene, const TrackExtent& extent);

}  // namespace corvan

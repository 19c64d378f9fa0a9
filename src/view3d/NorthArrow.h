// The north arrow: turned with the scene, at a fixed place of the picture.
#pragma once

#include "picture/Canvas.h"
#include "picture/TextLayout.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// Paints the arrow at the lower left, off the survey of the first view, as large as it is there at any zoom and always
/// in the straight projection; its N stands upright before the tip, or above it where the arrow is seen end-on.
/// @param foot lower left corner of the room that it may take
void DisegnaNordG(const Scene& scene, const ViewState& view, const PuntoPixel& foot, Canvas& canvas, TextLayout& texts);

}  // namespace corvan

// The axis at a curtain's end: which level lies how deep, and how many metres of water that is.
#pragma once

#include "picture/Canvas.h"
#include "picture/TextLayout.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// Stands at the end of a line that lies farthest to the right with room beside it: ticks at the edges of the levels,
/// the levels' numbers between them and the metres of water at them, since the echo profile counts its metres in
/// levels. None where the curtain is not seen from the side, or hardly higher than a text.
/// @param levels of the curtain, 1..10
void DisegnaAsse(const Scene& scene, const ViewState& view, std::int32_t levels, Canvas& canvas, TextLayout& texts);

}  // namespace corvan

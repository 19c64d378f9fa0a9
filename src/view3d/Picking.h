// From pixels back to the scene.
#pragma once

#include <optional>

#include "view3d/Routine3D.h"
#include "view3d/ViewState.h"

namespace corvan {

/// The window at zoom 1 moved by the distance dragged from (XDown, YDown) to (XNow, YNow). On a picture wider than high
/// the scene moves more slowly than the pointer sideways: hands are used to it.
void SpostaFinestra(ViewState& view);

/// The place with z = 0 that is seen at a pixel in the straight projection; none in perspective or where the surface is
/// seen edge-on.
std::optional<Punto3D> SuperficieSotto(const ViewState& view, const PuntoPixel& pixel);

}  // namespace corvan

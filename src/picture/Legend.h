// The legend of the colour scale.
#pragma once

#include "picture/Canvas.h"
#include "picture/ColourScale.h"

namespace corvan {

/// A bar of the 256 colours, five values below it, the unit to the left and the title to the right.
void DisegnaScalaColori3D(const ColourRange& colours, Canvas& canvas);

}  // namespace corvan

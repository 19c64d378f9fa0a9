// The legend of the colour scale.
#pragma once

#include "picture/Canvas.h"
#include "picture/ColourScale.h"
#include "picture/TextLayout.h"

namespace corvan {

/// A half-transparent plate with the title and its unit, a bar of the 256 colours, and up to five values below it: as
/// many decimals as they need to differ; those that would touch are left out, the bounds last. A third of the picture
/// wide where that is enough. Left out where a picture is too small for it.
/// @param foot middle of the plate's lower edge
/// @return the plate, without size where there is none; its texts have a place in the layout, which paints them
PixelArea DisegnaScalaColori3D(const ColourScale& colours, const PuntoPixel& foot, Canvas& canvas, TextLayout& texts);

/// Height of the legend's plate in a picture with letters of this height.
std::int32_t AltezzaLegenda(std::int32_t textHeight);

}  // namespace corvan

// A bar that tells how long a metre is on the picture.
#pragma once

#include "picture/Canvas.h"
#include "picture/TextLayout.h"

namespace corvan {

/// A bar of 1, 2 or 5 times a power of ten metres, at most a sixth of the picture long, its length above it.
/// @param metresPerPixel over 0; else nothing is drawn
/// @param corner the right end of the bar's foot
void DisegnaScala(double metresPerPixel, const PuntoPixel& corner, Canvas& canvas, TextLayout& texts);

/// A length as it is read best: "50 m", "0.2 m", "2 km".
std::string TestoLunghezza(double metres);

}  // namespace corvan

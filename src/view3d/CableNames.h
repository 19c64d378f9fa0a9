// The electrodes' names beside their marks.
#pragma once

#include <cstdint>
#include <vector>

#include "picture/TextLayout.h"
#include "view3d/PointLayer.h"

namespace corvan {

/// Names above the marks; where these would touch, of the two electrodes farthest apart only.
/// @param radius of the marks, pixels
void ScriviElettrodi(const std::vector<PointLabel>& electrodes, std::int32_t radius, Colour colour, TextLayout& texts);

}  // namespace corvan

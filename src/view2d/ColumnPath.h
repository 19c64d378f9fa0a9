// A series drawn column by column.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "picture/Canvas.h"
#include "view2d/SectionColumns.h"

namespace corvan {

/// In each column a line from the lowest to the highest value, joined to its neighbours.
/// @param plot column 0 is its left edge @param row pixel row of a value @param width of the line, pixels
void TracciaColonne(const PixelArea& plot, const std::vector<ColumnValues>& columns,
                    const std::function<std::int32_t(float)>& row, std::int32_t width, Colour colour, Canvas& canvas);

}  // namespace corvan

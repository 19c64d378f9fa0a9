#include "view2d/ColumnPath.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace corvan {

void TracciaColonne(const PixelArea& plot, const std::vector<ColumnValues>& columns,
                    const std::function<std::int32_t(float)>& row, std::int32_t width, Colour colour, Canvas& canvas) {
  const std::int32_t before = width / 2, behind = width - before;
  PuntoPixel last;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const ColumnValues& c = columns[i];
    if (!c.any) continue;
    const PuntoPixel first{plot.left + static_cast<std::int32_t>(i), row(c.first)};
    auto [top, bottom] = std::minmax({row(c.low), row(c.high)});
    if (c.joined && first.X == last.X + 1) {  // side by side: the joining line is part of the column
      top = std::min(top, last.Y);
      bottom = std::max(bottom, last.Y);
    } else if (c.joined) {
      canvas.Tratto(std::array{last, first}, width, colour);
    }
    canvas.Riquadro({first.X - before, first.X + behind, top - before, bottom + behind}, colour);
    last = {first.X, row(c.last)};
  }
}

}  // namespace corvan

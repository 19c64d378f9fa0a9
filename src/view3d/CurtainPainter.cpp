#include "view3d/CurtainPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <thread>

#include "base/Rounding.h"
#include "view3d/ColumnShape.h"
#include "view3d/DepthOrder.h"

namespace corvan {
namespace {

constexpr double Ambiente = 0.3;            // share of the light that comes from everywhere
constexpr std::size_t SharedColumns = 800;  // from here on two cores share them: a thread costs as much as 300 do

/// Smallest box around the outer corners of a column or the corners of a cell.
struct PixelBox {
  std::int32_t left, right, top, bottom;

  PixelBox(const PuntoPixel& a, const PuntoPixel& b, const PuntoPixel& c, const PuntoPixel& d)
      : left(std::min(std::min(a.X, b.X), std::min(c.X, d.X))),
        right(std::max(std::max(a.X, b.X), std::max(c.X, d.X))),
        top(std::min(std::min(a.Y, b.Y), std::min(c.Y, d.Y))),
        bottom(std::max(std::max(a.Y, b.Y), std::max(c.Y, d.Y))) {}

  /// Wholly outside, by more than `margin` pixels.
  bool outside(const PixelArea& area, std::int64_t margin) const {
    return right + margin < area.left || left - margin >= area.right || bottom + margin < area.top ||
           top - margin >= area.bottom;
  }
};

/// Share of its colour that each cell of a column shows: 1 facing the light, which comes along the viewing depth
/// (0, 1, 0), 0.3 edge-on. Both faces are lit alike. The normal is that of the first two corners about the middle.
void Illumina(const ColumnSide& before, const ColumnSide& behind, std::array<double, MaxChannels>& light) {
  const auto middle = [](float p, float q, float r, float s) {
    return static_cast<float>((static_cast<double>(p) + q + r + s) / 4.0);
  };
  const auto minus = [](double p, double q) { return static_cast<float>(p - q); };
  for (std::size_t k = 0; k < MaxChannels; ++k) {
    const float mx = middle(before.x[k], behind.x[k], behind.x[k + 1], before.x[k + 1]);
    const float my = middle(before.y[k], behind.y[k], behind.y[k + 1], before.y[k + 1]);
    const float mz = middle(before.z[k], behind.z[k], behind.z[k + 1], before.z[k + 1]);
    const double ax = minus(before.x[k], mx), ay = minus(before.y[k], my), az = minus(before.z[k], mz);
    const double bx = minus(behind.x[k], mx), by = minus(behind.y[k], my), bz = minus(behind.z[k], mz);
    const double nx = static_cast<float>(ay * bz - az * by);
    const double ny = static_cast<float>(az * bx - ax * bz);
    const double nz = static_cast<float>(ax * by - ay * bx);
    const double length = std::sqrt(nx * nx + ny * ny + nz * nz);
    const double cosine = std::abs(ny / length);
    const double held = cosine <= 1.0 ? cosine : 1.0;  // 1 for a cell without area, too: 0 / 0 compares as false
    light[k] = held * (1.0 - Ambiente) + Ambiente;
  }
}

/// Colours of the cells of a column, shaded.
void Colora(const CellColumn& column, const ColourLookup& scale, const std::array<double, MaxChannels>& light,
            std::array<Colour, MaxChannels>& colours) {
  std::array<std::int32_t, MaxChannels> plain{};
  for (std::size_t k = 0; k < MaxChannels; ++k) plain[k] = static_cast<std::int32_t>(scale(column.rho[k]));
  for (std::size_t k = 0; k < MaxChannels; ++k) {
    const auto part = [&](std::int32_t value) { return static_cast<std::int32_t>(ArrotondaPixel(value * light[k])); };
    const std::int32_t red = part(plain[k] >> 16), green = part(plain[k] >> 8 & 0xFF), blue = part(plain[k] & 0xFF);
    colours[k] = static_cast<Colour>(red << 16 | green << 8 | blue);
  }
}

/// Work of one pass over the columns.
class Pass {
 public:
  Pass(const Curtain& cells, const ViewState& view, const ColourScale& colours)
      : view_(view), shape_(cells, view), scale_(colours) {}

  /// Writes the column's cells behind the `count` that are in the lists. @return how many there are then
  std::size_t column(const CellColumn& column, std::size_t count, PixelQuad* quads, DepthKey* order) {
    if (!column.present) return count;
    const bool straight = view_.projection == Projection::Orthographic;
    if ((straight && fuori(column)) || !shape_.prendi(column)) return count;
    Illumina(shape_.before(), shape_.behind(), light_);
    Colora(column, scale_, light_, colours_);
    for (std::size_t k = 0; k < MaxChannels; ++k) {
      PixelQuad& quad = quads[count];
      const bool outlined = (column.escluse & BitDi(k + 1)) != 0;
      quad = {shape_.corners(k), outlined ? ExcludedOutline : colours_[k]};
      const PixelBox box(quad.corner[0], quad.corner[1], quad.corner[2], quad.corner[3]);
      order[count] = ChiaveProfondita(shape_.before().y[k], count);
      const bool painted = (outlined || std::isfinite(column.rho[k])) && !box.outside(view_.AreaPixel, 0);
      count += painted ? 1U : 0U;
    }
    return count;
  }

 private:
  /// The four outer corners of the column lie to one side of the picture. What is between them does too, since the
  /// projection is straight; one pixel of margin covers the roundings.
  bool fuori(const CellColumn& c) const {
    const Projector& projector = shape_.projector();
    const auto at = [&](float x, float y, float z) { return projector.ortogonale(projector.ruota({x, y, z, 0.0F})); };
    const float top = shape_.top(), bottom = shape_.bottom();
    const PixelBox box(at(c.x1, c.y1, top), at(c.x2, c.y2, top), at(c.x2, c.y2, bottom), at(c.x1, c.y1, bottom));
    return box.outside(view_.AreaPixel, 1);
  }

  const ViewState& view_;
  ColumnShape shape_;
  ColourLookup scale_;
  std::array<double, MaxChannels> light_{};
  std::array<Colour, MaxChannels> colours_{};
};

}  // namespace

void CurtainPainter::prepara(const Curtain& cells, const ViewState& view, const ColourScale& colours) {
  // The lists never shrink: clearing and growing them anew would write every cell twice.
  const std::size_t columns = cells.columns.size(), most = MaxChannels * columns + 1;
  if (quads_.size() < most) quads_.resize(most);
  order_.resize(most);
  // The lists of columns from..to, each from its own place on. Returns the place behind the last one.
  const auto part = [&](std::size_t from, std::size_t to) {
    Pass pass(cells, view, colours);
    std::size_t count = MaxChannels * from;
    for (std::size_t k = from + 1; k <= to; ++k) {
      count = pass.column(cells.columns(k), count, quads_.data(), order_.data());
    }
    return count;
  };
  if (columns < SharedColumns) {
    order_.resize(part(0, columns));
  } else {
    const std::size_t half = columns / 2;
    std::size_t behind = 0;
    std::jthread other([&] { behind = part(half, columns); });
    const std::size_t first = part(0, half);
    other.join();
    const auto second = order_.begin() + static_cast<std::ptrdiff_t>(MaxChannels * half);
    const auto end = order_.begin() + static_cast<std::ptrdiff_t>(behind);
    order_.erase(std::move(second, end, order_.begin() + static_cast<std::ptrdiff_t>(first)), order_.end());
  }
  OrdinaQuad(order_, scratch_);
}

void CurtainPainter::dipingi(const Curtain& cells, const ViewState& view, const ColourScale& colours, Canvas& canvas) {
  prepara(cells, view, colours);
  canvas.Quadrilateri(quads_, order_);
}

}  // namespace corvan

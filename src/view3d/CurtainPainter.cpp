#include "view3d/CurtainPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "base/Rounding.h"
#include "view3d/DepthOrder.h"
#include "view3d/Projector.h"

namespace corvan {
namespace {

constexpr double Ambiente = 0.3;  // share of the light that comes from everywhere
constexpr std::size_t Edges = MaxChannels + 1;

/// One side of a column: its points at the edges of the levels, rotated and projected.
struct Side {
  std::array<Punto3D, Edges> rotated;
  std::array<PuntoPixel, Edges> pixel;
};

/// Smallest box around picture points.
struct PixelBox {
  std::int32_t left, right, top, bottom;

  explicit PixelBox(const std::array<PuntoPixel, 4>& p)
      : left(std::min(std::min(p[0].X, p[1].X), std::min(p[2].X, p[3].X))),
        right(std::max(std::max(p[0].X, p[1].X), std::max(p[2].X, p[3].X))),
        top(std::min(std::min(p[0].Y, p[1].Y), std::min(p[2].Y, p[3].Y))),
        bottom(std::max(std::max(p[0].Y, p[1].Y), std::max(p[2].Y, p[3].Y))) {}

  /// Wholly outside, by more than `margin` pixels.
  bool outside(const PixelArea& area, std::int64_t margin) const {
    return right + margin < area.left || left - margin >= area.right || bottom + margin < area.top ||
           top - margin >= area.bottom;
  }
};

Punto3D Differenza(const Punto3D& a, const Punto3D& b) {
  const auto part = [](double p, double q) { return static_cast<float>(p - q); };
  return {part(a.x, b.x), part(a.y, b.y), part(a.z, b.z), 0.0F};
}

/// Mean of the corners of a cell.
Punto3D Centro(const Punto3D& a, const Punto3D& b, const Punto3D& c, const Punto3D& d) {
  const auto mean = [](double p, double q, double r, double s) { return static_cast<float>((p + q + r + s) / 4.0); };
  return {mean(a.x, b.x, c.x, d.x), mean(a.y, b.y, c.y, d.y), mean(a.z, b.z, c.z, d.z), 0.0F};
}

/// Share of its colour that a cell shows: 1 facing the light, which comes along the viewing depth (0, 1, 0), 0.3
/// edge-on. Both faces are lit alike.
double Luce(const Punto3D& corner1, const Punto3D& corner2, const Punto3D& centre) {
  const Punto3D a = Differenza(corner1, centre);
  const Punto3D b = Differenza(corner2, centre);
  const double ax = a.x, ay = a.y, az = a.z, bx = b.x, by = b.y, bz = b.z;
  const auto nx = static_cast<float>(ay * bz - az * by);
  const auto ny = static_cast<float>(az * bx - ax * bz);
  const auto nz = static_cast<float>(ax * by - ay * bx);
  const double x = nx, y = ny, z = nz;
  const double length = std::sqrt(x * x + y * y + z * z);
  const double cosine = length > 0.0 ? y / length : 1.0;
  return std::isfinite(cosine) ? std::abs(cosine) * (1.0 - Ambiente) + Ambiente : 1.0;
}

Colour Ombreggia(Colour colour, double light) {
  const auto part = [light](Colour value) { return static_cast<Colour>(ArrotondaPixel(value * light)); };
  return part(colour >> 16U) << 16U | part(colour >> 8U & 0xFFU) << 8U | part(colour & 0xFFU);
}

/// Work of one pass over the columns.
class Pass {
 public:
  Pass(const Curtain& cells, const ViewState& view, const ColourRange& colours, std::vector<PixelQuad>& quads,
       std::vector<DepthKey>& order)
      : cells_(cells), view_(view), projector_(view), scale_(colours), quads_(quads), order_(order) {}

  void column(const CellColumn& column) {
    if (!column.present) return;
    const bool straight = view_.projection == Projection::Orthographic;
    if (straight && fuori(column)) return;
    if (!lato(column.x1, column.y1, before_) || !lato(column.x2, column.y2, behind_)) return;
    for (std::size_t k = 0; k < MaxChannels; ++k) cella(column.rho[k], k);
  }

 private:
  /// The four outer corners of the column lie to one side of the picture. What is between them does too, since the
  /// projection is straight; one pixel of margin covers the roundings.
  bool fuori(const CellColumn& c) const {
    const auto at = [&](float x, float y, float z) { return projector_.ortogonale(projector_.ruota({x, y, z, 0.0F})); };
    const PixelBox box({at(c.x1, c.y1, cells_.z.front()), at(c.x2, c.y2, cells_.z.front()),
                        at(c.x2, c.y2, cells_.z.back()), at(c.x1, c.y1, cells_.z.back())});
    return box.outside(view_.AreaPixel, 1);
  }

  bool lato(float x, float y, Side& side) const {
    for (std::size_t k = 0; k < Edges; ++k) {
      side.rotated[k] = projector_.ruota({x, y, cells_.z[k], 0.0F});
    }
    if (view_.projection == Projection::Orthographic) {
      for (std::size_t k = 0; k < Edges; ++k) side.pixel[k] = projector_.ortogonale(side.rotated[k]);
      return true;
    }
    for (std::size_t k = 0; k < Edges; ++k) {
      const std::optional<PuntoPixel> seen = projector_.proietta(side.rotated[k]);
      if (!seen) return false;
      side.pixel[k] = *seen;
    }
    return true;
  }

  void cella(float rho, std::size_t k) {
    if (!std::isfinite(rho)) return;
    PixelQuad quad{{before_.pixel[k], behind_.pixel[k], behind_.pixel[k + 1], before_.pixel[k + 1]}, 0};
    if (PixelBox(quad.corner).outside(view_.AreaPixel, 0)) return;
    const Punto3D& corner1 = before_.rotated[k];
    const Punto3D& corner2 = behind_.rotated[k];
    const Punto3D centre = Centro(corner1, corner2, behind_.rotated[k + 1], before_.rotated[k + 1]);
    quad.colour = Ombreggia(scale_(rho), Luce(corner1, corner2, centre));
    order_.push_back(ChiaveProfondita(corner1.y, quads_.size()));
    quads_.push_back(quad);
  }

  const Curtain& cells_;
  const ViewState& view_;
  Projector projector_;
  ColourLookup scale_;
  std::vector<PixelQuad>& quads_;
  std::vector<DepthKey>& order_;
  Side before_{}, behind_{};
};

}  // namespace

void CurtainPainter::prepara(const Curtain& cells, const ViewState& view, const ColourRange& colours) {
  quads_.clear();
  order_.clear();
  Pass pass(cells, view, colours, quads_, order_);
  for (const CellColumn& column : cells.columns) pass.column(column);
  OrdinaQuad(order_, scratch_);
}

void CurtainPainter::dipingi(const Curtain& cells, const ViewState& view, const ColourRange& colours, Canvas& canvas) {
  prepara(cells, view, colours);
  canvas.Quadrilateri(quads_, order_);
}

}  // namespace corvan

// The corners of a column of cells, rotated and projected: what is painted and what is found under the pointer are the
// same pixels.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "picture/Canvas.h"
#include "view3d/Projector.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// One side of a column: its points at the edges of the levels, rotated and projected. An array a coordinate, so that
/// the loops over levels run in vector units (twice as fast as an array of points).
struct ColumnSide {
  static constexpr std::size_t Lanes = 12;  // edges and a spare one: whole groups for the processor's vector units
  std::array<float, Lanes> x, y, z;
  std::array<std::int32_t, Lanes> px, py;

  PuntoPixel pixel(std::size_t k) const { return {px[k], py[k]}; }
};

class ColumnShape {
 public:
  /// @param view must outlive the shape
  ColumnShape(const Curtain& cells, const ViewState& view) : view_(view), projector_(view) {
    std::copy(cells.z.begin(), cells.z.end(), z_.begin());
  }

  /// Takes on the shape of a column. @return false when it has none in this view
  bool prendi(const CellColumn& c) { return lato(c.x1, c.y1, before_) && lato(c.x2, c.y2, behind_); }

  const ColumnSide& before() const { return before_; }
  const ColumnSide& behind() const { return behind_; }
  /// Picture corners of level k, from 0.
  std::array<PuntoPixel, 4> corners(std::size_t k) const {
    return {before_.pixel(k), behind_.pixel(k), behind_.pixel(k + 1), before_.pixel(k + 1)};
  }
  const Projector& projector() const { return projector_; }
  float top() const { return z_.front(); }
  float bottom() const { return z_[MaxChannels]; }

 private:
  bool lato(float x, float y, ColumnSide& side) const {
    for (std::size_t k = 0; k < ColumnSide::Lanes; ++k) {
      const Punto3D turned = projector_.ruota({x, y, z_[k], 0.0F});
      side.x[k] = turned.x;
      side.y[k] = turned.y;
      side.z[k] = turned.z;
    }
    if (view_.projection == Projection::Orthographic) {
      projector_.ortogonali(side.x, side.z, side.px, side.py);
      return true;
    }
    for (std::size_t k = 0; k <= MaxChannels; ++k) {
      const std::optional<PuntoPixel> seen = projector_.proietta({side.x[k], side.y[k], side.z[k], 0.0F});
      if (!seen) return false;
      side.px[k] = seen->X;
      side.py[k] = seen->Y;
    }
    return true;
  }

  const ViewState& view_;
  Projector projector_;
  std::array<float, ColumnSide::Lanes> z_{};
  ColumnSide before_{}, behind_{};
};

}  // namespace corvan

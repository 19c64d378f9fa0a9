// Paints the curtain of resistivity cells: rotated, projected, shaded, ordered and filled.
#pragma once

#include <cstddef>
#include <vector>

#include "picture/Canvas.h"
#include "picture/ColourScale.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// Keeps its lists from one repaint to the next, 52 bytes a cell.
class CurtainPainter {
 public:
  /// Projects the cells into the list of quadrilaterals and their order. Left out are cells of measurements without
  /// position, with a resistivity that is not finite, and those wholly outside the drawing area.
  void prepara(const Curtain& cells, const ViewState& view, const ColourScale& colours);

  /// prepara, then one call to the canvas.
  void dipingi(const Curtain& cells, const ViewState& view, const ColourScale& colours, Canvas& canvas);

  const std::vector<PixelQuad>& quads() const { return quads_; }
  const std::vector<DepthKey>& order() const { return order_; }

 private:
  std::vector<PixelQuad> quads_;
  std::vector<DepthKey> order_;
  std::vector<DepthKey> scratch_;
};

}  // namespace corvan

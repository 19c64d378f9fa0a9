// Small labels on the picture, one a point: data that the picture paints and finds under the pointer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "picture/Canvas.h"

namespace corvan {

struct PointLabel {
  std::int32_t index = 0;  ///< of its measurement, fix or electrode, 1-based
  PuntoPixel at;           ///< centre on the picture
  bool visible = true;
  Colour colour = 0;
  std::int32_t tag = 0;  ///< free for who picks labels
};

/// How the labels of a layer look.
struct LabelStyle {
  MarkerShape shape = MarkerShape::Dot;
  std::int32_t radius = 2;  ///< pixels beside the centre
  Colour colour = 0;
  bool cased = false;    ///< a white ring makes them stand out on cells of any colour
  bool crowded = false;  ///< the labels would touch: they are found, but only those with a colour of their own painted
};

/// The labels of one layer in the order of their indexes; later ones lie on top, those with a colour of their own above
/// all others.
class PointLayer {
 public:
  /// Replaces all labels. Those outside the drawing area are not painted nor found.
  void assign(std::vector<PointLabel> labels, const LabelStyle& style, const PixelArea& area);
  /// Takes all labels off the picture.
  void hide() { assign({}, style_, area_); }

  const std::vector<PointLabel>& labels() const { return labels_; }
  const LabelStyle& style() const { return style_; }

  void dipingi(Canvas& canvas) const;

  /// A label found, the square of its distance from the pixel asked for, and its centre.
  struct Hit {
    std::int32_t index = 0;
    std::int32_t distance2 = 0;
    PuntoPixel at;
  };

  /// The label nearest to a pixel of those that cover it, a margin of one pixel included, or lie within `reach` pixels;
  /// of several on one pixel the topmost. The first question after assign builds a grid of 16 pixels; each one then
  /// looks at the cells around the pixel only.
  std::optional<Hit> cerca(const PuntoPixel& place, std::int32_t reach) const;

 private:
  /// Numbers of labels, cell after cell.
  struct Grid {
    std::int32_t columns = 0, rows = 0;
    std::vector<std::uint32_t> start;  // of each cell in `label`, then the end of the last
    std::vector<std::uint32_t> label;
  };

  void buildGrid() const;
  std::size_t cellOf(const PuntoPixel& place) const;

  LabelStyle style_;
  PixelArea area_;
  std::vector<PointLabel> labels_;
  std::vector<std::uint32_t> topmost_;  // numbers of the visible labels that no other covers pixel by pixel, last first
  mutable Grid grid_;
  mutable bool gridValid_ = false;
};

}  // namespace corvan

// Paints boxes, lines, quadrilaterals and marks into a picture in memory, span by span.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "picture/Canvas.h"

namespace corvan {

/// The pixels of a line: between its integer ends one in each row (or, when it is wider than high, each column), the
/// exact place across rounded to the nearest pixel, halves to the larger coordinate. So a line has the same pixels from
/// either end, and quadrilaterals that share an edge leave none between them.
///
/// A quadrilateral covers in each row the span from the leftmost to the rightmost pixel of its four edges: fill and
/// outline in one pass, and at least one pixel whatever its shape. Corners farther than 2^29 pixels away are drawn as
/// if they lay there. One whose colour has OutlineOnly paints the pixels of its edges.
class SpanPainter {
 public:
  /// @param buffer must outlive the painter
  explicit SpanPainter(const PixelBuffer& buffer) : SpanPainter(buffer, 0, buffer.height) {}
  /// @param top,bottom the rows top to bottom - 1 alone are painted by quad()
  SpanPainter(const PixelBuffer& buffer, std::int32_t top, std::int32_t bottom);

  void box(const PixelArea& area, Colour colour);
  void line(const PuntoPixel& from, const PuntoPixel& to, Colour colour);
  void quad(const PixelQuad& quad);
  void marks(std::span<const PuntoPixel> centres, MarkerShape shape, std::int32_t radius, Colour colour);

 private:
  struct Span {
    std::int32_t low, high;
  };

  template <class Integer>
  void fill(const PixelQuad& quad, std::int32_t first, std::int32_t last);
  void outline(const PixelQuad& quad, std::int32_t first, std::int32_t last) const;
  void row(std::int32_t y, std::int32_t low, std::int32_t high, std::uint32_t pixel) const;

  PixelBuffer buffer_;
  std::int32_t top_, bottom_;
  std::vector<Span> spans_;  // of the rows of the quadrilateral at work
};

/// A quadrilateral, painted, has this pixel.
bool Copre(const std::array<PuntoPixel, 4>& corner, const PuntoPixel& pixel);

}  // namespace corvan

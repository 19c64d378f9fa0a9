// A canvas over a picture in memory, complete but for what needs fonts.
#pragma once

#include <string_view>

#include "picture/Canvas.h"
#include "picture/SpanPainter.h"

namespace corvan {

/// Boxes, lines, cells and marks in our own spans. Polygons and texts are left to those who derive from it.
class BufferCanvas : public Canvas {
 public:
  explicit BufferCanvas(const PixelBuffer& buffer) : buffer_(buffer), painter_(buffer) {}

  PixelArea area() const override { return {0, buffer_.width, 0, buffer_.height}; }
  PixelBuffer picture() const override { return buffer_; }
  void Riquadro(const PixelArea& box, Colour colour) override { painter_.box(box, colour); }
  void Velo(const PixelArea& box, Colour colour, std::uint32_t opacity) override;
  void Quadrilateri(std::span<const PixelQuad> quads, std::span<const DepthKey> order) override;
  void Linea(std::span<const PuntoPixel> points, Colour colour) override;
  void Tratto(std::span<const PuntoPixel> points, std::int32_t width, Colour colour) override;
  void Marcatori(std::span<const PuntoPixel> points, MarkerShape shape, std::int32_t radius, Colour colour) override;

 private:
  PixelBuffer buffer_;
  SpanPainter painter_;
};

}  // namespace corvan

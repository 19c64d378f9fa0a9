#include "picture/BufferCanvas.h"

#include <cstddef>

namespace corvan {
namespace {

/// Asks for a cell some turns before it is painted: the list lies in another order than the painting.
inline void Preleva(const PixelQuad& quad) {
#if defined(__GNUC__)
  __builtin_prefetch(&quad);
  __builtin_prefetch(&quad.colour);
#else
  static_cast<void>(quad);
#endif
}

}  // namespace

void BufferCanvas::Quadrilateri(std::span<const PixelQuad> quads, std::span<const DepthKey> order) {
  constexpr std::size_t ahead = 12;
  const auto at = [&](std::size_t i) -> const PixelQuad& { return quads[order[i] & 0xFFFFFFFFU]; };
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i + ahead < order.size()) Preleva(at(i + ahead));
    painter_.quad(at(i));
  }
}

void BufferCanvas::Linea(std::span<const PuntoPixel> points, Colour colour) {
  if (points.size() == 1) painter_.line(points[0], points[0], colour);
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (points[i] != points[i - 1] || points.size() == 2) painter_.line(points[i - 1], points[i], colour);
  }
}

void BufferCanvas::Marcatori(std::span<const PuntoPixel> points, MarkerShape shape, std::int32_t radius,
                             Colour colour) {
  painter_.marks(points, shape, radius, colour);
}

}  // namespace corvan

#include "picture/BufferCanvas.h"

#include <algorithm>
#include <cstddef>
#include <thread>
#include <vector>

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

void Dipingi(std::span<const PixelQuad> quads, std::span<const DepthKey> order, SpanPainter& painter) {
  constexpr std::size_t ahead = 12;
  const auto at = [&](std::size_t i) -> const PixelQuad& { return quads[order[i] & 0xFFFFFFFFU]; };
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i + ahead < order.size()) Preleva(at(i + ahead));
    painter.quad(at(i));
  }
}

/// The row above which about half of the cells lie.
std::int32_t RigaDiMezzo(std::span<const PixelQuad> quads, std::span<const DepthKey> order, std::int32_t height) {
  constexpr std::size_t looked = 999;
  std::vector<std::int32_t> rows;
  for (std::size_t k = 0; k < looked; ++k) {
    rows.push_back(quads[order[k * order.size() / looked] & 0xFFFFFFFFU].corner[0].Y);
  }
  std::nth_element(rows.begin(), rows.begin() + looked / 2, rows.end());
  return std::clamp(rows[looked / 2], 0, height);
}

}  // namespace

void BufferCanvas::Quadrilateri(std::span<const PixelQuad> quads, std::span<const DepthKey> order) {
  constexpr std::size_t shared = 200'000;  // from here on two cores paint, each its own rows
  if (order.size() < shared) {
    Dipingi(quads, order, painter_);
    return;
  }
  const std::int32_t middle = RigaDiMezzo(quads, order, buffer_.height);
  std::jthread other([&] {
    SpanPainter below(buffer_, middle, buffer_.height);
    Dipingi(quads, order, below);
  });
  SpanPainter above(buffer_, 0, middle);
  Dipingi(quads, order, above);
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

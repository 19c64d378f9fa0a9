#include "picture/BufferCanvas.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
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
  constexpr std::size_t shared =
      5'000;  // from here on two cores paint, each its own rows: a thread costs as much as some 300
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

/// Beside each other lie lines one pixel wide, shifted across the way that they run.
void BufferCanvas::Tratto(std::span<const PuntoPixel> points, std::int32_t width, Colour colour) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    const PuntoPixel &a = points[i - 1], &b = points[i];
    if (a == b && points.size() > 2) continue;
    // To a neighbouring pixel a square does what lines beside each other would do, at a third of their time.
    if (width > 1 && std::abs(b.X - a.X) <= 1 && std::abs(b.Y - a.Y) <= 1) {
      const std::int32_t left = b.X - width / 2, top = b.Y - width / 2;
      painter_.box({left, left + width, top, top + width}, colour);
      continue;
    }
    const bool steep = std::abs(static_cast<std::int64_t>(b.Y) - a.Y) > std::abs(static_cast<std::int64_t>(b.X) - a.X);
    for (std::int32_t k = 0; k < width; ++k) {
      const std::int32_t shift = k - width / 2, x = steep ? shift : 0, y = steep ? 0 : shift;
      painter_.line({a.X + x, a.Y + y}, {b.X + x, b.Y + y}, colour);
    }
  }
}

void BufferCanvas::Velo(const PixelArea& box, Colour colour, std::uint32_t opacity) {
  const auto mixed = [&](std::uint32_t below, std::uint32_t shift) {
    const std::uint32_t part = (below >> shift & 0xFFU) * (255U - opacity) + (colour >> shift & 0xFFU) * opacity;
    return (part + 127U) / 255U << shift;
  };
  for (std::int32_t y = std::max(box.top, 0); y < std::min(box.bottom, buffer_.height); ++y) {
    std::uint32_t* row = buffer_.pixels + y * buffer_.stride;
    for (std::int32_t x = std::max(box.left, 0); x < std::min(box.right, buffer_.width); ++x) {
      row[x] = 0xFF000000U | mixed(row[x], 16U) | mixed(row[x], 8U) | mixed(row[x], 0U);
    }
  }
}

void BufferCanvas::Marcatori(std::span<const PuntoPixel> points, MarkerShape shape, std::int32_t radius,
                             Colour colour) {
  painter_.marks(points, shape, radius, colour);
}

}  // namespace corvan

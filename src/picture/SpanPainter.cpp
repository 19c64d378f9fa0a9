#include "picture/SpanPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

namespace corvan {
namespace {

constexpr std::int32_t Far = 1 << 29;   // products of lengths then fit into 64 bits
constexpr std::int32_t Near = 1 << 13;  // and up to here into 32
constexpr std::uint32_t Opaque = 0xFF000000U;

PuntoPixel Tenuto(const PuntoPixel& p) { return {std::clamp(p.X, -Far, Far), std::clamp(p.Y, -Far, Far)}; }

template <class Integer>
Integer DivisioneInferiore(Integer value, Integer by) {
  const Integer quotient = value / by;
  return quotient * by > value ? quotient - 1 : quotient;
}

/// A line with at most one step across a row: gives each row first..last its pixel.
template <class Integer, class Sink>
void LineaRipida(const PuntoPixel& a, const PuntoPixel& b, std::int32_t first, std::int32_t last, Sink& sink) {
  const Integer dx2 = 2 * (static_cast<Integer>(b.X) - a.X);
  const Integer dy = static_cast<Integer>(b.Y) - a.Y;
  const Integer dy2 = 2 * dy;
  Integer x = a.X;
  Integer part = dy;
  if (a.Y < first) {
    const Integer moved = dx2 * (static_cast<Integer>(first) - a.Y) + dy;
    const Integer steps = DivisioneInferiore(moved, dy2);
    x += steps;
    part = moved - steps * dy2;
  }
  const std::int32_t end = std::min(b.Y, last);
  for (std::int32_t y = std::max(a.Y, first); y <= end; ++y) {
    sink(y, static_cast<std::int32_t>(x), static_cast<std::int32_t>(x));
    part += dx2;
    if (part >= dy2) {
      part -= dy2;
      ++x;
    } else if (part < 0) {
      part += dy2;
      --x;
    }
  }
}

/// A line wider than high: gives each row first..last its run of pixels. Row j below the upper end begins at step
/// ceil(width (2 j - 1) / (2 height)).
template <class Integer, class Sink>
void LineaPiana(const PuntoPixel& a, const PuntoPixel& b, std::int32_t first, std::int32_t last, Sink& sink) {
  const bool rightwards = b.X > a.X;
  const Integer width = rightwards ? static_cast<Integer>(b.X) - a.X : static_cast<Integer>(a.X) - b.X;
  const Integer height2 = 2 * (static_cast<Integer>(b.Y) - a.Y);
  const Integer step = 2 * width / height2;
  const Integer stepRest = 2 * width - step * height2;
  const Integer skipped = std::max<Integer>(0, static_cast<Integer>(first) - a.Y);
  Integer start = skipped == 0 ? 0 : (width * (2 * skipped - 1) + height2 - 1) / height2;
  const Integer passed = width * (2 * skipped + 1);
  Integer next = (passed + height2 - 1) / height2;
  Integer rest = next * height2 - passed;
  const std::int32_t end = std::min(b.Y, last);
  for (std::int32_t y = std::max(a.Y, first); y <= end; ++y) {
    const Integer stop = y == b.Y ? width : next - 1;
    const Integer low = rightwards ? a.X + start : a.X - stop;
    sink(y, static_cast<std::int32_t>(low), static_cast<std::int32_t>(low + stop - start));
    start = next;
    next += step;
    rest -= stepRest;
    if (rest < 0) {
      ++next;
      rest += height2;
    }
  }
}

/// Gives each row first..last that the line crosses the run of its pixels there, as (y, low, high).
template <class Integer, class Sink>
void PercorriLinea(PuntoPixel a, PuntoPixel b, std::int32_t first, std::int32_t last, Sink&& sink) {
  if (a.Y > b.Y) std::swap(a, b);
  if (b.Y < first || a.Y > last) return;
  if (a.Y == b.Y) {
    sink(a.Y, std::min(a.X, b.X), std::max(a.X, b.X));
    return;
  }
  const Integer height = static_cast<Integer>(b.Y) - a.Y;
  const Integer across = static_cast<Integer>(b.X) - a.X;
  if (across <= height && -across <= height) {
    LineaRipida<Integer>(a, b, first, last, sink);
  } else {
    LineaPiana<Integer>(a, b, first, last, sink);
  }
}

}  // namespace

SpanPainter::SpanPainter(const PixelBuffer& buffer, std::int32_t top, std::int32_t bottom)
    : buffer_(buffer), top_(top), bottom_(bottom), spans_(static_cast<std::size_t>(std::max(buffer.height, 0))) {}

void SpanPainter::row(std::int32_t y, std::int32_t low, std::int32_t high, std::uint32_t pixel) const {
  low = std::max(low, 0);
  high = std::min(high, buffer_.width - 1);
  if (low > high) return;
  std::uint32_t* at = buffer_.pixels + y * buffer_.stride + low;
  std::uint32_t* const end = at + (high - low + 1);
  const std::array<std::uint32_t, 4> four{pixel, pixel, pixel, pixel};
  for (; end - at >= 4; at += 4) std::memcpy(at, four.data(), sizeof four);
  while (at != end) *at++ = pixel;
}

void SpanPainter::box(const PixelArea& area, Colour colour) {
  const std::int32_t bottom = std::min(area.bottom, buffer_.height);
  for (std::int32_t y = std::max(area.top, 0); y < bottom; ++y) row(y, area.left, area.right - 1, colour | Opaque);
}

void SpanPainter::line(const PuntoPixel& from, const PuntoPixel& to, Colour colour) {
  const PuntoPixel a = Tenuto(from), b = Tenuto(to);
  if (std::max(a.X, b.X) < 0 || std::min(a.X, b.X) >= buffer_.width) return;
  const auto paint = [this, colour](std::int32_t y, std::int32_t low, std::int32_t high) {
    row(y, low, high, colour | Opaque);
  };
  PercorriLinea<std::int64_t>(a, b, 0, buffer_.height - 1, paint);
}

void SpanPainter::quad(const PixelQuad& quad) {
  const auto& c = quad.corner;
  const auto [left, right] = std::minmax({c[0].X, c[1].X, c[2].X, c[3].X});
  const auto [top, bottom] = std::minmax({c[0].Y, c[1].Y, c[2].Y, c[3].Y});
  if (right < 0 || left >= buffer_.width || bottom < top_ || top >= bottom_) return;
  const std::int32_t first = std::max(top, top_), last = std::min(bottom, bottom_ - 1);
  if ((quad.colour & OutlineOnly) != 0) {
    outline(quad, first, last);
  } else if (left > -Near && right < Near && top > -Near && bottom < Near) {
    fill<std::int32_t>(quad, first, last);
  } else {
    fill<std::int64_t>(quad, first, last);
  }
}

/// The pixels of the four edges in the rows first..last.
void SpanPainter::outline(const PixelQuad& quad, std::int32_t first, std::int32_t last) const {
  const auto paint = [&](std::int32_t y, std::int32_t low, std::int32_t high) {
    row(y, low, high, quad.colour | Opaque);
  };
  const auto& c = quad.corner;
  for (std::size_t i = 0; i < c.size(); ++i) {
    PercorriLinea<std::int64_t>(Tenuto(c[i]), Tenuto(c[(i + 1) % c.size()]), first, last, paint);
  }
}

template <class Integer>
void SpanPainter::fill(const PixelQuad& quad, std::int32_t first, std::int32_t last) {
  Span* const spans = spans_.data();
  for (std::int32_t y = first; y <= last; ++y) {
    spans[y] = {std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()};
  }
  const auto widen = [spans](std::int32_t y, std::int32_t low, std::int32_t high) {
    spans[y].low = std::min(spans[y].low, low);
    spans[y].high = std::max(spans[y].high, high);
  };
  const auto& c = quad.corner;
  for (std::size_t i = 0; i < c.size(); ++i) {
    PercorriLinea<Integer>(Tenuto(c[i]), Tenuto(c[(i + 1) % c.size()]), first, last, widen);
  }
  for (std::int32_t y = first; y <= last; ++y) row(y, spans[y].low, spans[y].high, quad.colour | Opaque);
}

bool Copre(const std::array<PuntoPixel, 4>& corner, const PuntoPixel& pixel) {
  std::int32_t left = std::numeric_limits<std::int32_t>::max(), right = std::numeric_limits<std::int32_t>::min();
  const auto widen = [&](std::int32_t, std::int32_t low, std::int32_t high) {
    left = std::min(left, low);
    right = std::max(right, high);
  };
  for (std::size_t i = 0; i < corner.size(); ++i) {
    PercorriLinea<std::int64_t>(Tenuto(corner[i]), Tenuto(corner[(i + 1) % corner.size()]), pixel.Y, pixel.Y, widen);
  }
  return left <= pixel.X && pixel.X <= right;
}

void SpanPainter::marks(std::span<const PuntoPixel> centres, MarkerShape shape, std::int32_t radius, Colour colour) {
  std::vector<std::int32_t> half;  // pixels beside the centre in the rows -radius..radius
  for (std::int32_t dy = -radius; dy <= radius; ++dy) {
    // A disc of radius + 1/2, so that small marks are round rather than crosses.
    const double round = std::sqrt((radius + 0.5) * (radius + 0.5) - static_cast<double>(dy) * dy);
    half.push_back(shape == MarkerShape::Dot ? static_cast<std::int32_t>(round) : radius - std::abs(dy));
  }
  for (const PuntoPixel& centre : centres) {
    const PuntoPixel c = Tenuto(centre);
    if (c.X + radius < 0 || c.X - radius >= buffer_.width) continue;
    const std::int32_t last = std::min(c.Y + radius, buffer_.height - 1);
    for (std::int32_t y = std::max(c.Y - radius, 0); y <= last; ++y) {
      const std::int32_t wide = half.at(static_cast<std::size_t>(std::int64_t{y} - c.Y + radius));
      row(y, c.X - wide, c.X + wide, colour | Opaque);
    }
  }
}

}  // namespace corvan

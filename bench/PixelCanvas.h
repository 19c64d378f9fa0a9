// A picture in memory for the benchmarks of painting.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "picture/BufferCanvas.h"

namespace corvan::bench {

inline constexpr std::int32_t Width = 1600;
inline constexpr std::int32_t Height = 1000;

/// A canvas without fonts; texts have a size all the same, so that the layout is that of a picture.
class PixelCanvas : public BufferCanvas {
 public:
  explicit PixelCanvas(std::vector<std::uint32_t>& pixels)
      : BufferCanvas(PixelBuffer{pixels.data(), Width, Height, Width}) {}
  void Poligono(std::span<const PuntoPixel>, Colour) override {}
  void Testo(const PuntoPixel&, std::string_view, Colour) override {}
  std::int32_t LarghezzaTesto(std::string_view text) const override {
    return 8 * static_cast<std::int32_t>(text.size());
  }
  std::int32_t AltezzaTesto() const override { return 16; }
};

}  // namespace corvan::bench

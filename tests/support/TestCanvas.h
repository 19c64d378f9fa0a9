// A picture in memory without fonts: letters all have one size.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "picture/BufferCanvas.h"

namespace corvan::test {

struct Pixels {
  std::vector<std::uint32_t> held;
};

/// Eight pixels a letter; keeps what was written and where.
class TestCanvas : private Pixels, public BufferCanvas {
 public:
  struct Text {
    PuntoPixel place;
    std::string text;
  };

  TestCanvas(std::int32_t width, std::int32_t height)
      : Pixels{std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), 0xFFFFFFFF)},
        BufferCanvas(PixelBuffer{held.data(), width, height, width}) {}

  void Poligono(std::span<const PuntoPixel>, Colour) override {}
  void Testo(const PuntoPixel& place, std::string_view text, Colour) override {
    texts.push_back({place, std::string(text)});
  }
  std::int32_t LarghezzaTesto(std::string_view text) const override {
    return 8 * static_cast<std::int32_t>(text.size());
  }
  std::int32_t AltezzaTesto() const override { return 12; }

  Colour at(std::int32_t x, std::int32_t y) const {
    const PixelBuffer p = picture();
    return p.pixels[y * p.stride + x] & 0xFFFFFFU;
  }
  const std::vector<std::uint32_t>& pixels() const { return held; }

  std::vector<Text> texts;
};

}  // namespace corvan::test

// A picture in memory without fonts, and surveys to paint on it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "picture/BufferCanvas.h"
#include "support/Surveys.h"

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

/// A survey as the analysis leaves it: scene origin (300000, 5000000), cells 10 m high.
inline Survey SurveyOf(const std::vector<Firing>& firings) {
  Survey survey = Measurements(firings);
  survey.traccia.CentroX = 300000;
  survey.traccia.CentroY = 5000000;
  survey.traccia.AltezzaCella = 10;
  survey.traccia.EstensioneX = survey.traccia.EstensioneY = 100;
  return survey;
}

inline void ExpectPoint(const Punto3D& p, float x, float y, float z, const char* what) {
  EXPECT_FLOAT_EQ(p.x, x) << what;
  EXPECT_FLOAT_EQ(p.y, y) << what;
  EXPECT_FLOAT_EQ(p.z, z) << what;
}

}  // namespace corvan::test

// A picture in memory without fonts, and surveys to paint on it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "picture/BufferCanvas.h"
#include "support/Surveys.h"

namespace corvan::test {

/// Eight pixels a letter; keeps what was written and where.
class TestCanvas : public BufferCanvas {
 public:
  struct Text {
    PuntoPixel place;
    std::string text;
  };

  TestCanvas(std::int32_t width, std::int32_t height)
      : TestCanvas(width, std::vector<std::uint32_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                                     0xFFFFFFFF)) {}

  void Poligono(std::span<const PuntoPixel> corners, Colour colour) override {
    polygon.assign(corners.begin(), corners.end());
    polygonColour = colour;
  }
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
  const std::vector<std::uint32_t>& pixels() const { return *pixels_; }

  std::vector<PuntoPixel> polygon;
  Colour polygonColour = 0;
  std::vector<Text> texts;

 private:
  TestCanvas(std::int32_t width, std::vector<std::uint32_t> pixels)
      : TestCanvas(width, std::make_shared<std::vector<std::uint32_t>>(std::move(pixels))) {}
  TestCanvas(std::int32_t width, const std::shared_ptr<std::vector<std::uint32_t>>& pixels)
      : BufferCanvas(PixelBuffer{pixels->data(), width, static_cast<std::int32_t>(pixels->size()) / width, width}),
        pixels_(pixels) {}

  std::shared_ptr<std::vector<std::uint32_t>> pixels_;
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

}  // namespace corvan::test

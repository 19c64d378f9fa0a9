// A picture in memory without fonts, and surveys to paint on it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "picture/BufferCanvas.h"
#include "survey/Survey.h"

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

struct Firing {
  double est, nord;  ///< m; 0 for no position
  std::int16_t file = 1;
};

/// A survey as the analysis leaves it: scene origin (300000, 5000000), 10 m between firings, resistivity of level k of
/// firing i = i + k / 100.
inline Survey SurveyOf(const std::vector<Firing>& firings) {
  Survey survey;
  std::size_t i = 0;
  for (const auto& [est, nord, file] : firings) {
    Misura m;
    m.SorgenteUTM = true;
    ImpostaPosizione(m, nord, est);
    m.NumFile = file;
    m.Val12 = 3;
    ++i;
    for (std::size_t k = 1; k <= MaxChannels; ++k) m.Rho.at(k) = static_cast<float>(i) + static_cast<float>(k) / 100.0F;
    survey.Misure.append(m);
  }
  survey.traccia.CentroX = 300000;
  survey.traccia.CentroY = 5000000;
  survey.traccia.PassoMedio = 10;
  survey.traccia.EstensioneX = survey.traccia.EstensioneY = 100;
  survey.file.NumCanali = 10;
  return survey;
}

}  // namespace corvan::test

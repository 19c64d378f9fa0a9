// A survey as the window shows it at first, and what its picture tells.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "PlainCurtain.h"
#include "view3d/Projector.h"

namespace corvan::test {

/// A survey of these firings with the extent that they have about (300000, 5000000).
inline Prepared Shown(const std::vector<Firing>& firings, double east, double north, PuntoPixel size) {
  Survey survey = SurveyOf(firings);
  survey.traccia.EstensioneX = east;
  survey.traccia.EstensioneY = north;
  Prepared p(std::move(survey));
  p.view.layers = Layers{};
  p.view.layers.MostraScalaColori = p.view.layers.MostraNord = true;
  p.view.mappa = {};
  p.view.AreaPixel = {0, size.X, 0, size.Y};
  ImpostaFinestra(p.view, p.survey.traccia);
  AggiornaZoom(p.view);
  return p;
}

/// A straight line of `count` firings, 10 m apart, from the middle of the scene outwards to both sides.
inline std::vector<Firing> Straight(int count, double east, double north, std::int16_t file = 1) {
  std::vector<Firing> firings;
  for (int i = 0; i < count; ++i) {
    const double along = 10.0 * (i - (count - 1) / 2.0);
    firings.push_back({300000 + along * east, 5e6 + along * north, file});
  }
  return firings;
}

struct Told {
  explicit Told(const Prepared& p, const PictureNotes& notes = {})
      : canvas(p.view.AreaPixel.right, p.view.AreaPixel.bottom) {
    renderer.DisegnaImmagineQ(p.scene, p.view, p.colours, notes, canvas);
    texts = renderer.testi();
  }
  std::optional<PlacedText> find(const std::string& text) const {
    for (const PlacedText& t : texts) {
      if (t.text == text) return t;
    }
    return std::nullopt;
  }

  TestCanvas canvas;
  Renderer renderer;
  std::vector<PlacedText> texts;
};

/// Pixel of a place of the scene.
inline PuntoPixel At(const Prepared& p, float x, float y, float z = 0) {
  const Projector projector(p.view);
  return projector.ortogonale(projector.ruota({x, y, z, 0}));
}

}  // namespace corvan::test

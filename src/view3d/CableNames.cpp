#include "view3d/CableNames.h"

#include <cmath>
#include <string>
#include <utility>

namespace corvan {
namespace {

/// Name of an electrode by its place in the list of positions.
std::string NomeElettrodo(std::int32_t index) {
  constexpr std::int32_t floating = 11;
  return index <= floating ? "E" + std::to_string(index) : "C" + std::to_string(index - floating);
}

/// The two ends of a cable: the electrodes farthest from each other on the picture. Electrodes are not listed in the
/// order in which they lie.
std::pair<std::size_t, std::size_t> Estremi(const std::vector<PointLabel>& electrodes) {
  std::pair<std::size_t, std::size_t> ends{0, 0};
  double most = -1.0;
  for (std::size_t i = 0; i < electrodes.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const PuntoPixel &a = electrodes[i].at, &b = electrodes[j].at;
      const double distance = std::hypot(static_cast<double>(a.X) - b.X, static_cast<double>(a.Y) - b.Y);
      if (distance <= most) continue;
      most = distance;
      ends = {j, i};
    }
  }
  return ends;
}

}  // namespace

void ScriviElettrodi(const std::vector<PointLabel>& electrodes, std::int32_t radius, Colour colour, TextLayout& texts) {
  std::vector<PixelArea> places;
  for (const PointLabel& e : electrodes) {
    const PixelArea box = texts.ingombro({0, 0}, NomeElettrodo(e.index));
    const std::int32_t left = e.at.X - box.right / 2, bottom = e.at.Y - radius - 2;
    places.push_back({left, left + box.right, bottom - box.bottom, bottom});
  }
  bool free = true;
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) free = free && !SiToccano(places[i], places[j]);
  }
  const auto [first, last] = Estremi(electrodes);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (free || i == first || i == last) {
      texts.scrivi({places[i].left, places[i].top}, NomeElettrodo(electrodes[i].index), colour);
    }
  }
}

}  // namespace corvan

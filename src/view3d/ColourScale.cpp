#include "view3d/ColourScale.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/Rounding.h"
#include "view3d/Palette.h"

namespace corvan {
namespace {

constexpr std::int32_t Byte = 256;

/// RRGGBB to a value with red in the low byte.
constexpr std::int32_t RossoInBasso(std::uint32_t rgb) {
  return static_cast<std::int32_t>((rgb & 0xFFU) << 16U | (rgb & 0xFF00U) | rgb >> 16U);
}

}  // namespace

Palette CreaScalaColore() {
  Palette palette{};
  std::transform(PaletteRgb.begin(), PaletteRgb.end(), palette.begin() + 1, RossoInBasso);
  return palette;
}

void CreaColore(const float& ScalaMax, const float& ScalaMin, const float& Valore, float& Colore) {
  static const Palette palette = CreaScalaColore();
  const double low = ScalaMin;
  const double index = (Valore - low) * Byte / (static_cast<double>(ScalaMax) - low);
  if (!std::isfinite(index)) return;
  const double held = std::clamp(ArrotondaPari(index), 1.0, 256.0);
  Colore = static_cast<float>(palette.at(static_cast<std::size_t>(held)));
}

ColourParts ScomponiColore(std::int32_t Colore) {
  const std::int32_t blue = static_cast<std::int32_t>(std::floor(static_cast<double>(Colore) / (Byte * Byte)));
  const std::int32_t rest = Colore - blue * Byte * Byte;
  const std::int32_t green = rest / Byte;
  const std::int32_t red = rest - green * Byte;
  const auto part = [](std::int32_t value) { return static_cast<std::int16_t>(std::max(value, 0)); };
  return {part(red), part(green), part(blue)};
}

}  // namespace corvan

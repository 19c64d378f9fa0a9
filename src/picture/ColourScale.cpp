#include "picture/ColourScale.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "picture/Palette.h"
#include "picture/Pixels.h"

namespace corvan {
namespace {

constexpr std::int32_t Byte = 256;
constexpr std::size_t Colours = 256;

/// Index 1..256 of a value on the scale; 0 when the bounds are equal or the value is not finite.
std::size_t IndiceColore(double value, double low, double span) {
  const double index = (value - low) * Byte / span;
  if (!std::isfinite(index)) return 0;
  return static_cast<std::size_t>(ArrotondaPixel(std::clamp(index, 1.0, 256.0)));
}

}  // namespace

ColourRange ScalaDaDati(float low, float high) {
  if (low != high) return {low, high};
  const float margin = 0.05F * std::abs(low);
  return {low - margin, high + margin};
}

Palette CreaScalaColore() {
  Palette palette{};
  std::transform(PaletteRgb.begin(), PaletteRgb.end(), palette.begin() + 1, RossoInBasso);
  return palette;
}

void CreaColore(const float& ScalaMax, const float& ScalaMin, const float& Valore, float& Colore) {
  static const Palette palette = CreaScalaColore();
  const double low = ScalaMin;
  const std::size_t index = IndiceColore(Valore, low, static_cast<double>(ScalaMax) - low);
  if (index > 0) Colore = static_cast<float>(palette.at(index));
}

double ValoreScala(const ColourScale& scale, double share) {
  const double low = scale.range.ScalaMin, high = scale.range.ScalaMax;
  return Logaritmica(scale) ? low * std::pow(high / low, share) : low + (high - low) * share;
}

std::uint32_t ColoreScala(const ColourScale& scale, std::size_t index) {
  return ColoriDi(scale.palette).at((scale.reversed ? Colours - index : index - 1));
}

ColourLookup::ColourLookup(const ColourScale& scale)
    : logarithmic_(Logaritmica(scale)), low_(scale.range.ScalaMin), span_(scale.range.ScalaMax - low_) {
  if (logarithmic_) {
    low_ = std::log(low_);
    span_ = std::log(static_cast<double>(scale.range.ScalaMax)) - low_;
  }
  for (std::size_t i = 1; i <= Colours; ++i) colours_.at(i) = ColoreScala(scale, i);
}

std::uint32_t ColourLookup::operator()(float value) const {
  double place = value;
  if (logarithmic_ && std::isfinite(value)) place = value > 0.0F ? std::log(place) : low_;
  return colours_[IndiceColore(place, low_, span_)];
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

// The colour of a resistivity.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "picture/Palette.h"

namespace corvan {

/// Bounds of the colour scale, ohm m. Both 0 means not set yet.
struct ColourRange {
  float ScalaMin = 0;
  float ScalaMax = 0;
  friend bool operator==(const ColourRange&, const ColourRange&) = default;
};

/// How resistivities become colours: the range and which colours lie over it.
struct ColourScale {
  ColourRange range;
  PaletteName palette = PaletteName::Spectrum;
  bool reversed = false;     ///< the last colour stands for the lowest value
  bool logarithmic = false;  ///< wished for; see Logaritmica
};

/// The scale counts in logarithms: it is wished for and both bounds are over 0. Else it is linear.
inline bool Logaritmica(const ColourScale& scale) {
  return scale.logarithmic && scale.range.ScalaMin > 0.0F && scale.range.ScalaMax > 0.0F;
}

/// Value at a share 0..1 of the way from the lower to the upper bound, ohm m.
double ValoreScala(const ColourScale& scale, double share);

/// Colour 1..256 of the scale as 0xRRGGBB.
std::uint32_t ColoreScala(const ColourScale& scale, std::size_t index);

/// Colour values with red in the low byte, then green, then blue; indices 1..256, slot 0 unused.
using Palette = std::array<std::int32_t, 257>;

/// The range that shows data of these extremes: a single value stands in the middle of 5 % of it to each side, uniform
/// zeros give no range.
ColourRange ScalaDaDati(float low, float high);

Palette CreaScalaColore();

/// Colour of a value on a linear scale: index round((Valore - ScalaMin) 256 / (ScalaMax - ScalaMin)), halves to even,
/// held to 1..256. Bounds in reverse order invert the colours. Equal bounds, or a value that is not finite, leave
/// Colore as it was.
void CreaColore(const float& ScalaMax, const float& ScalaMin, const float& Valore, float& Colore);

/// The colours of one scale as 0xRRGGBB, for many values: the same as CreaColore gives on a linear scale of the given
/// palette, black where it gives none. On a logarithmic scale values of 0 and less have the colour of the lower bound.
class ColourLookup {
 public:
  explicit ColourLookup(const ColourScale& scale);
  std::uint32_t operator()(float value) const;

 private:
  bool logarithmic_;
  double low_;
  double span_;
  std::array<std::uint32_t, 257> colours_{};  // slot 0: no colour
};

struct ColourParts {
  std::int16_t Rosso = 0;
  std::int16_t Verde = 0;
  std::int16_t Blu = 0;
};

/// RRGGBB as a value with red in the low byte.
constexpr std::int32_t RossoInBasso(std::uint32_t rgb) {
  return static_cast<std::int32_t>((rgb & 0xFFU) << 16U | (rgb & 0xFF00U) | (rgb >> 16U & 0xFFU));
}

/// Splits a colour value into its parts; a negative part is 0.
ColourParts ScomponiColore(std::int32_t Colore);

}  // namespace corvan

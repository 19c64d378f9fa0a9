// The colour of a resistivity.
#pragma once

#include <array>
#include <cstdint>

namespace corvan {

/// Bounds of the colour scale, ohm m. Both 0 means not set yet.
struct ColourRange {
  float ScalaMin = 0;
  float ScalaMax = 0;
};

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

/// The colours of one range as 0xRRGGBB, for many values: the same as CreaColore gives, black where it gives none.
class ColourLookup {
 public:
  explicit ColourLookup(const ColourRange& range);
  std::uint32_t operator()(float value) const;

 private:
  double low_;
  double span_;
};

struct ColourParts {
  std::int16_t Rosso = 0;
  std::int16_t Verde = 0;
  std::int16_t Blu = 0;
};

/// Splits a colour value into its parts; a negative part is 0.
ColourParts ScomponiColore(std::int32_t Colore);

}  // namespace corvan

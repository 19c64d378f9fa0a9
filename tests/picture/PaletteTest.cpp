// The palettes against their published colours and against what they promise the eye.
#include "picture/Palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace corvan {
namespace {

/// CIE lightness (D65) of an sRGB colour, 0 to 100.
double Lightness(std::uint32_t rgb) {
  const auto linear = [rgb](unsigned shift) {
    const double level = (rgb >> shift & 0xFFU) / 255.0;
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
  };
  const double y = 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
  return y > 216.0 / 24389.0 ? 116.0 * std::cbrt(y) - 16.0 : y * 24389.0 / 27.0;
}

/// FNV-1a over red, green and blue of every colour.
std::uint64_t Fingerprint(PaletteName name) {
  std::uint64_t sum = 0xCBF29CE484222325U;
  for (const std::uint32_t colour : ColoriDi(name)) {
    for (const unsigned shift : {16U, 8U, 0U}) sum = (sum ^ (colour >> shift & 0xFFU)) * 0x100000001B3U;
  }
  return sum;
}

struct PublishedCase {
  PaletteName name;
  std::uint32_t first, middle, behind, last;  ///< colours 1, 128, 129, 256
  std::uint64_t fingerprint;                  ///< of all, from the published tables by python
};

TEST(Palettes, HoldTheirPublishedColours) {
  for (const auto& p :
       {PublishedCase{PaletteName::Spectrum, 0x7800FE, 0x00FE3E, 0x00FE3E, 0xFF0900, 0xC275DCD1DD2EFCF1},
        PublishedCase{PaletteName::Viridis, 0x440154, 0x21908D, 0x21918C, 0xFDE725, 0x1B8E5490518C939B},
        PublishedCase{PaletteName::Cividis, 0x00224E, 0x7C7B78, 0x7D7C78, 0xFEE838, 0x7A7F3AE563911AA6},
        PublishedCase{PaletteName::Grey, 0x181818, 0x747474, 0x757575, 0xE2E2E2, 0xF7D42FFB155BB2AB}}) {
    const PaletteColours& colours = ColoriDi(p.name);
    EXPECT_EQ(colours.at(0), p.first) << VoceDi(p.name).word;
    EXPECT_EQ(colours.at(127), p.middle) << VoceDi(p.name).word;
    EXPECT_EQ(colours.at(128), p.behind) << VoceDi(p.name).word;
    EXPECT_EQ(colours.at(255), p.last) << VoceDi(p.name).word;
    EXPECT_EQ(Fingerprint(p.name), p.fingerprint) << VoceDi(p.name).word;
  }
}

struct EvenCase {
  PaletteName name;
  double darkest, lightest, bent;  ///< lightness of the ends, and farthest from the straight line between them
};

// A step of lightness is at most 0.7 and never falls by more than the rounding to 8 bits can make it (0.04); over four
// colours it always rises.
TEST(Palettes, ForEveryEyeRiseEvenlyInLightness) {
  for (const auto& p : {EvenCase{PaletteName::Viridis, 14.9, 90.9, 1.9},
                        EvenCase{PaletteName::Cividis, 13.8, 91.3, 1.6}, EvenCase{PaletteName::Grey, 8.2, 89.9, 0.5}}) {
    const char* const word = VoceDi(p.name).word;
    const PaletteColours& colours = ColoriDi(p.name);
    const double first = Lightness(colours.front()), last = Lightness(colours.back());
    EXPECT_NEAR(first, p.darkest, 0.05) << word;
    EXPECT_NEAR(last, p.lightest, 0.05) << word << ": seen on white paper";
    for (std::size_t i = 0; i < colours.size(); ++i) {
      const double here = Lightness(colours.at(i));
      EXPECT_NEAR(here, first + (last - first) * static_cast<double>(i) / 255.0, p.bent) << word << ' ' << i;
      if (i >= 1) {
        const double step = here - Lightness(colours.at(i - 1));
        EXPECT_TRUE(step > -0.04 && step < 0.7) << word << ' ' << i << ": " << step;
      }
      if (i >= 4) {
        EXPECT_GT(here, Lightness(colours.at(i - 4))) << word << ' ' << i;
      }
    }
  }
}

TEST(Palettes, AreKnownByTheirWords) {
  EXPECT_EQ(ParoleDiPalette(), "spectrum, viridis, cividis, grey");
  for (const PaletteEntry& entry : PaletteTable) {
    ASSERT_NE(PaletteDaParola(entry.word), nullptr) << entry.word;
    EXPECT_EQ(PaletteDaParola(entry.word)->name, entry.name);
    EXPECT_EQ(&VoceDi(entry.name), &*std::find_if(PaletteTable.begin(), PaletteTable.end(),
                                                  [&](const PaletteEntry& e) { return e.name == entry.name; }));
  }
  for (const char* word : {"", "Viridis", "virid", "grey "}) EXPECT_EQ(PaletteDaParola(word), nullptr) << word;
}

}  // namespace
}  // namespace corvan

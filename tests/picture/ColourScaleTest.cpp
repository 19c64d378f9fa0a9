// The colour of a resistivity.
#include "picture/ColourScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace corvan {
namespace {

float Colour(float max, float min, float value) {
  float colour = -1;
  CreaColore(max, min, value, colour);
  return colour;
}

// Entries of the published table: 1 7800FE, 2 7800FE, 3 7300FF, 128 00FE3E, 256 FF0900, all with red in the low byte.
TEST(ColourScale, IsLinearClampedAndRedInTheLowByte) {
  EXPECT_EQ(Colour(100, 0, 0), 0xFE0078);
  EXPECT_EQ(Colour(100, 0, -5), 0xFE0078);
  EXPECT_EQ(Colour(256, 0, 3), 0xFF0073);
  EXPECT_EQ(Colour(100, 0, 50), 0x3EFE00);
  EXPECT_EQ(Colour(100, 0, 1000), 0x0009FF);
  EXPECT_EQ(Colour(256, 0, 2.5F), 0xFE0078) << "halves to even";
  EXPECT_EQ(Colour(0, 100, 100), 0xFE0078) << "bounds in reverse order invert";
}

TEST(ColourScale, LeavesTheColourWhereThereIsNone) {
  EXPECT_TRUE(Colour(5, 5, 5) == -1 && Colour(5, 5, 6) == -1 && Colour(5, 0, std::nanf("")) == -1);
}

TEST(ColourParts, AreSplitAndNeverNegative) {
  const ColourParts parts = ScomponiColore(0x3EFE05);
  EXPECT_TRUE(parts.Rosso == 0x05 && parts.Verde == 0xFE && parts.Blu == 0x3E);
  EXPECT_EQ(ScomponiColore(-1).Blu, 0);
}

TEST(ColourRanges, OfDataAreTheirExtremesAndNeverAPointButForZero) {
  const auto range = [](float low, float high) {
    const ColourRange r = ScalaDaDati(low, high);
    return std::pair(r.ScalaMin, r.ScalaMax);
  };
  EXPECT_EQ(range(0.5F, 8), std::pair(0.5F, 8.0F));
  EXPECT_EQ(range(4, 4), std::pair(3.8F, 4.2F));
  EXPECT_EQ(range(-10, -10), std::pair(-10.5F, -9.5F));
  EXPECT_EQ(range(0, 0), std::pair(0.0F, 0.0F));
}

}  // namespace
}  // namespace corvan

// Straight-line fits: the section's direction hangs on them.
#include "geo/LinearFit.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvan {
namespace {

Array1<double> Values(std::initializer_list<double> list) {
  Array1<double> values;
  for (const double v : list) values.append(v);
  return values;
}

// Worked by hand: x 1..4, y 6 5 7 10 gives b = 1.4, a = 3.5, residual sum 4.2; Sx = 10, Sxx = 30, delta = 20.
TEST(LinearFit, GivesCoefficientsVariancesAndResiduals) {
  const auto x = Values({0, 1, 2, 3, 4, 99}), y = Values({0, 6, 5, 7, 10, 99});
  LinearFit fit;
  std::int32_t i1 = 5, i2 = 2;
  fit.LinFit(x, y, i1, i2);
  EXPECT_TRUE(i1 == 2 && i2 == 5);
  EXPECT_NEAR(fit.b(), 1.4, 1e-12);
  EXPECT_NEAR(fit.a(), 3.5, 1e-12);
  EXPECT_NEAR(fit.ChiSq(), 4.2, 1e-12);
  EXPECT_NEAR(fit.d2B(), 4.0 / 20, 1e-12);
  EXPECT_NEAR(fit.d2A(), 30.0 / 20, 1e-12);
  EXPECT_NEAR(fit.R(), -10 / std::sqrt(120.0), 1e-12);
  EXPECT_EQ(fit.N(), 4);
}

TEST(LinearFit, KeepsVerticalAndCountWhereTheDescriptionSaysSo) {
  const auto x = Values({3, 3, 3, 4}), y = Values({1, 2, 5, 7});
  LinearFit fit;
  std::int32_t i1 = 1, i2 = 3;
  fit.LinFit(x, y, i1, i2);
  EXPECT_TRUE(fit.Vertical());
  EXPECT_EQ(fit.b(), 0);
  i1 = 3;
  i2 = 4;
  fit.LinFit(x, y, i1, i2);
  EXPECT_NEAR(fit.b(), 2, 1e-12);
  EXPECT_NEAR(fit.ChiSq(), 0, 1e-20);
  EXPECT_TRUE(fit.Vertical()) << "only a new object clears it";
  i1 = i2;
  fit.LinFit(x, y, i1, i2);
  EXPECT_TRUE(fit.b() == 0 && fit.N() == 2);
  i2 = 5;
  EXPECT_THROW(fit.LinFit(x, y, i1, i2), RunTimeError);
}

}  // namespace
}  // namespace corvan

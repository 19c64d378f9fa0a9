// The cubic Bezier curve.
#include "geo/BezierCubic.h"

#include <gtest/gtest.h>

namespace corvan {
namespace {

TEST(BezierCurves, BeginAndEndAtTheirEndPoints) {
  BezierCubic bezier;
  EXPECT_EQ(bezier.GetXInterpolated().size(), 10U);
  bezier.NofInterpPoint(5);
  const Array1<double> x = bezier.GetXInterpolated(), y = bezier.GetYInterpolated();
  // (0,0) (1,0) (1,1) (0,1): x = 3 t (1 - t), y = 3 t^2 - 2 t^3.
  const double expected[][2] = {{0, 0}, {0.5625, 0.15625}, {0.75, 0.5}, {0.5625, 0.84375}, {0, 1}};
  for (std::size_t i = 1; i <= 5; ++i) {
    EXPECT_DOUBLE_EQ(x(i), expected[i - 1][0]) << i;
    EXPECT_DOUBLE_EQ(y(i), expected[i - 1][1]) << i;
  }
  bezier.SetBasePoints(1, 10, 2, 20, 3, 30, 4, 40);
  bezier.NofInterpPoint(2);
  EXPECT_EQ(bezier.GetXInterpolated()(1), 1);
  EXPECT_EQ(bezier.GetYInterpolated()(2), 40);
  bezier.NofInterpPoint(7);
  for (std::size_t i = 1; i <= 7; ++i) {
    EXPECT_NEAR(bezier.GetXInterpolated()(i), 1 + 0.5 * static_cast<double>(i - 1), 1e-12) << "thirds give equal steps";
  }
}

TEST(BezierCurves, OfFewerThanTwoPointsDivideByNothing) {
  BezierCubic bezier;
  bezier.SetBasePoints(7, 8, 0, 0, 0, 0, 1, 1);
  bezier.NofInterpPoint(1);
  EXPECT_EQ(bezier.GetXInterpolated()(1), 7);
  bezier.NofInterpPoint(-3);
  EXPECT_TRUE(bezier.GetYInterpolated().empty());
}

}  // namespace
}  // namespace corvan

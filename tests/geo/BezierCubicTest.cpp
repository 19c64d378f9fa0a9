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
  EXPECT_EQ(x(1), 0);
  EXPECT_DOUBLE_EQ(x(2), 0.5625);
  EXPECT_DOUBLE_EQ(x(3), 0.75);
  EXPECT_EQ(x(5), 0);
  EXPECT_DOUBLE_EQ(y(2), 0.15625);
  EXPECT_EQ(y(5), 1);
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

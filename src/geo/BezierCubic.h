// One cubic Bezier curve at equally spaced parameter values.
#pragma once

#include <array>
#include <cstdint>

#include "base/Array1.h"

namespace corvan {

/// After construction: 10 points on the curve from (0, 0) over (1, 0) and (1, 1) to (0, 1).
class BezierCubic {
 public:
  std::int16_t NofInterpPoint() const { return count_; }
  /// Number of points; stored unchecked.
  void NofInterpPoint(std::int16_t count) { count_ = count; }

  /// Point by point: the curve's ends are the first and the fourth.
  void SetBasePoints(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4);

  /// The coordinates at t = (i - 1) / (n - 1), i = 1..n, by Bernstein's polynomials. Of one point only the first end is
  /// given, of none or fewer nothing.
  Array1<double> GetXInterpolated() { return calcola(x_); }
  Array1<double> GetYInterpolated() { return calcola(y_); }

 private:
  Array1<double> calcola(const std::array<double, 4>& control);

  std::int16_t count_ = 10;
  double t_ = 0;  // of the point last computed
  std::array<double, 4> x_{0, 1, 1, 0};
  std::array<double, 4> y_{0, 0, 1, 1};
};

}  // namespace corvan

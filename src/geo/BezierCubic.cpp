#include "geo/BezierCubic.h"

#include <algorithm>

namespace corvan {

void BezierCubic::SetBasePoints(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                double y4) {
  x_ = {x1, x2, x3, x4};
  y_ = {y1, y2, y3, y4};
}

Array1<double> BezierCubic::calcola(const std::array<double, 4>& control) {
  Array1<double> values(static_cast<std::size_t>(std::max<std::int16_t>(count_, 0)));
  for (std::size_t i = 1; i <= values.size(); ++i) {
    t_ = count_ > 1 ? static_cast<double>(i - 1) / (count_ - 1) : 0.0;
    const double u = 1.0 - t_;
    values(i) = u * u * u * control[0] + 3.0 * t_ * u * u * control[1] + 3.0 * t_ * t_ * u * control[2] +
                t_ * t_ * t_ * control[3];
  }
  return values;
}

}  // namespace corvan

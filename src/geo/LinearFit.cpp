#include "geo/LinearFit.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "base/Rounding.h"

namespace corvan {

std::int32_t LinearFit::N() const { return AInt32(n_); }

void LinearFit::LinFit(const Array1<double>& x, const Array1<double>& y, std::int32_t& i1, std::int32_t& i2) {
  if (i1 == i2) {
    a_ = b_ = 0.0;
    return;
  }
  if (i2 < i1) std::swap(i1, i2);
  n_ = static_cast<double>(i2) - i1 + 1;
  double sx = 0.0, sy = 0.0, sxy = 0.0, sxx = 0.0;
  for (auto k = static_cast<std::size_t>(i1); k <= static_cast<std::size_t>(i2); ++k) {
    sx += x(k);
    sy += y(k);
    sxy += x(k) * y(k);
    sxx += x(k) * x(k);
  }
  const double delta = n_ * sxx - sx * sx;
  if (delta == 0.0) {
    a_ = b_ = d2A_ = d2B_ = R_ = 0.0;
    vertical_ = true;
    return;
  }
  b_ = (n_ * sxy - sx * sy) / delta;
  a_ = (sy * sxx - sxy * sx) / delta;
  d2A_ = sxx / delta;
  d2B_ = n_ / delta;
  R_ = -sx / std::sqrt(sxx * n_);
  Array1<double> scratch(static_cast<std::size_t>(i2));
  LinVal(x, y, scratch, i1, i2);
}

void LinearFit::LinVal(const Array1<double>& x, const Array1<double>& y, Array1<double>& yfit, std::int32_t& i1,
                       std::int32_t& i2) {
  if (i1 > i2) std::swap(i1, i2);
  chiSq_ = 0.0;
  for (auto k = static_cast<std::size_t>(i1); k <= static_cast<std::size_t>(i2); ++k) {
    yfit(k) = x(k) * b_ + a_;
    chiSq_ += std::pow(yfit(k) - y(k), 2);
  }
}

}  // namespace corvan

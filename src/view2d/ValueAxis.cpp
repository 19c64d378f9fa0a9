#include "view2d/ValueAxis.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "base/NumberText.h"
#include "picture/Ticks.h"

namespace corvan {
namespace {

/// Multiples of powers of ten in a range, thinned to at most so many.
std::vector<ValueAxis::Tick> Decadi(double low, double high, std::initializer_list<double> factors, std::size_t most) {
  std::vector<double> all;
  for (double k = std::floor(std::log10(low)); k <= std::ceil(std::log10(high)); ++k) {
    for (const double factor : factors) {
      const double value = factor * std::pow(10.0, k);
      if (value >= low * (1.0 - 1e-9) && value <= high * (1.0 + 1e-9)) all.push_back(value);
    }
  }
  const std::size_t every = most == 0 ? all.size() + 1 : (all.size() + most - 1) / most;
  std::vector<ValueAxis::Tick> ticks;
  for (std::size_t i = 0; i < all.size(); i += std::max<std::size_t>(every, 1)) {
    const double decade = std::pow(10.0, std::floor(std::log10(all[i]) + 1e-9));
    ticks.push_back({all[i], TestoTacca(all[i], decade)});
  }
  return ticks;
}

}  // namespace

ValueAxis::ValueAxis(double low, double high, bool logarithmic) : low_(low), high_(high), logarithmic_(logarithmic) {
  if (high_ > low_) return;
  const double part = low_ == 0.0 ? 1.0 : 0.05 * std::abs(low_);
  low_ -= part;
  high_ += part;
}

double ValueAxis::posto(double value) const {
  if (!logarithmic_) return std::clamp((value - low_) / (high_ - low_), 0.0, 1.0);
  if (!(value > low_)) return 0.0;
  return std::min(std::log(value / low_) / std::log(high_ / low_), 1.0);
}

std::vector<ValueAxis::Tick> ValueAxis::tacche(std::size_t most) const {
  if (most == 0) return {};
  if (logarithmic_) {
    for (const auto factors : {std::initializer_list<double>{1.0}, std::initializer_list<double>{1.0, 2.0, 5.0}}) {
      auto ticks = Decadi(low_, high_, factors, most);
      if (ticks.size() >= std::min<std::size_t>(2, most)) return ticks;
    }
  }
  std::vector<Tick> ticks;
  for (double steps = static_cast<double>(most); ticks.size() < 2 && steps < 16.0; steps *= 1.5) {
    const double step = PassoTacche(high_ - low_, steps);
    ticks.clear();
    for (const double value : Tacche(low_, high_, step)) ticks.push_back({value, TestoTacca(value, step)});
  }
  return ticks;
}

}  // namespace corvan

#include "track/PseudoDepth.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace corvan {
namespace {

constexpr std::size_t C1 = 12;
constexpr std::size_t C2 = 13;

/// Distances between a current and a potential electrode, with the signs of their potentials.
class Quartet {
 public:
  Quartet(double A, double B, double M, double N)
      : r_{std::abs(A - M), std::abs(A - N), std::abs(B - M), std::abs(B - N)} {}

  double nearest() const { return *std::min_element(r_.begin(), r_.end()); }
  double farthest() const { return *std::max_element(r_.begin(), r_.end()); }
  bool finite() const {
    return std::all_of(r_.begin(), r_.end(), [](double r) { return std::isfinite(r); });
  }
  /// sum(s / sqrt(r^2 + 4 z^2)), 1/m.
  double signal(double z) const {
    double sum = 0.0;
    for (std::size_t i = 0; i < r_.size(); ++i) sum += Sign.at(i) / std::hypot(r_.at(i), 2.0 * z);
    return sum;
  }
  /// The terms of the whole signal cancel but for roundings of the positions.
  bool cancels() const {
    double size = 0.0;
    for (const double r : r_) size += 1.0 / r;
    return std::abs(signal(0.0)) <= 1e-9 * size;
  }

 private:
  static constexpr std::array<double, 4> Sign{1.0, -1.0, -1.0, 1.0};
  std::array<double, 4> r_;
};

}  // namespace

std::optional<double> ProfonditaMediana(double A, double B, double M, double N) {
  const Quartet array(A, B, M, N);
  if (!array.finite() || !(array.nearest() > 0.0) || array.cancels()) return std::nullopt;
  const double half = array.signal(0.0) / 2.0;
  const auto above = [&](double z) { return (array.signal(z) > half) == (half > 0.0); };  // less than half lies above z
  // The sum may cross its half more than once: the steps are finer than any bend of it, which is as wide as its depth.
  constexpr double growth = 1.02;
  double low = 0.0, high = 1e-3 * array.nearest();
  while (above(high)) {
    low = high;
    high *= growth;
    if (!(high < 1e4 * array.farthest())) return std::nullopt;
  }
  for (int halving = 0; halving < 60; ++halving) {
    const double middle = (low + high) / 2.0;
    (above(middle) ? low : high) = middle;
  }
  return (low + high) / 2.0;
}

ReadingPlaces CollocaLetture(const Cable& cable, double offset) {
  const auto& p = cable.PosCavo;
  double head = -HUGE_VAL;
  for (std::size_t k = 1; k <= CableElectrodes; ++k) {
    if (std::isfinite(p.at(k))) head = std::max(head, static_cast<double>(p.at(k)));
  }
  ReadingPlaces places;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const double A = p[C1], B = p[C2], M = p.at(c), N = p.at(c + 1);
    const double behind = head - (A + B + M + N) / 4.0 + offset;
    if (std::isfinite(behind)) places.at(c).dietro = behind;
    places.at(c).profondita = ProfonditaMediana(A, B, M, N);
  }
  return places;
}

}  // namespace corvan

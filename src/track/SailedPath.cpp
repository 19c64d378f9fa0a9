#include "track/SailedPath.h"

#include <algorithm>
#include <utility>

namespace corvan {
namespace {

constexpr double NarrowestHalf = 0.01;  // m; under it the means would be lost in the rounding of the sums

std::vector<double> Lunghezze(const std::vector<PlanPoint>& points) {
  std::vector<double> lengths;
  lengths.reserve(points.size());
  double length = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i > 0) length += dist(points[i - 1].est, points[i - 1].nord, points[i].est, points[i].nord);
    lengths.push_back(length);
  }
  return lengths;
}

PlanPoint Tra(const PlanPoint& a, const PlanPoint& b, double t) {
  return {a.est + t * (b.est - a.est), a.nord + t * (b.nord - a.nord)};
}

/// Sums of easting and northing times length; differences of them over a short window need the longer numbers.
struct Sum {
  long double est = 0;
  long double nord = 0;
};

/// The integral of a path's places, relative to its first, over its length: the mean of any window is a difference.
class PathIntegral {
 public:
  explicit PathIntegral(const std::vector<PlanPoint>& points) : points_(points), lengths_(Lunghezze(points)) {
    sums_.reserve(points.size());
    sums_.emplace_back();
    for (std::size_t i = 1; i < points.size(); ++i) {
      sums_.push_back(through(i - 1, points[i], lengths_[i] - lengths_[i - 1]));
    }
  }

  /// The mean over as much of the window on either side of point i as the path has on both; the point itself where
  /// that is nothing.
  PlanPoint mean(std::size_t i, double window) const {
    const double at = lengths_[i];
    const double half = std::min({window / 2.0, at, lengths_.back() - at});
    if (half < NarrowestHalf) return points_[i];
    const auto [before, from] = upTo(at - half, i);
    const auto [behind, to] = upTo(at + half, i);
    const long double length = to - from;
    return {points_.front().est + static_cast<double>((behind.est - before.est) / length),
            points_.front().nord + static_cast<double>((behind.nord - before.nord) / length)};
  }

 private:
  /// The sum up to point i and on straight to a place some metres further.
  Sum through(std::size_t i, const PlanPoint& place, double metres) const {
    const PlanPoint& o = points_.front();
    const PlanPoint& p = points_[i];
    const long double m = metres;
    return {sums_[i].est + (p.est - o.est + (place.est - o.est)) / 2.0L * m,
            sums_[i].nord + (p.nord - o.nord + (place.nord - o.nord)) / 2.0L * m};
  }

  std::pair<Sum, long double> upTo(double length, std::size_t near) const {
    const std::size_t i = UltimoNonOltre(lengths_, length, near);
    if (i + 1 == points_.size()) return {sums_[i], lengths_[i]};
    const double metres = length - lengths_[i];
    const PlanPoint place = Tra(points_[i], points_[i + 1], metres / (lengths_[i + 1] - lengths_[i]));
    return {through(i, place, metres), length};
  }

  const std::vector<PlanPoint>& points_;
  std::vector<double> lengths_;
  std::vector<Sum> sums_;
};

std::vector<PlanPoint> Lisciati(std::vector<PlanPoint> points, double window) {
  if (points.empty() || window < 2.0 * NarrowestHalf) return points;
  const PathIntegral integral(points);
  std::vector<PlanPoint> smooth;
  smooth.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) smooth.push_back(integral.mean(i, window));
  return smooth;
}

/// Direction from a path's end to its nearest fix that is a window away; from one that never is, to the farthest. A
/// boat that drifts about its place before it sails has its direction from where it sails to.
template <class Fixes>
PlanPoint Rotta(Fixes from, Fixes end, double window) {
  const PlanPoint start = *from;
  PlanPoint direction{1, 0};
  double farthest = 0.0;
  for (Fixes fix = from; fix != end && (farthest < window || farthest == 0.0); ++fix) {
    const double away = dist(start.est, start.nord, fix->est, fix->nord);
    if (away <= farthest) continue;
    farthest = away;
    direction = {(fix->est - start.est) / away, (fix->nord - start.nord) / away};
  }
  return direction;
}

}  // namespace

std::size_t UltimoNonOltre(std::span<const double> values, double value, std::size_t near) {
  std::size_t low = std::min(near, values.size() - 1);
  std::size_t high = low;
  std::size_t step = 1;
  if (values[low] > value) {
    while (low > 0 && values[low] > value) {
      high = low;
      low -= std::min(low, step);
      step *= 2;
    }
  } else {
    while (high < values.size() && values[high] <= value) {
      low = high;
      high += step;
      step *= 2;
    }
    high = std::min(high, values.size());
  }
  const auto first = values.begin();
  const auto over =
      std::upper_bound(first + static_cast<std::ptrdiff_t>(low), first + static_cast<std::ptrdiff_t>(high), value);
  return over == first ? 0 : static_cast<std::size_t>(over - first) - 1;
}

SailedPath::SailedPath(std::vector<PlanPoint> fixes, double window)
    : fixes_(Lisciati(std::move(fixes), window)), lengths_(Lunghezze(fixes_)) {
  if (!conRotta()) return;
  first_ = Rotta(fixes_.begin(), fixes_.end(), window);
  const PlanPoint astern = Rotta(fixes_.rbegin(), fixes_.rend(), window);
  last_ = {-astern.est, -astern.nord};
}

PlanPoint SailedPath::sulPercorso(double length, std::size_t near) const {
  const std::size_t i = UltimoNonOltre(lengths_, length, near);
  if (i + 1 == fixes_.size()) return fixes_[i];
  return Tra(fixes_[i], fixes_[i + 1], (length - lengths_[i]) / (lengths_[i + 1] - lengths_[i]));
}

PlanPoint SailedPath::luogo(double length, std::size_t near) const {
  if (length < 0.0) {
    const PlanPoint& start = fixes_.front();
    return {start.est + length * first_.est, start.nord + length * first_.nord};
  }
  const double beyond = length - lunghezza();
  if (beyond <= 0.0) return sulPercorso(length, near);
  const PlanPoint& end = fixes_.back();
  return {end.est + beyond * last_.est, end.nord + beyond * last_.nord};
}

}  // namespace corvan

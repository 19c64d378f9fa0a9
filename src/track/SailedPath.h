// The path that the boat's antenna sailed along one line: its length, smoothed against the noise of GPS, and places on
// it.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geo/Plane.h"

namespace corvan {

/// Index of the last of non-decreasing values that is not over `value`; 0 when all are. Found by growing steps from
/// `near`, so that look-ups close to one another cost little however long the list.
/// @param values at least one @param near any index
std::size_t UltimoNonOltre(std::span<const double> values, double value, std::size_t near);

/// A line through the fixes of one file, straight from each to the next. Path length counts from the first fix.
///
/// Smoothing puts each fix into the mean of the path over a window of its length, half of it on either side; near the
/// ends the window shrinks evenly, so that the first and the last fix stay and a straight line stays where it is,
/// however its fixes are spaced.
class SailedPath {
 public:
  SailedPath() = default;
  /// @param fixes in the order of sailing, on one grid, finite; equal ones may follow one another
  /// @param window of the smoothing, m; 0 or under 2 cm: none
  SailedPath(std::vector<PlanPoint> fixes, double window);

  std::size_t size() const { return fixes_.size(); }
  /// Path length at fix i (0 to size() - 1), m; never less than at the fix before.
  double lunghezza(std::size_t i) const { return lengths_.at(i); }
  double lunghezza() const { return lengths_.empty() ? 0.0 : lengths_.back(); }
  /// Some fix lies elsewhere than the first: the path has a direction.
  bool conRotta() const { return lunghezza() > 0.0; }

  /// The place at a path length, m. Before the first fix the first course is prolonged backwards, behind the last one
  /// the last course onwards: the direction from that end to the nearest fix a window of the smoothing away, at least
  /// to the next that lies elsewhere. A path without any direction counts as sailed to the east.
  /// @param near index of a fix that the place may be close to; any other costs time alone
  /// The path must have a fix.
  PlanPoint luogo(double length, std::size_t near) const;

 private:
  PlanPoint sulPercorso(double length, std::size_t near) const;

  std::vector<PlanPoint> fixes_;
  std::vector<double> lengths_;
  PlanPoint first_{1, 0};  ///< unit vectors of the first and the last course
  PlanPoint last_{1, 0};
};

}  // namespace corvan

// The vertical axis of a curve.
#pragma once

#include <string>
#include <vector>

namespace corvan {

/// A range of values, linear or logarithmic.
class ValueAxis {
 public:
  /// @param low,high extremes of what is shown; equal ones are widened. A logarithmic axis needs both over 0.
  ValueAxis(double low, double high, bool logarithmic);

  /// Share 0..1 of the way from the lower to the upper end; a value outside is held to it, on a logarithmic axis 0 and
  /// less to the lower end.
  double posto(double value) const;

  struct Tick {
    double value = 0;
    std::string text;
  };
  /// Round numbers within the axis: about so many, two at least; on a logarithmic axis powers of ten, or their double
  /// and fivefold where fewer than two of them lie in the range; where even those are too few, linear ones.
  std::vector<Tick> tacche(std::size_t most) const;

  double low() const { return low_; }
  double high() const { return high_; }
  bool logarithmic() const { return logarithmic_; }

 private:
  double low_, high_;
  bool logarithmic_;
};

}  // namespace corvan

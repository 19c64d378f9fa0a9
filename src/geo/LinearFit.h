// Straight line y = a + b x through points by unweighted least squares.
#pragma once

#include <cstdint>

#include "base/Array1.h"

namespace corvan {

/// Source: P. R. Bevington, Data Reduction and Error Analysis for the Physical Sciences, ch. 6 (unit errors).
class LinearFit {
 public:
  double b() const { return b_; }  ///< slope
  void b(double slope) { b_ = slope; }
  double a() const { return a_; }  ///< intercept
  void a(double intercept) { a_ = intercept; }
  double d2B() const { return d2B_; }          ///< variance of the slope for unit errors
  double d2A() const { return d2A_; }          ///< variance of the intercept for unit errors
  double R() const { return R_; }              ///< correlation of the two estimates
  std::int32_t N() const;                      ///< points of the last fit
  bool Vertical() const { return vertical_; }  ///< all x of a run were equal; a later fit does not clear it
  void Vertical(bool vertical) { vertical_ = vertical; }
  double ChiSq() const { return chiSq_; }  ///< sum of squared residuals of the last LinVal
  void ChiSq(double value) { chiSq_ = value; }

  /// Fits points i1..i2 (1-based, either order: i2 < i1 are swapped in the caller's variables too) and fills ChiSq.
  /// One point gives a = b = 0 and leaves the rest; a vertical run sets Vertical, zeroes the coefficients and leaves
  /// ChiSq.
  /// @throws RunTimeError for an index outside the arrays
  void LinFit(const Array1<double>& x, const Array1<double>& y, std::int32_t& i1, std::int32_t& i2);

  /// yfit(k) = a + b x(k) for k = i1..i2 (swapped as in LinFit), and ChiSq over them.
  void LinVal(const Array1<double>& x, const Array1<double>& y, Array1<double>& yfit, std::int32_t& i1,
              std::int32_t& i2);

 private:
  double b_ = 0, a_ = 0, d2B_ = 0, d2A_ = 0, R_ = 0, n_ = 0;
  bool vertical_ = false;
  double chiSq_ = 0;
};

}  // namespace corvan

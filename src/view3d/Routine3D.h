// The arithmetic that every layer of the view shares: rotations, the way from metres to pixels, lines and vectors.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "picture/Pixels.h"
#include "survey/Punto3D.h"

namespace corvan {

/// Cosine and sine of an angle, taken once for all points that it turns.
struct Giro {
  explicit Giro(double angle) : c(std::cos(angle)), s(std::sin(angle)) {}
  double c;
  double s;
};

/// Turns the coordinates (p, q) about (cp, cq): p' = c (p - cp) + s (q - cq) + cp, q' = -s (p - cp) + c (q - cq) + cq,
/// in double precision, each result a single. The same signs serve all three axes, although RuotaY then turns the other
/// way than a right-handed system would: views that users remember depend on it.
inline void Gira(float& p, float& q, const Giro& angle, double cp, double cq) {
  const double dp = p - cp;
  const double dq = q - cq;
  p = static_cast<float>(angle.c * dp + angle.s * dq + cp);
  q = static_cast<float>(-angle.s * dp + angle.c * dq + cq);
}

/// P turned by an angle (rad) about the line through C parallel to the X, Y or Z axis; w is carried along.
Punto3D RuotaX(const Punto3D& P, const Punto3D& C, double angle);
Punto3D RuotaY(const Punto3D& P, const Punto3D& C, double angle);
Punto3D RuotaZ(const Punto3D& P, const Punto3D& C, double angle);

/// Pixel coordinate of a world value v: the window's edges w1 and w2 fall on the pixels p1 and p2. A window without
/// width gives the middle pixel. Results past 32 bits are held at the range's ends.
inline std::int32_t MappaPixel(double v, double w1, double w2, std::int32_t p1, std::int32_t p2) {
  constexpr double limit = 4294967296.0;
  if (w1 == w2) return static_cast<std::int32_t>(ArrotondaPixel((static_cast<double>(p1) + p2) / 2.0));
  const double steps = (v - w1) * (static_cast<double>(p2) - p1) / (w2 - w1);
  const double pixel = p1 + ArrotondaPixel(std::min(std::max(steps, -limit), limit));
  return static_cast<std::int32_t>(std::min(std::max(pixel, -2147483648.0), 2147483647.0));
}

/// The two directions of the picture, by the names that the view's procedures use.
inline std::int32_t MappaPixelX(double v, double w1, double w2, std::int32_t p1, std::int32_t p2) {
  return MappaPixel(v, w1, w2, p1, p2);
}
inline std::int32_t MappaPixelY(double v, double w1, double w2, std::int32_t p1, std::int32_t p2) {
  return MappaPixel(v, w1, w2, p1, p2);
}

/// Where line P1-P3 meets line P2-P4; only x and y count. A vertical line has the slope 9999, and so has one whose
/// slope is just that; two vertical lines meet in the mean of the points. Parallel lines are tilted (0.1 up at P1 and
/// P2, 0.1 down at P3 and P4, in the caller's points) until they meet.
/// @throws RunTimeError when they stay parallel or the result is not finite
Punto3D IntersecaRette(Punto3D& P1, Punto3D& P2, Punto3D& P3, Punto3D& P4);

/// A x B, with w = 0.
Punto3D ProdottoVettore(const Punto3D& A, const Punto3D& B);

/// Cosine of the angle between two vectors; 1 when either has no length.
double CosenoAngolo(const Punto3D& A, const Punto3D& B);

}  // namespace corvan

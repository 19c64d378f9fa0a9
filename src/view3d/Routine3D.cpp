#include "view3d/Routine3D.h"

#include "base/Errors.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

constexpr double Verticale = 9999.0;  // the slope that stands for a vertical line

double Pendenza(const Punto3D& from, const Punto3D& to) {
  if (from.x == to.x) return Verticale;
  return (static_cast<double>(to.y) - from.y) / (static_cast<double>(to.x) - from.x);
}

double Lunghezza(const Punto3D& v) {
  const double x = v.x, y = v.y, z = v.z;
  return std::sqrt(x * x + y * y + z * z);
}

Punto3D NelPiano(double x, double y) { return {ASingolo(x), ASingolo(y), 0.0F, 0.0F}; }

}  // namespace

Punto3D RuotaX(const Punto3D& P, const Punto3D& C, double angle) {
  Punto3D turned = P;
  Gira(turned.y, turned.z, Giro(angle), C.y, C.z);
  return turned;
}

Punto3D RuotaY(const Punto3D& P, const Punto3D& C, double angle) {
  Punto3D turned = P;
  Gira(turned.x, turned.z, Giro(angle), C.x, C.z);
  return turned;
}

Punto3D RuotaZ(const Punto3D& P, const Punto3D& C, double angle) {
  Punto3D turned = P;
  Gira(turned.x, turned.y, Giro(angle), C.x, C.y);
  return turned;
}

Punto3D IntersecaRette(Punto3D& P1, Punto3D& P2, Punto3D& P3, Punto3D& P4) {
  constexpr int attempts = 100;  // lines that run side by side stay parallel however they are tilted
  constexpr float tilt = 0.1F;
  for (int i = 0; i < attempts; ++i) {
    const double m1 = Pendenza(P1, P3);
    const double m2 = Pendenza(P2, P4);
    const double x1 = P1.x, y1 = P1.y, x2 = P2.x, y2 = P2.y;
    if (m1 == Verticale && m2 == Verticale) {
      return NelPiano((x1 + x2 + P3.x + P4.x) / 4.0, (y1 + y2 + P3.y + P4.y) / 4.0);
    }
    if (m1 == Verticale) return NelPiano(x1, (x1 - x2) * m2 + y2);
    if (m2 == Verticale) return NelPiano(x2, (x2 - x1) * m1 + y1);
    if (m1 != m2) {
      const double x = (m1 * x1 - m2 * x2 + (y2 - y1)) / (m1 - m2);
      return NelPiano(x, (x - x1) * m1 + y1);
    }
    P1.y += tilt;
    P2.y += tilt;
    P3.y -= tilt;
    P4.y -= tilt;
  }
  throw RunTimeError("parallel lines do not meet");
}

Punto3D ProdottoVettore(const Punto3D& A, const Punto3D& B) {
  const double ax = A.x, ay = A.y, az = A.z, bx = B.x, by = B.y, bz = B.z;
  return {ASingolo(ay * bz - az * by), ASingolo(az * bx - ax * bz), ASingolo(ax * by - ay * bx), 0.0F};
}

double CosenoAngolo(const Punto3D& A, const Punto3D& B) {
  const double a = Lunghezza(A), b = Lunghezza(B);
  if (a == 0.0 || b == 0.0) return 1.0;
  const double product =
      static_cast<double>(A.x) * B.x + static_cast<double>(A.y) * B.y + static_cast<double>(A.z) * B.z;
  return product / (a * b);
}

}  // namespace corvan

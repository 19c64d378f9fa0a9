#include "geo/Plane.h"

#include <cmath>

namespace corvan {

double dist(double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1;
  const double dy = y2 - y1;
  return std::sqrt(dx * dx + dy * dy);
}

}  // namespace corvan

#include "track/UtmZone.h"

#include <cmath>

#include "base/Rounding.h"

namespace corvan {

std::int16_t SelezionaZonaUTM(float x) {
  double degrees = x;
  if (degrees < -180.0 || degrees > 180.0) {
    const double d = std::floor(degrees);
    degrees = std::floor(d / 100.0) + (d / 100.0 - std::trunc(d / 100.0)) * 100.0 / 60.0;
  }
  return AInt16(std::floor((degrees + 180.0) / 6.0) + 1.0);
}

}  // namespace corvan

#include "track/Profile.h"

#include <cmath>

#include "base/Rounding.h"

namespace corvan {

float AssegnaZ(const Profile& Tabella, std::int32_t Primo, std::int32_t Ultimo, double Distanza) {
  if (Distanza < 0.0) return ASingolo(Tabella(Primo).prof);
  if (Primo > Ultimo) return 0.0F;
  const double distance = std::abs(Distanza);
  std::int32_t low = Primo;
  std::int32_t high = Ultimo;
  while (low < high) {
    const std::int32_t middle = low + (high - low) / 2;
    if (distance <= Tabella(middle).distanza) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return ASingolo(Tabella(low).prof);
}

}  // namespace corvan

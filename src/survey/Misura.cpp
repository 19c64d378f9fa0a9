#include "survey/Misura.h"

#include <cmath>

namespace corvan {

bool PosizioneUsabile(double north, double east) {
  return std::isfinite(north) && std::isfinite(east) && north != 0.0 && east != 0.0;
}

void ImpostaPosizione(Misura& m, double north, double east) {
  m.SenzaFix = !PosizioneUsabile(north, east);
  if (m.SenzaFix) return;
  (m.SorgenteUTM ? m.UTMy : m.Lat) = north;
  (m.SorgenteUTM ? m.UTMx : m.Lon) = east;
}

}  // namespace corvan

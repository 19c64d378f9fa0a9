#include "survey/Misura.h"

#include <cmath>

namespace corvan {

bool PosizioneUsabile(double north, double east) {
  return std::isfinite(north) && std::isfinite(east) && north != 0.0 && east != 0.0;
}

void ImpostaGeografica(Misura& m, double latitude, double longitude, const Geographic& degrees) {
  m.SenzaFix = !PosizioneUsabile(latitude, longitude);
  if (m.SenzaFix) return;
  m.Lat = latitude;
  m.Lon = longitude;
  m.sorgente = degrees;
}

void ImpostaUTM(Misura& m, double northing, double easting) {
  m.SenzaFix = !PosizioneUsabile(northing, easting);
  if (m.SenzaFix) return;
  m.UTMy = northing;
  m.UTMx = easting;
  m.sorgente = Grid{easting, northing, 0, Hemisphere::North};
}

}  // namespace corvan

#include "geo/ZoneConstants.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "geo/Datum.h"

namespace corvan {
namespace {

/// n^power (c0 + c1 n + c2 n² + ...).
double Serie(double n, int power, std::initializer_list<double> coefficients) {
  double sum = 0.0;
  double term = std::pow(n, power);
  for (const double c : coefficients) {
    sum += c * term;
    term *= n;
  }
  return sum;
}

}  // namespace

ZoneConstants InizializzaUTM(std::int16_t zone) {
  const double pi = 4.0 * std::atan(1.0);
  const Datum& wgs84 = Datums.front();
  ZoneConstants k;
  k.zone = std::clamp<std::int16_t>(zone, 1, 60);
  k.centralMeridian = (6.0 * k.zone - 183.0) * pi / 180.0;
  const double n = (wgs84.SemiMajor - wgs84.SemiMinor) / (wgs84.SemiMajor + wgs84.SemiMinor);
  k.n = n;
  k.rectifyingRadius = wgs84.SemiMajor / (1 + n) * (1 + Serie(n, 2, {1.0 / 4, 0, 1.0 / 64, 0, 1.0 / 256}));
  k.alpha = {0,
             Serie(n, 1, {1.0 / 2, -2.0 / 3, 5.0 / 16, 41.0 / 180, -127.0 / 288, 7891.0 / 37800}),
             Serie(n, 2, {13.0 / 48, -3.0 / 5, 557.0 / 1440, 281.0 / 630, -1983433.0 / 1935360}),
             Serie(n, 3, {61.0 / 240, -103.0 / 140, 15061.0 / 26880, 167603.0 / 181440}),
             Serie(n, 4, {49561.0 / 161280, -179.0 / 168, 6601661.0 / 7257600}),
             Serie(n, 5, {34729.0 / 80640, -3418889.0 / 1995840}),
             Serie(n, 6, {212378941.0 / 319334400})};
  k.beta = {0,
            Serie(n, 1, {1.0 / 2, -2.0 / 3, 37.0 / 96, -1.0 / 360, -81.0 / 512, 96199.0 / 604800}),
            Serie(n, 2, {1.0 / 48, 1.0 / 15, -437.0 / 1440, 46.0 / 105, -1118711.0 / 3870720}),
            Serie(n, 3, {17.0 / 480, -37.0 / 840, -209.0 / 4480, 5569.0 / 90720}),
            Serie(n, 4, {4397.0 / 161280, -11.0 / 504, -830251.0 / 7257600}),
            Serie(n, 5, {4583.0 / 161280, -108847.0 / 3991680}),
            Serie(n, 6, {20648693.0 / 638668800})};
  k.eccentricity = std::sqrt(1 - std::pow(wgs84.SemiMinor / wgs84.SemiMajor, 2));
  return k;
}

}  // namespace corvan

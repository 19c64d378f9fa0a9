#include "track/BadFixes.h"

#include <algorithm>
#include <cstddef>

#include "base/Rounding.h"
#include "geo/AngleText.h"
#include "geo/Plane.h"

namespace corvan {
namespace {

/// A gap's measurements lie strictly between its two ends, which have positions; 0 or size + 1 is an end without.
struct Gap {
  std::size_t i1;
  std::size_t i2;
};

double Tra(double from, double to, double t) { return from + t * (to - from); }

/// A cable position moved on; one that is not finite leaves the target as it was.
void Sposta(float& target, float from, double shift) {
  target = SingoloOppure(static_cast<double>(from) + shift, target);
}

void SpostaCavo(Misura& m, const Misura& from, double shift) {
  Sposta(m.Val60, from.Val60, shift);
  Sposta(m.Val64, from.Val64, shift);
  for (std::size_t e = 1; e <= PotentialElectrodes; ++e) Sposta(m.Elettrodi.at(e), from.Elettrodi.at(e), shift);
}

/// The source of what lies between two ends, at its place on the survey's grid or in degrees.
PositionSource SorgenteTra(const Misura& a, const Misura& b, const GridZone& griglia, const Grid& place,
                           const Geographic& degrees) {
  for (const Misura* end : {&a, &b}) {
    const auto* grid = std::get_if<Grid>(&end->sorgente);
    if (grid == nullptr) continue;
    const GridZone in = grid->zone == 0 ? GridZone{} : griglia;
    return Grid{place.easting, place.northing, in.zone, in.hemisphere};
  }
  return degrees;
}

/// Positions everything between the two ends of a gap. @return how many
std::size_t Interpola(Survey& survey, const Gap& gap) {
  const Misura& a = survey.Misure(gap.i1);
  const Misura& b = survey.Misure(gap.i2);
  const AngleFormat layout = survey.settings.layout;
  const double latA = GradiDaNumero(a.Lat, layout), latB = GradiDaNumero(b.Lat, layout);
  const double lonA = GradiDaNumero(a.Lon, layout), lonB = GradiDaNumero(b.Lon, layout);
  const double steps = static_cast<double>(gap.i2 - gap.i1);
  const double step = dist(a.UTMx, a.UTMy, b.UTMx, b.UTMy) / steps;
  std::size_t done = 0;
  for (std::size_t j = gap.i1 + 1; j < gap.i2; ++j) {
    Misura& m = survey.Misure(j);
    if (Vuota(m)) continue;
    const double n = static_cast<double>(j - gap.i1);
    const double t = n / steps;
    const Geographic degrees{Tra(latA, latB, t), Tra(lonA, lonB, t)};
    m.UTMx = Tra(a.UTMx, b.UTMx, t);
    m.UTMy = Tra(a.UTMy, b.UTMy, t);
    m.Lat = NumeroDaGradi(degrees.latitude, layout);
    m.Lon = NumeroDaGradi(degrees.longitude, layout);
    m.sorgente = SorgenteTra(a, b, survey.settings.griglia, {m.UTMx, m.UTMy}, degrees);
    m.Passo = ASingolo(step);
    if (!m.CavoProprio) SpostaCavo(m, a, n * step);  // else the factors would follow from another firing's electrodes
    m.Deriv[3] = m.UTMx;
    m.Deriv[4] = m.UTMy;
    m.Interpolata = true;
    ++done;
  }
  return done;
}

bool StessaLinea(const Survey& survey, const Gap& gap) {
  return StessaLinea(survey.Misure(gap.i1), survey.Misure(gap.i2));
}

}  // namespace

TrackResult TrattaFixPersi(Survey& survey) {
  TrackResult result;
  const std::size_t count = survey.Misure.size();
  const BadGps filter = survey.settings.filter;
  for (std::size_t k = 1; k <= count;) {
    if (!survey.Misure(k).SenzaFix) {
      ++k;
      continue;
    }
    Gap gap{k - 1, k};
    while (gap.i2 <= count && survey.Misure(gap.i2).SenzaFix) ++gap.i2;
    result.bad += gap.i2 - k;
    const bool closed = gap.i1 > 0 && gap.i2 <= count && StessaLinea(survey, gap);
    if (filter == BadGps::Interpolate && closed) {
      result.interpolated += Interpola(survey, gap);
    } else if (filter != BadGps::NoFilter) {
      for (std::size_t j = k; j < gap.i2; ++j) survey.Misure(j).Scartata = true;
    }
    k = gap.i2;
  }
  for (Misura& m : survey.Misure) {
    m.Scartata = m.Scartata || Vuota(m);
    result.empty += Vuota(m) ? 1U : 0U;
    result.discarded += m.Scartata ? 1U : 0U;
  }
  return result;
}

}  // namespace corvan

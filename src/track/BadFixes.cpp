#include "track/BadFixes.h"

#include <cstddef>

#include "base/Rounding.h"
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

/// Positions everything between the two ends of a gap.
void Interpola(Survey& survey, const Gap& gap, const GeoGeo& geo) {
  const Misura& a = survey.Misure(gap.i1);
  const Misura& b = survey.Misure(gap.i2);
  const AngleFormat layout = geo.Layout();
  const double latA = geo.Gradi(a.Lat), latB = geo.Gradi(b.Lat);
  const double lonA = geo.Gradi(a.Lon), lonB = geo.Gradi(b.Lon);
  const double steps = static_cast<double>(gap.i2 - gap.i1);
  const double step = dist(a.UTMx, a.UTMy, b.UTMx, b.UTMy) / steps;
  for (std::size_t j = gap.i1 + 1; j < gap.i2; ++j) {
    Misura& m = survey.Misure(j);
    const double n = static_cast<double>(j - gap.i1);
    const double t = n / steps;
    m.UTMx = Tra(a.UTMx, b.UTMx, t);
    m.UTMy = Tra(a.UTMy, b.UTMy, t);
    m.Lat = NumeroDaGradi(Tra(latA, latB, t), layout);
    m.Lon = NumeroDaGradi(Tra(lonA, lonB, t), layout);
    m.Passo = ASingolo(step);
    SpostaCavo(m, a, n * step);
    m.Deriv[3] = m.UTMx;
    m.Deriv[4] = m.UTMy;
    m.Interpolata = true;
  }
}

}  // namespace

TrackResult TrattaFixPersi(Survey& survey, const GeoGeo& geo) {
  TrackResult result;
  const std::size_t count = survey.Misure.size();
  for (std::size_t k = 1; k <= count;) {
    if (!survey.Misure(k).SenzaFix) {
      ++k;
      continue;
    }
    Gap gap{k - 1, k};
    while (gap.i2 <= count && survey.Misure(gap.i2).SenzaFix) ++gap.i2;
    const std::size_t lost = gap.i2 - k;
    result.bad += lost;
    const bool open = gap.i1 == 0 || gap.i2 > count;
    const BadGps filter = survey.settings.filter;
    if (filter == BadGps::Interpolate && !open) {
      Interpola(survey, gap, geo);
      result.interpolated += lost;
    } else if (filter != BadGps::NoFilter) {
      for (std::size_t j = k; j < gap.i2; ++j) survey.Misure(j).Scartata = true;
      result.discarded += lost;
    }
    k = gap.i2;
  }
  return result;
}

}  // namespace corvan

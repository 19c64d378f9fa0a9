#include "export/TruePositions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/Rounding.h"
#include "geo/LinearFit.h"

namespace corvan {
namespace {

Misura& Punto(Survey& survey, std::int32_t p) { return survey.Misure(static_cast<std::size_t>(p)); }

/// Moves the kept points back along the direction of travel.
void SpostaIndietro(Survey& survey, const std::vector<std::int32_t>& kept, double lag) {
  const Misura& first = Punto(survey, kept.front());
  const Misura& last = Punto(survey, kept.back());
  Array1<double> DxSezione;
  Array1<double> DySezione;
  for (const std::int32_t p : kept) {
    DxSezione.append(Punto(survey, p).UTMx - first.UTMx);
    DySezione.append(Punto(survey, p).UTMy - first.UTMy);
  }
  LinearFit fit;
  std::int32_t i1 = 1;
  auto i2 = static_cast<std::int32_t>(kept.size());
  fit.LinFit(DxSezione, DySezione, i1, i2);

  const double slope = std::abs(fit.b());
  const double root = std::sqrt(slope * slope + 1.0);
  const double dX = lag / root;
  const double dY = fit.Vertical() ? lag : lag * slope / root;
  const bool eastward = first.UTMx < last.UTMx;
  const bool northward = first.UTMy < last.UTMy;
  for (const std::int32_t p : kept) {
    Misura& m = Punto(survey, p);
    // Along a meridian the easting keeps what an earlier extraction left there.
    if (!fit.Vertical()) m.Deriv[3] = eastward ? m.UTMx - dX : m.UTMx + dX;
    m.Deriv[4] = northward ? m.UTMy - dY : m.UTMy + dY;
  }
}

}  // namespace

void CalcolaPosizioniVere(Survey& survey, const std::vector<std::int32_t>& kept, TruePosition position, double lag) {
  if (position == TruePosition::BehindBoat) {
    SpostaIndietro(survey, kept, lag);
    return;
  }
  for (const std::int32_t p : kept) {
    Misura& m = Punto(survey, p);
    m.Deriv[3] = m.UTMx;
    m.Deriv[4] = m.UTMy;
  }
}

double CableGeometry::Lag(double OffsetCavo) const {
  return std::abs((static_cast<double>(PosRelative[13]) + static_cast<double>(PosRelative[12])) / 2.0) + OffsetCavo;
}

CableGeometry MisuraCavo(const Cable& cable) {
  CableGeometry g;
  const auto& p = cable.PosCavo;
  double low = 0.0;
  double high = 0.0;
  bool started = false;
  for (std::size_t k = 1; k <= CableElectrodes; ++k) {
    const double position = p.at(k);
    if (!std::isfinite(position)) continue;
    low = started ? std::min(low, position) : position;
    high = started ? std::max(high, position) : position;
    started = true;
  }
  for (std::size_t k = 1; k <= CableElectrodes; ++k) {
    g.PosRelative.at(k) = SingoloOppure(static_cast<double>(p.at(k)) - high, 0.0F);
  }
  const double spacing = std::abs(static_cast<double>(p[13]) - static_cast<double>(p[12]));
  g.Passo = std::isfinite(spacing) ? spacing : 0.0;
  g.Span = low - high;
  return g;
}

}  // namespace corvan

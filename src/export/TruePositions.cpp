#include "export/TruePositions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/Rounding.h"
#include "geo/LinearFit.h"

namespace corvan {
namespace {

/// Largest distance of points from their line.
double Scarto(const LinearFit& fit, const Array1<double>& x, const Array1<double>& y) {
  if (fit.Vertical()) return 0.0;
  double most = 0.0;
  for (std::size_t k = 1; k <= x.size(); ++k) most = std::max(most, std::abs(fit.a() + fit.b() * x(k) - y(k)));
  return most / std::sqrt(fit.b() * fit.b() + 1.0);
}

/// Moves points back along the direction of travel.
TruePlaces SpostaIndietro(const std::vector<PlanPoint>& stored, const std::vector<double>& lags) {
  const PlanPoint& first = stored.front();
  const PlanPoint& last = stored.back();
  Array1<double> DxSezione;
  Array1<double> DySezione;
  for (const PlanPoint& p : stored) {
    DxSezione.append(p.est - first.est);
    DySezione.append(p.nord - first.nord);
  }
  LinearFit fit;
  std::int32_t i1 = 1;
  auto i2 = static_cast<std::int32_t>(stored.size());
  fit.LinFit(DxSezione, DySezione, i1, i2);

  const double slope = std::abs(fit.b());
  const double root = std::sqrt(slope * slope + 1.0);
  const bool eastward = first.est < last.est;
  const bool northward = first.nord < last.nord;
  TruePlaces moved;
  moved.bend = Scarto(fit, DxSezione, DySezione);
  moved.places.reserve(stored.size());
  for (std::size_t k = 0; k < stored.size(); ++k) {
    const PlanPoint& p = stored[k];
    const double lag = lags.at(k);
    // Along a meridian only the northing moves: the easting is the stored one, whatever was written before.
    const double dX = fit.Vertical() ? 0.0 : lag / root;
    const double dY = fit.Vertical() ? lag : lag * slope / root;
    moved.places.push_back({eastward ? p.est - dX : p.est + dX, northward ? p.nord - dY : p.nord + dY});
  }
  return moved;
}

}  // namespace

TruePlaces CalcolaPosizioniVere(const std::vector<PlanPoint>& stored, TruePosition position, double lag) {
  return CalcolaPosizioniVere(stored, position, std::vector<double>(stored.size(), lag));
}

TruePlaces CalcolaPosizioniVere(const std::vector<PlanPoint>& stored, TruePosition position,
                                const std::vector<double>& lags) {
  return position == TruePosition::BehindBoat ? SpostaIndietro(stored, lags) : TruePlaces{stored, 0.0};
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

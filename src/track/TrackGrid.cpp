#include "track/TrackGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "base/Rounding.h"
#include "geo/AngleText.h"
#include "geo/Place.h"
#include "geo/Plane.h"

namespace corvan {
namespace {

/// Far beyond any coordinate on the earth; sums of distances stay finite below it.
bool Usabile(const Grid& place) {
  constexpr double limit = 1e12;
  return std::abs(place.easting) <= limit && std::abs(place.northing) <= limit;
}

/// The grid that a track without a survey stands on.
GridZone GrigliaPropria(const Survey& survey) {
  for (const PuntoGPSEst& fix : survey.tracciaEst.PuntiGPSEst) {
    const auto* source = std::get_if<Geographic>(&fix.sorgente);
    if (const auto grid = source == nullptr ? std::nullopt : GrigliaDi(*source)) return *grid;
  }
  return survey.settings.griglia;
}

/// The survey has positions, and all of them fix or state its grid.
bool GrigliaNota(const Survey& survey) {
  bool any = false;
  for (const Misura& m : survey.Misure) {
    const auto* grid = std::get_if<Grid>(&m.sorgente);
    if (grid != nullptr && grid->zone == 0) return false;
    any = any || HaSorgente(m.sorgente);
  }
  return any;
}

/// Grid numbers that wait for their zone get the survey's.
void LegaZona(Array1<PuntoGPSEst>& fixes, const GridZone& grid) {
  for (PuntoGPSEst& fix : fixes) {
    auto* source = std::get_if<Grid>(&fix.sorgente);
    if (source == nullptr || source->zone != 0) continue;
    source->zone = grid.zone;
    source->hemisphere = grid.hemisphere;
  }
}

/// @return false when the fix has no place on the grid
bool CollocaFix(PuntoGPSEst& fix, const GridZone& grid, AngleFormat layout, bool otherLayout) {
  const std::optional<Place> place = Colloca(fix.sorgente, grid);
  if (!place || !Usabile(place->grid)) return false;
  fix.X = place->grid.easting;
  fix.Y = place->grid.northing;
  const bool asRead = std::holds_alternative<Geographic>(fix.sorgente) && !otherLayout;
  if (asRead) return true;
  fix.GeoA = NumeroDaGradi(place->geographic.latitude, layout);
  fix.GeoB = NumeroDaGradi(place->geographic.longitude, layout);
  return true;
}

}  // namespace

std::size_t CollocaTraccia(Survey& survey) {
  ExternalTrack& track = survey.tracciaEst;
  if (!track.loaded) return 0;
  const bool alone = survey.Misure.empty();
  const GridZone grid = alone ? GrigliaPropria(survey) : survey.settings.griglia;
  if (GrigliaNota(survey)) LegaZona(track.PuntiGPSEst, grid);
  const AngleFormat layout = survey.settings.layout;
  if (track.griglia == grid && track.layout == layout) return 0;

  Array1<PuntoGPSEst> kept;
  kept.reserve(track.PuntiGPSEst.size());
  for (PuntoGPSEst& fix : track.PuntiGPSEst) {
    if (CollocaFix(fix, grid, layout, layout != track.layout)) kept.append(fix);
  }
  const std::size_t left = track.PuntiGPSEst.size() - kept.size();
  track.PuntiGPSEst = std::move(kept);
  track.griglia = grid;
  track.layout = layout;
  track.meanSpacing = CalcolaProgressiva(track.PuntiGPSEst);
  return left;
}

double DistanzaDaTraccia(const Survey& survey) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const PuntoGPSEst& fix : survey.tracciaEst.PuntiGPSEst) {
    nearest = std::min(nearest, dist(fix.X, fix.Y, survey.traccia.CentroX, survey.traccia.CentroY));
  }
  return nearest;
}

void EstensioneDaTraccia(Survey& survey) {
  const Array1<PuntoGPSEst>& fixes = survey.tracciaEst.PuntiGPSEst;
  if (fixes.empty()) return;
  TrackExtent& t = survey.traccia;
  t.XMin = t.XMax = fixes(1).X;
  t.YMin = t.YMax = fixes(1).Y;
  for (const PuntoGPSEst& fix : fixes) {
    t.XMin = std::min(t.XMin, fix.X);
    t.XMax = std::max(t.XMax, fix.X);
    t.YMin = std::min(t.YMin, fix.Y);
    t.YMax = std::max(t.YMax, fix.Y);
  }
  t.CentroX = SingoloOppure((t.XMin + t.XMax) / 2.0, 0.0F);
  t.CentroY = SingoloOppure((t.YMin + t.YMax) / 2.0, 0.0F);
  t.EstensioneX = t.XMax - t.XMin;
  t.EstensioneY = t.YMax - t.YMin;
}

double CalcolaProgressiva(Array1<PuntoGPSEst>& fixes) {
  for (std::size_t p = 2; p <= fixes.size(); ++p) {
    const PuntoGPSEst& before = fixes(p - 1);
    fixes(p).Progressiva = before.Progressiva + dist(before.X, before.Y, fixes(p).X, fixes(p).Y);
  }
  if (!fixes.empty()) fixes(1).Progressiva = 0.0;
  return fixes.size() < 2 ? 0.0 : fixes(fixes.size()).Progressiva / static_cast<double>(fixes.size() - 1);
}

}  // namespace corvan

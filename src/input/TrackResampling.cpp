// A track resampled on Bezier curves.
#include <algorithm>
#include <array>
#include <utility>

#include "geo/AngleText.h"
#include "geo/BezierCubic.h"
#include "input/TrackFile.h"

namespace corvan {
namespace {

using Run = std::array<const PuntoGPSEst*, 4>;

/// Longitude and latitude, or easting and northing.
std::pair<double, double> Coordinate(const PuntoGPSEst& fix) {
  if (const auto* place = std::get_if<Geographic>(&fix.sorgente)) return {place->longitude, place->latitude};
  const auto& place = std::get<Grid>(fix.sorgente);
  return {place.easting, place.northing};
}

void Sposta(PuntoGPSEst& fix, double x, double y, AngleFormat layout) {
  if (auto* place = std::get_if<Geographic>(&fix.sorgente)) {
    *place = {y, x};
    fix.GeoA = NumeroDaGradi(y, layout);
    fix.GeoB = NumeroDaGradi(x, layout);
    return;
  }
  auto& place = std::get<Grid>(fix.sorgente);
  place.easting = x;
  place.northing = y;
}

/// Time and depth a share of the way from one fix to the next.
PuntoGPSEst Tra(const PuntoGPSEst& a, const PuntoGPSEst& b, double share) {
  PuntoGPSEst fix = share < 1.0 ? a : b;
  if (share <= 0.0 || share >= 1.0) return fix;
  fix.DataOra = a.DataOra + (b.DataOra - a.DataOra) * share;
  fix.haProf = a.haProf && b.haProf;
  fix.Prof = fix.haProf ? a.Prof + (b.Prof - a.Prof) * share : 0.0;
  return fix;
}

/// @param from the first point that is wanted: the first of a run is the last of the one before
void Interpola(const Run& run, std::int16_t count, std::size_t from, AngleFormat layout, Array1<PuntoGPSEst>& out) {
  BezierCubic bezier;
  bezier.NofInterpPoint(count);
  const auto [x1, y1] = Coordinate(*run[0]);
  const auto [x2, y2] = Coordinate(*run[1]);
  const auto [x3, y3] = Coordinate(*run[2]);
  const auto [x4, y4] = Coordinate(*run[3]);
  bezier.SetBasePoints(x1, y1, x2, y2, x3, y3, x4, y4);
  const Array1<double> x = bezier.GetXInterpolated(), y = bezier.GetYInterpolated();
  for (std::size_t i = from; i <= x.size(); ++i) {
    const double place = 3.0 * static_cast<double>(i - 1) / (count - 1);
    const std::size_t k = std::min<std::size_t>(2, static_cast<std::size_t>(place));
    PuntoGPSEst fix = Tra(*run.at(k), *run.at(k + 1), place - static_cast<double>(k));
    Sposta(fix, x(i), y(i), layout);
    out.append(fix);
  }
}

}  // namespace

Array1<PuntoGPSEst> Ricampiona(const Array1<PuntoGPSEst>& fixes, std::int16_t count, AngleFormat layout) {
  if (count < 2) return fixes;
  Array1<PuntoGPSEst> out;
  std::size_t k = 1;
  for (; k + 3 <= fixes.size(); k += 3) {
    Interpola({&fixes(k), &fixes(k + 1), &fixes(k + 2), &fixes(k + 3)}, count, k == 1 ? 1 : 2, layout, out);
  }
  for (std::size_t rest = k == 1 ? 1 : k + 1; rest <= fixes.size(); ++rest) out.append(fixes(rest));
  return out;
}

}  // namespace corvan

#include "input/TrackSteps.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "base/NumberText.h"
#include "geo/Place.h"
#include "geo/Plane.h"

namespace corvan {
namespace {

constexpr double FastestStep = 50.0;  // m/s
constexpr double SecondsPerDay = 86400.0;

/// The plane that a track is measured on.
class Plane {
 public:
  std::optional<Grid> place(const PositionSource& source) {
    if (const auto* given = std::get_if<Grid>(&source)) return *given;
    const auto* geographic = std::get_if<Geographic>(&source);
    if (geographic == nullptr) return std::nullopt;
    if (!grid_) {
      grid_ = GrigliaDi(*geographic);
      longitude_ = geographic->longitude;
    }
    if (!grid_) return std::nullopt;
    // A boat that crosses 180 degrees goes on to 181.
    const double turns = std::round((geographic->longitude - longitude_) / 360.0);
    const auto found = Colloca(Geographic{geographic->latitude, geographic->longitude - 360.0 * turns}, *grid_);
    return found ? std::optional(found->grid) : std::nullopt;
  }

 private:
  std::optional<GridZone> grid_;
  double longitude_ = 0;  // of the first fix
};

/// The whole seconds between two fixes, one at least.
double Secondi(const PuntoGPSEst& a, const PuntoGPSEst& b) {
  return std::max(1.0, std::abs(std::round(b.DataOra * SecondsPerDay) - std::round(a.DataOra * SecondsPerDay)));
}

/// Sure to be slow, without a projection: a degree is at most 111.7 km, stretched by a tenth far off the zone.
bool Lento(const PuntoGPSEst& a, const PuntoGPSEst& b, double seconds) {
  constexpr double perDegree = 111'700.0 * 1.1;
  const auto* from = std::get_if<Geographic>(&a.sorgente);
  const auto* to = std::get_if<Geographic>(&b.sorgente);
  if (from == nullptr || to == nullptr) return false;
  const double degrees = std::abs(to->latitude - from->latitude) + std::abs(to->longitude - from->longitude);
  return degrees * perDegree <= FastestStep * seconds;
}

}  // namespace

double LunghezzaTraccia(const Array1<PuntoGPSEst>& fixes) {
  Plane plane;
  std::optional<Grid> before;
  double length = 0.0;
  for (const PuntoGPSEst& fix : fixes) {
    const std::optional<Grid> here = plane.place(fix.sorgente);
    if (!here) continue;
    if (before) length += dist(before->easting, before->northing, here->easting, here->northing);
    before = here;
  }
  return length;
}

std::string PassiVeloci(const Array1<PuntoGPSEst>& fixes, const std::vector<std::size_t>& lines) {
  Plane plane;
  std::size_t count = 0;
  std::string first;
  if (!fixes.empty()) plane.place(fixes(1).sorgente);
  for (std::size_t k = 2; k <= fixes.size(); ++k) {
    const double seconds = Secondi(fixes(k - 1), fixes(k));
    if (Lento(fixes(k - 1), fixes(k), seconds)) continue;
    const std::optional<Grid> a = plane.place(fixes(k - 1).sorgente), b = plane.place(fixes(k).sorgente);
    if (!a || !b) continue;
    const double metres = dist(a->easting, a->northing, b->easting, b->northing);
    if (metres <= FastestStep * seconds || count++ > 0) continue;
    first = "line " + std::to_string(lines.at(k - 1)) + " (" + TestoNumero(std::round(metres)) + " m in " +
            TestoNumero(seconds) + " s): every fix is kept";
  }
  if (count == 0) return {};
  if (count == 1) return "a step of over 50 m/s in " + first;
  return std::to_string(count) + " steps of over 50 m/s, the first in " + first;
}

}  // namespace corvan

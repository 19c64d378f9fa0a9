#include "input/TrackSteps.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "base/NumberText.h"
#include "geo/Place.h"
#include "geo/Plane.h"

namespace corvan {
namespace {

constexpr double FastestStep = 50.0;  // m/s
constexpr double SecondsPerDay = 86400.0;

/// The whole seconds between two times, one at least.
double Secondi(double a, double b) {
  return std::max(1.0, std::abs(std::round(b * SecondsPerDay) - std::round(a * SecondsPerDay)));
}

/// Sure to be slow, without a projection: a degree is at most 111.7 km, stretched by a tenth far off the zone.
bool Lento(const PositionSource& a, const PositionSource& b, double seconds) {
  constexpr double perDegree = 111'700.0 * 1.1;
  const auto* from = std::get_if<Geographic>(&a);
  const auto* to = std::get_if<Geographic>(&b);
  if (from == nullptr || to == nullptr) return false;
  const double degrees = std::abs(to->latitude - from->latitude) + std::abs(to->longitude - from->longitude);
  return degrees * perDegree <= FastestStep * seconds;
}

}  // namespace

std::optional<Grid> StepCheck::Plane::place(const PositionSource& source) {
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

void StepCheck::prendi(const PositionSource& place, double when, std::size_t line) {
  const PositionSource from = std::exchange(before_, place);
  const double since = std::exchange(when_, when);
  if (!std::exchange(any_, true)) {
    plane_.place(place);
    return;
  }
  const double seconds = Secondi(since, when);
  if (Lento(from, place, seconds)) return;
  const std::optional<Grid> a = plane_.place(from), b = plane_.place(place);
  if (!a || !b) return;
  const double metres = dist(a->easting, a->northing, b->easting, b->northing);
  if (metres <= FastestStep * seconds || count_++ > 0) return;
  first_ = "line " + std::to_string(line) + " (" + TestoNumero(std::round(metres)) + " m in " + TestoNumero(seconds) +
           " s): every ";
}

std::string StepCheck::detto(const char* kept) const {
  if (count_ == 0) return {};
  const std::string where = first_ + kept + " is kept";
  if (count_ == 1) return "a step of over 50 m/s in " + where;
  return std::to_string(count_) + " steps of over 50 m/s, the first in " + where;
}

double LunghezzaTraccia(const Array1<PuntoGPSEst>& fixes) {
  StepCheck::Plane plane;
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
  StepCheck check;
  for (std::size_t k = 1; k <= fixes.size(); ++k) check.prendi(fixes(k).sorgente, fixes(k).DataOra, lines.at(k - 1));
  return check.detto("fix");
}

}  // namespace corvan

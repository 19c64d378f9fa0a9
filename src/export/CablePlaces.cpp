#include "export/CablePlaces.h"

#include <cmath>
#include <cstddef>

#include "geo/Plane.h"
#include "track/Profile.h"

namespace corvan {

CablePlaces::CablePlaces(const Section& section) : section_(section) {
  if (section.RecordOut.size() == 0) return;
  const ProfilePoint& first = section.Profilo(section.E1);
  const ProfilePoint& last = section.Profilo(section.E2);
  const double length = dist(first.est, first.nord, last.est, last.nord);
  if (!(length > 0.0)) return;
  versoEst_ = (last.est - first.est) / length;
  versoNord_ = (last.nord - first.nord) / length;
}

/// The straight cable: x counts from its tail at the first point, with its distance from the boat added; the place is
/// as far behind the boat.
ElectrodePlace CablePlaces::dritto(double x) const {
  const ProfilePoint& first = section_.Profilo(section_.E1);
  const double ahead = x - section_.Lunghezza - 2.0 * section_.OffsetCavo;
  const float depth = AssegnaZ(section_.Profilo, section_.E1, section_.E2, x + section_.OffsetEco - section_.Lunghezza);
  return {x, first.est + versoEst_ * ahead, first.nord + versoNord_ * ahead, static_cast<double>(depth)};
}

ElectrodePlaces CablePlaces::operator()(const SectionPoint& point) const {
  ElectrodePlaces places;
  for (std::size_t e = 1; e <= CableElectrodes; ++e) places.at(e) = dritto(static_cast<double>(point.x.at(e)));
  return places;
}

ElectrodePlace CablePlaces::fondo(std::int32_t p) const {
  const ProfilePoint& seen = section_.Profilo(p);
  return {seen.distanza + section_.Lunghezza - section_.OffsetEco, seen.est, seen.nord, seen.prof};
}

}  // namespace corvan

#include "export/CablePlaces.h"

#include <cmath>
#include <cstddef>

#include "track/Profile.h"

namespace corvan {

PlanPoint VersoDritto(const Section& section) {
  if (section.Profilo.Primo() > section.Profilo.Ultimo()) return {1, 0};
  const ProfilePoint& first = section.Profilo(section.E1);
  const ProfilePoint& last = section.Profilo(section.E2);
  const double length = dist(first.est, first.nord, last.est, last.nord);
  if (!(length > 0.0)) return {1, 0};
  return {(last.est - first.est) / length, (last.nord - first.nord) / length};
}

CablePlaces::CablePlaces(const Section& section) : section_(section), verso_(VersoDritto(section)) {}

/// The straight cable: x counts from its tail at the first point, with its distance from the boat added; the place is
/// as far behind the boat.
ElectrodePlace CablePlaces::dritto(double x) const {
  const ProfilePoint& first = section_.Profilo(section_.E1);
  const double ahead = x - section_.Lunghezza - 2.0 * section_.OffsetCavo;
  const float depth = AssegnaZ(section_.Profilo, section_.E1, section_.E2, x + section_.OffsetEco - section_.Lunghezza);
  return {x, first.est + verso_.est * ahead, first.nord + verso_.nord * ahead, static_cast<double>(depth)};
}

ElectrodePlace CablePlaces::lungoTraccia(const LineFix& fix, double x) const {
  const PlanPoint place = fix.luogo(x);
  return {x, place.est, place.nord, fix.profondita(x, section_.OffsetEco)};
}

ElectrodePlaces CablePlaces::operator()(const SectionPoint& point) const {
  ElectrodePlaces places;
  const bool along = section_.shape == CableShape::AlongTrack;
  const LineFix fix = along ? section_.lines.fix(point.misura) : LineFix();
  for (std::size_t e = 1; e <= CableElectrodes; ++e) {
    const double x = static_cast<double>(point.x.at(e));
    places.at(e) = along ? lungoTraccia(fix, x) : dritto(x);
  }
  return places;
}

ElectrodePlace CablePlaces::fondo(std::int32_t p) const {
  const ProfilePoint& seen = section_.Profilo(p);
  if (section_.shape == CableShape::AlongTrack) {
    const LineFix fix = section_.lines.fix(p);
    const double x = fix.x() - section_.OffsetEco;
    const PlanPoint place = fix.luogo(x);
    return {x, place.est, place.nord, seen.prof};
  }
  return {seen.distanza + section_.Lunghezza - section_.OffsetEco, seen.est, seen.nord, seen.prof};
}

}  // namespace corvan

#include "export/CablePlaces.h"

#include <algorithm>
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

/// Direction of travel at a point, a unit vector; of the whole section where its line lies in one place.
PlanPoint CablePlaces::corsa(const SectionPoint& point) const {
  const auto& points = section_.RecordOut.points();
  const auto own = std::lower_bound(points.begin(), points.end(), point.misura,
                                    [](const SectionPoint& p, std::int32_t number) { return p.misura < number; });
  const ProfilePoint& here = section_.Profilo(point.misura);
  const double reach = section_.Lunghezza + std::max(0.0, section_.OffsetCavo);
  double farthest = 0.0;
  PlanPoint course = verso_;
  // Takes a place into account. Returns true where it is far enough.
  const auto enough = [&](const SectionPoint& p, double sense) {
    if (!p.posta) return false;
    const ProfilePoint& there = section_.Profilo(p.misura);
    const double length = dist(there.est, there.nord, here.est, here.nord);
    if (length <= farthest) return false;
    farthest = length;
    course = {sense * (here.est - there.est) / length, sense * (here.nord - there.nord) / length};
    return length >= reach;
  };
  const auto same = [&](const SectionPoint& p) { return p.file == point.file && p.linea == point.linea; };
  for (auto p = own; p != points.begin() && same(*(p - 1)); --p) {
    if (enough(*(p - 1), 1.0)) return course;
  }
  for (auto p = own; p != points.end() && same(*p); ++p) {
    if (enough(*p, -1.0)) return course;
  }
  return course;
}

/// The straight cable: x counts from its tail at the first point, with its distance from the boat added; the place is
/// as far behind the boat.
ElectrodePlaces CablePlaces::dritto(const SectionPoint& point) const {
  const ProfilePoint &first = section_.Profilo(section_.E1), &boat = section_.Profilo(point.misura);
  const double boatAt = dist(first.est, first.nord, boat.est, boat.nord);
  const PlanPoint course = corsa(point);
  ElectrodePlaces places;
  for (std::size_t e = 1; e <= CableElectrodes; ++e) {
    const auto x = static_cast<double>(point.x.at(e));
    const double behind = boatAt - (x - section_.Lunghezza - 2.0 * section_.OffsetCavo);
    const float depth =
        AssegnaZ(section_.Profilo, section_.E1, section_.E2, x + section_.OffsetEco - section_.Lunghezza);
    places.at(e) = {x, boat.est - course.est * behind, boat.nord - course.nord * behind, static_cast<double>(depth)};
  }
  return places;
}

ElectrodePlace CablePlaces::lungoTraccia(const LineFix& fix, double x) const {
  const PlanPoint place = fix.luogo(x);
  return {x, place.est, place.nord, fix.profondita(x, section_.OffsetEco)};
}

ElectrodePlaces CablePlaces::operator()(const SectionPoint& point) const {
  if (section_.shape == CableShape::Straight) return dritto(point);
  ElectrodePlaces places;
  const LineFix fix = section_.lines.fix(point.misura);
  for (std::size_t e = 1; e <= CableElectrodes; ++e) {
    places.at(e) = lungoTraccia(fix, static_cast<double>(point.x.at(e)));
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

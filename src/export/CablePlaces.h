// Where the electrodes of each firing of a section lie, and the bottom below its path.
#pragma once

#include <array>
#include <cstdint>

#include "export/Section.h"
#include "geo/Plane.h"

namespace corvan {

struct ElectrodePlace {
  double x = 0;     ///< along the section, m
  double est = 0;   ///< on the section's grid, m
  double nord = 0;  ///< likewise
  double prof = 0;  ///< depth of the water below it, m, never negative
};

/// Of electrodes 1..13; slot 0 is unused.
using ElectrodePlaces = std::array<ElectrodePlace, CableElectrodes + 1>;

/// Direction of the straight cable of a section, from its first point to its last, a unit vector; east where they lie
/// in one place or there is none.
PlanPoint VersoDritto(const Section& section);

/// The places of electrodes as they follow from a section; asked for firing by firing, since a section may have a
/// million. On the map a straight cable trails behind its own boat, each electrode as far as it does along the section:
/// in the direction from where the boat was a cable's length before, at a line's start towards where it went.
class CablePlaces {
 public:
  /// @param section must outlive this
  explicit CablePlaces(const Section& section);

  ElectrodePlaces operator()(const SectionPoint& point) const;

  /// The bottom as the echo sounder saw it at a measurement of the section, where x counts like the electrodes'. Along
  /// the track its place is that of the echo sounder on the path.
  /// @param p E1 to E2
  ElectrodePlace fondo(std::int32_t p) const;

 private:
  ElectrodePlaces dritto(const SectionPoint& point) const;
  PlanPoint corsa(const SectionPoint& point) const;
  ElectrodePlace lungoTraccia(const LineFix& fix, double x) const;

  const Section& section_;
  PlanPoint verso_;
};

}  // namespace corvan

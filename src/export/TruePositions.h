// Where the quadrupoles of a section really lie: the cable trails behind the boat whose position the GPS gives.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// The cable as the extraction uses it.
struct CableGeometry {
  double Passo = 0;  ///< electrode spacing |C2 - C1|, m
  double Span = 0;   ///< smallest minus largest electrode position, m, never positive
  std::array<float, CableElectrodes + 1> PosRelative{};  ///< positions 1..13 minus the largest, m, never positive

  /// Distance from the GPS to the middle of the current dipole, m.
  double Lag(double OffsetCavo) const;
};

/// Positions that are not finite take no part in the largest and smallest and count as the largest themselves.
CableGeometry MisuraCavo(const Cable& cable);

/// Sets Deriv(3) and Deriv(4) of the kept points of a section.
/// @param kept their numbers in order, at least one
/// @param lag m, used by TruePosition::BehindBoat: each point moves backwards by it along the straight line fitted
/// through the kept points; along a meridian only the northing moves
void CalcolaPosizioniVere(Survey& survey, const std::vector<std::int32_t>& kept, TruePosition position, double lag);

}  // namespace corvan

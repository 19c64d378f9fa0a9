// Where the quadrupoles of a section really lie: the cable trails behind the boat whose position the GPS gives.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/Section.h"
#include "geo/Plane.h"
#include "survey/Survey.h"

namespace corvan {

/// The cable as the extraction uses it.
struct CableGeometry {
  double Passo = 0;  ///< electrode spacing |C2 - C1|, m
  double Span = 0;   ///< smallest minus largest electrode position, m, never positive
  std::array<float, CableElectrodes + 1> PosRelative{};  ///< positions 1..13 minus the largest, m, never positive

  /// Distance of electrode e (1 to 13) behind the GPS, m. @param OffsetCavo of the cable's head behind it
  double Dietro(std::size_t e, double OffsetCavo) const { return OffsetCavo - static_cast<double>(PosRelative.at(e)); }
  /// Distance from the GPS to the middle of the current dipole, m.
  double Lag(double OffsetCavo) const;
};

/// Positions that are not finite take no part in the largest and smallest and count as the largest themselves.
CableGeometry MisuraCavo(const Cable& cable);

/// True places of points in the order of a section.
struct TruePlaces {
  std::vector<PlanPoint> places;
  double bend = 0;  ///< largest distance of a point from the straight line that all were moved along, m
};

/// @param stored at least one
/// @param lag m, used by TruePosition::BehindBoat: each point moves backwards by it along the straight line fitted
/// through all; along a meridian only the northing moves
TruePlaces CalcolaPosizioniVere(const std::vector<PlanPoint>& stored, TruePosition position, double lag);

/// The same with a lag for each point. @param lags as many as points
TruePlaces CalcolaPosizioniVere(const std::vector<PlanPoint>& stored, TruePosition position,
                                const std::vector<double>& lags);

}  // namespace corvan

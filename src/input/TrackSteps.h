// The steps of a track from fix to fix.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/Position.h"
#include "survey/ExternalTrack.h"

namespace corvan {

/// Length of a track, m: on the grid of its first fix, or on the grid that its numbers were read on. A fix that cannot
/// be converted makes no step.
double LunghezzaTraccia(const Array1<PuntoGPSEst>& fixes);

/// Steps faster than 50 m/s by the two places' own times, in whole seconds, one at least. Two mistyped digits make such
/// steps; no boat does.
class StepCheck {
 public:
  /// The next place in its order. @param when day number @param line in its file, from 1
  void prendi(const PositionSource& place, double when, std::size_t line);
  /// One sentence for a finding; empty when there is none. @param kept what stays as it was read: "fix"
  std::string detto(const char* kept) const;

 private:
  /// The plane that the steps are measured on.
  class Plane {
   public:
    std::optional<Grid> place(const PositionSource& source);

   private:
    std::optional<GridZone> grid_;
    double longitude_ = 0;  // of the first place
  };

  Plane plane_;
  PositionSource before_;
  double when_ = 0;
  bool any_ = false;
  std::size_t count_ = 0;
  std::string first_;

  friend double LunghezzaTraccia(const Array1<PuntoGPSEst>& fixes);
};

/// What StepCheck says of a track. @param lines of the fixes in their file, from 1
std::string PassiVeloci(const Array1<PuntoGPSEst>& fixes, const std::vector<std::size_t>& lines);

}  // namespace corvan

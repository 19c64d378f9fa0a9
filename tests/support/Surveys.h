// One builder of surveys for the tests of every floor.
#pragma once

#include <cstdint>
#include <vector>

#include "survey/Survey.h"

namespace corvan::test {

/// One firing to be; easting and northing 0 stand for no position.
struct Firing {
  double est, nord;  ///< m
  std::int16_t file = 1;
  float depth = 3;  ///< m
};

/// A survey as readers give it, on the grid of zone 33 north, in files a.bin, b.bin, ... of ten channels. Every column
/// has its own value: the cable is C1 55, C2 60, E1 50, E2 45 ... E11 0; channel c of firing i reads c and -(c + 1) mV
/// at 1000 and -1001 mA and brought a resistivity of i + c / 100 ohm m.
Survey Measurements(const std::vector<Firing>& firings);

/// The same with latitudes and longitudes in decimal degrees, of the zone of the first. @param firings nord is the
/// latitude, est the longitude
Survey GeographicMeasurements(const std::vector<Firing>& firings);

}  // namespace corvan::test

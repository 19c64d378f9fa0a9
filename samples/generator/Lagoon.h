// The made-up survey behind the sample files: a boat zig-zagging over a lagoon, water over sediment, a towed cable.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "survey/Misura.h"

namespace corvan::samples {

/// One firing as the boat saw it. A lost fix has latitude and longitude 0.
struct Firing {
  double time = 0;                                   ///< days since 1899-12-30
  float latitude = 0;                                ///< DDMM.MMM
  float longitude = 0;                               ///< DDMM.MMM
  float depth = 0;                                   ///< m
  float step = 0;                                    ///< distance from the firing before, m
  float current = 0;                                 ///< mA
  std::array<float, MaxChannels + 1> potential{};    ///< mV, channels 1..10
  std::array<float, MaxChannels + 1> resistivity{};  ///< ohm m
  std::array<float, MaxChannels + 1> quality{};      ///< %
};

/// Electrodes along the cable, m: E1..E11 in 1..11, C1 in 12, C2 in 13; larger is nearer the boat.
inline constexpr std::array<float, CableElectrodes + 1> Cable{0, 50, 45, 40, 35, 30, 25, 20, 15, 10, 5, 0, 55, 60};

/// Apparent resistivity of four surface electrodes on a line over two horizontal layers.
/// Source: W. M. Telford et al., Applied Geophysics, 2nd ed., sec. 8.3.5 (potential over a single layer, by images).
/// @param a,b,m,n electrode positions, m; @param upper,lower resistivities, ohm m; @param thickness of the upper layer,
/// m
double DueStrati(double a, double b, double m, double n, double upper, double lower, double thickness);

/// The firings of one survey line, always the same. @param line 1 or 2
std::vector<Firing> Linea(int line);

/// The second receiver's antenna stands so far from the instrument's, m.
inline constexpr double LeverEast = 2.0;
inline constexpr double LeverNorth = 1.0;

/// A fix of the second receiver, with the depth of its echo sounder.
struct TrackFix {
  double day = 0;                      ///< day number of the survey
  double second = 0;                   ///< since midnight, UTC
  double latitude = 0, longitude = 0;  ///< decimal degrees
  double depth = 0;                    ///< m
};

/// The second receiver's track along both lines and from one to the other, a fix every three seconds.
std::vector<TrackFix> Traccia();

}  // namespace corvan::samples

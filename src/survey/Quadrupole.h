// One quadrupole of a section: what a written record holds beside its constants.
#pragma once

#include <array>
#include <cstdint>

namespace corvan {

/// Electrodes in the order A, B, M, N. Kept small: a section of 100,000 firings holds a million of them.
struct Quadrupole {
  std::array<float, 4> x{};  ///< place along the section, m
  std::array<float, 4> y{};  ///< m, always 0
  std::array<float, 4> z{};  ///< water depth under the electrode, m
  float potential = 0;       ///< mV
  float current = 0;         ///< mA
  float resistivity = 0;     ///< ohm m
  float chargeability = 0;   ///< mV/V
  float quality = 0;         ///< %
  float nord = 0;            ///< true northing, m
  float est = 0;             ///< true easting, m
  std::int16_t channel = 0;  ///< 1..10
};

}  // namespace corvan

// Where the readings of a towed cable lie below and behind the boat.
#pragma once

#include <optional>

#include "survey/ReadingPlaces.h"
#include "survey/Survey.h"

namespace corvan {

/// Median depth of investigation of four electrodes on a homogeneous half-space: ground above and below it gives half
/// of the signal each. It is the first z > 0 with sum(s / sqrt(r^2 + 4 z^2)) = sum(s / r) / 2 over the distances AM (s
/// = +1), AN (-1), BM (-1) and BN (+1).
/// Sources: L. S. Edwards, Geophysics 42 (1977), 1020-1036; R. D. Barker, Geophysics 54 (1989), 1031-1037.
/// @param A,B,M,N positions along a line, m
/// @return m; none where a current and a potential electrode coincide, where the sum cancels, and for positions that
/// are not finite
std::optional<double> ProfonditaMediana(double A, double B, double M, double N);

/// Places of the ten channels: midway between the middles of the current dipole and of the channel's potential dipole,
/// at the median depth of investigation. The cable's head, its largest position, trails `offset` behind the antenna.
/// @param offset m from the antenna to the head of the cable
ReadingPlaces CollocaLetture(const Cable& cable, double offset);

}  // namespace corvan

// The geometric factor: what a resistance is multiplied with to be an apparent resistivity.
#pragma once

#include <cstddef>

#include "survey/Survey.h"

namespace corvan {

/// Geometric factor of a four-electrode array on a line: 2 pi / (1/AM - 1/AN - 1/BM + 1/BN), with 2 pi taken as 6.2832.
/// Source: W. M. Telford et al., Applied Geophysics, 2nd ed., eq. 8.12.
/// @param A,B,M,N positions along the cable, m
/// @return m; 0 where the terms cancel or electrodes coincide so that none is left
/// @throws RunTimeError when the factor has no single-precision form
float FattoreGeometrico(float A, float B, float M, float N);

/// The factor that the resistivity of a reading follows from: that of the firing's own electrodes where they count,
/// else the survey's of that channel. One that has no single-precision form is 0.
/// @param channel 1..10 @return m
float FattoreDi(const Misura& m, std::size_t channel, const TrackExtent& survey);

}  // namespace corvan

// The towed cable: its configuration as the survey holds it and as the user edits it, and the geometric factor.
#pragma once

#include <string>
#include <string_view>

#include "survey/Survey.h"

namespace corvan {

/// Geometric factor of a four-electrode array on a line: 2 pi / (1/AM - 1/AN - 1/BM + 1/BN), with 2 pi taken as 6.2832.
/// Source: W. M. Telford et al., Applied Geophysics, 2nd ed., eq. 8.12.
/// @param A,B,M,N positions along the cable, m
/// @return m; 0 where the terms cancel or electrodes coincide so that none is left
/// @throws RunTimeError when the factor has no single-precision form
float FattoreGeometrico(float A, float B, float M, float N);

/// Takes the cable from the first measurement that has any cable position other than 0 (an empty first firing would
/// zero every factor); from measurement 1 when there is none.
void CreaCavoDaMisure(Survey& survey);

/// The thirteen positions of a configuration text ("C1 60 C2 55 E1 50 ... E11 0"): only the places of the numbers
/// count, token 2 is C1, 4 is C2, 2k + 4 is E k. Missing or non-numeric tokens are 0. Tokens are separated by blanks,
/// ";" or tabs.
/// @throws RunTimeError for a number that has no single-precision form
std::array<float, CableElectrodes + 1> LeggiStringaCavo(std::string_view text);

/// The configuration as text, in the same order.
std::string ComponiStringaCavo(const std::array<float, CableElectrodes + 1>& positions);

}  // namespace corvan

// The towed cable: its configuration as the survey holds it and as the user edits it.
#pragma once

#include <string>
#include <string_view>

#include "base/Findings.h"
#include "survey/GeometricFactor.h"
#include "survey/Survey.h"

namespace corvan {

/// Takes the cable from the first measurement that has all its file's readings and any cable position other than 0, of
/// the files with the most channels: an empty or short first firing would zero factors. Without one, from the first
/// that has any cable position, at last from measurement 1. Measurements with electrodes of their own are asked only
/// where there are no others.
void CreaCavoDaMisure(Survey& survey);

/// Compares the cable in use with those that the measurements were read with: C2 and the electrodes of existing
/// readings by their distance from C1, to a centimetre, since the cable may have moved as a whole; not measurements
/// whose factors follow from electrodes of their own. One fault a file
/// that differs, naming the first measurement: resistivities computed with another cable are wrong by the ratio of the
/// factors.
void RilevaCavo(const Survey& survey, Findings& findings);

/// Largest minus smallest position of the cable, m.
double LunghezzaCavo(const Cable& cable);

/// The thirteen positions of a configuration text ("C1 60 C2 55 E1 50 ... E11 0"): only the places of the numbers
/// count, token 2 is C1, 4 is C2, 2k + 4 is E k. Missing or non-numeric tokens are 0. Tokens are separated by blanks,
/// ";" or tabs.
/// @throws RunTimeError for a number that has no single-precision form
std::array<float, CableElectrodes + 1> LeggiStringaCavo(std::string_view text);

/// The configuration as text, in the same order.
std::string ComponiStringaCavo(const std::array<float, CableElectrodes + 1>& positions);

}  // namespace corvan

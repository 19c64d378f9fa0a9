// Whether a survey was read in the coordinate format that it was written in, by the distances that came out.
#pragma once

#include "base/Findings.h"
#include "survey/Survey.h"

namespace corvan {

/// A mean step within the lines of over 20 cable lengths is a fault: nobody fires so seldom. It names the format under
/// which the same numbers give a track, where there is one. To be asked after the analysis.
void RilevaFormato(const Survey& survey, Findings& findings);

}  // namespace corvan

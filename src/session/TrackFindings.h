// What is told of external tracks and of the links to them.
#pragma once

#include <string>

#include "base/Findings.h"
#include "survey/Survey.h"
#include "track/TrackLink.h"

namespace corvan {

/// What the measurements took from between the fixes, and what they did not.
void RilevaCollegamento(const char* procedure, const LinkNotes& notes, Findings& findings);

/// The measurements that a link by time could not place between two fixes.
void RilevaTempi(const TimeLink& link, const Survey& survey, Findings& findings);

/// The track lies so far from the survey that one of the two stands in the wrong zone.
void RilevaDistanza(const char* procedure, const Survey& survey, const std::string& track, Findings& findings);

/// Why two connections lead nowhere.
std::string MotivoNulla(const Survey& survey, const Collegamenti& connections);

}  // namespace corvan

// Writes a survey and a section of it as GeoJSON (RFC 7946).
#pragma once

#include "base/File.h"
#include "base/Findings.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// One collection of features, told apart by their property "layer": "measurements" (a point each, with the columns of
/// the survey's table), "lines" (one a file, through its kept measurements) and "section" (its line at the true
/// positions, and its two ends). Degrees WGS84, longitude first; a feature without a place has the geometry null, which
/// is noted. A line that crosses the antimeridian is cut there. @throws FileError
void SalvaGeoJson(FileWriter& out, const Survey& survey, const Section& section, Findings& findings);

}  // namespace corvan

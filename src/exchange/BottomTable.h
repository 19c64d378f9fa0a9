// Writes the bottom along a section as a table, from which the toolkits make their layer of water.
#pragma once

#include "base/File.h"
#include "base/Findings.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// distance,easting,northing,latitude,longitude,depth: one row a measurement of the section that has a position, where
/// the echo sounder saw the bottom; the distance (m) counts like the electrodes' x, degrees are decimal, the depth (m)
/// is positive. @throws FileError @throws RunTimeError when no measurement has a position
void SalvaFondo(FileWriter& out, const Survey& survey, const Section& section, Findings& findings);

}  // namespace corvan

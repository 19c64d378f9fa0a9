// Writes a section as a RES2DINV data file (.dat) in the layout of the general array.
#pragma once

#include "base/File.h"
#include "base/Findings.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// Each reading names the places of its four electrodes (A, B, M, N; x along the section and z, m) and its apparent
/// resistivity (ohm m). z is 0: the cable floats. The first line names files and units, since the layout knows no
/// remarks. @throws FileError @throws RunTimeError when no reading is left
void SalvaSchieraGenerale(FileWriter& out, const Survey& survey, const Section& section, Findings& findings);

}  // namespace corvan

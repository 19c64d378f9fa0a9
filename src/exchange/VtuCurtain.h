// Writes a section as a curtain of cells for 3D viewers (VTK's XML format for unstructured grids, .vtu).
#pragma once

#include "base/File.h"
#include "base/Findings.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// One upright quadrilateral a reading, in easting, northing and height (m, the water's surface at 0), at the true
/// positions of its measurement: from half-way to the measurement before it to half-way to the one behind, of those
/// that are kept and of the same file; its own position at an end, half an electrode spacing to west and east where it
/// is alone. Up and down it reaches half-way to the pseudo-depths of the neighbouring channels; the uppermost from the
/// surface, the lowest as far below its pseudo-depth as above. Cell data: resistivity (ohm m), channel, measurement,
/// water_depth (m). Readings that are left out, and those without a pseudo-depth, are noted.
/// @throws FileError @throws RunTimeError when no cell is left
void SalvaVtu(FileWriter& out, const Survey& survey, const Section& section, Findings& findings);

}  // namespace corvan

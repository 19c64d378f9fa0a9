// Shows a section as a curtain of coloured cells in a KML document.
#pragma once

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "export/KmlGoogle.h"
#include "export/Section.h"
#include "picture/ColourScale.h"

namespace corvan {

/// Writes ten polygons per point of the section that has a position, but for readings that do not exist, at its true
/// position: edges half-way to the neighbours in the section (its own position at the ends and where the file changes;
/// a point alone reaches half an electrode spacing to east and west), channel 1 uppermost, each level as high as a cell
/// of the curtain. Asks for the zone when the section's grid has none and for a vertical offset.
/// @param kml its FileName is set by the caller
/// Errors: a reading that is not finite, or a corner that cannot be converted, gives no cell and is noted.
/// @throws FileError
void SalvaKML(KmlGoogle& kml, const Section& section, const ColourRange& range, Dialogs& dialogs, Findings& findings);

}  // namespace corvan

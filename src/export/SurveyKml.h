// Shows a section as a curtain of coloured cells in a KML document.
#pragma once

#include "base/Findings.h"
#include "export/KmlGoogle.h"
#include "export/Section.h"
#include "picture/ColourScale.h"

namespace corvan {

/// How the corners of a curtain come from the grid.
enum class KmlPositions {
  Given,  ///< by the series of all earlier files, whose latitudes are up to eight metres short at a zone's border
  Exact   ///< by DaUTMEsatto
};

struct CurtainRequest {
  ColourScale colours;
  double offset = 0;  ///< added to every altitude, m
  KmlPositions positions = KmlPositions::Given;
};

/// Writes ten polygons per point of the section that has a position, but for readings that do not exist, at its true
/// position: edges half-way to the neighbours in the section (its own position at the ends and where the file changes;
/// a point alone reaches half an electrode spacing to east and west), channel 1 uppermost, each level as high as a cell
/// of the curtain.
/// @param kml its FileName is set by the caller @param section its grid has a zone
/// Errors: a reading that is not finite, or a corner that cannot be converted, gives no cell and is a fault.
/// @throws FileError
void SalvaKML(KmlGoogle& kml, const Section& section, const CurtainRequest& request, Findings& findings);

}  // namespace corvan

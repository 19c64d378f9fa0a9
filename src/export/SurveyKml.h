// Shows a section as a curtain of coloured cells in a KML document.
#pragma once

#include <cstdint>

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "export/KmlGoogle.h"
#include "geo/GeoGeo.h"
#include "picture/ColourScale.h"
#include "survey/Survey.h"

namespace corvan {

struct CurtainRequest {
  std::int32_t Primo = 1;   ///< first measurement, 1-based
  std::int32_t Ultimo = 1;  ///< last measurement
  double Passo = 0;         ///< electrode spacing, m
  ColourRange range;
};

/// Writes ten polygons per kept point of the section, at its true position: edges half-way to the kept neighbours (its
/// own position at the ends and where the file changes; a point alone reaches half an electrode spacing to east and
/// west), channel 1 uppermost, each level as high as the mean spacing of the measurements. Asks for the zone when geo
/// has none and for a vertical offset.
/// @param kml its FileName is set by the caller
/// @param geo its format is put back on every way out
/// Errors: a reading that is not finite, or a corner that cannot be converted, gives no cell and is noted.
/// @throws FileError
void SalvaKML(KmlGoogle& kml, const Survey& survey, GeoGeo& geo, const CurtainRequest& request, Dialogs& dialogs,
              Findings& findings);

}  // namespace corvan

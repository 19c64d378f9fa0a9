// Writes a survey and a section of it as a GeoPackage (OGC 12-128r17, version 1.3) for geographic information systems.
#pragma once

#include "base/File.h"
#include "base/Findings.h"
#include "base/OleDate.h"
#include "export/Section.h"
#include "picture/ColourScale.h"
#include "survey/Survey.h"

namespace corvan {

struct GeoPackageRequest {
  ColourScale colours;  ///< of the styles
  DateTime written;     ///< stands as the time of change of every layer
};

/// Layers in EPSG:4326, each with its R-tree: "measurements" (points, the columns of the survey's table), "lines" (one
/// a file), "section" (its line and its two ends, at the true positions) and "readings" (the section's readings at the
/// mean place of their electrodes, the pseudo-depth as negative z), and styles that colour points by resistivity. A
/// survey without any position gives the same tables without geometry, which is noted, as is what is left out. Two runs
/// give the same bytes. @throws FileError @throws RunTimeError with SQLite's words, a full disk among them
void SalvaGeoPackage(FileWriter& out, const Survey& survey, const Section& section, const GeoPackageRequest& request,
                     Findings& findings);

}  // namespace corvan

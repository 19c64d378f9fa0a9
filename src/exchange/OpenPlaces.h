// Latitude and longitude of what the open formats hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Position.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// The position of a measurement: as it was read or interpolated in degrees, else exactly from its place on the
/// survey's grid. @return nothing where it has no position
std::optional<Geographic> GradiDi(const Survey& survey, const Misura& m);

/// Of a place on a survey's grid, m.
std::optional<Geographic> GradiDi(const GridZone& grid, double easting, double northing);

/// Of a place where a measurement is believed to lie: as it was read where it was not moved, else from the grid.
std::optional<Geographic> GradiDi(const Survey& survey, const Misura& m, double easting, double northing);

/// The true position of a point of a section: that of its measurement where it was not moved.
/// @return nothing where it has no position
std::optional<Geographic> GradiVeri(const Survey& survey, const SectionPoint& point);

/// The track of one file, or of one line that a file names: the positions of its measurements that are kept.
struct FileLine {
  std::int16_t file = 0;         ///< its ordinal
  std::string name;              ///< of the file, without folder, and of the line
  std::size_t measurements = 0;  ///< that came from it
  double length = 0;             ///< m along the kept ones on the grid
  std::vector<Geographic> track;
};

/// One line a file, in the order of the files; as many as a file names.
std::vector<FileLine> LineeDeiFile(const Survey& survey);

/// A section's line, at its true positions.
std::vector<Geographic> LineaDiSezione(const Survey& survey, const Section& section);

}  // namespace corvan

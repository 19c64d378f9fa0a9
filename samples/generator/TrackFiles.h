// The track of the second receiver in the four forms that are read.
#pragma once

#include <string>
#include <vector>

#include "Lagoon.h"

namespace corvan::samples {

/// ";"-separated with a header: date, time, depth, easting and northing in fields 3, 4, 8, 10 and 11.
std::string FileCsv(const std::vector<TrackFix>& track);

/// Date, time, number, latitude and longitude in DDMM.MMM, depth.
std::string FileSeiColonne(const std::vector<TrackFix>& track);

/// An NMEA 0183 log: GGA and DPT for each fix, RMC every tenth.
std::string FileNmea(const std::vector<TrackFix>& track);

}  // namespace corvan::samples

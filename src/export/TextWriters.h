// Writes a section as a tab-separated table and a profile as print-zone text.
#pragma once

#include <cstdint>

#include "base/Array1.h"
#include "base/File.h"
#include "survey/Quadrupole.h"
#include "track/Profile.h"

namespace corvan {

/// The section's quadrupoles, one line each behind a header line; lines end in CR LF.
/// @param NqpBin records to write; not changed
/// @throws FileError
void SalvaAscii(FileWriter& out, const SectionRecords& RecordOut, const std::int32_t& NqpBin);

/// Points Primo..Ultimo of a profile: number, easting, northing, depth, distance in print zones of 14 columns, no
/// header. @throws FileError
void SalvaTraccia(FileWriter& out, const Profile& Profilo, std::int32_t Primo, std::int32_t Ultimo);

}  // namespace corvan

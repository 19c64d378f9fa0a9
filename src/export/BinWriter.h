// Writes a section as a binary file in the instrument's layout.
#pragma once

#include <cstdint>
#include <string>

#include "base/Array1.h"
#include "base/File.h"
#include "base/OleDate.h"
#include "survey/RecordSyscalPro.h"

namespace corvan {

/// Fills the 1030-character header: instrument name, date (dd/mm/yyyy) and time of writing.
void CreaHeaderBin(std::string& header, const DateTime& now);

/// Writes header and records 1..NqpBin of 280 bytes. Sets the fixed fields of every record and its ordinal, in memory
/// too. Without records the file is the header alone, 1030 bytes.
/// @param NqpBin records to write; not changed
/// @throws FileError
void SalvaBinPro(FileWriter& out, Array1<RecordSyscalPro>& RecordOut, const std::int32_t& NqpBin, const DateTime& now);

}  // namespace corvan

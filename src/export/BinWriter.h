// Writes a section as a binary file in the instrument's layout.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Array1.h"
#include "base/File.h"
#include "base/OleDate.h"
#include "survey/Quadrupole.h"
#include "survey/RecordSyscalPro.h"

namespace corvan {

/// Fills the 1030-character header: instrument name, date (dd/mm/yyyy) and time of writing.
void CreaHeaderBin(std::string& header, const DateTime& now);

/// The record of the k-th quadrupole written, 1-based: its readings, its ordinal k - 1 and the constants of a written
/// file.
RecordSyscalPro CreaRecordBin(const Quadrupole& quadrupole, std::size_t k);

/// Writes header and records 1..NqpBin of 280 bytes. Without records the file is the header alone, 1030 bytes.
/// @param NqpBin records to write; not changed
/// @throws FileError
void SalvaBinPro(FileWriter& out, const SectionRecords& RecordOut, const std::int32_t& NqpBin, const DateTime& now);

}  // namespace corvan

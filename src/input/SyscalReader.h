// Readers of the instrument's binary files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "base/Array1.h"
#include "base/File.h"
#include "input/InputContext.h"

namespace corvan {

/// Appends one measurement per firing of a Syscal Pro file to the survey.
///
/// Firings begin at the first record with a position; the channels of a firing are the records that share it. When
/// their number is not the largest channel number stored, the user is asked ("Set Channel Number"); channels above 10
/// count for the grouping and are not stored. Numbers that are not finite stay as read, but for positions, which are
/// then lost.
/// @param context survey.file.NomeFile names the file
/// Errors: a file that cannot be read, is too short, is no Syscal file or gets a channel number below 1 adds nothing;
/// each is one finding naming the file.
void LeggiSyscalPro2(InputContext& context);

inline constexpr std::size_t OldRecordLength = 248;

/// Records of the old 248-byte format as they stand.
struct OldSyscalFile {
  std::string HeaderBin;                                     ///< the first 1030 bytes
  Array1<std::array<std::byte, OldRecordLength>> RecordBin;  ///< bytes past the end of the file are zero
};

/// Loads a file's records without interpreting them. A file shorter than 1047 bytes gives none.
/// @param recordLength distance between two records, bytes, at least 1
/// @throws FileError
OldSyscalFile LeggiBin2(const std::filesystem::path& path, std::size_t recordLength);

}  // namespace corvan

// Readers of the instrument's binary files.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>

#include "base/Array1.h"
#include "input/FileRead.h"

namespace corvan {

/// Hands the firings of a Syscal Pro file to `sink`, in the order of its records.
///
/// Firings begin at the first record with a position. Where records were lost, firings are told apart by current,
/// position and channel number of neighbouring records, so that one lost record spoils its own firing alone; their
/// usual length is the number of records of a firing. When it is not the largest channel number stored,
/// options.channels is asked; with another number than the usual one, and where no border can be told, every so many
/// records are a firing. Channels above 10 count for the grouping and are not stored. Numbers that are not finite stay
/// as read, but for positions, which are then lost. Memory is that of one block of the file.
///
/// Errors: a file that cannot be read, is too short, of the newer kind or no Syscal file gives an empty format, a
/// channel number below 1 no firing; each is one finding.
FileReport PercorriSyscal(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink);

/// The same with the firings kept; what an error left of them is given up. Reads the file once, not twice, where its
/// beginning speaks for all of it.
FileRead LeggiSyscalPro2(const std::filesystem::path& path, const ReadOptions& options);

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

// Sends a file to the reader of its format.
#pragma once

#include <filesystem>
#include <string_view>

#include "input/FileRead.h"

namespace corvan {

/// True when a file's first bytes, a byte-order mark aside, are those of a text export in any case of letters.
bool TestataDiTesto(std::string_view firstBytes);

/// Walks a file of measurements with the reader that its first bytes call for and hands every firing to `sink`. Errors
/// end in the findings: a file that cannot be read has no format and one fault.
FileReport PercorriFile(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink);

/// The same with the firings kept.
FileRead LeggiFile(const std::filesystem::path& path, const ReadOptions& options);

}  // namespace corvan

// Reader of the instrument's text export.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

#include "input/FileRead.h"
#include "input/TextScan.h"

namespace corvan {

inline constexpr std::size_t TextProbe = 11;  ///< bytes of a file's beginning that tell whether it is a text export

/// True when a file begins as a text export does: "DISTANCE", in capitals or not, behind a byte-order mark or not.
bool IniziaEsportazione(std::string_view firstBytes);

/// Reads a ";"-separated export and hands on one measurement per line of data (EsaminaTesto tells which). Errors end in
/// the report; what came before them has been handed on.
FileReport PercorriTesto(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink);

/// What of an export was left out, passed over or read otherwise than written.
Findings RilieviTesto(const TextScan& scan);

}  // namespace corvan

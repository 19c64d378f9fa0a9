// Reader of the instrument's text export.
#pragma once

#include <filesystem>

#include "input/FileRead.h"
#include "input/TextScan.h"

namespace corvan {

/// Reads a ";"-separated export and hands on one measurement per line of data (EsaminaTesto tells which). Errors end in
/// the report; what came before them has been handed on.
FileReport LeggiFileCorvan(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink);

/// What of an export was left out, passed over or read otherwise than written.
Findings RilieviTesto(const TextScan& scan);

}  // namespace corvan

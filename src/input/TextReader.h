// Reader of the instrument's text export.
#pragma once

#include "base/File.h"
#include "base/Findings.h"
#include "input/InputContext.h"
#include "input/TextScan.h"

namespace corvan {

/// Appends one measurement per data line of a ";"-separated export to the survey (EsaminaTesto tells which lines).
/// @param context survey.file.NomeFile names the file
/// Errors: a number out of range ends the reader, the lines before it stay; missing fields read as 0. Each is one
/// finding naming the file.
void LeggiFileCorvan(InputContext& context);

/// Why lines of the export were left out or are incomplete.
Findings RilieviTesto(const TextScan& scan, ReadSpan span);

}  // namespace corvan

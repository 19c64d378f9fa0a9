// Writes the whole survey as a comma-separated table for other programs.
#pragma once

#include "base/File.h"
#include "survey/Survey.h"

namespace corvan {

/// RFC 4180, UTF-8, LF, one header line, one row a measurement; every number the shortest text that reads back to the
/// same value of its type. docs/formats.md names the columns. @throws FileError
void SalvaTabella(FileWriter& out, const Survey& survey);

}  // namespace corvan

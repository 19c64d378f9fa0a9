// Sends a file to the reader of its format.
#pragma once

#include <string>
#include <string_view>

#include "input/InputContext.h"

namespace corvan {

/// True when a file's first eight bytes, upper-cased, are those of a text export.
bool TestataDiTesto(std::string_view firstBytes);

/// Reads survey.file.NomeFile with the reader that its first eight bytes call for and notes what it gave in
/// survey.files. Errors end in the findings.
void LeggiFile(InputContext& context);

}  // namespace corvan

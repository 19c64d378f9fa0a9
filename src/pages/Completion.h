// Completion of a program's command line by bash.
#pragma once

#include <string>
#include <string_view>

#include "pages/CommandTable.h"

namespace corvan::pages {

/// @param logic the script, with @PROGRAM@, @FUNCTION@, @COMMANDS@ and @TABLE@ where the program's own are to stand
std::string ComponiCompletamento(const ProgramEntry& program, std::string_view logic);

}  // namespace corvan::pages

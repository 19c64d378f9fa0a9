// The command line as a whole: what the program parses, and what its manual page and completion are made from.
#pragma once

#include <memory>

#include "cli/Commands.h"

namespace corvan::cli {

/// The program with its three commands. @param work set by parsing; must live as long
std::unique_ptr<CLI::App> CreaRigaComando(Work& work);

}  // namespace corvan::cli

// Column texts on the command line: what their columns hold and how far electrodes lie apart.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "base/Findings.h"

namespace corvan::cli {

/// As typed and checked; empty where nothing was.
struct ColumnOptions {
  std::string columns;
  std::string spacing;
};

void AggiungiColonne(CLI::App& command, ColumnOptions& options);

/// Which of them the files of a reading asked for.
struct ColumnUse {
  bool columns = false, spacing = false;
};

/// Tells of options that no file asked for.
void RilevaColonne(const ColumnOptions& options, const ColumnUse& use, Findings& findings);

}  // namespace corvan::cli

// Column texts on the command line: what their columns hold and how far electrodes lie apart.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "session/Session.h"

namespace corvan::cli {

/// As typed and checked; empty where nothing was.
struct ColumnOptions {
  std::string columns;
  std::string spacing;
};

void AggiungiColonne(CLI::App& command, ColumnOptions& options);

/// Tells of options that no file of the reading asked for.
void RilevaColonne(Session& session, const ColumnOptions& options);

}  // namespace corvan::cli

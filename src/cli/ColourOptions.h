// The colours of corvan-cli process: palette, logarithm and range.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "session/Session.h"

namespace corvan::cli {

/// As typed and checked.
struct ColourOptions {
  std::string palette;  ///< word, and ":reversed" behind it; empty: the first one as it is
  bool logarithmic = false;
  std::string range;  ///< empty: from the data
};

void AggiungiColori(CLI::App& command, ColourOptions& options);

/// Sets the session's colours. The range answers its question: ScriptedDialogs must know it.
/// @param used something that is written shows them; else it is told that they are not used
void ImpostaColori(Session& session, const ColourOptions& options, bool used);

}  // namespace corvan::cli

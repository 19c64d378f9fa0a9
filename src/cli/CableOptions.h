// Where corvan-cli process takes the electrodes to lie.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "session/Panels.h"

namespace corvan::cli {

/// As typed and checked.
struct CableOptions {
  std::optional<CableShape> shape;  ///< none: not typed
  std::string smoothing;            ///< m; empty: one electrode spacing
};

void AggiungiCavo(CLI::App& command, CableOptions& options);

/// @throws CLI::RequiresError for a smoothing of a track that no electrode lies on
void Verifica(const CableOptions& options);

void ImpostaCavo(OutputPanel& output, const CableOptions& options);

}  // namespace corvan::cli

// The picture of corvan-cli process: its options and its painting.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "session/Session.h"

namespace corvan::cli {

/// As typed; numbers have been checked and are handed on as texts of the view's boxes.
struct PictureOptions {
  std::string file;  ///< empty: no picture
  std::string size = "1280x800";
  std::string theta = "90", phi = "0", gamma = "0";  ///< degrees
  std::string zoom = "1";
  Projection projection = Projection::Orthographic;
  std::string layers = "electrodes";
  std::string mapLevel;  ///< "K" or "K,PIXELS"; empty: as the view has it
  std::string exaggeration = "1";
  bool noCaption = false;
};

void AggiungiImmagine(CLI::App& command, PictureOptions& options);

/// Sets the view, paints the survey and writes the picture, where one is asked for. Failures end in the session's
/// findings.
void FaiImmagine(Session& session, const PictureOptions& options);

}  // namespace corvan::cli

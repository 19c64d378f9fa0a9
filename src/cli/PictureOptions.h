// The picture of corvan-cli process: its options and its painting.
#pragma once

#include <CLI/CLI.hpp>
#include <QImage>
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

/// A name that ends in .bmp or .png.
CLI::Validator FileImmagine();
/// A white picture of a checked size; null, which is a fault of the file that it was for, where memory has no room.
QImage CreaImmagine(Session& session, const std::string& size, const std::string& file);

/// Sets the view, paints the survey and writes the picture, where one is asked for; a Toolkit must be running then.
/// Failures end in the session's findings.
void FaiImmagine(Session& session, const PictureOptions& options);

}  // namespace corvan::cli

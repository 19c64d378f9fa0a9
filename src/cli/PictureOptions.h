// The picture of corvan-cli process: its options and its painting.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <QImage>
#include <string>

#include "session/Session.h"

namespace corvan::cli {

inline constexpr const char* UsualSize = "1280x800";
inline constexpr const char* UsualLayers = "electrodes";  ///< of a picture that no project has seen

/// As typed; numbers have been checked and are handed on as texts of the view's boxes.
struct PictureOptions {
  std::string file;  ///< empty: no picture
  std::string size;  ///< empty: UsualSize
  // What is not typed stays as the view has it.
  std::string theta, phi, gamma;  ///< degrees
  std::string zoom;
  std::optional<Projection> projection;
  std::string layers;
  std::string mapLevel;  ///< "K" or "K,PIXELS"
  std::string exaggeration;
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

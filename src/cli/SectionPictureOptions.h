// The flat section of corvan-cli process: its options and its painting.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "session/Session.h"

namespace corvan::cli {

struct SectionPictureOptions {
  std::string file;                ///< empty: no picture
  std::optional<DepthAxis> depth;  ///< none: as the section has it
  std::string curves;              ///< comma-separated; empty: as the section has them
};

void AggiungiSezionePiana(CLI::App& command, SectionPictureOptions& options);

/// What the flat section takes from the other options.
struct SectionPicture {
  std::string size;  ///< WxH in pixels, checked
  Caption caption;
  double cableOffset = 0;  ///< m
};

/// Paints the flat section and writes the picture, where one is asked for; a Toolkit must be running then. Failures end
/// in the session's findings.
void FaiSezionePiana(Session& session, const SectionPictureOptions& options, const SectionPicture& picture);

}  // namespace corvan::cli

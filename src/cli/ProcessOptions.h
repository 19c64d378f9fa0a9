// The options of corvan-cli process.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/CableOptions.h"
#include "cli/ColourOptions.h"
#include "cli/ColumnOptions.h"
#include "cli/PictureOptions.h"
#include "cli/ProjectOptions.h"
#include "cli/QualityOptions.h"
#include "cli/SectionPictureOptions.h"
#include "session/Session.h"

namespace corvan::cli {

/// The options as typed; texts that answer a question are handed on unread.
struct ProcessOptions {
  std::vector<std::string> files;
  std::optional<CoordinateEntry> coords;
  std::optional<BadGps> badGps;
  std::string channels;
  bool pastGaps = false;
  std::string cable;
  std::string zone;
  bool south = false;
  ColumnOptions columns;
  std::optional<std::int32_t> from;
  std::optional<std::int32_t> to;
  bool truePosition = false;
  bool externalGps = false;
  CableOptions geometry;
  std::string cableOffset, echoOffset, kmlOffset;  ///< empty: not typed
  std::string out;
  std::string formats;  ///< empty: not typed
  ColourOptions colours;
  std::string dataShift;
  std::string depthShift;
  PictureOptions picture;
  SectionPictureOptions section;
  QualityOptions quality;
  std::string gps;
  std::string link;
  std::string clockOffset;
  std::string trackDate;
  std::vector<std::string> connections;  ///< "M:G"
  std::string ertDimension;
  std::string kmlPositions;
  ProjectOptions project;
  bool json = false;

  /// A format is asked for by the command line.
  bool writes(const std::string& format) const;
};

void AggiungiOpzioni(CLI::App& command, ProcessOptions& options);

/// Options that would do nothing beside the others are a mistake: nobody would hear of it.
/// @throws CLI::ParseError naming what is missing
void Verifica(const ProcessOptions& options);

}  // namespace corvan::cli

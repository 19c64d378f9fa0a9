// Everything that makes a run, as one value: what was read and done, and every choice that its outputs follow from.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "picture/ColourScale.h"
#include "session/Acts.h"
#include "session/ColourDesk.h"
#include "session/Panels.h"
#include "survey/Quality.h"
#include "view2d/SectionView.h"
#include "view3d/ViewState.h"

namespace corvan {

/// A file that the run reads, as it was when the project was saved.
struct ProjectFile {
  std::filesystem::path path;  ///< full name
  std::uintmax_t bytes = 0;
  std::uint32_t checksum = 0;  ///< CRC-32 of its bytes
  bool there = true;           ///< it could be read
};

struct ProjectView {
  double theta = 90, phi = 0, gamma = 0;  ///< degrees
  double zoom = 1;
  bool perspective = false;
  Layers layers;
  MapColours map;
  double exaggeration = 1;
};

/// What "File Out" asks for beside the panel's boxes.
struct ProjectOffsets {
  std::string cable = "0", echo = "0";  ///< m, as typed
  std::string kml;                      ///< likewise
};

struct Project {
  std::vector<Act> acts;                                              ///< in their order
  std::vector<ProjectFile> files;                                     ///< that the acts read
  double dataEast = 0, dataNorth = 0, depthEast = 0, depthNorth = 0;  ///< translations of the view, m
  QualityLimits limits;
  std::map<ReadingKey, bool> byHand;  ///< true: excluded
  std::optional<std::int32_t> from, to;
  OutputPanel outputs;
  OtherOutputs others;
  ProjectOffsets offsets;
  ColourDesk::Choice colours;
  ProjectView view;
  SectionView section;  ///< its window is not kept
};

/// The newest layout of project files that this program reads and the one that it writes.
inline constexpr int ProjectVersion = 1;

/// The project as text: JSON for people to read, files named from `folder` where they lie below or beside it.
std::string TestoProgetto(const Project& project, const std::filesystem::path& folder);

/// What a text holds. Values that are not there are those of the start. @param folder that relative names count from
/// @param notes names what is not known here, one sentence each
/// @throws RunTimeError naming the place: no JSON, no project, a newer one, a value of the wrong kind or out of range
Project LeggiProgetto(const std::string& text, const std::filesystem::path& folder, std::vector<std::string>& notes);

/// A text begins as a project does.
bool SembraProgetto(std::string_view beginning);

/// Size and checksum of a file as it is now. One that cannot be read is not there.
ProjectFile Scheda(const std::filesystem::path& path);

}  // namespace corvan

// Projects on the command line of corvan-cli process: opening one, with the options beside it, and saving one.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "session/Session.h"

namespace corvan::cli {

struct ProjectOptions {
  std::string open;  ///< empty: none
  std::string save;  ///< likewise
};

void AggiungiProgetto(CLI::App& command, ProjectOptions& options);

/// What the command line says itself of what a project did: that of the project is left out then.
struct Said {
  bool cable = false, zone = false;
  bool track = false;  ///< a track, and with it its links
  bool link = false;
};

/// The choices with which a project's files are read, changed by the options beside it.
using ChangeReading = std::function<void(ReadAct&)>;

/// Does a project's acts again. @param change sees the reading, which is there also where the project has none
/// @param behindReading runs once behind the reading: the cable and the zone that the command line names
void RifaiAtti(Session& session, Project& project, const Said& said, const ChangeReading& change,
               const std::function<void()>& behindReading);

}  // namespace corvan::cli

// The options of a program as manual page and completion need them, whichever way the program reads them.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace corvan::pages {

enum class Offer {
  NoValue,   ///< a flag, or a value that may be left out
  Anything,  ///< a number or a text of the user's own
  Words,     ///< one of the words
  List,      ///< some of the words, joined by commas
  Files,     ///< a file, with one of the words as its ending if there are words
  Folders
};

struct OptionEntry {
  std::vector<std::string> names;  ///< with their dashes
  std::string value;               ///< "FILE", "straight|track"; empty for a flag
  std::string text;
  Offer offer = Offer::NoValue;
  std::vector<std::string> words;
};

struct CommandEntry {
  std::string name;  ///< empty: the program without a command
  std::string text;
  std::string usage;  ///< what stands behind the name
  std::vector<OptionEntry> options;
  bool takesFiles = false;
  std::vector<std::string> endings;  ///< of those files
};

/// First the program's own options, then its commands.
struct ProgramEntry {
  std::string name;
  std::vector<CommandEntry> commands;
};

ProgramEntry TabellaDi(const std::string& name, CLI::App& app);

/// The window's, from the table that it reads its command line with.
ProgramEntry TabellaFinestra();

}  // namespace corvan::pages

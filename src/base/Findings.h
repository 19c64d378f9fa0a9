// What a run passed over, refused or failed at: the command line prints it, the window lists it, the exit status tells.
#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace corvan {

/// A note tells what the operator should know; a fault says that something was not read, not written or passed over.
enum class Severity { Note, Fault };

struct Finding {
  Severity severity = Severity::Fault;
  std::string procedure;  ///< the procedure that saw it, e.g. "LeggiSyscalPro2"
  std::string file;       ///< the file that it is about; empty for none
  std::string reason;     ///< one sentence naming place, value and allowed range

  /// The reason behind the file's name, as people read it.
  std::string detto() const { return file.empty() ? reason : file + ": " + reason; }

  friend bool operator==(const Finding&, const Finding&) = default;
};

/// The findings of a run in the order in which they were seen, those of each command together.
class Findings {
 public:
  /// One command of the user and where its findings begin.
  struct Command {
    std::string name;
    std::size_t first = 0;
  };

  void fault(std::string procedure, std::string reason, std::string file = {}) {
    add({Severity::Fault, std::move(procedure), std::move(file), std::move(reason)});
  }
  void note(std::string procedure, std::string reason, std::string file = {}) {
    add({Severity::Note, std::move(procedure), std::move(file), std::move(reason)});
  }
  /// One that the same command has told already is not repeated.
  void add(Finding entry);
  /// The same for steps that follow from other commands (analysis, painting): what was told of this survey, by whatever
  /// command, is not repeated.
  void addUnaVolta(const Finding& entry);
  void addUnaVolta(const Findings& of);
  /// Takes over what a reader found in a file.
  void add(const Findings& of, const std::filesystem::path& file);
  /// Takes back what a procedure found, when what was found no longer holds. @return what was taken back
  std::vector<Finding> ritira(const std::string& procedure);

  /// What follows belongs to this command of the user.
  void comincia(std::string command);
  /// The same from the first finding on: a command that looks only leaves those of the one before in force.
  void cominciaSeDetto(std::string command) { pending_ = std::move(command); }
  /// What follows is about another survey: it is told though it was told of the one before.
  void dimentica() { scope_ = entries_.size(); }

  bool empty() const { return entries_.empty(); }
  const std::vector<Finding>& entries() const { return entries_; }
  const std::vector<Command>& commands() const { return commands_; }
  /// Those of the last command.
  std::span<const Finding> ultimi() const {
    return std::span(entries_).subspan(commands_.empty() ? 0 : commands_.back().first);
  }
  bool anyFault() const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const Finding& f) { return f.severity == Severity::Fault; });
  }

 private:
  bool detto(std::size_t from, const Finding& entry) const {
    return std::find(entries_.begin() + static_cast<std::ptrdiff_t>(from), entries_.end(), entry) != entries_.end();
  }

  std::vector<Finding> entries_;
  std::vector<Command> commands_;
  std::string pending_;
  std::size_t scope_ = 0;  ///< those before it are of another survey
};

}  // namespace corvan

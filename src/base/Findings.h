// What a run passed over, refused or failed at: the command line prints it, the window lists it, the exit status tells.
#pragma once

#include <algorithm>
#include <filesystem>
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

/// The findings of one command, in the order in which they were seen.
class Findings {
 public:
  void fault(std::string procedure, std::string reason, std::string file = {}) {
    add({Severity::Fault, std::move(procedure), std::move(file), std::move(reason)});
  }
  void note(std::string procedure, std::string reason, std::string file = {}) {
    add({Severity::Note, std::move(procedure), std::move(file), std::move(reason)});
  }
  /// One that is in the list already (the same step run again) is not repeated.
  void add(Finding entry) {
    if (std::find(entries_.begin(), entries_.end(), entry) == entries_.end()) entries_.push_back(std::move(entry));
  }
  /// Takes over what a reader found in a file.
  void add(const Findings& of, const std::filesystem::path& file) {
    for (Finding entry : of.entries_) {
      if (entry.file.empty()) entry.file = file.string();
      add(std::move(entry));
    }
  }
  /// Takes back what a procedure found, when what was found no longer holds.
  void ritira(const std::string& procedure) {
    std::erase_if(entries_, [&procedure](const Finding& f) { return f.procedure == procedure; });
  }
  void clear() { entries_.clear(); }
  bool empty() const { return entries_.empty(); }
  const std::vector<Finding>& entries() const { return entries_; }
  bool anyFault() const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const Finding& f) { return f.severity == Severity::Fault; });
  }

 private:
  std::vector<Finding> entries_;
};

}  // namespace corvan

// The list of what a run passed over or could not do, for the command line's standard error and the window's status
// bar.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace corvan {

/// A note tells what the operator should know; a fault says that something was not read, not written or passed over.
enum class Severity { Note, Fault };

struct Diagnostic {
  std::string procedure;  ///< the procedure that saw it, e.g. "LeggiSyscalPro2"
  std::string reason;     ///< one sentence naming file, value and allowed range
  Severity severity = Severity::Fault;
};

class Diagnostics {
 public:
  void fault(std::string procedure, std::string reason) {
    add({std::move(procedure), std::move(reason), Severity::Fault});
  }
  void note(std::string procedure, std::string reason) {
    add({std::move(procedure), std::move(reason), Severity::Note});
  }
  /// One that is in the list already (the same step run again) is not repeated.
  void add(Diagnostic entry) {
    const auto same = [&entry](const Diagnostic& d) {
      return d.procedure == entry.procedure && d.reason == entry.reason;
    };
    if (std::none_of(entries_.begin(), entries_.end(), same)) entries_.push_back(std::move(entry));
  }
  void clear() { entries_.clear(); }
  const std::vector<Diagnostic>& entries() const { return entries_; }
  bool anyFault() const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const Diagnostic& d) { return d.severity == Severity::Fault; });
  }

 private:
  std::vector<Diagnostic> entries_;
};

}  // namespace corvan

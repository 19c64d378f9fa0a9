// Answers the program's questions from the command line's options.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Dialogs.h"

namespace corvan::cli {

/// Input boxes are answered by their prompt, message boxes with OK; what a message box says is printed on standard
/// error and kept. The progress of a batch is one line on standard error, rewritten in place, when that is a terminal.
class ScriptedDialogs : public Dialogs {
 public:
  ScriptedDialogs();

  /// @param prompt the input box's text; a prompt without an answer is left with Cancel
  void answer(std::string prompt, std::string text) { answers_[std::move(prompt)] = std::move(text); }
  bool asked(const std::string& prompt) const { return asked_.contains(prompt); }
  const std::vector<std::string>& messages() const { return messages_; }

  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  void Avanzamento(const ProgressStep& step) override;

 private:
  bool terminal_;
  std::map<std::string, std::string> answers_;
  std::set<std::string> asked_;
  std::vector<std::string> messages_;
};

}  // namespace corvan::cli

// Answers the program's questions from the command line's options.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Dialogs.h"

namespace corvan::cli {

/// Input boxes are answered by their question, message boxes with OK; what a message box says is printed on standard
/// error and kept. Files that the options name are replaced without a question. The progress of a batch is one line on
/// standard error, rewritten in place, when that is a terminal.
class ScriptedDialogs : public Dialogs {
 public:
  ScriptedDialogs();

  /// A question without an answer is left with Cancel.
  void answer(Question question, std::string text) { answers_[question] = std::move(text); }
  bool asked(Question question) const { return asked_.contains(question); }
  const std::vector<std::string>& messages() const { return messages_; }

  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  bool Avanzamento(const ProgressStep& step) override;

 private:
  bool terminal_;
  std::map<Question, std::string> answers_;
  std::set<Question> asked_;
  std::vector<std::string> messages_;
};

}  // namespace corvan::cli

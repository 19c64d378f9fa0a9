// Keeps the answers that the user gives to a command, so that it can be given them again.
#pragma once

#include <vector>

#include "base/Dialogs.h"
#include "session/Acts.h"

namespace corvan {

/// Stands between the desks and whoever answers.
class AnswerBook : public Dialogs {
 public:
  /// @param inner answers what is not known; must outlive this
  explicit AnswerBook(Dialogs& inner) : inner_(inner) {}

  /// A command begins: what was given before is another one's.
  void comincia() { given_.clear(); }
  /// Answers the questions of the next command, each by the first of these that is for it and was not used yet.
  void ripeti(std::vector<GivenAnswer> known) { known_ = std::move(known); }
  /// The command is over. @return what it was answered
  std::vector<GivenAnswer> dati();

  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  bool Avanzamento(const ProgressStep& step) override { return inner_.Avanzamento(step); }

 private:
  std::optional<GivenAnswer> nota(Question question);

  Dialogs& inner_;
  std::vector<GivenAnswer> given_, known_;
};

}  // namespace corvan

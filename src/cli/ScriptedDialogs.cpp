#include "cli/ScriptedDialogs.h"

#include <iostream>

#include "base/Terminal.h"
#include "base/Text.h"

namespace corvan::cli {

ScriptedDialogs::ScriptedDialogs() : terminal_(ErroreSuTerminale()) {}

Answer ScriptedDialogs::MsgBox(const MessageRequest& request) {
  if (request.question == Question::ReplaceFiles) return Answer::Ok;
  messages_.push_back(PromptDi(request));
  std::cerr << "message: " << Visibile(messages_.back(), LineFeeds::Kept) << '\n';
  return Answer::Ok;
}

std::optional<std::string> ScriptedDialogs::InputBox(const InputRequest& request) {
  asked_.insert(request.question);
  const auto found = answers_.find(request.question);
  return found == answers_.end() ? std::nullopt : std::optional(found->second);
}

bool ScriptedDialogs::Avanzamento(const ProgressStep& step) {
  if (!terminal_ || step.work != ProgressStep::Work::Reading) return true;
  constexpr const char* clear = "\r\033[K";
  std::cerr << clear;
  if (!step.subject.empty()) {
    std::cerr << "Reading file " << step.done + 1 << " of " << step.total << ": " << Visibile(step.subject);
  }
  std::cerr.flush();
  return true;
}

}  // namespace corvan::cli

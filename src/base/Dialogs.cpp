#include "base/Dialogs.h"

namespace corvan {
namespace {

/// A text of the table with a number for its %.
std::string Con(const char* text, std::int32_t number) {
  std::string out = text;
  const std::size_t at = out.find('%');
  if (at != std::string::npos) out.replace(at, 1, std::to_string(number));
  return out;
}

}  // namespace

std::string PromptDi(const MessageRequest& request) { return TestoDi(request.question).prompt; }

std::string PromptDi(const InputRequest& request) { return Con(TestoDi(request.question).prompt, request.number); }

std::string TitoloDi(const InputRequest& request) { return Con(TestoDi(request.question).title, request.measurement); }

}  // namespace corvan

#include "session/AnswerBook.h"

#include <algorithm>
#include <utility>

namespace corvan {
namespace {

constexpr const char* Yes = "ok";

}  // namespace

std::vector<GivenAnswer> AnswerBook::dati() {
  known_.clear();
  return std::exchange(given_, {});
}

/// The known answer to a question, which is used up.
std::optional<GivenAnswer> AnswerBook::nota(Question question) {
  const auto found =
      std::find_if(known_.begin(), known_.end(), [question](const GivenAnswer& a) { return a.question == question; });
  if (found == known_.end()) return std::nullopt;
  GivenAnswer answer = std::move(*found);
  known_.erase(found);
  return answer;
}

Answer AnswerBook::MsgBox(const MessageRequest& request) {
  if (TestoDi(request.question).buttons == Buttons::Ok) return inner_.MsgBox(request);
  const std::optional<GivenAnswer> known = nota(request.question);
  const Answer answer = known ? (known->text ? Answer::Ok : Answer::Cancel) : inner_.MsgBox(request);
  given_.push_back({request.question, answer == Answer::Ok ? std::optional<std::string>(Yes) : std::nullopt});
  return answer;
}

std::optional<std::string> AnswerBook::InputBox(const InputRequest& request) {
  const std::optional<GivenAnswer> known = nota(request.question);
  const std::optional<std::string> answer = known ? known->text : inner_.InputBox(request);
  given_.push_back({request.question, answer});
  return answer;
}

}  // namespace corvan

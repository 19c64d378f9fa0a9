#include "session/History.h"

#include <utility>

namespace corvan {
namespace {

constexpr std::size_t Most = 200;  // a link of 100,000 measurements keeps some 10 MB

}  // namespace

void History::ricorda(std::string what, std::function<void()> back) {
  if (steps_.size() == Most) steps_.erase(steps_.begin());
  steps_.push_back({std::move(what), std::move(back)});
}

std::string History::annulla() {
  if (steps_.empty()) return "";
  const Step step = std::move(steps_.back());
  steps_.pop_back();
  step.back();
  return step.what;
}

}  // namespace corvan

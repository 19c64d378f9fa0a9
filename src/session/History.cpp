#include "session/History.h"

#include <algorithm>

namespace corvan {
namespace {

constexpr std::size_t Most = 200;  // a link of 100,000 measurements keeps some 10 MB

}  // namespace

void History::ricorda(std::string what, std::function<void()> back, std::optional<Act> act) {
  if (steps_.size() == Most) steps_.erase(steps_.begin());
  const bool acted = act.has_value();
  if (act) segna(std::move(*act));
  steps_.push_back({std::move(what), std::move(back), acted ? last_ : 0});
}

void History::segna(Act act) { acts_.emplace_back(++last_, std::move(act)); }

std::string History::annulla() {
  if (steps_.empty()) return "";
  const Step step = std::move(steps_.back());
  steps_.pop_back();
  std::erase_if(acts_, [&step](const auto& numbered) { return numbered.first == step.act; });
  step.back();
  return step.what;
}

void History::vuota() {
  steps_.clear();
  const auto track = std::find_if(acts_.rbegin(), acts_.rend(), [](const auto& numbered) {
    return std::holds_alternative<TrackAct>(numbered.second);
  });
  if (track == acts_.rend()) {
    acts_.clear();
  } else {
    acts_ = {std::move(*track)};
  }
}

std::vector<Act> History::atti() const {
  std::vector<Act> acts;
  for (const auto& [number, act] : acts_) acts.push_back(act);
  return acts;
}

}  // namespace corvan

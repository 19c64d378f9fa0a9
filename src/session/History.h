// What the user has changed by hand, one step at a time, so that each can be taken back; and what of it makes the
// survey, in its order, so that it can be done again.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "session/Acts.h"

namespace corvan {

class History {
 public:
  /// Keeps how to take back what a command has just changed. @param what as a menu names it, e.g. "Set UTM Zone"
  /// @param act what it did to the survey; taken back with it
  void ricorda(std::string what, std::function<void()> back, std::optional<Act> act = std::nullopt);
  /// Keeps an act that is not taken back.
  void segna(Act act);
  /// Takes the last change back. @return what it was; empty when there is none
  std::string annulla();
  /// What would be taken back; empty for nothing.
  std::string prossimo() const { return steps_.empty() ? "" : steps_.back().what; }
  /// A new survey: there is nothing to go back to. Of the acts the last track stays, as it does beside the survey.
  void vuota();
  /// Nothing is taken back from here on; the acts stay.
  void dimentica() { steps_.clear(); }
  /// What made the survey, in its order.
  std::vector<Act> atti() const;

 private:
  struct Step {
    std::string what;
    std::function<void()> back;
    std::size_t act;  ///< its number; 0 for none
  };
  std::vector<Step> steps_;
  std::vector<std::pair<std::size_t, Act>> acts_;  ///< with their numbers
  std::size_t last_ = 0;
};

}  // namespace corvan

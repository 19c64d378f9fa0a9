// What the user has changed by hand, one step at a time, so that each can be taken back.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvan {

class History {
 public:
  /// Keeps how to take back what a command has just changed. @param what as a menu names it, e.g. "Set UTM Zone"
  void ricorda(std::string what, std::function<void()> back);
  /// Takes the last change back. @return what it was; empty when there is none
  std::string annulla();
  /// What would be taken back; empty for nothing.
  std::string prossimo() const { return steps_.empty() ? "" : steps_.back().what; }
  /// A new survey: there is nothing to go back to.
  void vuota() { steps_.clear(); }

 private:
  struct Step {
    std::string what;
    std::function<void()> back;
  };
  std::vector<Step> steps_;
};

}  // namespace corvan

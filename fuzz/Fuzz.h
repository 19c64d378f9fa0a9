// What the fuzz targets share: the check that ends a run, and a survey carried through the chain behind a reader.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "base/Dialogs.h"

namespace corvan::fuzz {

/// Ends the run with a finding when a promise does not hold.
inline void Promise(bool holds, const char* what) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "broken promise: %s\n", what));
  std::abort();
}

/// Answers every question with one text.
class OneAnswer : public Dialogs {
 public:
  explicit OneAnswer(std::string answer) : answer_(std::move(answer)) {}
  Answer MsgBox(const MessageRequest& request) override {
    static_cast<void>(request);
    return Answer::Ok;
  }
  std::optional<std::string> InputBox(const InputRequest& request) override {
    static_cast<void>(request);
    return answer_;
  }

 private:
  std::string answer_;
};

inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace corvan::fuzz

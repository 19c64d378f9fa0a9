// The toolkit that pictures are painted with.
#pragma once

#include <array>
#include <optional>
#include <QGuiApplication>
#include <string>

namespace corvan::cli {

/// Fonts need a running toolkit; it needs no display. One a run: the fonts go with it.
class Toolkit {
 public:
  Toolkit();

 private:
  std::string name_ = "corvan-cli";
  int count_ = 1;
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  std::optional<QGuiApplication> application_;
};

}  // namespace corvan::cli

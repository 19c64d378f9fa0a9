// The small line at the foot of a picture that explains it.
#pragma once

#include <cstdint>
#include <string>

#include "picture/Canvas.h"

namespace corvan {

/// Empty for a picture without one.
struct Caption {
  std::string files;  ///< shortened where the line is too long
  std::string rest;   ///< behind them

  bool empty() const { return files.empty() && rest.empty(); }
};

/// The line as it fits into a width: the files give way first, then the end.
std::string Riga(const Caption& caption, std::int32_t width, const Canvas& canvas);

}  // namespace corvan

// The fields of one line of a track held as text.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/DateText.h"
#include "base/Fields.h"
#include "base/Text.h"

namespace corvan {

/// Cut once; the separator is chosen by the line.
class TrackFields {
 public:
  explicit TrackFields(std::string_view line) {
    const std::string separator = ScegliSeparatore(line);
    for (FieldCursor cursor(line, separator); cursor.more() && count_ < fields_.size();) {
      fields_.at(count_++) = Rifila(cursor.next());
    }
  }

  /// Field k, from 1; empty where there is none.
  std::string_view operator()(std::size_t k) const { return k <= count_ ? fields_.at(k - 1) : std::string_view(); }

  /// Day number of the date in field k and the time behind it. @throws RunTimeError when they are none
  double quando(std::size_t k) const {
    return DataDaTesto(std::string((*this)(k)) + " " + std::string((*this)(k + 1)));
  }

 private:
  std::array<std::string_view, 16> fields_;
  std::size_t count_ = 0;
};

/// "1 of 3 fixes has", "2 of 3 fixes have".
inline std::string QuantiDi(std::size_t count, std::size_t all, const char* one, const char* many) {
  return std::to_string(count) + " of " + Quanti(all, one, many) + (count == 1 ? " has" : " have");
}

/// " (line 4)", " (the first in line 4)".
inline std::string Dove(std::size_t count, std::size_t line) {
  return (count == 1 ? " (line " : " (the first in line ") + std::to_string(line) + ")";
}

}  // namespace corvan

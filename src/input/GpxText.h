// What tells a GPX document, and places in it.
#pragma once

#include <cstddef>
#include <string_view>

namespace corvan {

/// The text begins as XML, a byte-order mark and blanks aside, and its first element, looked for in the first 64 KiB,
/// is "gpx", with a prefix or without.
bool SembraGpx(std::string_view content);

/// The line, from 1, of places that are asked for in rising order. Lines end in LF, CR LF or CR.
class LineOf {
 public:
  explicit LineOf(std::string_view text) : text_(text) {}
  /// @param offset byte of the text; one before the last that was asked for gives that one's line
  std::size_t operator()(std::size_t offset);

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace corvan

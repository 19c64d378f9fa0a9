// Walks the lines of a text held in memory.
#pragma once

#include <cstddef>
#include <string_view>

namespace corvan {

/// Lines may end in LF, CR LF or CR, also mixed; a UTF-8 byte-order mark at the start is skipped. A line end at the
/// very end of the text makes no further line.
class LineCursor {
 public:
  explicit LineCursor(std::string_view text);

  bool more() const { return at_ < text_.size(); }
  /// The next line without its end; call only while more().
  std::string_view next();
  /// Number of the line last returned, counted from 1.
  std::size_t number() const { return number_; }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t number_ = 0;
  std::size_t nextLf_ = 0;  // where the next of each stands, found once, so that a file of one kind costs one pass
  std::size_t nextCr_ = 0;
};

}  // namespace corvan

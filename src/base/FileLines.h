// Walks the lines of a file of any size in blocks.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

#include "base/File.h"

namespace corvan {

/// Lines end as LineCursor's do, a byte-order mark at the file's start is skipped likewise. Memory is that of one
/// block.
class FileLines {
 public:
  static constexpr std::size_t Block = std::size_t{1} << 20;

  /// @param block bytes held at once, 16 at least. @throws FileError
  explicit FileLines(const std::filesystem::path& path, std::size_t block = Block);

  /// Goes to the next line. @return false behind the last one. @throws FileError
  bool next();
  /// The line without its end, until the next call of next().
  std::string_view line() const { return line_; }
  /// Its number, from 1.
  std::size_t number() const { return number_; }
  /// No line follows.
  bool last() const { return atEnd_ && next_ == end_; }
  /// The line is longer than a block: line() misses its middle and holds half a block at least of its beginning.
  bool cut() const { return cut_; }
  /// @throws FileError when the file was written to since it was opened
  void requireUnchanged() const { file_.requireUnchanged(); }

 private:
  std::size_t lineEnd();
  std::size_t find(char c) const;
  std::size_t behind(std::size_t lineEnd) const;
  void fill();

  FileReader file_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;   // of the line in the buffer
  std::size_t next_ = 0;    // of the line behind it
  std::size_t end_ = 0;     // of what was read
  std::size_t nextLf_ = 0;  // where the next of each stands, as in LineCursor
  std::size_t nextCr_ = 0;
  bool atEnd_ = false;
  bool cut_ = false;
  std::string_view line_;
  std::size_t number_ = 0;
};

}  // namespace corvan

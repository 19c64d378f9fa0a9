#include "base/FileLines.h"

#include <algorithm>
#include <span>

namespace corvan {

FileLines::FileLines(const std::filesystem::path& path, std::size_t block) : file_(path), buffer_(block) {
  fill();
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (std::string_view(buffer_.data(), end_).substr(0, mark.size()) == mark) next_ = mark.size();
}

bool FileLines::next() {
  begin_ = next_;
  cut_ = false;
  std::size_t end = lineEnd();
  // A byte behind the line's end is needed: a CR may be followed by its LF, and last() must be known.
  while (!atEnd_ && behind(end) >= end_) {
    fill();
    end = lineEnd();
  }
  if (begin_ == end_) return false;
  line_ = std::string_view(buffer_.data() + begin_, end - begin_);
  next_ = std::min(behind(end), end_);
  ++number_;
  return true;
}

/// Where the line that begins at begin_ ends: its CR or LF, or the end of what was read.
std::size_t FileLines::lineEnd() {
  if (nextLf_ < begin_) nextLf_ = find('\n');
  if (nextCr_ < begin_) nextCr_ = find('\r');
  return std::min(nextLf_, nextCr_);
}

std::size_t FileLines::find(char c) const {
  return std::min(std::string_view(buffer_.data(), end_).find(c, begin_), end_);
}

std::size_t FileLines::behind(std::size_t lineEnd) const {
  const bool pair = lineEnd + 1 < end_ && buffer_[lineEnd] == '\r' && buffer_[lineEnd + 1] == '\n';
  return lineEnd + (pair ? 2 : 1);
}

/// Moves the unfinished line to the front and reads on behind it.
void FileLines::fill() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_), buffer_.begin() + static_cast<std::ptrdiff_t>(end_),
            buffer_.begin());
  end_ -= begin_;
  begin_ = next_ = 0;
  if (end_ == buffer_.size()) {  // a line without end: its middle is dropped, the last bytes may be a line end
    const std::size_t half = buffer_.size() / 2;
    std::copy(buffer_.end() - 2, buffer_.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(half));
    end_ = half + 2;
    cut_ = true;
  }
  const std::span<char> room = std::span(buffer_).subspan(end_);
  const std::size_t got = file_.read(std::as_writable_bytes(room));
  atEnd_ = got < room.size();
  end_ += got;
  nextLf_ = find('\n');
  nextCr_ = find('\r');
}

}  // namespace corvan

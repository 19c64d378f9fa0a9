#include "base/Lines.h"

#include <algorithm>

namespace corvan {
namespace {

std::size_t Trova(std::string_view text, char c, std::size_t from) { return std::min(text.find(c, from), text.size()); }

}  // namespace

LineCursor::LineCursor(std::string_view text) : text_(text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text_.substr(0, mark.size()) == mark) text_.remove_prefix(mark.size());
  nextLf_ = Trova(text_, '\n', 0);
  nextCr_ = Trova(text_, '\r', 0);
}

std::string_view LineCursor::next() {
  if (nextLf_ < at_) nextLf_ = Trova(text_, '\n', at_);
  if (nextCr_ < at_) nextCr_ = Trova(text_, '\r', at_);
  const std::size_t end = std::min(nextLf_, nextCr_);
  const std::string_view line = text_.substr(at_, end - at_);
  const bool pair = nextCr_ < text_.size() && nextLf_ == nextCr_ + 1;
  at_ = end + (pair && end == nextCr_ ? 2 : 1);
  ++number_;
  return line;
}

}  // namespace corvan

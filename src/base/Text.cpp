#include "base/Text.h"

#include <cstddef>

namespace corvan {

std::string Maiuscolo(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

std::string Senza(std::string_view text, std::string_view part) {
  std::string kept;
  while (!text.empty()) {
    const std::size_t at = part.empty() ? std::string_view::npos : text.find(part);
    kept += text.substr(0, at);
    if (at == std::string_view::npos) break;
    text.remove_prefix(at + part.size());
  }
  return kept;
}

void PrintLine::add(std::string_view item) {
  constexpr std::size_t zone = 14;
  line_.resize((line_.size() + zone - 1) / zone * zone, ' ');
  line_ += item;
}

std::string PrintLine::text() const { return line_.substr(0, line_.find_last_not_of(' ') + 1); }

}  // namespace corvan

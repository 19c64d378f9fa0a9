#include "base/Text.h"

#include <cstddef>

namespace corvan {
namespace {

/// Bytes of the UTF-8 character that a text begins with; 0 when it begins with none (overlong forms, surrogates and
/// values beyond U+10FFFF are none).
std::size_t LunghezzaUtf8(std::string_view text) {
  const auto byte = [text](std::size_t k) { return k < text.size() ? static_cast<unsigned char>(text[k]) : 0U; };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(k) & 0xC0U) != 0x80U) return 0;
  }
  const unsigned second = byte(1);
  const bool wrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                     (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
  return wrong ? 0 : length;
}

void AggiungiEscape(std::string& out, char c) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(c);
  out += "\\x";
  out += digits[value >> 4U];
  out += digits[value & 0xFU];
}

}  // namespace

std::string Maiuscolo(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

std::string Quanti(std::uintmax_t count, std::string_view one, std::string_view many) {
  std::string text = std::to_string(count);
  text += ' ';
  text += count == 1 ? one : many;
  return text;
}

std::string_view IlPrimo(std::uintmax_t count) { return count == 1 ? ", it is " : ", the first is "; }

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

std::string Visibile(std::string_view text, LineFeeds feeds) {
  std::string out;
  while (!text.empty()) {
    const std::size_t length = LunghezzaUtf8(text);
    const auto code = static_cast<unsigned char>(text.front());
    const bool second = length == 2 && code == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0;
    const bool first = length == 1 && (code < 0x20 || code == 0x7F) && !(code == '\n' && feeds == LineFeeds::Kept);
    if (second) {
      AggiungiEscape(out, text[1]);  // the second byte of U+0080 to U+009F is their number
    } else if (first || length == 0) {
      AggiungiEscape(out, text.front());
    } else {
      out += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return out;
}

void PrintLine::add(std::string_view item) {
  constexpr std::size_t zone = 14;
  line_.resize((line_.size() + zone - 1) / zone * zone, ' ');
  line_ += item;
}

std::string PrintLine::text() const { return line_.substr(0, line_.find_last_not_of(' ') + 1); }

}  // namespace corvan

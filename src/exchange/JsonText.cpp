#include "exchange/JsonText.h"

#include <array>
#include <cstddef>

namespace corvan {
namespace {

/// Bytes of the UTF-8 character at the text's beginning; 0 where there is none (RFC 3629, table of section 4).
std::size_t Carattere(std::string_view text) {
  const auto byte = [text](std::size_t k) {
    return k < text.size() ? static_cast<unsigned>(static_cast<unsigned char>(text[k])) : 0U;
  };
  const auto tail = [&byte](std::size_t k) { return byte(k) >= 0x80 && byte(k) <= 0xBF; };
  const unsigned first = byte(0), second = byte(1);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return tail(1) ? 2 : 0;
  if (first >= 0xE0 && first <= 0xEF) {
    const bool proper = (first != 0xE0 || second >= 0xA0) && (first != 0xED || second <= 0x9F);
    return proper && tail(1) && tail(2) ? 3 : 0;
  }
  const bool proper =
      first >= 0xF0 && first <= 0xF4 && (first != 0xF0 || second >= 0x90) && (first != 0xF4 || second <= 0x8F);
  return proper && tail(1) && tail(2) && tail(3) ? 4 : 0;
}

}  // namespace

void AggiungiTestoJson(std::string& out, std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  out += '"';
  while (!text.empty()) {
    const std::size_t length = Carattere(text);
    const auto c = static_cast<unsigned char>(text.front());
    if (length == 0) {
      out += "\\ufffd";
    } else if (c == '"' || c == '\\') {
      (out += '\\') += text.front();
    } else if (c < 0x20) {
      ((out += "\\u00") += digits[c >> 4U]) += digits[c & 0xFU];
    } else {
      out += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  out += '"';
}

}  // namespace corvan

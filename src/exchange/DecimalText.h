// Numbers as every reader of the open formats takes them: plain decimals, always with a point, never an exponent.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace corvan {

/// Appends the shortest decimal that reads back to the same value of its type; "12.0", "0.0" also for -0.
/// @param value finite
template <class Number>
void AggiungiDecimale(std::string& out, Number value) {
  static_assert(std::is_floating_point_v<Number>);
  constexpr std::size_t longest = 360;  // 5e-324 takes 326 characters
  std::array<char, longest> buffer;     // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
  char* const last = buffer.data() + buffer.size();
  const auto whole = static_cast<std::int32_t>(std::abs(value) < Number{1e5} ? value : Number{0});
  if (static_cast<Number>(whole) == value) {
    out.append(buffer.data(), std::to_chars(buffer.data(), last, whole).ptr);
    out += ".0";
    return;
  }
  const std::string_view text(
      buffer.data(), static_cast<std::size_t>(std::to_chars(buffer.data(), last, value, std::chars_format::fixed).ptr -
                                              buffer.data()));
  out += text;
  if (text.find('.') == std::string_view::npos) out += ".0";
}

/// Appends a whole number.
template <class Number>
void AggiungiIntero(std::string& out, Number value) {
  static_assert(std::is_integral_v<Number>);
  constexpr std::size_t longest = 24;
  std::array<char, longest> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
  out.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

}  // namespace corvan

#include "base/NumberCheck.h"

#include <algorithm>

#include "base/Fields.h"
#include "base/Text.h"

namespace corvan {
namespace {

constexpr std::size_t LongestQuote = 40;

std::string Luogo(std::size_t line, std::size_t field) {
  std::string place;
  if (line > 0) place = "line " + std::to_string(line);
  if (field > 0) place += (line > 0 ? ", field " : "field ") + std::to_string(field);
  return place.empty() ? place : " in " + place;
}

}  // namespace

std::string Citazione(std::string_view text) {
  const std::string_view whole = Rifila(text);
  const std::string_view quote = whole.substr(0, LongestQuote);
  return "\"" + Visibile(quote) + (quote.size() < whole.size() ? "...\"" : "\"");
}

std::string LettoCome(std::string_view text, double value) {
  return Citazione(text) + " read as " + TestoNumero(value);
}

void NumberCheck::conta(std::string_view text, double value, std::size_t line, std::size_t field) {
  if (count_++ == 0) first_ = Luogo(line, field) + ": " + LettoCome(text, value);
}

std::string NumberCheck::detto() const {
  if (count_ == 0) return {};
  if (count_ == 1) return "1 value is not a number from end to end" + first_;
  return std::to_string(count_) + " values are not numbers from end to end, the first" + first_;
}

}  // namespace corvan

#include "base/DateText.h"

#include <cctype>
#include <chrono>
#include <string>

#include "base/Errors.h"
#include "base/OleDate.h"
#include "base/Text.h"

namespace corvan {
namespace {

/// Takes pieces off the front of a text; a piece that is not there makes it fail for good.
class Pezzi {
 public:
  explicit Pezzi(std::string_view text) : rest_(text) {}

  bool good() const { return good_; }
  bool empty() const { return rest_.empty(); }
  char front() const { return rest_.empty() ? '\0' : rest_.front(); }

  void blanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) rest_.remove_prefix(1);
  }
  /// One of the characters. @return which
  char separator(std::string_view allowed) {
    const char c = front();
    if (c == '\0' || allowed.find(c) == std::string_view::npos) {
      good_ = false;
      return '\0';
    }
    rest_.remove_prefix(1);
    return c;
  }
  int number(std::size_t most, std::size_t* digits = nullptr) {
    int value = 0;
    std::size_t n = 0;
    while (n < rest_.size() && n < most && std::isdigit(static_cast<unsigned char>(rest_[n])) != 0) {
      value = 10 * value + (rest_[n++] - '0');
    }
    good_ = good_ && n > 0;
    rest_.remove_prefix(n);
    if (digits != nullptr) *digits = n;
    return value;
  }
  /// Digits behind a point.
  double fraction() {
    double value = 0.0, place = 0.1;
    while (!rest_.empty() && std::isdigit(static_cast<unsigned char>(rest_.front())) != 0) {
      value += place * (rest_.front() - '0');
      place /= 10.0;
      rest_.remove_prefix(1);
    }
    return value;
  }
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
  bool good_ = true;
};

DateTime Data(Pezzi& text) {
  std::size_t digits = 0;
  const int first = text.number(4, &digits);
  const bool yearFirst = digits == 4;
  const char separator = text.separator("/-.");
  const int second = text.number(2);
  text.separator(std::string_view(&separator, 1));
  std::size_t lastDigits = 0;
  const int third = text.number(4, &lastDigits);
  DateTime date;
  date.year = yearFirst ? first : third;
  if (!yearFirst && lastDigits <= 2) date.year += third <= 29 ? 2000 : 1900;
  const bool monthFirst = !yearFirst && second > 12;
  date.month = yearFirst || !monthFirst ? second : first;
  date.day = yearFirst ? third : monthFirst ? second : first;
  return date;
}

/// Time of day in days.
double Ora(Pezzi& text) {
  int hour = text.number(2);
  text.separator(":");
  const int minute = text.number(2);
  double second = 0.0;
  if (text.front() == ':') {
    text.separator(":");
    second = text.number(2);
    if (text.front() == '.') {
      text.separator(".");
      second += text.fraction();
    }
  }
  text.blanks();
  const std::string half = Maiuscolo(text.rest());
  const bool named = half == "AM" || half == "PM";
  if (!text.good() || !(named || half.empty()) || hour > (named ? 12 : 23) || minute > 59 || second >= 61.0) {
    throw RunTimeError("no time");
  }
  if (named) hour = hour % 12 + (half == "PM" ? 12 : 0);
  return (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
}

/// A text as a message may show it: its beginning, other than printable characters as "?".
std::string Leggibile(std::string_view text) {
  constexpr std::size_t most = 40;
  std::string shown(text.substr(0, most));
  for (char& c : shown) {
    if (c < ' ' || c > '~') c = '?';
  }
  return text.size() > most ? shown + "..." : shown;
}

}  // namespace

double DataDaTesto(std::string_view text) {
  try {
    Pezzi pieces(text);
    pieces.blanks();
    const DateTime date = Data(pieces);
    const std::chrono::year_month_day civil{std::chrono::year{date.year},
                                            std::chrono::month{static_cast<unsigned>(date.month)},
                                            std::chrono::day{static_cast<unsigned>(date.day)}};
    if (!pieces.good() || !civil.ok()) throw RunTimeError("no date");
    if (!pieces.empty() && pieces.front() != ' ' && pieces.front() != '\t' && pieces.front() != 'T') {
      throw RunTimeError("no date");
    }
    if (pieces.front() == 'T') pieces.separator("T");
    pieces.blanks();
    return AGiorni(date) + (pieces.empty() ? 0.0 : Ora(pieces));
  } catch (const RunTimeError&) {
    throw RunTimeError("\"" + Leggibile(text) + "\" is no date and time");
  }
}

double IstanteDaTesto(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return DataDaTesto(text);
  if (text.back() == 'Z' || text.back() == 'z') return DataDaTesto(text.substr(0, text.size() - 1));
  const std::size_t sign = text.find_last_of("+-");
  if (sign == std::string_view::npos || sign < colon) return DataDaTesto(text);
  Pezzi zone(text.substr(sign + 1));
  const int hours = zone.number(2);
  int minutes = 0;
  if (zone.front() == ':') zone.separator(":");
  if (!zone.empty()) minutes = zone.number(2);
  if (!zone.good() || !zone.empty() || hours > 14 || minutes > 59) {
    throw RunTimeError("\"" + Leggibile(text) + "\" is no date and time");
  }
  const double ahead = (hours * 60.0 + minutes) / 1440.0;
  return DataDaTesto(text.substr(0, sign)) - (text[sign] == '-' ? -ahead : ahead);
}

}  // namespace corvan

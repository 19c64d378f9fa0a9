#include "input/NmeaSentence.h"

#include <chrono>

#include "base/OleDate.h"

namespace corvan {
namespace {

int Cifra16(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

bool Cifra(char c) { return c >= '0' && c <= '9'; }

/// A field of at most six digits; -1 when it is anything else.
int Intero(std::string_view field) {
  constexpr std::size_t most = 6;
  if (field.empty() || field.size() > most) return -1;
  int value = 0;
  for (const char c : field) {
    if (!Cifra(c)) return -1;
    value = 10 * value + (c - '0');
  }
  return value;
}

/// Digits with one point at most: digits / 10^places.
struct Decimal {
  std::int64_t digits = 0;
  std::int64_t whole = 0;  ///< what stands before the point
  std::size_t places = 0;
};

constexpr std::size_t ExactDigits = 15;  // a whole number of so many is exact in a double, and so are these
constexpr std::array<double, ExactDigits + 1> PowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Nothing when the text is empty, holds anything else or more digits than any instrument writes.
std::optional<Decimal> Cifre(std::string_view text) {
  if (text.size() < 1 || text.size() > ExactDigits + 1) return std::nullopt;
  Decimal number;
  std::size_t point = text.size();
  for (std::size_t k = 0; k < text.size(); ++k) {
    if (text[k] == '.' && point == text.size()) {
      point = k;
      number.whole = number.digits;
    } else if (Cifra(text[k])) {
      number.digits = 10 * number.digits + (text[k] - '0');
    } else {
      return std::nullopt;
    }
  }
  const bool pointed = point < text.size();
  if (!pointed) number.whole = number.digits;
  number.places = pointed ? text.size() - point - 1 : 0;
  if (text.size() - (pointed ? 1 : 0) == 0 || text.size() - (pointed ? 1 : 0) > ExactDigits) return std::nullopt;
  return number;
}

std::int32_t Giorno(int year, int month, int day) {
  if (year < 0 || month < 0 || day < 0) return 0;
  const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                                         std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return 0;
  const double days = AGiorni({year, month, day});
  return TempoValido(days) ? static_cast<std::int32_t>(days) : 0;
}

}  // namespace

bool SommaGiusta(std::string_view digits, unsigned sum) {
  if (digits.size() < 2) return false;
  const int high = Cifra16(digits[0]), low = Cifra16(digits[1]);
  return high >= 0 && low >= 0 && static_cast<unsigned>(high * 16 + low) == (sum & 0xFFU);
}

std::optional<double> NumeroNmea(std::string_view field) {
  const bool sign = !field.empty() && (field[0] == '-' || field[0] == '+');
  const std::optional<Decimal> number = Cifre(field.substr(sign ? 1 : 0));
  if (!number) return std::nullopt;
  const double value = static_cast<double>(number->digits) / PowersOfTen[number->places];
  return field[0] == '-' ? -value : value;
}

std::optional<std::int32_t> OraNmea(std::string_view field) {
  constexpr std::size_t whole = 6;
  if (field.size() < whole) return std::nullopt;
  std::array<int, whole> digit{};
  for (std::size_t k = 0; k < whole; ++k) {
    if (!Cifra(field[k])) return std::nullopt;
    digit[k] = field[k] - '0';
  }
  int milliseconds = 0;
  if (field.size() > whole) {
    if (field[whole] != '.') return std::nullopt;
    int place = 1000;  // ten-thousandths of a second, the last only to round
    int parts = 0;
    for (std::size_t k = whole + 1; k < field.size(); ++k, place /= 10) {
      if (!Cifra(field[k])) return std::nullopt;
      parts += place * (field[k] - '0');
    }
    milliseconds = (parts + 5) / 10;
  }
  const int hours = 10 * digit[0] + digit[1], minutes = 10 * digit[2] + digit[3], seconds = 10 * digit[4] + digit[5];
  if (hours > 23 || minutes > 59 || seconds > 60) return std::nullopt;
  return (hours * 3600 + minutes * 60 + seconds) * 1000 + milliseconds;
}

std::optional<double> AngoloNmea(std::string_view field, std::string_view letter, char positive, char negative,
                                 double most) {
  if (letter.size() != 1 || (letter[0] != positive && letter[0] != negative)) return std::nullopt;
  const std::optional<Decimal> packed = Cifre(field);
  if (!packed) return std::nullopt;
  const auto unit = static_cast<std::int64_t>(PowersOfTen[packed->places]);
  const std::int64_t whole = packed->whole / 100;
  const double minutes = static_cast<double>(packed->digits - whole * 100 * unit) / static_cast<double>(unit);
  const double degrees = static_cast<double>(whole) + minutes / 60.0;
  if (minutes > 60.0 || degrees > most) return std::nullopt;
  return letter[0] == positive ? degrees : -degrees;
}

GiornoNmea DataRmc(std::string_view field) {
  if (field.empty()) return {};
  const int packed = Intero(field);
  if (packed < 0 || field.size() != 6) return {true, 0};
  const int year = packed % 100;
  return {true, Giorno(year + (year < 80 ? 2000 : 1900), packed / 100 % 100, packed / 10000)};
}

GiornoNmea DataZda(const NmeaFields& fields) {
  if (fields[2].empty() && fields[3].empty() && fields[4].empty()) return {};
  return {true, Giorno(Intero(fields[4]), Intero(fields[3]), Intero(fields[2]))};
}

}  // namespace corvan

#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <system_error>

#include "base/Errors.h"

namespace corvan {
namespace {

constexpr int SignificantDigits = 15;

bool Cifra(char c) { return c >= '0' && c <= '9'; }

bool Bianco(char c) { return c == ' ' || c == '\t'; }

/// from_chars tells neither overflow from underflow nor gives a value for them: the decimal exponent of the first
/// digit other than zero decides.
bool TroppoGrande(std::string_view number) {
  long exponent = 0;
  const std::size_t e = number.find_first_of("eE");
  if (e != std::string_view::npos) {
    const char* first = number.data() + e + 1;
    if (*first == '+') ++first;
    if (std::from_chars(first, number.data() + number.size(), exponent).ec == std::errc::result_out_of_range) {
      return *first != '-';
    }
  }
  const std::string_view mantissa = number.substr(0, e);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t digit = mantissa.find_first_of("123456789");
  if (digit == std::string_view::npos) return false;
  const long place = static_cast<long>(point) - static_cast<long>(digit);
  return place + exponent > 0;
}

/// A number of any length, through from_chars. @param digits behind the sign
NumeroIniziale NumeroLungo(const char* digits, const char* last, bool negative) {
  double value = 0.0;
  const auto [end, ec] = std::from_chars(digits, last, value);
  if (ec == std::errc::result_out_of_range) {
    const std::string_view matched(digits, static_cast<std::size_t>(end - digits));
    if (TroppoGrande(matched)) throw RunTimeError("number too large: " + std::string(matched.substr(0, 40)));
    value = 0.0;
  }
  return {negative ? -value : value, end};
}

constexpr int ExactDigits = 15;  // a whole number of so many digits is exact in a double
constexpr std::array<double, ExactDigits + 1> PowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The magnitude of a value counted in units of its last place, rounded as AggiungiNumero does, by one product instead
/// of the way through the decimal text; -1 where that cannot tell which way the rounding goes. Between the product and
/// the decimal that is rounded there are 15 significant digits (5e-15 of the value) and one rounding (1.2e-16): where
/// the product is further than 1e-14 of itself from a half, both round to the same unit. From 5e13 units on no product
/// is that far; below, whole units are exact. Numbers are written in a third of the time so.
double UnitaArrotondate(double value, double unit) {
  constexpr double doubt = 1e-14, most = 0.5 / doubt;
  const double scaled = std::abs(value) * unit;
  if (!(scaled < most)) return -1.0;
  const auto below = static_cast<double>(static_cast<std::int64_t>(scaled));  // std::floor may be a call
  const double half = scaled - below - 0.5;
  if (std::abs(half) <= doubt * scaled) return -1.0;
  return half < 0.0 ? below : below + 1.0;
}

template <class Number>
std::string Semplice(Number value) {
  if (value == 0) return "0";
  std::array<char, 512> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::isfinite(value) ? std::chars_format::fixed : std::chars_format::general);
  return {buffer.data(), result.ptr};
}

/// The decimal digits of a value rounded to a number of places, `count` of them, the last standing at that place.
struct DecimalDigits {
  std::array<char, SignificantDigits + 2> digit{};
  int count = 0;  ///< digits held; the rest down to the last place are zeros
  int whole = 0;  ///< digits before the point; may be negative (zeros behind the point) or more than count
};

DecimalDigits Arrotonda(double magnitude, int places) {
  std::array<char, 32> text{};
  std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific,
                SignificantDigits - 1);
  DecimalDigits d;
  d.digit[1] = text[0];  // slot 0 is kept for a carry
  std::copy(text.begin() + 2, text.begin() + SignificantDigits + 1, d.digit.begin() + 2);
  const char* exponentText = text.data() + SignificantDigits + 2;
  int exponent = 0;
  std::from_chars(exponentText + (*exponentText == '+' ? 1 : 0), text.data() + text.size(), exponent);
  d.whole = exponent + 1;
  d.count = std::min(d.whole + places, SignificantDigits);
  if (d.count < 0) {
    d.count = 0;
    return d;
  }
  bool carry = d.count < SignificantDigits && d.digit[static_cast<std::size_t>(d.count) + 1] >= '5';
  d.digit[0] = '0';
  for (int k = d.count; carry && k >= 0; --k) {
    char& c = d.digit[static_cast<std::size_t>(k)];
    carry = c == '9';
    c = carry ? '0' : static_cast<char>(c + 1);
  }
  if (d.digit[0] == '0') {
    std::copy(d.digit.begin() + 1, d.digit.end(), d.digit.begin());
  } else {
    ++d.count;
    ++d.whole;
  }
  return d;
}

/// Through the decimal digits of the value: right for every finite value.
void AggiungiPerCifre(std::string& out, double value, const Mask& mask) {
  const DecimalDigits d = Arrotonda(std::abs(value), mask.places);
  const auto at = [&d](int k) { return k >= 0 && k < d.count ? d.digit[static_cast<std::size_t>(k)] : '0'; };
  const auto first = d.digit.begin();
  const bool zero = std::all_of(first, first + d.count, [](char c) { return c == '0'; });
  if (value < 0.0 && !zero) out += '-';

  const int whole = zero ? 0 : std::max(d.whole, 0);
  for (int k = whole; k < mask.forcedDigits; ++k) out += '0';
  for (int k = 0; k < whole; ++k) out += at(k);
  if (!mask.point) return;
  out += '.';
  int places = mask.places;
  while (places > mask.forcedPlaces && (zero || at(d.whole + places - 1) == '0')) --places;
  for (int k = 0; k < places; ++k) out += zero ? '0' : at(d.whole + k);
}

/// So many units of a mask's last place, at most 5e13. The mask has at most ExactDigits digits on each side.
void AggiungiUnita(std::string& out, std::uint64_t units, bool negative, const Mask& mask) {
  constexpr std::size_t zeros = std::size_t{2} * ExactDigits;  // as many may stand before the first digit that counts
  std::array<char, 2 + zeros + ExactDigits> text;
  text.fill('0');
  char* const digits = text.data() + 2 + zeros;
  char* const end = units == 0 ? digits : std::to_chars(digits, text.data() + text.size(), units).ptr;
  char* const point = end - mask.places;
  char* first = std::min(digits, point - mask.forcedDigits);
  const char* last = end;
  while (last - point > mask.forcedPlaces && last[-1] == '0') --last;
  if (mask.point) {
    for (char* at = first--; at < point; ++at) at[-1] = *at;
    point[-1] = '.';
  }
  if (negative) *--first = '-';
  out.append(first, static_cast<std::size_t>(last - first));
}

}  // namespace

NumeroIniziale CercaNumero(std::string_view text) {
  const char* first = text.data();
  const char* const last = first + text.size();
  while (first != last && Bianco(*first)) ++first;
  const bool negative = first != last && *first == '-';
  if (negative || (first != last && *first == '+')) ++first;
  // Up to 15 digits without an exponent need no from_chars: digits and power of ten are exact, so their quotient is the
  // nearest double. A file of numbers is read in half the time so.
  std::uint64_t digits = 0;
  const char* at = first;
  for (; at != last && Cifra(*at); ++at) digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
  std::ptrdiff_t count = at - first;
  std::ptrdiff_t places = 0;
  if (at != last && *at == '.') {
    const char* const point = at++;
    for (; at != last && Cifra(*at); ++at) digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    places = at - point - 1;
    count += places;
  }
  if (count == 0) return {};
  if (count > ExactDigits || (at != last && (*at == 'e' || *at == 'E'))) return NumeroLungo(first, last, negative);
  const double value =
      static_cast<double>(static_cast<std::int64_t>(digits)) / PowersOfTen[static_cast<std::size_t>(places)];
  return {negative ? -value : value, at};
}

double Val(std::string_view text) { return CercaNumero(text).value; }

NumeroLetto LeggiNumero(std::string_view text) {
  const NumeroIniziale number = CercaNumero(text);
  const char* at = number.end != nullptr ? number.end : text.data();
  const char* const last = text.data() + text.size();
  while (at != last && Bianco(*at)) ++at;
  if (at == last) return {number.value, number.end != nullptr ? TextForm::Number : TextForm::Empty};
  if (number.end == nullptr && (*at == '-' || *at == '+') && at + 1 != last) ++at;
  if (*at == ',') return {number.value, TextForm::Comma};
  return {number.value, number.end != nullptr ? TextForm::Tail : TextForm::Word};
}

bool SoloNumero(std::string_view text) {
  try {
    return LeggiNumero(text).form == TextForm::Number;
  } catch (const RunTimeError&) {
    return false;
  }
}

std::string TestoNumero(double value) { return Semplice(value); }

std::string TestoNumero(float value) { return Semplice(value); }

std::string TestoDecimi(double value) { return TestoNumero(std::round(value * 10.0) / 10.0); }

std::string FormattaNumero(double value, Mask mask) {
  std::string out;
  AggiungiNumero(out, value, mask);
  return out;
}

void AggiungiNumero(std::string& out, double value, Mask mask) {
  if (!std::isfinite(value)) return;
  const bool fits = mask.places <= ExactDigits && mask.forcedDigits <= ExactDigits;
  const double units = fits ? UnitaArrotondate(value, PowersOfTen[static_cast<std::size_t>(mask.places)]) : -1.0;
  if (units < 0.0) {
    AggiungiPerCifre(out, value, mask);
  } else {
    AggiungiUnita(out, static_cast<std::uint64_t>(static_cast<std::int64_t>(units)), value < 0.0 && units > 0.0, mask);
  }
}

double ArrotondaDecimale(double value, int places) {
  if (!std::isfinite(value)) return 0.0;
  const double unit = PowersOfTen.at(static_cast<std::size_t>(places));
  const double units = UnitaArrotondate(value, unit);
  if (units >= 0.0) return value < 0.0 && units > 0.0 ? -units / unit : units / unit;
  const std::string mask = "0." + std::string(static_cast<std::size_t>(places), '0');
  return Val(FormattaNumero(value, mask.c_str()));
}

}  // namespace corvan

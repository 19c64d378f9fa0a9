#include "geo/AngleText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/Errors.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan {
namespace {

/// Characters [from, to) of a text whose start may lie before its first character.
double Pezzo(std::string_view text, std::ptrdiff_t from, std::ptrdiff_t to) {
  const auto first = std::max<std::ptrdiff_t>(from, 0);
  if (to <= first) return 0.0;
  return Val(text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(to - first)));
}

std::string Ripulisci(std::string_view text) {
  constexpr std::string_view degreeUtf8 = "\xC2\xB0";
  constexpr std::string_view degreeLatin1 = "\xB0";
  std::string clean = Senza(Rifila(text), degreeUtf8);
  for (const std::string_view mark : {degreeLatin1, std::string_view("'"), std::string_view(" ")})
    clean = Senza(clean, mark);
  std::replace(clean.begin(), clean.end(), ',', '.');
  return clean;
}

/// The whole angle in its last unit as digits without a point, e.g. minutes with 6 places: 2730.5 is "2730500000".
std::string UltimaUnita(double value, int places) {
  std::string mask = "0.";
  mask.append(static_cast<std::size_t>(places), '0');
  return Senza(FormattaNumero(value, mask.c_str()), ".");
}

/// Two digits, a point and the places of a piece below 60, written with at least `forced` places.
std::string Sessantesimi(long long units, int places, int forced) {
  std::string digits = std::to_string(units);
  const auto width = static_cast<std::size_t>(places) + 2;
  digits.insert(0, digits.size() < width ? width - digits.size() : 0, '0');
  digits.insert(2, 1, '.');
  const auto shortest = static_cast<std::size_t>(forced) + 3;
  while (digits.size() > shortest && digits.back() == '0') digits.pop_back();
  return digits;
}

/// Two pieces run together; the rounding of the sum may bring the lower one to 60, which is then carried.
double Unisci(double head, double piece) {
  const double number = head * 100.0 + piece;
  return number - head * 100.0 < 60.0 ? number : (head + 1.0) * 100.0;
}

}  // namespace

double GradiDaTesto(std::string_view text, AngleFormat format) {
  std::string clean = Ripulisci(text);
  const bool negative = !clean.empty() && clean.front() == '-';
  if (!clean.empty() && (negative || clean.front() == '+')) clean.erase(0, 1);
  const auto end = static_cast<std::ptrdiff_t>(clean.size());
  const auto p = static_cast<std::ptrdiff_t>(std::min(clean.find('.'), clean.size()));
  double degrees = 0.0;
  switch (format) {
    case AngleFormat::DMMSS:
      degrees = Pezzo(clean, 0, p - 4) + Pezzo(clean, p - 4, p - 2) / 60.0 + Pezzo(clean, p - 2, end) / 3600.0;
      break;
    case AngleFormat::DMM_MMM:
      degrees = Pezzo(clean, 0, p - 2) + Pezzo(clean, p - 2, end) / 60.0;
      break;
    case AngleFormat::D_DDDD:
      degrees = Pezzo(clean, 0, end);
      break;
  }
  return negative ? -degrees : degrees;
}

std::string TestoDaGradi(double degrees, AngleFormat format) {
  constexpr int secondPlaces = 2;
  constexpr int minutePlaces = 6;
  constexpr long long secondUnits = 100;
  constexpr long long minuteUnits = 1000000;
  if (format == AngleFormat::D_DDDD) return FormattaNumero(degrees, "##0.0000######");
  const bool seconds = format == AngleFormat::DMMSS;
  constexpr double largest = 1e9;
  if (!(std::abs(degrees) <= largest)) throw RunTimeError("angle " + TestoNumero(degrees) + " is no angle");
  const double magnitude = std::abs(degrees) * (seconds ? 3600.0 : 60.0);
  const long long units = std::stoll(UltimaUnita(magnitude, seconds ? secondPlaces : minutePlaces));
  const std::string sign = degrees < 0.0 && units != 0 ? "-" : "";
  if (!seconds) {
    const long long perDegree = 60 * minuteUnits;
    return sign + std::to_string(units / perDegree) + Sessantesimi(units % perDegree, minutePlaces, 2);
  }
  const long long perMinute = 60 * secondUnits;
  const long long perDegree = 60 * perMinute;
  const long long minutes = units % perDegree / perMinute;
  return sign + std::to_string(units / perDegree) + FormattaNumero(static_cast<double>(minutes), "00") +
         Sessantesimi(units % perMinute, secondPlaces, 1);
}

double NumeroDaGradi(double degrees, AngleFormat format) {
  const double magnitude = std::abs(degrees);
  const double whole = std::floor(magnitude);
  const double minutes = (magnitude - whole) * 60.0;
  double number = magnitude;
  if (format == AngleFormat::DMM_MMM) number = Unisci(whole, minutes);
  if (format == AngleFormat::DMMSS) {
    const double wholeMinutes = std::floor(minutes);
    number = Unisci(whole * 100.0 + wholeMinutes, (minutes - wholeMinutes) * 60.0);
    if (number - whole * 10000.0 >= 6000.0) number = (whole + 1.0) * 10000.0;
  }
  return degrees < 0.0 ? -number : number;
}

}  // namespace corvan

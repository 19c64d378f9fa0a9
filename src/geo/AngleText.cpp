#include "geo/AngleText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

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

constexpr int SecondPlaces = 2;
constexpr int MinutePlaces = 6;
constexpr int DegreePlaces = 10;
constexpr long long SecondUnits = 100;
constexpr long long MinuteUnits = 1000000;
constexpr long long PerMinute = 60 * SecondUnits;
constexpr double LargestAngle = 1e9;  // degrees; a larger one cannot be split

/// The whole angle in its last unit: hundredths of a second, or millionths of a minute.
long long UltimaUnita(double degrees, bool seconds) {
  if (!(std::abs(degrees) <= LargestAngle)) throw RunTimeError("angle " + TestoNumero(degrees) + " is no angle");
  const double pieces = std::abs(degrees) * (seconds ? 3600.0 : 60.0);
  const double rounded = ArrotondaDecimale(pieces, seconds ? SecondPlaces : MinutePlaces);
  return std::llround(rounded * static_cast<double>(seconds ? SecondUnits : MinuteUnits));
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

/// The angle of a number with at most eight digits behind the point and fifteen in all, as texts hold them: those are
/// the digits of its shortest text, so that each piece is the nearest double to its digits. A tenth of the text's cost.
std::optional<double> GradiDaDecimale(double magnitude, AngleFormat format) {
  constexpr std::int64_t unit = 100'000'000;
  constexpr auto units = static_cast<double>(unit);
  if (!(magnitude * units < 1e15)) return std::nullopt;
  const auto digits = static_cast<std::int64_t>(magnitude * units + 0.5);
  if (static_cast<double>(digits) / units != magnitude) return std::nullopt;
  const auto piece = [](std::int64_t part) { return static_cast<double>(part) / units; };
  if (format == AngleFormat::DMM_MMM) {
    return static_cast<double>(digits / (100 * unit)) + piece(digits % (100 * unit)) / 60.0;
  }
  const std::int64_t rest = digits % (10000 * unit);
  return static_cast<double>(digits / (10000 * unit)) + static_cast<double>(rest / (100 * unit)) / 60.0 +
         piece(rest % (100 * unit)) / 3600.0;
}

}  // namespace

AngleFormatName NomeFormato(AngleFormat format) {
  switch (format) {
    case AngleFormat::D_DDDD:
      return {"decimal degrees", "dd"};
    case AngleFormat::DMM_MMM:
      return {"degrees and minutes", "ddmm"};
    case AngleFormat::DMMSS:
      break;
  }
  return {"degrees, minutes and seconds", "ddmmss"};
}

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
  if (format == AngleFormat::D_DDDD) return FormattaNumero(degrees, "##0.0000######");
  const bool seconds = format == AngleFormat::DMMSS;
  const long long units = UltimaUnita(degrees, seconds);
  const std::string sign = degrees < 0.0 && units != 0 ? "-" : "";
  if (!seconds) {
    const long long perDegree = 60 * MinuteUnits;
    return sign + std::to_string(units / perDegree) + Sessantesimi(units % perDegree, MinutePlaces, 2);
  }
  const long long perDegree = 60 * PerMinute;
  const long long minutes = units % perDegree / PerMinute;
  return sign + std::to_string(units / perDegree) + FormattaNumero(static_cast<double>(minutes), "00") +
         Sessantesimi(units % PerMinute, SecondPlaces, 1);
}

double NumeroScritto(double degrees, AngleFormat format) {
  if (format == AngleFormat::D_DDDD) return ArrotondaDecimale(degrees, DegreePlaces);
  const bool seconds = format == AngleFormat::DMMSS;
  const long long units = UltimaUnita(degrees, seconds);
  const long long unit = seconds ? SecondUnits : MinuteUnits;
  const long long pieces = units / unit;  // whole seconds or minutes
  const long long packed =
      seconds ? pieces / 3600 * 10000 + pieces % 3600 / 60 * 100 + pieces % 60 : pieces / 60 * 100 + pieces % 60;
  const double number = static_cast<double>(packed * unit + units % unit) / static_cast<double>(unit);
  return degrees < 0.0 && units != 0 ? -number : number;
}

double GradiDaNumero(double number, AngleFormat format) {
  if (format == AngleFormat::D_DDDD) return number + 0.0;
  const double magnitude = std::abs(number);
  const std::optional<double> degrees = GradiDaDecimale(magnitude, format);
  if (degrees) return number < 0.0 ? -*degrees : *degrees;
  // The shortest text of a single from 1024 on holds all its digits, and below 100 it is one piece: then the pieces
  // come out of the number as they would out of the text.
  constexpr double whole = 1024.0, most = 16777216.0;
  const bool single = static_cast<double>(static_cast<float>(magnitude)) == magnitude;
  if (!single || magnitude < whole || magnitude > most) return GradiDaTesto(TestoNumero(number), format);
  double angle = 0.0;
  if (format == AngleFormat::DMM_MMM) {
    const double head = std::floor(magnitude / 100.0);
    angle = head + (magnitude - head * 100.0) / 60.0;
  } else {
    const double head = std::floor(magnitude / 10000.0);
    const double rest = magnitude - head * 10000.0;
    const double minutes = std::floor(rest / 100.0);
    angle = head + minutes / 60.0 + (rest - minutes * 100.0) / 3600.0;
  }
  return number < 0.0 ? -angle : angle;
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

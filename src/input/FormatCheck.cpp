#include "input/FormatCheck.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "base/NumberText.h"
#include "base/Text.h"
#include "geo/AngleText.h"

namespace corvan {
namespace {

constexpr double LargestLatitude = 90.0;
constexpr double LargestLongitude = 180.0;
constexpr double Minutes = 100.0;    // in the layout with minutes a degree counts so much
constexpr double Seconds = 10000.0;  // and so much in the one with seconds
constexpr double Sixty = 60.0;
constexpr double ShortestEasting = 1e5;  // zones are at most 8 degrees wide with their margins
constexpr double LongestEasting = 9e5;
constexpr double LongestNorthing = 1e7;

/// No piece of two digits below the degrees reads 60 or more.
bool MinutiValidi(double number) { return std::fmod(std::abs(number), Minutes) < Sixty; }
bool SecondiValidi(double number) {
  return std::fmod(std::abs(number), Seconds) < Sixty * Minutes && MinutiValidi(number);
}

std::string NomeOpzione(const std::optional<AngleFormat>& layout) {
  const AngleFormatName format = layout ? NomeFormato(*layout) : AngleFormatName{"UTM metres", "utm"};
  return std::string(format.name) + " (--coords " + format.word + ")";
}

std::string Numero(double value) { return FormattaNumero(value, "0.0###"); }

}  // namespace

void FormatCheck::prendi(const Misura& m, std::size_t place) {
  if (m.SenzaFix) return;
  const double north = layout_ ? m.Lat : m.UTMy;
  const double east = layout_ ? m.Lon : m.UTMx;
  ++positions_;
  north_ = std::max(north_, std::abs(north));
  east_ = std::max(east_, std::abs(east));
  const auto* degrees = std::get_if<Geographic>(&m.sorgente);
  if (degrees == nullptr) return;
  if (std::abs(degrees->latitude) <= LargestLatitude && std::abs(degrees->longitude) <= LargestLongitude) return;
  if (beyond_++ == 0) firstBeyond_ = place;
  prendiOltre(north, east);
}

void FormatCheck::prendiOltre(double north, double east) {
  minutes_ = minutes_ && MinutiValidi(north) && MinutiValidi(east);
  seconds_ = seconds_ && SecondiValidi(north) && SecondiValidi(east);
  metres_ = metres_ && north > 0.0 && north <= LongestNorthing && east >= ShortestEasting && east <= LongestEasting;
}

/// The name of the format that the positions beyond the earth would fit, with every other number of the file; empty
/// when there is none.
std::string FormatCheck::probabile() const {
  const auto within = [this](double degree) {
    return north_ <= LargestLatitude * degree && east_ <= LargestLongitude * degree;
  };
  if (within(1.0)) return NomeOpzione(AngleFormat::D_DDDD);
  if (within(Minutes) && minutes_) return NomeOpzione(AngleFormat::DMM_MMM);
  if (within(Seconds) && seconds_) return NomeOpzione(AngleFormat::DMMSS);
  if (metres_) return NomeOpzione(std::nullopt);
  return {};
}

std::string FormatCheck::estremi(const std::string& likely) const {
  const std::string numbers = layout_ ? "latitudes up to " + Numero(north_) + " and longitudes up to " + Numero(east_)
                                      : "northings up to " + Numero(north_) + " and eastings up to " + Numero(east_);
  return numbers + (likely.empty() ? " fit no coordinate format" : " are " + likely);
}

std::string FormatCheck::ovunque() const {
  return positions_ == 1 ? " at the only position" : " at all " + std::to_string(positions_) + " positions";
}

void FormatCheck::rilievi(const std::string& procedure, const std::string& placeName, Findings& out) const {
  if (positions_ == 0 || !chosen_) return;
  const std::string read = ", read as " + NomeOpzione(layout_);
  if (beyond_ > 0) {
    out.fault(procedure, estremi(probabile()) + read + ": " + std::to_string(beyond_) + " of " +
                             Quanti(positions_, "position", "positions") + (beyond_ == 1 ? " is" : " are") +
                             " over 90 or 180 degrees, " + (beyond_ == 1 ? "" : "the first ") + "at " + placeName +
                             " " + std::to_string(firstBeyond_));
    return;
  }
  constexpr double margin = 1.0;
  const bool degrees = north_ < LargestLatitude + margin && east_ < LargestLongitude + margin;
  if (layout_ && *layout_ != AngleFormat::D_DDDD && degrees) {
    out.fault(procedure, estremi(NomeOpzione(AngleFormat::D_DDDD)) + read + ovunque());
  }
  // As minutes and seconds such numbers would all lie in the sea off Ghana, within a degree and a half of 0 N 0 E.
  const bool minutes = north_ < LargestLatitude * Minutes && east_ < LargestLongitude * Minutes;
  if (layout_ == AngleFormat::DMMSS && !degrees && minutes) {
    out.fault(procedure, estremi(NomeOpzione(AngleFormat::DMM_MMM)) + read + ovunque());
  }
  if (!layout_ && minutes) {
    out.fault(procedure, estremi(NomeOpzione(degrees ? AngleFormat::D_DDDD : AngleFormat::DMM_MMM)) + read + ovunque());
  }
}

}  // namespace corvan

#include "exchange/ToolkitReadings.h"

#include <bit>
#include <cmath>
#include <numeric>

#include "base/Errors.h"
#include "base/Text.h"

namespace corvan {
namespace {

constexpr std::size_t A = 12;
constexpr std::size_t B = 13;

/// Two of the four electrodes stand at one place: there is no voltage to be measured, or no current to be sent.
bool Coincidono(const ElectrodePlaces& at, std::size_t channel) {
  const double a = at[A].x, b = at[B].x, m = at.at(channel).x, n = at.at(channel + 1).x;
  return a == b || a == m || a == n || b == m || b == n || m == n;
}

/// Potential and current as they were read: a section holds 0 for what is not finite.
bool Finita(const Misura& m, std::size_t c) {
  return std::isfinite(m.CanaleA.at(c)) && std::isfinite(m.CanaleB.at(c)) && std::isfinite(m.Val180) &&
         std::isfinite(m.Val184);
}

}  // namespace

ElectrodePlace Mezzo(const ElectrodePlaces& at, std::size_t channel) {
  ElectrodePlace middle;
  for (const std::size_t e : {A, B, channel, channel + 1}) {
    middle.x += at.at(e).x / 4.0;
    middle.est += at.at(e).est / 4.0;
    middle.nord += at.at(e).nord / 4.0;
    middle.prof += at.at(e).prof / 4.0;
  }
  return middle;
}

ToolkitReadings::ToolkitReadings(const Survey& survey, const Section& section, const CablePlaces& places) {
  taken_.reserve(section.RecordOut.points().size());
  for (const SectionPoint& point : section.RecordOut.points()) {
    const ElectrodePlaces at = places(point);
    const ReadingSet taken = scegli(survey.Misure(static_cast<std::size_t>(point.misura)), point, at);
    taken_.push_back(taken);
    readings_ += static_cast<std::size_t>(std::popcount(taken));
    const ElectrodeSet used = ElettrodiDi(taken);
    electrodes_ += static_cast<std::size_t>(std::popcount(used));
    for (std::size_t e = 1; e <= CableElectrodes; ++e) {
      if ((used & BitElettrodo(e)) != 0 && !(at.at(e).prof > 0.0)) ++dry_;
    }
  }
}

ReadingSet ToolkitReadings::scegli(const Misura& m, const SectionPoint& point, const ElectrodePlaces& at) {
  ReadingSet taken = 0;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    if ((point.letture & BitDi(c)) == 0) continue;
    if ((point.inUso & BitDi(c)) == 0) {
      ++left_[Excluded];
    } else if (!point.posta) {
      ++left_[Unplaced];
    } else if (!Finita(m, c) || !std::isfinite(point.resistivity.at(c))) {
      ++left_[NotFinite];
    } else if (point.current == 0.0F) {
      ++left_[NoCurrent];
    } else if (!std::isfinite(point.potential.at(c) / point.current)) {
      ++left_[NotFinite];
    } else if (Coincidono(at, c)) {
      if (left_[Coinciding]++ > 0) continue;
      firstPoint_ = point.misura;
      firstChannel_ = c;
    } else {
      taken = static_cast<ReadingSet>(taken | BitDi(c));
    }
  }
  return taken;
}

std::string ToolkitReadings::motivi() const {
  constexpr std::array<const char*, ReasonCount> words{"excluded", "of measurements without a position",
                                                       "without a current", "not finite",
                                                       "with two electrodes at one place"};
  std::string text;
  for (std::size_t r = 0; r < ReasonCount; ++r) {
    if (left_.at(r) == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(left_.at(r)) + " " + words.at(r);
  }
  if (left_[Coinciding] == 0) return text;
  return text + std::string(IlPrimo(left_[Coinciding])) + "channel " + std::to_string(firstChannel_) +
         " of measurement " + std::to_string(firstPoint_);
}

void ToolkitReadings::rileva(const char* procedure, Findings& findings) const {
  const std::size_t left = std::accumulate(left_.begin(), left_.end(), std::size_t{0});
  if (left > 0) {
    findings.note(procedure, std::to_string(left) + " of " + Quanti(left + readings_, "reading", "readings") +
                                 (left == 1 ? " is" : " are") + " left out: " + motivi());
  }
}

void ToolkitReadings::esigi(const char* procedure, Findings& findings) const {
  rileva(procedure, findings);
  if (readings_ == 0) throw RunTimeError("no reading is left to write: the file is not made");
  if (dry_ > 0) {
    findings.note(procedure, std::to_string(dry_) + " of " + Quanti(electrodes_, "electrode", "electrodes") +
                                 (dry_ == 1 ? " lies" : " lie") + " where the depth of the water is 0");
  }
}

}  // namespace corvan

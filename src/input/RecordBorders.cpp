#include "input/RecordBorders.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvan {
namespace {

constexpr std::size_t ShortRun = 64;    // lengths below are counted in a table
constexpr std::size_t MostPlaces = 64;  // no cable reads so many channels at once
constexpr double Centimetres = 100.0;
constexpr double LargestPlace = 1e15;  // cm that an integer holds to the last one

std::optional<ElectrodePlace> PostoDi(const RecordView& record) {
  const double a = record.leggi(campo::R16);
  const double m = (record.leggi(campo::PosM) - a) * Centimetres;
  const double n = (record.leggi(campo::PosN) - a) * Centimetres;
  if (!(std::abs(m) <= LargestPlace && std::abs(n) <= LargestPlace)) return std::nullopt;
  return ElectrodePlace{std::llround(m), std::llround(n)};
}

/// Places of the records from `first` on; empty when two are the same or one is none.
std::vector<ElectrodePlace> PostiDi(const SyscalFile& file, std::size_t first, std::size_t count) {
  std::vector<ElectrodePlace> places;
  RecordWalk walk(file, first, first + count - 1);
  while (walk.next()) {
    const auto place = PostoDi(walk.record());
    if (!place || std::find(places.begin(), places.end(), *place) != places.end()) return {};
    places.push_back(*place);
  }
  return places;
}

bool NoveSuDieci(std::size_t part, std::size_t whole) { return 10 * part >= 9 * whole; }

}  // namespace

RecordPairs::RecordPairs(BorderRule rule, const SyscalFile& file)
    : rule_(std::move(rule)), positions_(file.length() > campo::GpsEst.offset) {
  const bool numbered = rule_.source != ChannelSource::None;
  for (std::size_t shown = 0; shown < Shown; ++shown) {
    const bool restarts = numbered && (shown & Rises(static_cast<std::size_t>(rule_.source))) == 0;
    const std::size_t holding =
        ((shown & OtherCurrent) != 0 ? 1U : 0U) + ((shown & OtherPosition) != 0 ? 1U : 0U) + (restarts ? 1U : 0U);
    sureFor_[shown] = holding >= rule_.needed;
  }
}

int RecordPairs::place(const RecordView& record) const {
  const auto place = PostoDi(record);
  if (!place) return 0;
  const auto found = std::find(rule_.places.begin(), rule_.places.end(), *place);
  const auto number = static_cast<int>(found - rule_.places.begin()) + 1;
  return found == rule_.places.end() || number > LargestChannelNumber ? 0 : number;
}

RunLengths::Length& RunLengths::entry(std::size_t length) {
  if (length >= ShortRun) return long_[length];
  if (short_.empty()) short_.resize(ShortRun);
  return short_[length];
}

void RunLengths::add(std::size_t first, std::size_t length) {
  Length& of = entry(length);
  if (of.count++ == 0) of.first = first;
  if (runs_++ == 0) firstRun_ = length;
  lastRun_ = length;
}

std::optional<std::size_t> RunLengths::usual() const {
  if (runs_ == 0) return std::nullopt;
  std::size_t most = 0;
  std::size_t usual = 0;
  const auto weigh = [&](std::size_t length, std::size_t count) {
    if (runs_ > 2) count -= (length == firstRun_ ? 1U : 0U) + (length == lastRun_ ? 1U : 0U);
    if (count == 0 || count < most) return;
    most = count;
    usual = length;
  };
  for (std::size_t length = 0; length < short_.size(); ++length) {
    if (short_[length].count > 0) weigh(length, short_[length].count);
  }
  for (const auto& [length, of] : long_) weigh(length, of.count);
  return usual;
}

std::size_t RunLengths::firstOf(std::size_t length) const {
  if (length < short_.size()) return short_[length].first;
  const auto found = long_.find(length);
  return found == long_.end() ? 0 : found->second.first;
}

BorderStatistics::BorderStatistics(BorderRule rule, const SyscalFile& file) : pairs_(std::move(rule), file) {}

void BorderStatistics::chiudiIniezione(std::size_t next) {
  injections_.add(injectionFirst_, next - injectionFirst_);
  injectionFirst_ = next;
}

void BorderStatistics::chiudiTratto(std::size_t next) {
  const std::size_t length = next - runFirst_;
  runs_.add(runFirst_, length);
  if (length > LongestHeldRun) longRuns_.push_back({runFirst_, length});
  runFirst_ = next;
}

void BorderStatistics::fine() {
  if (records_ == 0) return;
  chiudiIniezione(records_ + 1);
  chiudiTratto(records_ + 1);
}

/// Pairs of which all that the mask asks for is true.
std::size_t BorderStatistics::showing(std::size_t mask) const {
  std::size_t pairs = 0;
  for (std::size_t shown = 0; shown < shown_.size(); ++shown) pairs += (shown & mask) == mask ? shown_[shown] : 0U;
  return pairs;
}

bool BorderStatistics::serves(ChannelSource source) const {
  const std::size_t bit = RecordPairs::Rises(static_cast<std::size_t>(source));
  std::size_t equal = 0, rises = 0, others = 0, restarts = 0;
  for (std::size_t shown = 0; shown < shown_.size(); ++shown) {
    const bool differs = (shown & (RecordPairs::OtherCurrent | RecordPairs::OtherPosition)) != 0;
    const bool rise = (shown & bit) != 0;
    (differs ? others : equal) += shown_[shown];
    if (differs != rise) (differs ? restarts : rises) += shown_[shown];
  }
  return NoveSuDieci(rises, equal) && NoveSuDieci(restarts, others);
}

BorderRule BorderStatistics::rule(const SyscalFile& file) const {
  BorderRule seen;
  if (serves(ChannelSource::Field)) {
    seen.source = ChannelSource::Field;
  } else if (serves(ChannelSource::LowBits)) {
    seen.source = ChannelSource::LowBits;
  } else if (const auto usual = injections_.usual(); usual && *usual <= MostPlaces) {
    seen.places = PostiDi(file, injections_.firstOf(*usual), *usual);
    // Other places than those counted with: taken to serve until the next walk has counted with them.
    const bool counted = seen.places == pairs_.rule().places;
    const bool serve = !seen.places.empty() && (!counted || serves(ChannelSource::Places));
    seen.source = serve ? ChannelSource::Places : ChannelSource::None;
  }
  const std::size_t offered = (showing(RecordPairs::OtherCurrent) > 0 ? 1U : 0U) +
                              (showing(RecordPairs::OtherPosition) > 0 ? 1U : 0U) +
                              (seen.source != ChannelSource::None ? 1U : 0U);
  seen.needed = offered > 1 ? 2 : 1;
  return seen;
}

std::optional<std::size_t> BorderStatistics::usual() const {
  if (runs_.runs() < 2) return std::nullopt;
  return runs_.usual();
}

bool BorderStatistics::highBits() const {
  return pairs_.rule().source == ChannelSource::LowBits && NoveSuDieci(highNotBelow_, records_);
}

}  // namespace corvan

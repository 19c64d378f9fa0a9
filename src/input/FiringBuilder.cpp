#include "input/FiringBuilder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <span>

#include "geo/AngleText.h"
#include "input/RecordExtent.h"

namespace corvan {
namespace {

/// No number is infinite or none: not all bits of its exponent are set. As whole numbers all eight are compared at
/// once.
bool Finiti(std::span<const float, 8> values) {
  constexpr std::uint32_t exponent = 0x7F800000;
  std::uint32_t bad = 0;
  for (const float value : values) bad |= (std::bit_cast<std::uint32_t>(value) & exponent) == exponent ? 1U : 0U;
  return bad == 0;
}

}  // namespace

bool FiringBuilder::Reading::finita() const { return Finiti(std::span(values).first<Chargeability>()); }

FiringBuilder::FiringBuilder(const SyscalFile& file, const Grouping& grouping, const ReadOptions& options,
                             const MisuraSink& sink)
    : file_(file), grouping_(grouping), options_(options), sink_(sink), format_(options) {
  if (!grouping_.grid) return;
  streaming_ = true;
  cut_ = {grouping_.last - grouping_.first + 1, grouping_.number, 0, false, true};
}

FiringBuilder::Reading FiringBuilder::leggi(const RecordWalk& walk, const RecordPairs& pairs) const {
  const RecordView r = walk.record();
  Reading reading{};
  reading.record = walk.number();
  constexpr std::array fields{campo::R16, campo::R20, campo::PosM, campo::PosN,         campo::R48,
                              campo::R68, campo::R72, campo::R76,  campo::Caricabilita, campo::Qualita};
  static_assert(fields.size() == Values, "one field for each place");
  for (std::size_t i = 0; i < Values; ++i) reading.values[i] = r.leggi(fields[i]);
  reading.north = r.leggi(campo::GpsNord);
  reading.east = r.leggi(campo::GpsEst);
  reading.time = file_.length() >= TimedRecord ? r.leggi(campo::Tempo) : 0.0;
  reading.channel = static_cast<std::uint8_t>(pairs.channel());
  reading.high = static_cast<std::uint8_t>(grouping_.highBits ? BitAlti(r) : 0U);
  reading.repeated = !grouping_.grid && walk.repeats();
  reading.fix = PosizioneUsabile(reading.north, reading.east);
  reading.odd = !reading.fix || !reading.finita();
  return reading;
}

void FiringBuilder::prendi(const RecordWalk& walk, const RecordPairs& pairs) {
  const Reading reading = leggi(walk, pairs);
  if (!grouping_.grid && (pairs.sure() || reading.record == grouping_.first)) {
    chiudiTratto();
    iniziaTratto(reading);
  }
  if (streaming_) {
    aggiungi(reading);
    return;
  }
  if (run_.size() == LongestHeldRun) {
    overrun_ = true;
    run_.clear();
  }
  run_.push_back(reading);
}

/// A run that was announced as long is cut as its records come.
void FiringBuilder::iniziaTratto(const Reading& first) {
  const std::size_t k = first.record;
  const std::vector<LongRun>& runs = grouping_.longRuns;
  while (nextLong_ < runs.size() && runs[nextLong_].first + runs[nextLong_].length <= k) ++nextLong_;
  streaming_ = nextLong_ < runs.size() && runs[nextLong_].first <= k;
  if (!streaming_) return;
  const std::size_t last = std::min(runs[nextLong_].first + runs[nextLong_].length - 1, grouping_.last);
  const std::size_t length = last - k + 1;
  cut_ = taglia(k, length, 0, first.high);
  if (cut_.dropRepeated) cut_ = taglia(k, length, ripetuti(k, last), first.high);
  taken_ = 0;
}

/// @param length records of the run @param repeated those that are dropped if any are
FiringBuilder::Cut FiringBuilder::taglia(std::size_t first, std::size_t length, std::size_t repeated,
                                         std::size_t high) const {
  Cut cut;
  cut.number = std::max(grouping_.number, high);
  cut.dropRepeated = length > cut.number && length % cut.number != 0;
  cut.length = cut.dropRepeated ? length - repeated : length;
  if (grouping_.leading && first == grouping_.first) cut.head = cut.length % cut.number;
  cut.atEnd = first + length - 1 == grouping_.last;
  return cut;
}

std::size_t FiringBuilder::ripetuti(std::size_t first, std::size_t last) const {
  std::size_t repeated = 0;
  RecordWalk walk(file_, first, last);
  while (walk.next()) repeated += walk.repeats() ? 1U : 0U;
  return repeated;
}

void FiringBuilder::chiudiTratto() {
  if (run_.empty()) return;
  // The border before the run's first record is no reason to drop it.
  const auto repeats = [this](const Reading& r) { return r.repeated && r.record != run_.front().record; };
  const auto repeated = static_cast<std::size_t>(std::count_if(run_.begin(), run_.end(), repeats));
  cut_ = taglia(run_.front().record, run_.size(), repeated, run_.front().high);
  taken_ = 0;
  for (const Reading& reading : run_) aggiungi(reading);
  run_.clear();
}

void FiringBuilder::fine() {
  if (!streaming_) chiudiTratto();
}

/// Takes a record of a run whose cut is known.
void FiringBuilder::aggiungi(const Reading& reading) {
  if (reading.odd) conta(reading);
  if (cut_.dropRepeated && reading.repeated && taken_ > 0) {
    tally_.repeated.add(reading.record);
    return;
  }
  if (left_ == 0) apri(reading);
  copia(reading);
  ++taken_;
  if (--left_ == 0) chiudi();
}

void FiringBuilder::apri(const Reading& first) {
  const bool head = taken_ < cut_.head;
  count_ = left_ = head ? cut_.head : std::min(cut_.number, cut_.length - taken_);
  firstRecord_ = first.record;
  m_ = Misura{};
  m_.letture = 0;
  north_ = east_ = 0;
  ++tally_.firings;
  tally_.lastHeld = count_;
  // A firing with the number of records that it tells itself is whole, also when the others have more.
  const std::size_t expected =
      first.high > 0 && first.high == count_ ? count_ : std::max(grouping_.number, std::size_t{first.high});
  placement_ = dispone(count_, expected);
}

/// Where the readings of a firing with `count` of `expected` records go.
FiringBuilder::Placement FiringBuilder::dispone(std::size_t count, std::size_t expected) {
  if (grouping_.grid || count >= expected) return Placement::InOrder;
  ShortFirings& of = grouping_.leading && tally_.firings == 1 ? tally_.leading : tally_.shorter;
  if (of.count++ == 0) {
    of.firing = tally_.firings;
    of.record = firstRecord_;
    of.held = count;
    of.expected = expected;
  }
  if (grouping_.rule.source != ChannelSource::None) {
    ++of.byChannel;
    return Placement::ByChannel;
  }
  const bool last = cut_.atEnd && taken_ + count == cut_.length;
  ++(last ? of.inOrder : of.empty);
  return last ? Placement::InOrder : Placement::Empty;
}

void FiringBuilder::conta(const Reading& r) {
  if (!r.finita()) tally_.badReading.add(r.record);
  if (!std::isfinite(r.north) || !std::isfinite(r.east)) tally_.badPosition.add(r.record);
  const bool north = std::isfinite(r.north) && r.north != 0.0F;
  if (!north) tally_.noFix.add(r.record);
  if (north && !r.fix) tally_.halfFix.add(r.record);
}

/// Copies a record into its firing. Values that all channels share are rewritten by each.
void FiringBuilder::copia(const Reading& r) {
  if (placement_ == Placement::Empty || (!r.fix && options_.span == ReadSpan::ToFirstLostFix)) return;
  std::size_t channel = count_ - left_ + 1;
  if (placement_ == Placement::ByChannel) {
    channel = r.channel;
    const bool taken = channel >= 1 && channel <= MaxChannels && (m_.letture & BitDi(channel)) != 0;
    if (channel == 0 || taken) {
      tally_.unplaced.add(r.record);
      return;
    }
  }
  m_.NumFile = 1;
  m_.Val12 = r.values[Depth];
  m_.Val60 = r.values[C1];
  m_.Val64 = r.values[C2];
  m_.Val180 = r.values[Current];
  m_.Val184 = -r.values[Current];
  m_.Tempo = r.time;
  if (r.fix) {
    north_ = r.north;
    east_ = r.east;
  }
  if (channel > MaxChannels) {
    tally_.unstored.add(r.record);
    return;
  }
  m_.letture = static_cast<ReadingSet>(m_.letture | BitDi(channel));
  m_.Rho[channel] = r.values[Resistivity];
  m_.Elettrodi[channel] = r.values[M];
  m_.Elettrodi[channel + 1] = r.values[N];
  m_.CanaleA[channel] = r.values[Potential];
  m_.CanaleB[channel] = -r.values[Potential];
  m_.Caricabilita[channel] = r.values[Chargeability];
  m_.Deviazione[channel] = r.values[Deviation];
  // Files of this program's own hold zeros for both.
  m_.ConQualita = m_.ConQualita || r.values[Chargeability] != 0.0F || r.values[Deviation] != 0.0F;
}

void FiringBuilder::chiudi() {
  if (Vuota(m_)) {  // also one whose records are all of channels that are not stored: nothing of them stays
    m_ = Misura{};
    m_.letture = 0;
    north_ = east_ = 0;
  }
  const double north = north_;
  const double east = east_;
  if (north == 0.0) {
    m_.SenzaFix = true;
  } else if (options_.layout) {
    const AngleFormat layout = *options_.layout;
    ImpostaGeografica(m_, north, east, {GradiDaNumero(north, layout), GradiDaNumero(east, layout)});
  } else {
    ImpostaUTM(m_, north, east);
  }
  if (Vuota(m_)) tally_.emptyFirings.add(firstRecord_);
  format_.prendi(m_, firstRecord_);
  sink_(m_);
}

}  // namespace corvan

// Where one firing's records end and the next one's begin: what neighbouring records tell, alone and over a file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "input/SyscalFile.h"

namespace corvan {

/// What numbers the channels of a firing in a file; the first that serves.
enum class ChannelSource : std::uint8_t {
  Field,    ///< the number at offset 250
  LowBits,  ///< the low four bits of the one at 248, plus 1
  Places,   ///< the place of M and N seen from A in the file's first injection of usual length
  None
};
inline constexpr std::size_t ChannelSources = 3;
inline constexpr int LargestChannelNumber = 16;  ///< a number beyond it is no channel number

/// M and N seen from A, cm.
struct ElectrodePlace {
  std::int64_t m = 0, n = 0;

  friend bool operator==(const ElectrodePlace&, const ElectrodePlace&) = default;
};

/// How borders are told in a file: a border between two records is sure when `needed` of these hold: the current
/// differs, the position differs, the channel number does not rise.
struct BorderRule {
  ChannelSource source = ChannelSource::None;
  std::size_t needed = 2;              ///< 1 where the file has one of the three to offer
  std::vector<ElectrodePlace> places;  ///< of channels 1, 2, ...; empty where they need not be asked

  friend bool operator==(const BorderRule&, const BorderRule&) = default;
};

/// The four low bits at 248.
inline std::size_t BitBassi(const RecordView& record) {
  return std::to_integer<std::size_t>(record.data()[campo::Val248.offset]) & 0x0FU;
}

/// The four high bits at 248.
inline std::size_t BitAlti(const RecordView& record) {
  return std::to_integer<std::size_t>(record.data()[campo::Val248.offset]) >> 4U;
}

/// Looks at records one after another.
class RecordPairs {
 public:
  /// What a record shows beside the one before it, as bits: another current, another position, and for each source a
  /// channel number that rises.
  static constexpr std::size_t OtherCurrent = 1, OtherPosition = 2;
  static constexpr std::size_t Shown = std::size_t{4} << ChannelSources;
  static constexpr std::size_t Rises(std::size_t source) { return std::size_t{4} << source; }

  RecordPairs(BorderRule rule, const SyscalFile& file);

  void prendi(const RecordView& record) {
    const Seen before = now_;
    now_.current = record.leggi(CurrentBits);
    if (positions_) now_.position = record.leggi(PositionBits);
    const int field = record.leggi(campo::Canale);
    now_.number[0] = field >= 1 && field <= LargestChannelNumber ? field : 0;
    now_.number[1] = static_cast<int>(BitBassi(record)) + 1;
    if (!rule_.places.empty()) now_.number[2] = place(record);
    channel_ = rule_.source == ChannelSource::None ? 0 : now_.number[static_cast<std::size_t>(rule_.source)];
    paired_ = any_;
    any_ = true;
    if (!paired_) return;
    shown_ =
        (now_.current != before.current ? OtherCurrent : 0U) | (now_.position != before.position ? OtherPosition : 0U);
    for (std::size_t s = 0; s < ChannelSources; ++s) {
      const bool rises = before.number[s] > 0 && now_.number[s] > before.number[s];
      shown_ |= rises ? Rises(s) : 0U;
    }
    sure_ = sureFor_[shown_];
  }

  /// The border before the record is sure; never so before the first.
  bool sure() const { return sure_; }
  /// The record's channel number by the rule's source, 1 to 16; 0 for none.
  int channel() const { return channel_; }
  /// There is a record before it.
  bool paired() const { return paired_; }
  std::size_t shown() const { return shown_; }
  const BorderRule& rule() const { return rule_; }

 private:
  // The same bytes as numbers of a record, whatever they mean: two are compared bit by bit.
  static constexpr Campo<std::uint32_t> CurrentBits{campo::R72.offset};
  static constexpr Campo<std::uint64_t> PositionBits{campo::GpsNord.offset};

  /// The number of its electrodes' place; 0 for none, also beyond the largest.
  int place(const RecordView& record) const;

  struct Seen {
    std::uint32_t current = 0;
    std::uint64_t position = 0;                // latitude and longitude; 0 where records have no room for them
    std::array<int, ChannelSources> number{};  // by each source, 1 to 16; 0 for none
  };

  BorderRule rule_;
  bool positions_;
  std::array<bool, Shown> sureFor_{};
  bool any_ = false;
  bool paired_ = false;
  bool sure_ = false;
  std::size_t shown_ = 0;
  int channel_ = 0;
  Seen now_;
};

/// Lengths of runs of records, in the order in which they end.
class RunLengths {
 public:
  void add(std::size_t first, std::size_t length);
  std::size_t runs() const { return runs_; }
  /// The most frequent length, the larger of equals; the first and the last run are put aside where there are others.
  /// None without a run.
  std::optional<std::size_t> usual() const;
  /// First record of the first run of this length; 0 for none.
  std::size_t firstOf(std::size_t length) const;

 private:
  struct Length {
    std::size_t count = 0, first = 0;
  };
  Length& entry(std::size_t length);

  std::vector<Length> short_;
  std::map<std::size_t, Length> long_;
  std::size_t runs_ = 0, firstRun_ = 0, lastRun_ = 0;
};

/// A run of records between sure borders that is too long to be held.
struct LongRun {
  std::size_t first = 0, length = 0;
};
inline constexpr std::size_t LongestHeldRun = 4096;

/// What all records of a file, or its first ones, say about borders under a rule.
class BorderStatistics {
 public:
  BorderStatistics(BorderRule rule, const SyscalFile& file);

  void prendi(std::size_t k, const RecordView& record) {
    pairs_.prendi(record);
    records_ = k;
    highNotBelow_ += BitAlti(record) > BitBassi(record) ? 1U : 0U;  // channels against a channel number
    if (!pairs_.paired()) return;
    ++shown_[pairs_.shown()];
    if ((pairs_.shown() & (RecordPairs::OtherCurrent | RecordPairs::OtherPosition)) != 0) chiudiIniezione(k);
    if (pairs_.sure()) chiudiTratto(k);
  }
  void fine();

  const RecordPairs& pairs() const { return pairs_; }
  /// The rule that the records ask for. When it is the one in use, usual() and longRuns() are the file's.
  BorderRule rule(const SyscalFile& file) const;
  /// Usual number of records between sure borders; none where no border is sure.
  std::optional<std::size_t> usual() const;
  /// The high four bits at 248 tell how many channels a firing has.
  bool highBits() const;
  const std::vector<LongRun>& longRuns() const { return longRuns_; }

 private:
  bool serves(ChannelSource source) const;
  std::size_t showing(std::size_t mask) const;
  void chiudiIniezione(std::size_t next);
  void chiudiTratto(std::size_t next);

  RecordPairs pairs_;
  std::size_t records_ = 0;
  std::array<std::size_t, RecordPairs::Shown> shown_{};  // pairs by what they show
  std::size_t highNotBelow_ = 0;
  std::size_t injectionFirst_ = 1, runFirst_ = 1;
  RunLengths injections_, runs_;
  std::vector<LongRun> longRuns_;
};

}  // namespace corvan

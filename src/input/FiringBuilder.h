// Builds firings out of a file's records: cuts the runs between sure borders, finds each reading's channel.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "input/FileRead.h"
#include "input/FormatCheck.h"
#include "input/RecordBorders.h"

namespace corvan {

/// How a file's records become firings.
struct Grouping {
  BorderRule rule;
  std::size_t first = 1, last = 0;  ///< records read
  bool leading = false;             ///< records without position stand before them
  std::size_t number = 1;           ///< records of a firing
  bool grid = false;                ///< every `number` records are a firing, whatever the borders
  bool highBits = false;            ///< the high four bits at 248 tell how many a firing has
  std::vector<LongRun> longRuns;
};

/// Some records, and the first of them.
struct Tally {
  std::size_t count = 0, first = 0;

  void add(std::size_t k) {
    if (count++ == 0) first = k;
  }
};

/// Firings with fewer records than they had, and the first of them.
struct ShortFirings {
  std::size_t count = 0;
  std::size_t firing = 0, record = 0, held = 0, expected = 0;
  std::size_t byChannel = 0, inOrder = 0, empty = 0;  ///< how their readings found their channels
};

/// What was seen while firings were built; record numbers are the file's.
struct FiringTally {
  std::size_t firings = 0;
  ShortFirings shorter;
  ShortFirings leading;      ///< the first firing, its beginning being among the records without position
  std::size_t lastHeld = 0;  ///< records of the last firing
  Tally repeated;            ///< dropped: equal byte for byte to the one before
  Tally unplaced;            ///< of short firings: without a channel number of their own
  Tally noFix;               ///< without position between positioned ones
  Tally halfFix;             ///< with latitude or northing alone
  Tally badPosition;         ///< with a position that is not finite
  Tally badReading;          ///< with a reading or electrode that is not finite
  Tally unstored;            ///< with a channel above 10
  Tally emptyFirings;        ///< firings none of whose records was stored, and the first's first record
};

class FiringBuilder {
 public:
  FiringBuilder(const SyscalFile& file, const Grouping& grouping, const ReadOptions& options, const MisuraSink& sink);

  /// Takes the next record of grouping.first..last. @param pairs has taken it too
  void prendi(const RecordWalk& walk, const RecordPairs& pairs);
  /// Hands on what is left.
  void fine();

  const FiringTally& tally() const { return tally_; }
  const FormatCheck& format() const { return format_; }
  /// A run was longer than what is held and was not announced: its firings are missing.
  bool overrun() const { return overrun_; }

 private:
  /// Places of a record's numbers in a reading.
  enum Value : std::size_t { C1, C2, M, N, Depth, Potential, Current, Resistivity, Chargeability, Deviation, Values };
  /// The numbers of one record.
  struct Reading {
    std::size_t record;
    std::array<float, Values> values;
    float north, east;
    double time;
    std::uint8_t channel, high;
    bool repeated;
    bool fix;  // both coordinates are there
    bool odd;  // no fix, or a number that is not finite

    bool finita() const;  // place, depth and what resistivity is made of are finite
  };
  /// How a run's records are cut: `head` first, then firings of `number`, then the rest.
  struct Cut {
    std::size_t length = 0, number = 1, head = 0;
    bool dropRepeated = false;
    bool atEnd = false;
  };
  enum class Placement { InOrder, ByChannel, Empty };

  Reading leggi(const RecordWalk& walk, const RecordPairs& pairs) const;
  void iniziaTratto(const Reading& first);
  Cut taglia(std::size_t first, std::size_t length, std::size_t repeated, std::size_t high) const;
  void chiudiTratto();
  void aggiungi(const Reading& reading);
  void apri(const Reading& first);
  Placement dispone(std::size_t count, std::size_t expected);
  void chiudi();
  void conta(const Reading& reading);
  void copia(const Reading& reading);
  std::size_t ripetuti(std::size_t first, std::size_t last) const;

  const SyscalFile& file_;
  const Grouping& grouping_;
  const ReadOptions& options_;
  const MisuraSink& sink_;
  FormatCheck format_;
  FiringTally tally_;

  std::vector<Reading> run_;  // the records since the last sure border
  std::size_t nextLong_ = 0;  // of grouping_.longRuns
  bool streaming_ = false;    // the run's cut is known: its records are not held
  bool overrun_ = false;

  Cut cut_;
  std::size_t taken_ = 0;  // records of the run, without those dropped
  std::size_t left_ = 0;   // records that the open firing still lacks
  std::size_t count_ = 0;  // records that it has in the file
  Placement placement_ = Placement::InOrder;
  std::size_t firstRecord_ = 0;
  Misura m_;
  float north_ = 0, east_ = 0;
};

}  // namespace corvan

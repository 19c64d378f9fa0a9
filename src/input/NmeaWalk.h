// What an NMEA 0183 log tells, sentence by sentence, before anything is made of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/NmeaSentence.h"

namespace corvan {

/// So many of a kind and the line of the first, counted from 1.
struct Counted {
  std::size_t count = 0;
  std::size_t line = 0;

  void add(std::size_t at) {
    if (count++ == 0) line = at;
  }
};

/// A sentence that tells a time, or several of one talker and time with no depth between them.
struct NmeaTime {
  std::int32_t milliseconds = 0;  ///< since midnight
  std::int32_t day = 0;           ///< days since 1899-12-30, where a sentence that may tells the date; else 0
  std::uint16_t talker = 0;       ///< index of NmeaWalk::talkers
  bool firm = false;              ///< it claims a fix or tells a date
  bool fix = false;               ///< the first position of its talker at this time
  bool zda = false;               ///< the date is that of a ZDA
  std::size_t line = 0;           ///< of the position where there is one
  double latitude = 0;            ///< decimal degrees, south negative
  double longitude = 0;           ///< decimal degrees, west negative
};

struct NmeaDepth {
  double metres = 0;  ///< of DPT below the surface or the keel, as its offset says
  Sentence kind = Sentence::DPT;
  std::size_t times = 0;  ///< how many of NmeaWalk::times stand before it in the log
};

struct NmeaTalker {
  std::array<char, 2> letters{};
  std::size_t fixes = 0;
  std::int32_t latest = -1;  ///< time of its latest fix, ms since midnight

  std::string name() const { return {letters.begin(), letters.end()}; }
};

struct NmeaCounts {
  std::size_t lines = 0;
  std::array<std::size_t, SentenceKinds> good{};
  std::array<Counted, SentenceKinds> wrongChecksum, malformed;
  std::array<bool, SentenceKinds> trusted{};  ///< kinds taken although every checksum is wrong
  Counted withoutFix;                         ///< position sentences that say that there is no fix
  Counted withoutPosition;                    ///< those that claim one without latitude or longitude (0 or empty)
  Counted noDay;                              ///< dates that are in no calendar or outside 1980 to 2100
  Counted belowKeel;                          ///< DPT with a negative offset
};

struct NmeaWalk {
  NmeaCounts counts;
  std::vector<NmeaTime> times;      ///< in the order of the log
  std::vector<NmeaDepth> depths;    ///< likewise
  std::vector<NmeaTalker> talkers;  ///< of sentences that tell times, in the order in which they are first heard
};

/// Walks a log. Sentences may stand behind a logger's own stamp; lines end in LF, CR LF or CR; NUL bytes are passed
/// over; a sentence without checksum is taken, one with a wrong checksum is left out. Only where every sentence of a
/// kind has a wrong one are they taken.
NmeaWalk PercorriNmea(std::string_view log);

/// True when any line of a text holds a sentence of a kind that counts.
bool SembraNmea(std::string_view text);

}  // namespace corvan

// Positions and depths out of an NMEA 0183 log.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "input/NmeaWalk.h"

namespace corvan {

/// A position of the log.
struct NmeaFix {
  double when = 0;              ///< days since 1899-12-30, UTC; of an undated log the first fix stands on day 0
  double latitude = 0;          ///< decimal degrees, south negative
  double longitude = 0;         ///< decimal degrees, west negative
  std::optional<double> depth;  ///< m
  std::size_t line = 0;         ///< of its sentence, from 1
};

struct NmeaLog {
  NmeaCounts counts;
  std::vector<NmeaFix> fixes;       ///< in the order of the log
  std::string talker;               ///< the one that is read; empty where there is no fix
  std::vector<NmeaTalker> others;   ///< the other talkers that have fixes
  std::optional<Sentence> sounder;  ///< the kind whose depths are used
  std::size_t otherDepths = 0;      ///< depths of the other kinds
  bool dated = false;               ///< the log carries a date that counts
  Counted leaps;                    ///< dates that neither go on from the time before them nor follow its midnight
};

/// Reads a log. Only sentences that claim a fix give positions and dates: RMC of status A, GGA of a quality over 0, GLL
/// of status A and a mode other than N. A fix is made of each position of a new time of the talker with the most fixes,
/// the first heard of equals.
///
/// Dates come from that talker's RMC and ZDA, from other talkers' ZDA only where it has none. A date counts for
/// everything told of that same second; without a new one a time that falls by over 12 hours begins the next day; what
/// stands before the first date counts back from it. In a log without a date `firstDay` is the day of its first fix.
///
/// Depths are of one kind, DPT else DBS else DBT, of any talker. A depth stands midway between the last time before it
/// and the first time after it in the log. A fix takes the depth nearest in time within 5 s or half the median spacing
/// of fixes, whichever is larger; of equally near ones the last before it in the log, else the first behind it.
/// @param firstDay day number
NmeaLog LeggiNmea(std::string_view log, std::optional<double> firstDay);

}  // namespace corvan

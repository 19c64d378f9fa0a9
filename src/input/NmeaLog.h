// Positions and depths out of an NMEA 0183 log.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace corvan {

/// The sentences that count, whatever talker sent them.
enum class Sentence : std::uint8_t { GGA, RMC, GLL, ZDA, DPT, DBT, DBS };
inline constexpr std::size_t SentenceKinds = 7;
inline constexpr std::array<std::string_view, SentenceKinds> SentenceNames{"GGA", "RMC", "GLL", "ZDA",
                                                                           "DPT", "DBT", "DBS"};

/// A position of the log.
struct NmeaFix {
  double seconds = 0;    ///< since midnight of the log's first day, UTC
  double latitude = 0;   ///< decimal degrees, south negative
  double longitude = 0;  ///< decimal degrees, west negative
  double depth = 0;      ///< m; 0 when the latest is older than 5 s
  bool hasDepth = false;
};

struct NmeaSummary {
  std::size_t lines = 0;
  std::size_t sentences = 0;  ///< of the kinds that count
  std::array<std::size_t, SentenceKinds> good{}, wrongChecksum{}, malformed{};
  std::size_t withoutFix = 0;                 ///< position sentences that say that there is no fix
  bool dated = false;                         ///< the log carries a date
  double firstDay = 0;                        ///< day number of the log's first day; 0 when not dated
  std::array<bool, SentenceKinds> trusted{};  ///< kinds taken although every checksum is wrong
};

/// Walks a log once. Sentences may stand behind a logger's own stamp; lines end in LF, CR LF or CR; NUL bytes are
/// passed over; a sentence without checksum is taken, one with a wrong checksum is left out. Only where every sentence
/// of a kind has a wrong one are they taken, in a second walk, before which `restart` tells that the fixes handed on
/// until then are void. A fix is made of each position sentence of a new time; times that fall back by more than half a
/// day have passed midnight.
NmeaSummary PercorriNmea(std::string_view log, const std::function<void(const NmeaFix&)>& sink,
                         const std::function<void()>& restart);

/// True when a text holds such sentences near its beginning.
bool SembraNmea(std::string_view text);

}  // namespace corvan

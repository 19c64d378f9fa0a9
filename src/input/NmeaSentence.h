// One sentence of NMEA 0183: its kind, its talker, its fields and what stands in them.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "base/Bytes.h"

namespace corvan {

/// The sentences that count, whatever talker sent them.
enum class Sentence : std::uint8_t { GGA, RMC, GLL, ZDA, DPT, DBS, DBT };
inline constexpr std::size_t SentenceKinds = 7;
inline constexpr std::array<std::string_view, SentenceKinds> SentenceNames{"GGA", "RMC", "GLL", "ZDA",
                                                                           "DPT", "DBS", "DBT"};

inline constexpr std::size_t AddressLength = 5;  ///< two letters of the talker and three of the sentence

/// The kind of an address; nothing for other sentences and for a maker's own, which begin with "P".
inline std::optional<Sentence> TipoFrase(std::string_view address) {
  constexpr auto key = [](char a, char b, char c) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(a)) << 16U |
           static_cast<std::uint32_t>(static_cast<unsigned char>(b)) << 8U | static_cast<unsigned char>(c);
  };
  if (address.size() != AddressLength || address[0] == 'P') return std::nullopt;
  switch (key(address[2], address[3], address[4])) {
    case key('G', 'G', 'A'):
      return Sentence::GGA;
    case key('R', 'M', 'C'):
      return Sentence::RMC;
    case key('G', 'L', 'L'):
      return Sentence::GLL;
    case key('Z', 'D', 'A'):
      return Sentence::ZDA;
    case key('D', 'P', 'T'):
      return Sentence::DPT;
    case key('D', 'B', 'S'):
      return Sentence::DBS;
    case key('D', 'B', 'T'):
      return Sentence::DBT;
    default:
      return std::nullopt;
  }
}

/// The fields of a sentence, 0 being its address, at most the eleven that any reader of ours needs; the last holds the
/// rest. A field that is not there is empty.
class NmeaFields {
 public:
  std::string_view operator[](std::size_t k) const {
    if (k >= count_) return {};
    const std::size_t from = k == 0 ? 0 : end_[k - 1] + 1;
    return body_.substr(from, end_[k] - from);
  }

  /// Cuts the text between "$" and "*" at its commas. @return the XOR of its bytes
  /// Eight bytes at a time: a branch for each byte guesses wrong at every comma and costs half of the reader's time.
  unsigned taglia(std::string_view body) {
    constexpr std::uint64_t commas = 0x2C2C2C2C2C2C2C2CU, low = 0x7F7F7F7F7F7F7F7FU;
    body_ = body;
    std::uint64_t sum = 0;
    std::size_t at = 0;
    for (; at + 8 <= body.size(); at += 8) {
      const auto eight = LeggiLE<std::uint64_t>(std::as_bytes(std::span(body)), at);
      sum ^= eight;
      const std::uint64_t other = eight ^ commas;
      for (std::uint64_t found = ~(((other & low) + low) | other | low); found != 0; found &= found - 1) {
        campo(at + static_cast<std::size_t>(std::countr_zero(found)) / 8);
      }
    }
    unsigned all = 0;
    for (int shift = 0; shift < 64; shift += 8) all ^= static_cast<unsigned>(sum >> shift & 0xFFU);
    for (; at < body.size(); ++at) {
      all ^= static_cast<unsigned char>(body[at]);
      if (body[at] == ',') campo(at);
    }
    end_[count_++] = body.size();
    return all;
  }

 private:
  static constexpr std::size_t MaxFields = 11;  // the date of RMC is field 9

  void campo(std::size_t end) {
    if (count_ + 1 < MaxFields) end_[count_++] = end;
  }

  std::string_view body_;
  std::array<std::size_t, MaxFields> end_;  // of the fields that there are
  std::size_t count_ = 0;
};

/// True when the two hexadecimal digits behind the "*" are the sum.
bool SommaGiusta(std::string_view digits, unsigned sum);

/// A whole field as a plain number with or without a sign; nothing when it is empty or holds anything else.
std::optional<double> NumeroNmea(std::string_view field);

/// hhmmss.f in milliseconds since midnight, 0 to 86,400,999 (a leap second is second 60).
std::optional<std::int32_t> OraNmea(std::string_view field);

/// dddmm.mmm and its letter in decimal degrees; nothing beyond `most` degrees or 60 minutes.
std::optional<double> AngoloNmea(std::string_view field, std::string_view letter, char positive, char negative,
                                 double most);

/// What a sentence says about the day.
struct GiornoNmea {
  bool told = false;      ///< its fields are not empty
  std::int32_t days = 0;  ///< days since 1899-12-30; 0 when the fields are no day of any calendar, or none of 1980-2100
};

/// ddmmyy of an RMC; two-digit years 80 to 99 are 19xx.
GiornoNmea DataRmc(std::string_view field);

/// Day, month and year of a ZDA.
GiornoNmea DataZda(const NmeaFields& fields);

}  // namespace corvan

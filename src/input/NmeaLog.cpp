#include "input/NmeaLog.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <span>
#include <string>

#include "base/Bytes.h"

namespace corvan {
namespace {

constexpr double DayLength = 86400.0;
constexpr double DepthAge = 5.0;       // s: an older depth is no longer that under the boat
constexpr std::size_t MaxFields = 11;  // the date of RMC is field 9

int Cifra16(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

constexpr std::uint32_t Chiave(char a, char b, char c) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(a)) << 16U |
         static_cast<std::uint32_t>(static_cast<unsigned char>(b)) << 8U | static_cast<unsigned char>(c);
}

/// The kind of an address of two letters of the talker and three of the sentence.
std::optional<Sentence> Tipo(std::string_view address) {
  if (address.size() != 5) return std::nullopt;
  switch (Chiave(address[2], address[3], address[4])) {
    case Chiave('G', 'G', 'A'):
      return Sentence::GGA;
    case Chiave('R', 'M', 'C'):
      return Sentence::RMC;
    case Chiave('G', 'L', 'L'):
      return Sentence::GLL;
    case Chiave('Z', 'D', 'A'):
      return Sentence::ZDA;
    case Chiave('D', 'P', 'T'):
      return Sentence::DPT;
    case Chiave('D', 'B', 'T'):
      return Sentence::DBT;
    case Chiave('D', 'B', 'S'):
      return Sentence::DBS;
    default:
      return std::nullopt;
  }
}

/// A whole field as a number; nothing when it is empty or holds anything else.
std::optional<double> Numero(std::string_view field) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value, std::chars_format::fixed);
  if (error != std::errc() || end != field.data() + field.size() || field.empty() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

/// A field of at most six digits; nothing when it is anything else.
std::optional<int> Intero(std::string_view field) {
  if (field.empty() || field.size() > 6) return std::nullopt;
  int value = 0;
  for (const char c : field) {
    if (c < '0' || c > '9') return std::nullopt;
    value = 10 * value + (c - '0');
  }
  return value;
}

/// hhmmss.f in seconds since midnight.
std::optional<double> Ora(std::string_view field) {
  if (field.size() < 6) return std::nullopt;
  std::array<int, 6> digit{};
  for (std::size_t k = 0; k < digit.size(); ++k) {
    if (field[k] < '0' || field[k] > '9') return std::nullopt;
    digit[k] = field[k] - '0';
  }
  double fraction = 0.0;
  double place = 0.1;
  for (std::size_t k = 6; k < field.size(); ++k, place /= 10.0) {
    if (k == 6 && field[k] == '.') {
      place = 1.0;
      continue;
    }
    if (k == 6 || field[k] < '0' || field[k] > '9') return std::nullopt;
    fraction += place * (field[k] - '0');
  }
  const int hours = 10 * digit[0] + digit[1], minutes = 10 * digit[2] + digit[3], seconds = 10 * digit[4] + digit[5];
  if (hours > 23 || minutes > 59 || seconds > 60) return std::nullopt;
  return hours * 3600.0 + minutes * 60.0 + seconds + fraction;
}

/// dddmm.mmm and its letter in decimal degrees.
std::optional<double> Angolo(std::string_view field, std::string_view letter, char positive, char negative,
                             double most) {
  const std::optional<double> packed = Numero(field);
  if (!packed || letter.size() != 1 || (letter[0] != positive && letter[0] != negative)) return std::nullopt;
  const double whole = std::floor(*packed / 100.0);
  const double degrees = whole + (*packed - whole * 100.0) / 60.0;
  if (*packed < 0.0 || degrees > most) return std::nullopt;
  return letter[0] == positive ? degrees : -degrees;
}

/// Day number of a civil date (days since 1899-12-30, by Howard Hinnant's algorithm for the proleptic Gregorian
/// calendar). Nothing when it is none.
std::optional<double> Giorno(int year, int month, int day) {
  if (month < 1 || month > 12 || day < 1 || day > 31 || year < 1980 || year > 2100) return std::nullopt;
  const int y = month <= 2 ? year - 1 : year;
  const int era = y / 400, ofEra = y - era * 400;
  const int ofYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const int dayOfEra = ofEra * 365 + ofEra / 4 - ofEra / 100 + ofYear;
  return era * 146097.0 + dayOfEra - 719468.0 + 25569.0;
}

/// The fields of a sentence, at most the eleven that any reader of ours needs; the last holds the rest.
class Fields {
 public:
  std::string_view operator[](std::size_t k) const { return k < count_ ? field_[k] : std::string_view(); }

  /// Cuts the text between "$" and "*" at its commas. @return the XOR of its bytes
  /// Eight bytes at a time: a branch for each byte guesses wrong at every comma and costs half of the reader's time.
  unsigned taglia(std::string_view body) {
    constexpr std::uint64_t commas = 0x2C2C2C2C2C2C2C2CU, low = 0x7F7F7F7F7F7F7F7FU;
    std::uint64_t sum = 0;
    std::size_t start = 0;
    std::size_t at = 0;
    for (; at + 8 <= body.size(); at += 8) {
      const auto eight = LeggiLE<std::uint64_t>(std::as_bytes(std::span(body)), at);
      sum ^= eight;
      const std::uint64_t other = eight ^ commas;
      for (std::uint64_t found = ~(((other & low) + low) | other | low); found != 0; found &= found - 1) {
        campo(body, start, at + static_cast<std::size_t>(std::countr_zero(found)) / 8);
      }
    }
    unsigned all = 0;
    for (int shift = 0; shift < 64; shift += 8) all ^= static_cast<unsigned>(sum >> shift & 0xFFU);
    for (; at < body.size(); ++at) {
      all ^= static_cast<unsigned char>(body[at]);
      if (body[at] == ',') campo(body, start, at);
    }
    field_[count_++] = body.substr(start);
    return all;
  }

 private:
  void campo(std::string_view body, std::size_t& start, std::size_t end) {
    if (count_ + 1 >= MaxFields) return;
    field_[count_++] = body.substr(start, end - start);
    start = end + 1;
  }

  std::array<std::string_view, MaxFields> field_{};
  std::size_t count_ = 0;
};

/// One walk over a log.
class Walk {
 public:
  Walk(const std::array<bool, SentenceKinds>& trusted, const std::function<void(const NmeaFix&)>& sink) : sink_(sink) {
    summary_.trusted = trusted;
  }

  void line(std::string_view text) {
    ++summary_.lines;
    while (true) {
      const void* found = text.empty() ? nullptr : std::memchr(text.data(), '$', text.size());
      if (found == nullptr) return;
      text.remove_prefix(static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) + 1);
      if (text.size() > 6 && text[5] == ',' && sentence(text)) return;
      if (text.find('\0') != std::string_view::npos) {
        clean_.assign(text);
        std::erase(clean_, '\0');
        if (clean_.size() > 6 && clean_[5] == ',') sentence(clean_);
        return;
      }
    }
  }

  const NmeaSummary& summary() const { return summary_; }

 private:
  /// @return whether the text behind a "$" begins with a sentence of a kind that counts
  bool sentence(std::string_view text) {
    const std::optional<Sentence> kind = Tipo(text.substr(0, 5));
    if (!kind) return false;
    const auto k = static_cast<std::size_t>(*kind);
    const auto* star = static_cast<const char*>(std::memchr(text.data(), '*', text.size()));
    const std::string_view body =
        text.substr(0, star == nullptr ? text.size() : static_cast<std::size_t>(star - text.data()));
    Fields fields;
    const unsigned sum = fields.taglia(body);
    if (star != nullptr && !summary_.trusted.at(k) && !vera(text.substr(body.size() + 1), sum)) {
      ++summary_.sentences;
      ++summary_.wrongChecksum.at(k);
      return true;
    }
    const bool read = take(*kind, fields);
    if (!read && body.find('\0') != std::string_view::npos) return false;  // NUL bytes leave the sum as it is
    ++summary_.sentences;
    ++summary_.good.at(k);
    summary_.malformed.at(k) += read ? 0U : 1U;
    return true;
  }

  static bool vera(std::string_view digits, unsigned sum) {
    if (digits.size() < 2) return false;
    const int high = Cifra16(digits[0]), low = Cifra16(digits[1]);
    return high >= 0 && low >= 0 && static_cast<unsigned>(high * 16 + low) == (sum & 0xFFU);
  }

  /// @return false for a sentence that is not as it should be; one with empty fields only says nothing
  bool take(Sentence kind, const Fields& f) {
    switch (kind) {
      case Sentence::GGA:
        if (f[6] == "0") return senzaFix();
        return posizione(f[1], f[2], f[3], f[4], f[5]);
      case Sentence::RMC:
        data(f[9], f[1]);
        if (f[2] == "V") return senzaFix();
        return posizione(f[1], f[3], f[4], f[5], f[6]);
      case Sentence::GLL:
        if (f[6] == "V") return senzaFix();
        return posizione(f[5], f[1], f[2], f[3], f[4]);
      case Sentence::ZDA:
        return dataZda(f);
      case Sentence::DPT:
        return profondita(f[1], Numero(f[2]).value_or(0.0));
      case Sentence::DBT:
      case Sentence::DBS:
        return profondita(f[3], 0.0);
    }
    return false;
  }

  bool senzaFix() {
    ++summary_.withoutFix;
    return true;
  }

  /// Seconds since midnight of the first day.
  double avanza(double ofDay) {
    if (time_ && ofDay < *time_ - midnights_ * DayLength - DayLength / 2.0) ++midnights_;
    return ofDay + midnights_ * DayLength;
  }

  bool posizione(std::string_view when, std::string_view lat, std::string_view latLetter, std::string_view lon,
                 std::string_view lonLetter) {
    if (lat.empty() && lon.empty()) return senzaFix();
    const std::optional<double> ofDay = Ora(when);
    if (ofDay && fixTime_ && *ofDay + midnights_ * DayLength == *fixTime_) return true;  // told by another sentence
    const std::optional<double> latitude = Angolo(lat, latLetter, 'N', 'S', 90.0);
    const std::optional<double> longitude = Angolo(lon, lonLetter, 'E', 'W', 180.0);
    if (!ofDay || !latitude || !longitude) return false;
    const double seconds = avanza(*ofDay);
    time_ = fixTime_ = seconds;
    NmeaFix fix{seconds, *latitude, *longitude, 0.0, false};
    if (depth_ && (!depthTime_ || std::abs(seconds - *depthTime_) <= DepthAge)) {
      fix.depth = *depth_;
      fix.hasDepth = true;
      if (!depthTime_) depthTime_ = seconds;
    }
    sink_(fix);
    return true;
  }

  bool profondita(std::string_view field, double offset) {
    if (field.empty()) return true;  // the sounder has lost the bottom
    const std::optional<double> depth = Numero(field);
    if (!depth) return false;
    depth_ = *depth + offset;
    depthTime_ = time_;
    return true;
  }

  /// ddmmyy of a sentence with its time of day.
  void data(std::string_view field, std::string_view when) {
    const std::optional<int> packed = Intero(field);
    const std::optional<double> ofDay = Ora(when);
    if (!packed || field.size() != 6 || !ofDay) return;
    const int year = *packed % 100;
    giorno(Giorno(year + (year < 80 ? 2000 : 1900), *packed / 100 % 100, *packed / 10000), *ofDay);
  }

  bool dataZda(const Fields& f) {
    if (f[1].empty() && f[2].empty()) return true;
    const std::optional<double> ofDay = Ora(f[1]);
    const std::optional<int> day = Intero(f[2]), month = Intero(f[3]), year = Intero(f[4]);
    if (!ofDay || !day || !month || !year) return false;
    giorno(Giorno(*year, *month, *day), *ofDay);
    return true;
  }

  /// The first date tells the log's first day.
  void giorno(std::optional<double> day, double ofDay) {
    if (!day) return;
    const double seconds = avanza(ofDay);
    time_ = seconds;
    if (summary_.dated) return;
    summary_.dated = true;
    summary_.firstDay = *day - midnights_;
  }

  const std::function<void(const NmeaFix&)>& sink_;
  NmeaSummary summary_;
  std::optional<double> time_;     // of the latest sentence that tells one, s since the first midnight
  std::optional<double> fixTime_;  // of the latest fix
  std::optional<double> depth_;
  std::optional<double> depthTime_;
  int midnights_ = 0;
  std::string clean_;
};

/// Hands on each line without its end; CR, LF and both end a line.
template <class Take>
void PerRiga(std::string_view text, Take take) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    const auto left = static_cast<std::size_t>(end - at);
    const auto* lf = static_cast<const char*>(std::memchr(at, '\n', left));
    const char* const stop = lf == nullptr ? end : lf;
    const char* line = at;
    while (line < stop) {  // a CR within is a line end of its own
      const auto* cr = static_cast<const char*>(std::memchr(line, '\r', static_cast<std::size_t>(stop - line)));
      const char* const close = cr == nullptr ? stop : cr;
      take(std::string_view(line, static_cast<std::size_t>(close - line)));
      line = cr == nullptr ? stop : cr + 1;
    }
    if (at == stop) take(std::string_view());
    at = stop + 1;
  }
}

}  // namespace

NmeaSummary PercorriNmea(std::string_view log, const std::function<void(const NmeaFix&)>& sink,
                         const std::function<void()>& restart) {
  Walk first({}, sink);
  PerRiga(log, [&first](std::string_view line) { first.line(line); });
  const NmeaSummary& summary = first.summary();
  std::array<bool, SentenceKinds> trusted{};
  bool again = false;
  for (std::size_t k = 0; k < SentenceKinds; ++k) {
    trusted.at(k) = summary.good.at(k) == 0 && summary.wrongChecksum.at(k) > 0;
    again = again || trusted.at(k);
  }
  if (!again) return summary;
  restart();
  Walk second(trusted, sink);
  PerRiga(log, [&second](std::string_view line) { second.line(line); });
  return second.summary();
}

bool SembraNmea(std::string_view text) {
  constexpr std::size_t enough = 65536;
  bool found = false;
  PerRiga(text.substr(0, enough), [&found](std::string_view line) {
    const std::size_t dollar = line.find('$');
    if (dollar == std::string_view::npos || line.size() < dollar + 7 || line[dollar + 6] != ',') return;
    found = found || Tipo(line.substr(dollar + 1, 5)).has_value();
  });
  return found;
}

}  // namespace corvan

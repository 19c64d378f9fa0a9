#include "input/NmeaWalk.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <unordered_map>
#include <utility>

namespace corvan {
namespace {

/// Where a character stands from `from` on; null when nowhere.
const char* Cerca(std::string_view text, char c) {
  if (text.empty()) return nullptr;
  return text.front() == c ? text.data() : static_cast<const char*>(std::memchr(text.data(), c, text.size()));
}

std::size_t Posto(std::string_view text, const char* at) { return static_cast<std::size_t>(at - text.data()); }

/// One walk over a log.
class Walk {
 public:
  Walk(const std::array<bool, SentenceKinds>& trusted, std::string_view log) : dirty_(Cerca(log, '\0') != nullptr) {
    constexpr std::size_t perFix = 256;  // a fix a second between the sentences of other instruments
    out_.counts.trusted = trusted;
    out_.times.reserve(log.size() / perFix);
    out_.depths.reserve(log.size() / perFix);
  }

  /// A logger that lost power leaves NUL bytes anywhere, within a field or a checksum too: what is left is read.
  void line(std::string_view text) {
    ++out_.counts.lines;
    if (dirty_ && Cerca(text, '\0') != nullptr) {
      clean_.assign(text);
      std::erase(clean_, '\0');
      text = clean_;
    }
    scan(text);
  }

  NmeaWalk& result() { return out_; }

 private:
  void scan(std::string_view text) {
    while (const char* dollar = Cerca(text, '$')) {
      text.remove_prefix(Posto(text, dollar) + 1);
      const bool shaped = text.size() > AddressLength + 1 && text[AddressLength] == ',';
      text.remove_prefix(shaped ? sentence(text) : 0);
    }
  }

  /// @return how much of the text behind a "$" a sentence of a kind that counts takes up; 0 when there is none
  std::size_t sentence(std::string_view text) {
    const std::optional<Sentence> kind = TipoFrase(text.substr(0, AddressLength));
    if (!kind) return 0;
    const auto k = static_cast<std::size_t>(*kind);
    const char* star = Cerca(text, '*');
    std::string_view body = text.substr(0, star == nullptr ? text.size() : Posto(text, star));
    const std::size_t length = body.size();
    while (star == nullptr && (body.back() == ' ' || body.back() == '\t')) body.remove_suffix(1);
    NmeaFields fields;
    const unsigned sum = fields.taglia(body);
    const bool wrong = star != nullptr && !out_.counts.trusted[k] && !SommaGiusta(text.substr(body.size() + 1), sum);
    if (!wrong && take(*kind, fields)) {
      ++out_.counts.good[k];
      return length;
    }
    (wrong ? out_.counts.wrongChecksum : out_.counts.malformed)[k].add(out_.counts.lines);
    return std::min(body.find('$'), length);  // a sentence cut short: the next begins within
  }

  /// @return false for a sentence that is not as it should be; one with empty fields only says nothing
  bool take(Sentence kind, const NmeaFields& f) {
    switch (kind) {
      case Sentence::GGA:
        return posizione(f, 1, NumeroNmea(f[6]).value_or(0.0) > 0.0, 2);
      case Sentence::RMC:
        return posizione(f, 1, f[2] == "A", 3, giorno(f[9]));
      case Sentence::GLL:
        return posizione(f, 5, f[6] == "A" && f[7] != "N", 1);
      case Sentence::ZDA:
        return data(f);
      case Sentence::DPT:
        return profondita(f[1], f[2], kind);
      case Sentence::DBS:
      case Sentence::DBT:
        return profondita(f[3], {}, kind);
    }
    return false;
  }

  /// The moment of a talker: the latest one when nothing but the same time was told since.
  NmeaTime& momento(const NmeaFields& f, std::int32_t milliseconds, std::int32_t day) {
    const std::uint16_t speaker = talker(f[0]);
    const bool depthBetween = !out_.depths.empty() && out_.depths.back().times == out_.times.size();
    if (!out_.times.empty() && !depthBetween) {
      NmeaTime& last = out_.times.back();
      const bool agrees = day == 0 || last.day == 0 || day == last.day;
      if (agrees && last.talker == speaker && last.milliseconds == milliseconds) {
        if (day != 0) last.day = day;
        return last;
      }
    }
    NmeaTime& moment = out_.times.emplace_back();
    moment.milliseconds = milliseconds;
    moment.day = day;
    moment.talker = speaker;
    moment.line = out_.counts.lines;
    return moment;
  }

  std::uint16_t talker(std::string_view address) {
    const std::array<char, 2> letters{address[0], address[1]};
    if (latest_ < out_.talkers.size() && out_.talkers[latest_].letters == letters) return latest_;
    const auto key = static_cast<std::uint16_t>(static_cast<unsigned char>(letters[0]) << 8U |
                                                static_cast<unsigned char>(letters[1]));
    const auto [known, isNew] = index_.try_emplace(key, static_cast<std::uint16_t>(out_.talkers.size()));
    if (isNew) out_.talkers.push_back({letters});
    return latest_ = known->second;
  }

  /// @param time,place fields of the time and of the first of the four of a position
  bool posizione(const NmeaFields& f, std::size_t time, bool claims, std::size_t place, const GiornoNmea& date = {}) {
    const std::optional<std::int32_t> when = OraNmea(f[time]);
    if (!claims) {
      out_.counts.withoutFix.add(out_.counts.lines);
      if (when) momento(f, *when, 0);
      return true;
    }
    if (!when) return false;
    if (date.told && date.days == 0) out_.counts.noDay.add(out_.counts.lines);
    NmeaTime& moment = momento(f, *when, date.days);
    moment.firm = true;
    NmeaTalker& speaker = out_.talkers[moment.talker];
    if (speaker.latest == *when) return true;  // told by another sentence
    if (f[place].empty() || f[place + 2].empty()) return senzaPosizione();
    const std::optional<double> latitude = AngoloNmea(f[place], f[place + 1], 'N', 'S', 90.0);
    const std::optional<double> longitude = AngoloNmea(f[place + 2], f[place + 3], 'E', 'W', 180.0);
    if (!latitude || !longitude) return false;
    if (*latitude == 0.0 || *longitude == 0.0) return senzaPosizione();
    moment.latitude = *latitude;
    moment.longitude = *longitude;
    moment.line = out_.counts.lines;
    moment.fix = true;
    speaker.latest = *when;
    ++speaker.fixes;
    return true;
  }

  /// The day of an RMC: the same from one to the next, but once a day.
  GiornoNmea giorno(std::string_view field) {
    if (field != dateText_) {
      dateText_ = field;
      date_ = DataRmc(field);
    }
    return date_;
  }

  bool senzaPosizione() {
    out_.counts.withoutPosition.add(out_.counts.lines);
    return true;
  }

  bool data(const NmeaFields& f) {
    const GiornoNmea date = DataZda(f);
    const std::optional<std::int32_t> when = OraNmea(f[1]);
    if (!when) return f[1].empty() && !date.told;
    if (date.told && date.days == 0) out_.counts.noDay.add(out_.counts.lines);
    NmeaTime& moment = momento(f, *when, date.days);
    moment.zda = moment.zda || date.days != 0;
    moment.firm = moment.firm || date.days != 0;
    return true;
  }

  bool profondita(std::string_view field, std::string_view offset, Sentence kind) {
    if (field.empty()) return true;  // the sounder has lost the bottom
    const std::optional<double> depth = NumeroNmea(field);
    const std::optional<double> more = offset.empty() ? 0.0 : NumeroNmea(offset);
    if (!depth || !more) return false;
    if (*more < 0.0) out_.counts.belowKeel.add(out_.counts.lines);
    out_.depths.push_back({*depth + *more, kind, out_.times.size()});
    return true;
  }

  NmeaWalk out_;
  std::unordered_map<std::uint16_t, std::uint16_t> index_;  // of each talker by its letters
  std::uint16_t latest_ = 0;                                // the talker of the latest sentence
  bool dirty_;                                              // there are NUL bytes somewhere
  std::string clean_;
  std::string dateText_;  // of the latest RMC
  GiornoNmea date_;
};

/// Hands on each line without its end; CR, LF and both end a line. @param take returns false to stop
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
      if (!take(std::string_view(line, static_cast<std::size_t>(close - line)))) return;
      line = cr == nullptr ? stop : cr + 1;
    }
    if (at == stop && !take(std::string_view())) return;
    at = stop + 1;
  }
}

NmeaWalk Percorri(std::string_view log, const std::array<bool, SentenceKinds>& trusted) {
  Walk walk(trusted, log);
  PerRiga(log, [&walk](std::string_view line) {
    walk.line(line);
    return true;
  });
  return std::move(walk.result());
}

bool HaFrase(std::string_view text) {
  while (const char* dollar = Cerca(text, '$')) {
    text.remove_prefix(Posto(text, dollar) + 1);
    const bool shaped = text.size() > AddressLength + 1 && text[AddressLength] == ',';
    if (shaped && TipoFrase(text.substr(0, AddressLength))) return true;
  }
  return false;
}

}  // namespace

NmeaWalk PercorriNmea(std::string_view log) {
  NmeaWalk walk = Percorri(log, {});
  std::array<bool, SentenceKinds> trusted{};
  for (std::size_t k = 0; k < SentenceKinds; ++k) {
    trusted.at(k) = walk.counts.good.at(k) == 0 && walk.counts.wrongChecksum.at(k).count > 0;
  }
  const bool again = std::any_of(trusted.begin(), trusted.end(), [](bool kind) { return kind; });
  return again ? Percorri(log, trusted) : walk;
}

bool SembraNmea(std::string_view text) {
  if (HaFrase(text)) return true;
  if (Cerca(text, '\0') == nullptr || Cerca(text, '$') == nullptr) return false;
  std::string clean(text);  // as the walk reads it: NUL bytes may stand in every address
  std::erase(clean, '\0');
  return HaFrase(clean);
}

}  // namespace corvan

#include "input/NmeaLog.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "input/NmeaDepths.h"

namespace corvan {
namespace {

constexpr std::int32_t DayLength = 86'400'000;  // ms
constexpr std::int32_t HalfDay = DayLength / 2;
constexpr std::int32_t StepBack = DayLength - 60'000;  // a rise of so much is a sentence from before midnight come late

/// A moment that counts: what is told, its place in the log and its day.
struct Moment {
  const NmeaTime* told = nullptr;
  std::size_t place = 0;
  std::int64_t day = 0;  ///< days since 1899-12-30, or from a first day that nobody told

  std::int32_t second() const { return told->milliseconds / 1000; }
  std::int64_t halfMilliseconds() const { return 2 * (day * DayLength + told->milliseconds); }
};

/// The talker with the most fixes, the first heard of equals; nothing without a fix.
std::optional<std::uint16_t> Scegli(const std::vector<NmeaTalker>& talkers) {
  const auto best = std::max_element(talkers.begin(), talkers.end(),
                                     [](const NmeaTalker& a, const NmeaTalker& b) { return a.fixes < b.fixes; });
  if (best == talkers.end() || best->fixes == 0) return std::nullopt;
  return static_cast<std::uint16_t>(best - talkers.begin());
}

/// What a talker tells; the ZDA of others too where it tells no date.
std::vector<Moment> MomentiDi(const std::vector<NmeaTime>& times, std::uint16_t talker) {
  const bool dated =
      std::any_of(times.begin(), times.end(), [talker](auto& t) { return t.talker == talker && t.day != 0; });
  std::vector<Moment> moments;
  moments.reserve(times.size());
  for (std::size_t place = 0; place < times.size(); ++place) {
    const NmeaTime& told = times[place];
    if (told.talker == talker || (!dated && told.zda)) moments.push_back({&told, place, 0});
  }
  return moments;
}

/// Counts the days from one time to the next.
class Calendar {
 public:
  /// The day of a time that tells none.
  std::int64_t avanza(const NmeaTime& told) {
    const std::int32_t rise = any_ ? told.milliseconds - last_ : 0;
    if (rise > StepBack) return day_ - 1;
    if (rise < -HalfDay) {
      ++day_;
      loose_ += told.firm ? 0 : 1;
    } else if (told.firm && loose_ > 0 && rise > HalfDay) {
      day_ -= loose_;  // a receiver without fix had counted from 0 after a restart: that was no midnight
    }
    if (told.firm) loose_ = 0;
    last_ = told.milliseconds;
    any_ = true;
    return day_;
  }

  /// The day of a time that tells it.
  void set(std::int64_t day, const NmeaTime& told) {
    day_ = day;
    loose_ = 0;
    last_ = told.milliseconds;
  }

 private:
  std::int64_t day_ = 0;
  std::int64_t loose_ = 0;  // midnights since the last claim that only sentences without fix tell
  std::int32_t last_ = 0;   // ms since midnight
  bool any_ = false;
};

/// Gives the moments their days: a date counts for its whole second, and the first one for all that stand before it.
void Data(std::vector<Moment>& moments, NmeaLog& log) {
  Calendar calendar;
  std::int64_t shift = 0;
  for (std::size_t k = 0; k < moments.size();) {
    std::size_t end = k;
    std::int64_t date = 0;
    for (; end < moments.size() && moments[end].second() == moments[k].second(); ++end) {
      if (date == 0) date = moments[end].told->day;
      moments[end].day = calendar.avanza(*moments[end].told);
    }
    if (date != 0) {
      const std::int64_t expected = moments[k].day + shift;
      if (!log.dated) shift = date - moments[k].day;
      if (log.dated && date != expected) log.leaps.add(moments[k].told->line);
      log.dated = true;
      calendar.set(date - shift, *moments[k].told);
      for (std::size_t i = k; i < end; ++i) moments[i].day = date - shift;
    }
    k = end;
  }
  for (Moment& moment : moments) moment.day += shift;
}

/// Puts the first fix of a log without a date on a day.
void Sposta(std::vector<Moment>& moments, std::int64_t day) {
  const auto first = std::find_if(moments.begin(), moments.end(), [](const Moment& m) { return m.told->fix; });
  if (first == moments.end()) return;
  const std::int64_t shift = day - first->day;
  for (Moment& moment : moments) moment.day += shift;
}

/// The one kind of depths that serves the log.
std::optional<Sentence> Ecoscandaglio(const std::vector<NmeaDepth>& depths, std::size_t& others) {
  std::array<std::size_t, SentenceKinds> count{};
  for (const NmeaDepth& depth : depths) ++count.at(static_cast<std::size_t>(depth.kind));
  for (const Sentence kind : {Sentence::DPT, Sentence::DBS, Sentence::DBT}) {
    const std::size_t used = count.at(static_cast<std::size_t>(kind));
    if (used == 0) continue;
    others = depths.size() - used;
    return kind;
  }
  return std::nullopt;
}

/// The depths of a kind, each midway between the moments around it.
std::vector<TimedDepth> Profondita(const std::vector<NmeaDepth>& depths, Sentence kind,
                                   const std::vector<Moment>& moments) {
  std::vector<TimedDepth> timed;
  timed.reserve(depths.size());
  std::size_t next = 0;  // the first moment behind the depth
  for (const NmeaDepth& depth : depths) {
    if (depth.kind != kind) continue;
    while (next < moments.size() && moments[next].place < depth.times) ++next;
    const Moment& before = moments[next == 0 ? 0 : next - 1];
    const Moment& after = next == moments.size() ? before : moments[next];
    const std::int64_t twice = before.halfMilliseconds() + after.halfMilliseconds();
    timed.push_back({twice / 2, depth.times, depth.metres});
  }
  return timed;
}

std::vector<NmeaFix> Posizioni(const std::vector<Moment>& moments, std::uint16_t talker, DepthsByTime depths) {
  std::vector<const Moment*> fixes;
  std::vector<std::int64_t> times;
  fixes.reserve(moments.size());
  times.reserve(moments.size());
  for (const Moment& moment : moments) {
    if (!moment.told->fix || moment.told->talker != talker) continue;
    fixes.push_back(&moment);
    times.push_back(moment.halfMilliseconds());
  }
  const std::int64_t reach = RaggioProfondita(times);
  std::vector<NmeaFix> out;
  out.reserve(fixes.size());
  for (std::size_t k = 0; k < fixes.size(); ++k) {
    const NmeaTime& told = *fixes[k]->told;
    const double when = static_cast<double>(fixes[k]->day) + told.milliseconds / static_cast<double>(DayLength);
    out.push_back({when, told.latitude, told.longitude, depths.vicino(times[k], fixes[k]->place, reach), told.line});
  }
  return out;
}

}  // namespace

NmeaLog LeggiNmea(std::string_view text, std::optional<double> firstDay) {
  const NmeaWalk walk = PercorriNmea(text);
  NmeaLog log;
  log.counts = walk.counts;
  const std::optional<std::uint16_t> talker = Scegli(walk.talkers);
  if (!talker) return log;
  log.talker = walk.talkers[*talker].name();
  for (std::size_t k = 0; k < walk.talkers.size(); ++k) {
    if (k != *talker && walk.talkers[k].fixes > 0) log.others.push_back(walk.talkers[k]);
  }
  std::vector<Moment> moments = MomentiDi(walk.times, *talker);
  Data(moments, log);
  if (!log.dated) Sposta(moments, static_cast<std::int64_t>(firstDay.value_or(0.0)));
  log.sounder = Ecoscandaglio(walk.depths, log.otherDepths);
  std::vector<TimedDepth> depths;
  if (log.sounder) depths = Profondita(walk.depths, *log.sounder, moments);
  log.fixes = Posizioni(moments, *talker, DepthsByTime(std::move(depths)));
  return log;
}

}  // namespace corvan

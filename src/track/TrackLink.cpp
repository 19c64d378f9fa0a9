#include "track/TrackLink.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "base/OleDate.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

constexpr double SecondsPerDay = 86400.0;

/// The nearest second, halves away from zero. What clocks tell goes the short way: half the time of a general rounding.
std::int64_t Secondi(double days) {
  const double seconds = days * SecondsPerDay;
  constexpr double exact = 4e15;  // halves still have a place of their own
  if (seconds > 1.0 && seconds < exact) return static_cast<std::int64_t>(seconds + 0.5);
  return static_cast<std::int64_t>(std::llround(seconds));
}

/// That of a fix; one whose time is none stands at 0.
std::int64_t SecondoDi(const PuntoGPSEst& fix) {
  return std::isfinite(fix.DataOra) && std::abs(fix.DataOra) < 1e8 ? Secondi(fix.DataOra) : 0;
}

/// The fixes around a moment; 0 where there is none.
struct Around {
  std::size_t GPSPrima = 0, GPSDopo = 0, GPSEsatto = 0;
};

/// Finds fixes by their second. When the first fix is earlier than the moment, the scan ends at the first fix that is
/// not, which is where the largest second so far reaches it; when it is later, at the first that is not later, where
/// the smallest so far does. Both run in one direction, whatever the order of the fixes.
class TimeIndex {
 public:
  /// @param fixes at least one
  explicit TimeIndex(const Array1<PuntoGPSEst>& fixes) {
    // A list of their own: looked up among the fixes themselves, each probe would fetch a fix of a hundred bytes.
    seconds_.reserve(fixes.size());
    bool ordered = true;
    std::int64_t before = SecondoDi(fixes(1));
    for (const PuntoGPSEst& fix : fixes) {
      const std::int64_t now = SecondoDi(fix);
      ordered = ordered && now >= before;
      before = now;
      seconds_.push_back(now);
    }
    if (ordered) return;
    highest_ = lowest_ = seconds_;
    for (std::size_t k = 1; k < seconds_.size(); ++k) {
      highest_[k] = std::max(highest_[k], highest_[k - 1]);
      lowest_[k] = std::min(lowest_[k], lowest_[k - 1]);
    }
  }

  std::int64_t second(std::size_t fix) const { return seconds_[fix - 1]; }

  Around around(std::int64_t moment) {
    const std::int64_t first = second(1);
    if (first == moment) return {0, 0, 1};
    if (first < moment) {
      const std::size_t k = primo(moment);
      if (k == seconds_.size()) return {k, 0, 0};
      return rising(k) == moment ? Around{0, 0, k + 1} : Around{k, k + 1, 0};
    }
    if (lowest_.empty()) return {0, 1, 0};
    const auto end = std::partition_point(lowest_.begin(), lowest_.end(), [moment](auto s) { return s > moment; });
    if (end == lowest_.end()) return {0, 1, 0};
    const auto k = static_cast<std::size_t>(end - lowest_.begin());
    return lowest_[k] == moment ? Around{0, 0, k + 1} : Around{k + 1, 1, 0};
  }

 private:
  /// The largest second up to place k, from 0.
  std::int64_t rising(std::size_t k) const { return highest_.empty() ? seconds_[k] : highest_[k]; }

  /// First place that is not before the moment, from where the last search ended: measurements come in order, too, as a
  /// rule.
  std::size_t primo(std::int64_t moment) {
    const std::size_t count = seconds_.size();
    std::size_t low = hint_, step = 1;
    if (low >= count || rising(low) >= moment) low = 0;
    std::size_t high = low;
    while (high < count && rising(high) < moment) {
      low = high;
      high += step;
      step *= 2;
    }
    high = std::min(high, count);
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      if (rising(middle) < moment) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    hint_ = low == 0 ? 0 : low - 1;
    return low;
  }

  std::vector<std::int64_t> seconds_;
  std::vector<std::int64_t> highest_, lowest_;  // up to each fix; empty when the fixes are in order
  std::size_t hint_ = 0;
};

/// The measurement has a time: records shorter than this hold none.
bool ConTempo(const Survey& survey, const Misura& m) {
  const FileSummary* file = survey.fileDi(m);
  return (file == nullptr || file->timed()) && TempoValido(m.Tempo);
}

/// Seconds between two fixes; 0 where one has no time.
double Buco(const PuntoGPSEst& a, const PuntoGPSEst& b) {
  if (!TempoValido(a.DataOra) || !TempoValido(b.DataOra)) return 0.0;
  return std::abs(static_cast<double>(Secondi(b.DataOra) - Secondi(a.DataOra)));
}

/// Puts measurements onto the track.
class Linker {
 public:
  Linker(const ExternalTrack& track, LinkNotes& notes) : grid_(track.griglia), notes_(notes) {}

  /// A share of the way from one fix to another, or one fix alone.
  void prendi(Misura& m, const PuntoGPSEst& a, const PuntoGPSEst& b, double share) {
    const auto mix = [share](double p, double q) { return p + (q - p) * share; };
    m.UTMx = mix(a.X, b.X);
    m.UTMy = mix(a.Y, b.Y);
    if (a.haProf && b.haProf) {
      m.Val12 = SingoloOppure(mix(a.Prof, b.Prof), m.Val12);
    } else {
      ++notes_.keptDepth;
    }
    const auto* numbers = std::get_if<Grid>(&a.sorgente);
    const GridZone in = numbers != nullptr && numbers->zone == 0 ? GridZone{} : grid_;  // nobody has stated it yet
    m.sorgente = Grid{m.UTMx, m.UTMy, in.zone, in.hemisphere};
    m.SenzaFix = m.Interpolata = false;
    if (&a == &b) return;
    const double hole = Buco(a, b);
    notes_.holes += hole > LongHole ? 1U : 0U;
    notes_.longestHole = std::max(notes_.longestHole, hole);
  }

  void collega(Misura& m, const PuntoGPSEst& a, const PuntoGPSEst& b, double share) {
    m.Lat = a.GeoB + (b.GeoB - a.GeoB) * share;
    m.Lon = a.GeoA + (b.GeoA - a.GeoA) * share;
    prendi(m, a, b, share);
  }

 private:
  static constexpr double LongHole = 60.0;  // s
  GridZone grid_;
  LinkNotes& notes_;
};

}  // namespace

TimeLink LinkDataGPST(Survey& survey, double clockOffset) {
  TimeLink link;
  const ExternalTrack& track = survey.tracciaEst;
  if (!track.loaded) return link;
  link.done = true;
  const Array1<PuntoGPSEst>& fixes = track.PuntiGPSEst;
  if (fixes.empty()) {
    link.withoutTrack = survey.Misure.size();
    ScartaSenzaTraccia(survey);
    return link;
  }
  if (std::none_of(fixes.begin(), fixes.end(), [](const PuntoGPSEst& fix) { return TempoValido(fix.DataOra); })) {
    link.done = false;
    link.undated = true;
    return link;
  }
  TimeIndex index(fixes);
  Linker linker(survey.tracciaEst, link.notes);
  for (Misura& m : survey.Misure) {
    if (Vuota(m)) continue;
    if (!ConTempo(survey, m)) {
      ++link.withoutTime;
      continue;
    }
    const std::int64_t moment = Secondi(m.Tempo + clockOffset / SecondsPerDay);
    const Around found = index.around(moment);
    if (found.GPSEsatto > 0) {
      linker.collega(m, fixes(found.GPSEsatto), fixes(found.GPSEsatto), 0.0);
      ++link.exact;
    } else if (found.GPSPrima > 0 && found.GPSDopo > 0) {
      const std::int64_t before = index.second(found.GPSPrima), after = index.second(found.GPSDopo);
      const double whole = std::abs(static_cast<double>(after - before));
      linker.collega(m, fixes(found.GPSPrima), fixes(found.GPSDopo), static_cast<double>(moment - before) / whole);
      ++link.between;
    } else {
      const std::size_t end = std::max(found.GPSPrima, found.GPSDopo);
      linker.collega(m, fixes(end), fixes(end), 0.0);
      ++link.outside;
      link.farthest = std::max(link.farthest, std::abs(static_cast<double>(moment - index.second(end))));
    }
  }
  return link;
}

void ScartaSenzaTraccia(Survey& survey) {
  for (Misura& m : survey.Misure) m.Scartata = true;
}

PlaceLink LinkDataGPSP(Survey& survey, const Collegamenti& connections, LinkNotes& notes) {
  const Array1<PuntoGPSEst>& fixes = survey.tracciaEst.PuntiGPSEst;
  std::int32_t i1 = connections.measurement[0], i2 = connections.measurement[1];
  std::int32_t g1 = connections.fix[0], g2 = connections.fix[1];
  if (i1 > i2) {
    std::swap(i1, i2);
    std::swap(g1, g2);
  }
  const auto exists = [](std::int32_t k, std::size_t count) { return k >= 1 && static_cast<std::size_t>(k) <= count; };
  if (!exists(i1, survey.Misure.size()) || !exists(i2, survey.Misure.size()) || !exists(g1, fixes.size()) ||
      !exists(g2, fixes.size())) {
    return PlaceLink::Nothing;
  }
  const auto fix = [&fixes](std::int32_t k) -> const PuntoGPSEst& { return fixes(static_cast<std::size_t>(k)); };
  const auto measurement = [&survey](std::int32_t k) -> Misura& { return survey.Misure(static_cast<std::size_t>(k)); };
  const double Dd = std::abs(measurement(i2).Distanza - measurement(i1).Distanza);
  const double Dg = std::abs(fix(g2).Progressiva - fix(g1).Progressiva);
  if (Dg == 0.0) return PlaceLink::SomethingWrong;
  if (Dd == 0.0) return PlaceLink::Nothing;
  const double s = Dd / Dg;
  const std::int32_t step = g1 <= g2 ? 1 : -1;
  const double start = measurement(i1).Distanza;
  const auto along = [&](std::int32_t k) { return std::abs(fix(k).Progressiva - fix(g1).Progressiva); };
  Linker linker(survey.tracciaEst, notes);
  std::int32_t j = g1;
  for (std::int32_t i = i1; i <= i2; ++i) {
    Misura& m = measurement(i);
    const double d = std::abs(m.Distanza - start);
    const double r = d < Dd ? std::min(d / s, Dg) : Dg;  // the far end lies on its fix: Dd / s may fall short of Dg
    while (j != g2 && along(j + step) < r) j += step;
    if (r == along(j) || j == g2) {
      linker.prendi(m, fix(j), fix(j), 0.0);
      continue;
    }
    const double low = along(j), high = along(j + step);
    if (r == high) {
      linker.prendi(m, fix(j + step), fix(j + step), 0.0);
    } else {
      linker.prendi(m, fix(j), fix(j + step), (r - low) / (high - low));
    }
  }
  return PlaceLink::Linked;
}

}  // namespace corvan

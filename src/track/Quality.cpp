#include "track/Quality.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "base/Halves.h"
#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "Quality";
constexpr double LeastDeviation = 1e-3;  // of the logarithm

double Corrente(const Misura& m) { return (static_cast<double>(m.Val180) - static_cast<double>(m.Val184)) / 2.0; }

double Potenziale(const Misura& m, std::size_t c) {
  return (static_cast<double>(m.CanaleA.at(c)) - static_cast<double>(m.CanaleB.at(c))) / 2.0;
}

/// The limits that look at a reading alone. Comparisons are such that a number that is none fails.
class Judge {
 public:
  explicit Judge(const QualityLimits& limits) : limits_(limits) {}

  ReadingSet operator()(const Misura& m, QualityResult& result) const {
    ReadingSet bad = 0;
    const bool weak = limits_.corrente && !(std::abs(Corrente(m)) >= *limits_.corrente);
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if (!HaLettura(m, c)) continue;
      const double rho = m.Rho.at(c);
      const auto fails = [&](Limit limit, bool failed) {
        if (!failed) return;
        ++result.perLimite.at(static_cast<std::size_t>(limit));
        bad = static_cast<ReadingSet>(bad | BitDi(c));
      };
      ++result.letture;
      fails(Limit::Current, weak);
      fails(Limit::Potential, limits_.potenziale && !(std::abs(Potenziale(m, c)) >= *limits_.potenziale));
      fails(Limit::Range,
            (limits_.rhoMin && !(rho >= *limits_.rhoMin)) || (limits_.rhoMax && !(rho <= *limits_.rhoMax)));
      fails(Limit::Negative, limits_.negative && !(rho >= 0.0));
      if (!limits_.deviazione) continue;
      const bool stored = m.ConQualita;
      result.senzaDeviazione += stored ? 0U : 1U;
      fails(Limit::Deviation, stored && !(m.Deviazione.at(c) <= *limits_.deviazione));
    }
    return bad;
  }

 private:
  const QualityLimits& limits_;
};

/// Measurements from..to - 1, counted from 0.
struct Stretch {
  std::size_t from = 0, to = 0;
};

/// The lines of a survey: a firing that names no file belongs to the line before it.
std::vector<Stretch> Linee(const Survey& survey) {
  std::vector<Stretch> lines;
  const Misura* before = nullptr;  // the last that names a file
  for (std::size_t i = 0; i < survey.Misure.size(); ++i) {
    const Misura& m = survey.Misure(i + 1);
    if (lines.empty() || (m.NumFile != 0 && before != nullptr && !StessaLinea(*before, m))) lines.push_back({i, i});
    if (m.NumFile != 0) before = &m;
    lines.back().to = i + 1;
  }
  return lines;
}

/// The middle one of numbers, or the mean of the two in the middle. @param values not empty; their order changes
double Mediana(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 == 1) return *middle;
  return (*middle + *std::max_element(values.begin(), middle)) / 2.0;
}

/// The spikes of one channel, looked for by one thread.
class SpikeSearch {
 public:
  SpikeSearch(const Despike& rule, const std::vector<double>& logarithms) : rule_(rule), logs_(logarithms) {}

  /// Takes the neighbourhood of a reading. @return false where it cannot be tested
  bool prendi(std::size_t i, const Stretch& line) {
    if (std::isnan(logs_[i])) return false;
    const auto before = static_cast<std::size_t>(rule_.finestra - 1) / 2;
    const auto behind = static_cast<std::size_t>(rule_.finestra) / 2;
    around_.clear();
    for (std::size_t k = i - std::min(before, i - line.from); k < std::min(line.to, i + behind + 1); ++k) {
      if (!std::isnan(logs_[k])) around_.push_back(logs_[k]);
    }
    return 2 * around_.size() >= static_cast<std::size_t>(rule_.finestra);
  }
  bool spike(std::size_t i) {
    const double median = Mediana(around_);
    for (double& value : around_) value = std::abs(value - median);
    return std::abs(logs_[i] - median) > rule_.fattore * std::max(LeastDeviation, Mediana(around_));
  }

 private:
  const Despike& rule_;
  const std::vector<double>& logs_;
  std::vector<double> around_;
};

void CercaPicchi(const Survey& survey, const Despike& rule, std::vector<ReadingSet>& bad, QualityResult& result) {
  const std::vector<Stretch> lines = Linee(survey);
  std::vector<double> logs(survey.Misure.size());
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const auto asked = [&](std::size_t i) { return HaLettura(survey.Misure(i + 1), c) && (bad[i] & BitDi(c)) == 0; };
    for (std::size_t i = 0; i < logs.size(); ++i) {
      const double rho = survey.Misure(i + 1).Rho.at(c);
      logs[i] = asked(i) && rho > 0.0 && std::isfinite(rho) ? std::log(rho) : std::nan("");
    }
    using Found = std::pair<std::vector<std::size_t>, std::size_t>;  // the spikes, and how many could not be tested
    const auto [first, second] = InDueMeta(logs.size(), [&](std::size_t from, std::size_t to) {
      Found found;
      SpikeSearch search(rule, logs);
      for (const Stretch& line : lines) {
        for (std::size_t i = std::max(from, line.from); i < std::min(to, line.to); ++i) {
          if (!asked(i)) continue;
          if (!search.prendi(i, line)) {
            ++found.second;
          } else if (search.spike(i)) {
            found.first.push_back(i);
          }
        }
      }
      return found;
    });
    for (const Found* part : {&first, &second}) {
      for (const std::size_t i : part->first) bad[i] = static_cast<ReadingSet>(bad[i] | BitDi(c));
      result.perLimite.at(static_cast<std::size_t>(Limit::Despike)) += part->first.size();
      result.senzaVicini += part->second;
    }
  }
}

/// "3 of 220 readings are".
std::string QuanteDi(std::size_t count, const QualityResult& result) {
  return std::to_string(count) + " of " + Quanti(result.letture, "reading is", "readings are");
}

/// "outside 1 to 500 ohm m"; with one bound "under 1 ohm m".
std::string Intervallo(const QualityLimits& limits) {
  const std::string low = limits.rhoMin ? TestoNumero(*limits.rhoMin) : "",
                    high = limits.rhoMax ? TestoNumero(*limits.rhoMax) : "";
  const std::string bounds = !limits.rhoMin   ? "over " + high
                             : !limits.rhoMax ? "under " + low
                                              : "outside " + low + " to " + high;
  return bounds + " ohm m";
}

}  // namespace

std::vector<ReadingSet> Giudica(const Survey& survey, const QualityLimits& limits, QualityResult& result) {
  result = {};
  std::vector<ReadingSet> bad(survey.Misure.size(), 0);
  const Judge judge(limits);
  for (std::size_t i = 0; i < bad.size(); ++i) bad[i] = judge(survey.Misure(i + 1), result);
  if (limits.picchi) CercaPicchi(survey, *limits.picchi, bad, result);
  return bad;
}

void Escludi(Survey& survey, const std::vector<ReadingSet>& verdict, QualityResult& result) {
  for (std::size_t i = 0; i < verdict.size(); ++i) survey.Misure(i + 1).escluse = verdict[i];
  result.esclusaAMano = result.inclusaAMano = result.escluse = 0;
  for (const auto& [key, excluded] : survey.qualita.aMano) {
    const auto k = static_cast<std::size_t>(key.misura);
    if (!survey.Misure.contains(k) || !HaLettura(survey.Misure(k), key.canale)) continue;
    ReadingSet& set = survey.Misure(k).escluse;
    const ReadingSet bit = BitDi(key.canale);
    set = static_cast<ReadingSet>(excluded ? set | bit : set & ~bit);
    ++(excluded ? result.esclusaAMano : result.inclusaAMano);
  }
  TrackExtent& t = survey.traccia;
  bool any = false;
  t.RhoMin = t.RhoMax = 0.0F;
  for (const Misura& m : survey.Misure) {
    result.escluse += static_cast<std::size_t>(std::popcount(static_cast<unsigned>(m.letture & m.escluse)));
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      const float rho = m.Rho.at(c);
      if (!InUso(m, c) || !std::isfinite(rho)) continue;
      t.RhoMin = any ? std::min(t.RhoMin, rho) : rho;
      t.RhoMax = any ? std::max(t.RhoMax, rho) : rho;
      any = true;
    }
  }
  survey.qualita.escluse = result.escluse;
}

void RilevaQualita(const Survey& survey, const QualityResult& result, Findings& findings) {
  if (!survey.qualita.inVigore()) return;
  const QualityLimits& limits = survey.qualita.limiti;
  std::string told;
  const auto tell = [&told](std::size_t count, const std::string& what) {
    if (count > 0) told += (told.empty() ? "" : ", ") + std::to_string(count) + " " + what;
  };
  if (limits.corrente) tell(result(Limit::Current), "with a current under " + TestoNumero(*limits.corrente) + " mA");
  if (limits.potenziale)
    tell(result(Limit::Potential), "with a potential under " + TestoNumero(*limits.potenziale) + " mV");
  if (limits.deviazione)
    tell(result(Limit::Deviation), "with a deviation over " + TestoNumero(*limits.deviazione) + " %");
  if (limits.rhoMin || limits.rhoMax) tell(result(Limit::Range), Intervallo(limits));
  if (limits.picchi) tell(result(Limit::Despike), result(Limit::Despike) == 1 ? "spike" : "spikes");
  if (limits.negative) tell(result(Limit::Negative), "with a negative resistivity");
  tell(result.esclusaAMano, "excluded by hand");
  tell(result.inclusaAMano, "taken by hand");
  const std::string head = QuanteDi(result.escluse, result) + " excluded";
  const bool nothingLeft = result.letture > 0 && result.escluse == result.letture;
  findings.add({nothingLeft ? Severity::Fault : Severity::Note, Procedure, "",
                (nothingLeft ? "every reading is excluded, nothing is left to show: " : "") + head +
                    (told.empty() ? "" : ": " + told)});
  if (result.senzaDeviazione > 0) {
    findings.note(Procedure,
                  QuanteDi(result.senzaDeviazione, result) + " not tested for deviation: their files hold none");
  }
  if (result.senzaVicini > 0) {
    findings.note(Procedure,
                  QuanteDi(result.senzaVicini, result) +
                      " not tested for spikes: a resistivity of 0 or less, or fewer readings around than half of " +
                      std::to_string(limits.picchi ? limits.picchi->finestra : 0));
  }
}

}  // namespace corvan

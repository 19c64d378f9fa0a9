#include "view2d/SectionModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "base/Halves.h"
#include "base/OleDate.h"
#include "base/Text.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

constexpr float None = std::numeric_limits<float>::quiet_NaN();

double Mediana(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// The lines and whose each measurement is. A firing that names no file belongs to the line before it.
void DividiLinee(SectionModel& model, const Survey& survey) {
  const Misura* before = nullptr;  // the last that names a file
  for (std::size_t k = 1; k <= survey.Misure.size(); ++k) {
    const Misura& m = survey.Misure(k);
    if (model.lines.empty() || (m.NumFile != 0 && before != nullptr && !StessaLinea(*before, m))) {
      model.lines.push_back({"", k, k, m.Distanza, m.Distanza, 1.0});
    }
    if (m.NumFile != 0) before = &m;
    SectionLine& line = model.lines.back();
    line.last = k;
    const FileSummary* summary = survey.fileDi(m);
    if (line.name.empty() && summary != nullptr) line.name = NomeLinea(survey, m);
    model.line.push_back(static_cast<std::uint32_t>(model.lines.size() - 1));
    model.distance.push_back(m.Distanza);
  }
}

/// Start, end and step of a line.
void MisuraLinea(SectionLine& line, const Survey& survey, double otherwise) {
  const Misura* previous = nullptr;
  std::vector<double> steps;
  for (std::size_t k = line.first; k <= line.last; ++k) {
    const Misura& m = survey.Misure(k);
    if (!HaPosizione(m)) continue;
    if (previous == nullptr) line.start = m.Distanza;
    if (previous != nullptr && m.Distanza > previous->Distanza) steps.push_back(m.Distanza - previous->Distanza);
    line.end = m.Distanza;
    previous = &m;
  }
  if (previous == nullptr) line.start = line.end = survey.Misure(line.first).Distanza;
  line.step = steps.empty() ? otherwise : Mediana(steps);
}

void PrendiValori(SectionModel& model, const Survey& survey) {
  const std::size_t count = survey.Misure.size();
  for (std::vector<float>* series : {&model.current, &model.depth}) series->assign(count, None);
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    model.rho.at(c).assign(count, None);
    model.potential.at(c).assign(count, None);
    if (survey.qualita.escluse > 0) model.lette.at(c).assign(count, None);
  }
  InDueMeta(count, [&](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      const Misura& m = survey.Misure(i + 1);
      if (!Tenuta(m)) continue;
      model.current[i] = m.Val180;
      model.depth[i] = std::abs(m.Val12);
      for (std::size_t c = 1; c <= MaxChannels; ++c) {
        if (!HaLettura(m, c)) continue;
        if (!model.lette[c].empty()) model.lette[c][i] = m.Rho.at(c);
        if (!InUso(m, c)) continue;
        model.rho[c][i] = m.Rho.at(c);
        model.potential[c][i] = std::abs(m.CanaleA.at(c));
      }
    }
    return true;
  });
}

/// Hours since the first time and the speeds between neighbours.
void PrendiTempi(SectionModel& model, const Survey& survey) {
  model.hours.assign(model.size(), None);
  model.speed.assign(model.size(), None);
  std::optional<double> start;
  std::optional<std::size_t> previous;
  for (std::size_t i = 0; i < model.size(); ++i) {
    const Misura& m = survey.Misure(i + 1);
    if (!Tenuta(m) || !TempoValido(m.Tempo)) continue;
    if (!start) start = m.Tempo;
    model.hours[i] = static_cast<float>((m.Tempo - *start) * 24.0);
    if (previous && model.line[*previous] == model.line[i]) {
      const double seconds = (m.Tempo - survey.Misure(*previous + 1).Tempo) * 86400.0;
      const double speed = (m.Distanza - model.distance[*previous]) / seconds;
      if (seconds > 1e-3 && speed < 1e6) model.speed[i] = static_cast<float>(speed);
    }
    previous = i;
  }
}

/// What is wrong with a firing that is not shown; nothing for one that is.
std::optional<Loss> Perdita(const Misura& m) {
  if (Vuota(m)) return Loss::NoReadings;
  if (m.Scartata) return Loss::LeftOut;
  if (!HaPosizione(m)) return Loss::NoFix;
  return std::nullopt;
}

/// Marks of the firings that are not shown: runs of them spread between the kept ones of their line on both sides.
void SegnaPerdite(SectionModel& model, const Survey& survey) {
  model.lost.assign(model.size(), false);
  for (const SectionLine& line : model.lines) {
    std::size_t k = line.first;
    while (k <= line.last) {
      std::size_t end = k;
      while (end <= line.last && Perdita(survey.Misure(end))) ++end;
      const double count = static_cast<double>(end - k) + 1.0;
      const double from = k == line.first ? line.start : model.distance[k - 2];
      const double to = end > line.last ? from : model.distance[end - 1];
      for (std::size_t j = k; j < end; ++j) {
        model.lost[j - 1] = true;
        const double share = static_cast<double>(j - k + 1) / count;
        model.marks.push_back({*Perdita(survey.Misure(j)), static_cast<std::uint32_t>(j), from + (to - from) * share});
      }
      k = end + 1;
    }
  }
}

/// Bands around depths, which are in rising order: each reaches half-way to its neighbours, the last as far down as up,
/// the first as far up as down or to the surface. Channels of one depth share their band, one under the other.
std::vector<SectionRow> Fasce(const std::vector<std::pair<double, std::size_t>>& depths) {
  std::vector<std::pair<double, std::vector<std::size_t>>> groups;
  for (const auto& [depth, channel] : depths) {
    constexpr double same = 1e-6;
    if (groups.empty() || depth - groups.back().first > same * depth) groups.push_back({depth, {}});
    groups.back().second.push_back(channel);
  }
  std::vector<SectionRow> rows;
  for (std::size_t g = 0; g < groups.size(); ++g) {
    const double depth = groups[g].first;
    const double below = g + 1 < groups.size() ? (groups[g + 1].first - depth) / 2.0 : -1.0;
    const double above = g > 0 ? (depth - groups[g - 1].first) / 2.0 : std::min(depth, below >= 0.0 ? below : depth);
    const double top = depth - above, bottom = depth + (below >= 0.0 ? below : above);
    const auto parts = static_cast<double>(groups[g].second.size());
    for (std::size_t i = 0; i < groups[g].second.size(); ++i) {
      const double part = (bottom - top) / parts;
      const double from = top + part * static_cast<double>(i);
      rows.push_back({groups[g].second[i], from, i + 1 == groups[g].second.size() ? bottom : from + part});
    }
  }
  return rows;
}

/// "channel 3", "channels 1, 2".
std::string Elenca(const std::vector<std::size_t>& channels) {
  std::string text = channels.size() == 1 ? "channel " : "channels ";
  for (std::size_t i = 0; i < channels.size(); ++i) text += (i == 0 ? "" : ", ") + std::to_string(channels[i]);
  return text;
}

/// Channels of which any reading was stored; all where the survey has none.
std::vector<std::size_t> Canali(const Survey& survey) {
  ReadingSet any = 0;
  for (const Misura& m : survey.Misure) any |= m.letture;
  std::vector<std::size_t> channels;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    if ((any & AllReadings) == 0 || (any & BitDi(c)) != 0) channels.push_back(c);
  }
  return channels;
}

/// Depth of a level where a channel has none of its own: the median of depth / number over those that have one.
double PassoLivelli(const std::vector<std::size_t>& channels, const ReadingPlaces& places) {
  std::vector<double> each;
  for (const std::size_t c : channels) {
    if (places.at(c).profondita) each.push_back(*places.at(c).profondita / static_cast<double>(c));
  }
  return each.empty() ? 1.0 : Mediana(each);
}

void DisponiCanali(SectionModel& model, const std::vector<std::size_t>& channels, const ReadingPlaces& places) {
  const double level = PassoLivelli(channels, places);
  std::vector<std::pair<double, std::size_t>> depths;
  std::vector<std::size_t> shallow, placeless;
  for (const std::size_t c : channels) {
    const ReadingPlace& place = places.at(c);
    model.behind.at(c) = place.dietro.value_or(0.0);
    model.pseudoDepth.at(c) = place.profondita.value_or(level * static_cast<double>(c));
    if (!place.profondita) shallow.push_back(c);
    if (!place.dietro) placeless.push_back(c);
    depths.emplace_back(model.pseudoDepth.at(c), c);
    model.levels.push_back({c, static_cast<double>(c) - 1.0, static_cast<double>(c)});
  }
  std::sort(depths.begin(), depths.end());
  model.metres = Fasce(depths);
  model.metric = shallow.size() < channels.size();
  if (model.lines.empty()) return;  // no cable either, which nobody misses then
  if (!model.metric) {
    model.lacks.emplace_back("no pseudo-depths: the cable's electrodes give none, levels are shown");
  } else if (!shallow.empty()) {
    model.lacks.push_back("no pseudo-depth: " + Elenca(shallow) + ", shown at the level of the number");
  }
  if (!placeless.empty())
    model.lacks.push_back("no place along the cable: " + Elenca(placeless) + ", shown at the boat");
}

/// Electrodes of a reading lie elsewhere along the cable than those of the survey's.
bool Altrove(const Misura& m, const Cable& cable) {
  if (!m.CavoProprio || !Tenuta(m)) return false;
  if (m.Val60 != cable.PosCavo[12] || m.Val64 != cable.PosCavo[13]) return true;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    if (!HaLettura(m, c)) continue;
    if (m.Elettrodi.at(c) != cable.PosCavo.at(c) || m.Elettrodi.at(c + 1) != cable.PosCavo.at(c + 1)) return true;
  }
  return false;
}

/// Rows are those of one cable: what was measured with other electrodes is told.
void RilevaAltrove(SectionModel& model, const Survey& survey) {
  const auto count = static_cast<std::size_t>(std::count_if(survey.Misure.begin(), survey.Misure.end(),
                                                            [&](const Misura& m) { return Altrove(m, survey.cavo); }));
  if (count == 0) return;
  model.lacks.push_back(
      Quanti(count, "measurement has", "measurements have") +
      " electrodes elsewhere than the survey's cable, shown at the places and depths of its channels");
}

}  // namespace

SectionModel CreaSezionePiana(const Survey& survey, const ReadingPlaces& places) {
  SectionModel model;
  DividiLinee(model, survey);
  const double usual = survey.traccia.AltezzaCella > 0.0 ? survey.traccia.AltezzaCella : 1.0;
  for (SectionLine& line : model.lines) MisuraLinea(line, survey, usual);
  PrendiValori(model, survey);
  PrendiTempi(model, survey);
  SegnaPerdite(model, survey);
  if (survey.Misure.empty()) {
    model.lacks.emplace_back("no measurements: nothing was read");
  } else if (std::none_of(survey.Misure.begin(), survey.Misure.end(), Tenuta)) {
    model.lacks.emplace_back("no measurement has a position: there is no track to lay flat");
  }
  DisponiCanali(model, Canali(survey), places);
  RilevaAltrove(model, survey);
  return model;
}

double Portata(const SectionModel& model, std::size_t i, std::size_t next) {
  const double step = model.lines[model.line[i]].step;
  const bool neighbours = next == i + 1 || i == next + 1;
  return std::min(std::abs(model.distance[next] - model.distance[i]) / 2.0, neighbours ? 1.25 * step : step / 2.0);
}

}  // namespace corvan

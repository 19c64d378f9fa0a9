#include "track/Cable.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

constexpr std::size_t C1 = 12;
constexpr std::size_t C2 = 13;

bool HaCavo(const Misura& m) {
  const auto set = [](float position) { return std::isfinite(position) && position != 0.0F; };
  return set(m.Val60) || set(m.Val64) || std::any_of(m.Elettrodi.begin() + 1, m.Elettrodi.end(), set);
}

/// Readings that a whole firing of a file has.
ReadingSet LettureIntere(const Survey& survey, const Misura& m) {
  const FileSummary* file = survey.fileDi(m);
  if (file == nullptr) return AllReadings;
  const auto channels = static_cast<std::size_t>(std::clamp(file->channels, 0, 10));
  return static_cast<ReadingSet>((2U << channels) - 2U);
}

/// The measurement whose electrodes are the cable, among those that name their own or those that do not.
const Misura* MisuraDelCavo(const Survey& survey, bool own) {
  const Misura* best = nullptr;
  ReadingSet most = 0;
  for (const Misura& m : survey.Misure) {
    if (m.CavoProprio != own) continue;
    const ReadingSet whole = LettureIntere(survey, m);
    if (whole <= most || (m.letture & whole) != whole || !HaCavo(m)) continue;
    best = &m;
    most = whole;
  }
  if (best != nullptr) return best;
  const auto found = std::find_if(survey.Misure.begin(), survey.Misure.end(),
                                  [own](const Misura& m) { return m.CavoProprio == own && HaCavo(m); });
  return found == survey.Misure.end() ? nullptr : &*found;
}

/// A cable that was towed is the survey's before any that rows of a text name for themselves.
const Misura& MisuraDelCavo(const Survey& survey) {
  for (const bool own : {false, true}) {
    if (const Misura* found = MisuraDelCavo(survey, own)) return *found;
  }
  return survey.Misure(1);
}

/// Positions differ by more than a centimetre; the tenth of a millimetre covers the digits of singles.
bool Diverse(double a, double b) { return std::abs(a - b) > 0.0101; }

/// The electrodes of a measurement lie otherwise about C1 than the cable's.
bool AltroCavo(const Misura& m, const Cable& cable) {
  const double c1 = m.Val60, used = cable.PosCavo[C1];
  const auto differs = [&](double position, std::size_t e) {
    return std::isfinite(position) && Diverse(position - c1, static_cast<double>(cable.PosCavo.at(e)) - used);
  };
  if (Vuota(m) || m.CavoProprio) return false;
  if (differs(m.Val64, C2)) return true;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    if (HaLettura(m, c) && (differs(m.Elettrodi.at(c), c) || differs(m.Elettrodi.at(c + 1), c + 1))) return true;
  }
  return false;
}

/// The token of the configuration text that holds electrode k.
constexpr std::size_t Gettone(std::size_t k) {
  if (k == C1) return 2;
  if (k == C2) return 4;
  return 2 * k + 4;
}

}  // namespace

void CreaCavoDaMisure(Survey& survey) {
  if (survey.Misure.empty()) return;
  const Misura& m = MisuraDelCavo(survey);
  Cable& cable = survey.cavo;
  std::copy(m.Elettrodi.begin(), m.Elettrodi.end(), cable.PosCavo.begin());
  cable.PosCavo[C1] = m.Val60;
  cable.PosCavo[C2] = m.Val64;
  cable.StringaCavo = ComponiStringaCavo(cable.PosCavo);
  const double middle = (static_cast<double>(cable.PosCavo[1]) + static_cast<double>(cable.PosCavo[2])) * 0.5;
  for (std::size_t k = 1; k <= CableElectrodes; ++k) {
    const double relative = static_cast<double>(cable.PosCavo.at(k)) - middle;
    cable.PosCavoRel.at(k) = std::isfinite(relative) ? relative : 0.0;
  }
}

void RilevaCavo(const Survey& survey, Findings& findings) {
  std::map<std::int16_t, std::pair<std::size_t, std::size_t>> others;  // file: first measurement, how many
  for (std::size_t k = 1; k <= survey.Misure.size(); ++k) {
    const Misura& m = survey.Misure(k);
    if (!AltroCavo(m, survey.cavo)) continue;
    ++others.try_emplace(m.NumFile, k, 0).first->second.second;
  }
  for (const auto& [file, place] : others) {
    std::string told = Quanti(place.second, "measurement was", "measurements were") +
                       " read with another cable than the one in use (" + survey.cavo.StringaCavo + ")";
    told += IlPrimo(place.second);
    findings.fault("CreaCavoDaMisure",
                   told + "measurement " + std::to_string(place.first) +
                       ": resistivities there are wrong by the ratio of the geometric factors",
                   FileDi(survey, survey.Misure(place.first)));
  }
}

double LunghezzaCavo(const Cable& cable) {
  const auto [low, high] = std::minmax_element(cable.PosCavo.begin() + 1, cable.PosCavo.end());
  const double length = static_cast<double>(*high) - static_cast<double>(*low);
  return std::isfinite(length) ? length : 0.0;
}

std::array<float, CableElectrodes + 1> LeggiStringaCavo(std::string_view text) {
  std::array<float, CableElectrodes + 1> positions{};
  std::string separator;
  for (std::size_t k = 1; k <= CableElectrodes; ++k)
    positions.at(k) = ASingolo(EstraiCampo(text, separator, Gettone(k)));
  return positions;
}

std::string ComponiStringaCavo(const std::array<float, CableElectrodes + 1>& positions) {
  std::string text = " C1 " + TestoConSegno(positions[C1]) + " C2 " + TestoConSegno(positions[C2]);
  for (std::size_t k = 1; k <= PotentialElectrodes; ++k) {
    text += " E" + std::to_string(k) + " " + TestoConSegno(positions.at(k));
  }
  return std::string(Rifila(text));
}

}  // namespace corvan

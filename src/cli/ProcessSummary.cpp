#include "cli/ProcessSummary.h"

#include <array>
#include <sstream>
#include <string_view>
#include <utility>

#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan::cli {
namespace {

std::string Metri(double value) { return FormattaNumero(value, "0.0##") + " m"; }

/// The limits in force with what each found.
std::vector<std::pair<std::string_view, std::size_t>> Conteggi(const Session& session) {
  const QualityLimits& limits = session.survey.qualita().limiti();
  const QualityResult& found = session.survey.qualita().risultato();
  const std::array<bool, LimitNames.size()> set{limits.corrente.has_value(),   limits.potenziale.has_value(),
                                                limits.deviazione.has_value(), limits.rhoMin || limits.rhoMax,
                                                limits.picchi.has_value(),     limits.negative};
  std::vector<std::pair<std::string_view, std::size_t>> counts;
  for (std::size_t k = 0; k < set.size(); ++k) {
    if (set.at(k)) counts.emplace_back(LimitNames.at(k), found.perLimite.at(k));
  }
  return counts;
}

std::string SommarioQualita(const Session& session) {
  const QualityResult& found = session.survey.qualita().risultato();
  std::string text =
      std::to_string(found.escluse) + " of " + Quanti(found.letture, "reading", "readings") + " excluded";
  const char* between = " (";
  for (const auto& [name, count] : Conteggi(session)) {
    text.append(between).append(name).append(" ").append(std::to_string(count));
    between = ", ";
  }
  return text + (*between == ',' ? ")" : "");
}

Json QualitaJson(const Session& session) {
  const QualityResult& found = session.survey.qualita().risultato();
  Json json = {{"readings", found.letture}, {"excluded", found.escluse}};
  for (const auto& [name, count] : Conteggi(session)) json["limits"][std::string(name)] = count;
  json["without_deviation"] = found.senzaDeviazione;
  json["without_neighbours"] = found.senzaVicini;
  json["excluded_by_hand"] = found.esclusaAMano;
  json["included_by_hand"] = found.inclusaAMano;
  return json;
}

}  // namespace

std::string SommarioTesto(const Session& session) {
  const Survey& survey = session.survey.dati();
  const TrackExtent& t = survey.traccia;
  std::ostringstream out;
  for (const FileSummary& file : survey.files) {
    out << Visibile(file.path.string()) << ": ";
    if (file.format.empty()) {
      out << "not read\n";
      continue;
    }
    out << file.format << ", " << file.bytes << " bytes, " << file.records
        << (file.format == "syscal" ? " record" : " line") << (file.records == 1 ? ", " : "s, ") << file.channels
        << (file.channels == 1 ? " channel, " : " channels, ") << file.firings
        << (file.firings == 1 ? " firing\n" : " firings\n");
  }
  out << "measurements  " << survey.NumMisure() << " (" << session.survey.fixes().discarded << " discarded, "
      << session.survey.fixes().interpolated << " interpolated)\n";
  out << "UTM zone      " << survey.settings.ZonaUTM << "\n";
  out << "resistivity   " << FormattaNumero(static_cast<double>(t.RhoMin), "0.0##") << " to "
      << FormattaNumero(static_cast<double>(t.RhoMax), "0.0##") << " ohm m\n";
  if (survey.qualita.inVigore()) out << "quality       " << SommarioQualita(session) << "\n";
  out << "track         " << Metri(t.Lunghezza) << ", mean spacing " << Metri(static_cast<double>(t.PassoMedio))
      << "\n";
  if (survey.tracciaEst.loaded) {
    out << "external GPS  " << survey.tracciaEst.NumGPSEst() << " fixes, mean spacing "
        << Metri(survey.tracciaEst.meanSpacing) << "\n";
  }
  if (const auto& link = session.track.timeLink()) {
    out << "linked        " << link->exact + link->between << " of " << survey.NumMisure() << " by time, "
        << link->outside << " outside the track, " << link->withoutTime << " without a time\n";
  }
  if (const auto& section = session.exporter.section()) {
    out << "section       " << section->from << " to " << section->to << ", " << section->points << " points, "
        << section->records << " records\n";
  }
  for (const auto& path : session.exporter.outputs()) out << "written       " << Visibile(path.string()) << "\n";
  return out.str();
}

Json SommarioJson(const Session& session, const std::vector<std::string>& messages) {
  const Survey& survey = session.survey.dati();
  const TrackExtent& t = survey.traccia;
  Json json;
  json["files"] = Json::array();
  for (const FileSummary& file : survey.files) {
    json["files"].push_back({{"name", file.path.string()},
                             {"format", file.format.empty() ? Json(nullptr) : Json(file.format)},
                             {"bytes", file.bytes},
                             {"record_length", file.recordLength},
                             {"records", file.records},
                             {"channels", file.channels},
                             {"firings", file.firings}});
  }
  json["measurements"] = survey.NumMisure();
  json["discarded"] = session.survey.fixes().discarded;
  json["interpolated"] = session.survey.fixes().interpolated;
  json["zone"] = survey.settings.ZonaUTM;
  json["rho_min"] = NumeroJson(t.RhoMin);
  json["rho_max"] = NumeroJson(t.RhoMax);
  if (survey.qualita.inVigore()) json["quality"] = QualitaJson(session);
  json["track_length"] = NumeroJson(t.Lunghezza);
  json["mean_spacing"] = NumeroJson(t.PassoMedio);
  if (survey.tracciaEst.loaded) {
    json["external_gps"] = {{"fixes", survey.tracciaEst.NumGPSEst()},
                            {"mean_spacing", NumeroJson(survey.tracciaEst.meanSpacing)}};
  }
  if (const auto& link = session.track.timeLink()) {
    json["link"] = {{"exact", link->exact},
                    {"between", link->between},
                    {"outside", link->outside},
                    {"farthest_seconds", link->farthest},
                    {"without_time", link->withoutTime}};
  }
  json["section"] = nullptr;
  if (const auto& section = session.exporter.section()) {
    json["section"] = {
        {"from", section->from}, {"to", section->to}, {"points", section->points}, {"records", section->records}};
  }
  json["outputs"] = Json::array();
  for (const auto& path : session.exporter.outputs()) json["outputs"].push_back(path.string());
  json["messages"] = messages;
  json["diagnostics"] = RilieviJson(session.findings());
  return json;
}

}  // namespace corvan::cli

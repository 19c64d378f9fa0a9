#include "session/TrackDesk.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "base/DateText.h"
#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/File.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "input/TrackFields.h"
#include "session/TrackFindings.h"
#include "track/TrackGrid.h"

namespace corvan {

TrackDesk::TrackDesk(Desk desk, Survey& survey, SetZone setZone)
    : desk_(std::move(desk)), survey_(survey), setZone_(std::move(setZone)) {}

bool TrackDesk::leggi(const std::filesystem::path& file) {
  if (file.empty()) return false;
  bool taken = false;
  Trappola(desk_.findings, "LeggiGPSEsterno", [&] {
    taken = leggiTraccia(file);
    if (taken) desk_.tell(Change::Track);
  });
  return taken;
}

/// @return false when the user gave up; then everything is as it was
bool TrackDesk::leggiTraccia(const std::filesystem::path& file) {
  const FileBytes bytes = LeggiTutto(file);
  const TrackKind kind = GenereTraccia(file.filename().string(), bytes.text());
  TrackOptions options{survey_.settings.layout, std::nullopt};
  TrackRead read = LeggiTraccia(kind, bytes.text(), options);
  const std::string title = file.filename().string();
  if (kind == TrackKind::Csv && !chiediZona(title)) return false;
  // A line end at the very end counts as one more line here: the question has always been asked so.
  const bool ended = bytes.text().ends_with('\n') || bytes.text().ends_with('\r');
  const bool few = kind == TrackKind::SixColumns && read.lines + (ended ? 1 : 0) < survey_.Misure.size();
  if (few && desk_.dialogs.MsgBox(
                 {Question::FewFixes, title + ": " + Quanti(read.fixes.size(), "fix", "fixes") + " for " +
                                          Quanti(survey_.Misure.size(), "measurement", "measurements")}) != Answer::Ok)
    return false;
  if (read.undated) {
    const std::string day = desk_.chiedi({.question = Question::TrackDate, .details = title});
    if (!Rifila(day).empty()) {
      options.firstDay = std::floor(DataDaTesto(day));
      read = LeggiTraccia(kind, bytes.text(), options);
    }
  }
  if (kind == TrackKind::Sav && read.fixes.size() >= 4) ricampiona(read, options, title);
  desk_.findings.add(read.findings, file);
  prendi(std::move(read.fixes), file.string());
  return true;
}

void TrackDesk::ricampiona(TrackRead& read, const TrackOptions& options, const std::string& title) {
  const std::string answer =
      desk_.chiedi({.question = Question::BezierPoints,
                    .details = title + ": " + Quanti(read.fixes.size(), "fix", "fixes") +
                               ". 2 or more points for each run of four; an empty answer keeps the fixes."});
  if (Rifila(answer).empty()) return;
  const auto count = NumeroDaCasella<std::int16_t>(answer, {"LeggiFileSav", "number of points"}, desk_.findings);
  if (count && *count >= 2) read.fixes = Ricampiona(read.fixes, *count, options.layout);
}

/// The zone of a survey that has none. @return false when the user gave up
bool TrackDesk::chiediZona(const std::string& title) {
  if (survey_.settings.ZonaUTM != 0) return true;
  const std::string answer = desk_.chiedi({.question = Question::TrackZone, .defaultAnswer = "32", .details = title});
  if (Rifila(answer).empty()) return false;
  const auto zone = NumeroDaCasella<std::int16_t>(answer, {"LeggiGPSEsterno", "zone"}, desk_.findings);
  if (zone) setZone_(*zone);
  return zone.has_value();
}

void TrackDesk::prendi(Array1<PuntoGPSEst> fixes, const std::string& name) {
  ExternalTrack& track = survey_.tracciaEst;
  track = ExternalTrack{};
  track.PuntiGPSEst = std::move(fixes);
  track.layout = survey_.settings.layout;
  track.loaded = true;
  name_ = name;
  allinea("LeggiGPSEsterno");
  if (track.PuntiGPSEst.empty()) {
    desk_.findings.fault("LeggiGPSEsterno", "holds no fix", name);
  } else if (survey_.Misure.empty()) {
    EstensioneDaTraccia(survey_);
  } else {
    RilevaDistanza("LeggiGPSEsterno", survey_, name_, desk_.findings);
  }
}

void TrackDesk::allinea(const char* procedure) {
  if (const std::size_t left = CollocaTraccia(survey_); left > 0) {
    desk_.findings.addUnaVolta(
        {Severity::Fault, procedure, name_, Quanti(left, "fix", "fixes") + " that cannot be converted left out"});
  }
}

std::optional<double> TrackDesk::chiediOrologio() {
  const std::optional<std::string> answer = desk_.dialogs.InputBox(
      {.question = Question::ClockOffset, .defaultAnswer = "0", .details = PercorsoDi(name_).filename().string()});
  if (!answer) return std::nullopt;
  if (Rifila(*answer).empty()) return 0.0;
  return NumeroDaCasella<double>(*answer, ClockBox, desk_.findings);
}

bool TrackDesk::collegaPerTempo(double clockOffset) {
  bool linked = false;
  Trappola(desk_.findings, "LinkDataGPST", [&] {
    allinea("LinkDataGPST");
    RilevaDistanza("LinkDataGPST", survey_, name_, desk_.findings);
    const TimeLink link = LinkDataGPST(survey_, clockOffset);
    if (!link.done) {
      desk_.findings.fault("LinkDataGPST", link.undated ? "no fix of the track has a date: nothing is linked by time"
                                                        : "no external track is loaded: nothing is linked");
      return;
    }
    timeLink_ = link;
    linked = true;
    RilevaTempi(link, survey_, desk_.findings);
    RilevaCollegamento("LinkDataGPST", link.notes, desk_.findings);
  });
  return linked;
}

void TrackDesk::rilevaNascosta() {
  desk_.findings.fault("LinkDataGPSP", survey_.tracciaEst.loaded
                                           ? "a link by time has put the external track away: nothing is linked"
                                           : "no external track is loaded: nothing is linked");
}

bool TrackDesk::collegaPerPosizione() {
  constexpr const char* procedure = "LinkDataGPSP";
  bool linked = false;
  Trappola(desk_.findings, procedure, [&] {
    if (numCollegamenti_ != 2) {
      desk_.rifiuta(procedure, Question::NoConnections);
      return;
    }
    allinea(procedure);
    RilevaDistanza(procedure, survey_, name_, desk_.findings);
    LinkNotes notes;
    switch (LinkDataGPSP(survey_, collegamenti_, notes)) {
      case PlaceLink::SomethingWrong:
        desk_.rifiuta(procedure, Question::SameFix);
        return;
      case PlaceLink::Nothing:
        desk_.findings.fault(procedure, MotivoNulla(survey_, collegamenti_) + ": nothing is linked");
        return;
      case PlaceLink::Linked:
        RilevaCollegamento(procedure, notes, desk_.findings);
        linked = true;
    }
  });
  return linked;
}

/// Counts a pick. @return false for the third, which clears both connections
bool TrackDesk::avanza(std::int32_t measurement) {
  if (numCollegamenti_ == 2) {
    numCollegamenti_ = 0;
    return false;
  }
  collegamenti_.measurement.at(static_cast<std::size_t>(numCollegamenti_)) = measurement;
  return true;
}

void TrackDesk::chiediConnessione(std::int32_t measurement) {
  Trappola(desk_.findings, "ptlbl_MouseDown", [&] {
    if (!avanza(measurement)) return;
    const std::string answer =
        desk_.chiedi({.question = Question::Connection,
                      .details = "Number of the fix, 1 to " + std::to_string(survey_.tracciaEst.NumGPSEst()) + " of " +
                                 PercorsoDi(name_).filename().string(),
                      .number = numCollegamenti_ + 1,
                      .measurement = measurement});
    if (Rifila(answer).empty()) return;
    const auto fix = NumeroDaCasella<std::int32_t>(answer, FixBox, desk_.findings);
    if (fix) connetti(measurement, *fix);
  });
}

void TrackDesk::connetti(std::int32_t measurement, std::int32_t fix) {
  if (!avanza(measurement)) return;
  const std::int32_t fixes = survey_.tracciaEst.NumGPSEst(), last = std::max(fixes, 1);
  const std::int32_t taken = std::clamp(fix, 1, last);
  collegamenti_.fix.at(static_cast<std::size_t>(numCollegamenti_++)) = taken;
  if (taken == fix || fixes == 0) return;
  desk_.findings.fault("ptlbl_MouseDown", "fix " + std::to_string(fix) + " is not 1 to " + std::to_string(last) + ": " +
                                              std::to_string(taken) + " is taken");
}

void TrackDesk::azzera() {
  numCollegamenti_ = 0;
  timeLink_.reset();
}

}  // namespace corvan

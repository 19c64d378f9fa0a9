// The external track: reading it, connecting measurements to fixes, the two links.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "base/DateText.h"
#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "geo/Plane.h"
#include "input/TrackFields.h"
#include "input/TrackFile.h"
#include "session/BoxNumbers.h"
#include "session/Session.h"
#include "survey/MeasurementText.h"
#include "track/TrackGrid.h"

namespace corvan {
namespace {

/// Nobody surveys so far from the boat that records the track, m.
constexpr double FarAway = 50'000.0;

std::string Secondi(double seconds) {
  if (seconds < 120.0) return TestoNumero(seconds) + " s";
  if (seconds < 7200.0) return TestoDecimi(seconds / 60.0) + " min";
  if (seconds < 172800.0) return TestoDecimi(seconds / 3600.0) + " h";
  return TestoDecimi(seconds / 86400.0) + " days";
}

/// "1 measurement lies", "3 measurements lie".
std::string Misurazioni(std::size_t count, const char* one, const char* many) {
  return Quanti(count, "measurement ", "measurements ") + (count == 1 ? one : many);
}

}  // namespace

void Session::LeggiGPSEsterno(const std::filesystem::path& fileName) {
  if (fileName.empty()) return;
  Trappola(findings_, "LeggiGPSEsterno", [&] {
    if (!leggiTraccia(fileName)) return;
    view_.MostraGPS2 = true;
    GeneraGPS(scene_, survey_);
    GeneraGPSD(scene_, survey_);
    ImpostaFinestra(view_, survey_.traccia);
    AggiornaZoom(view_);
    DisegnaImmagineQ();
  });
}

/// @return false when the user gave up; then everything is as it was
bool Session::leggiTraccia(const std::filesystem::path& fileName) {
  outputs_.proteggi(fileName);
  const FileBytes bytes = LeggiTutto(fileName);
  const TrackKind kind = GenereTraccia(fileName.filename().string(), bytes.text());
  TrackOptions options{survey_.settings.layout, std::nullopt};
  TrackRead read = LeggiTraccia(kind, bytes.text(), options);
  if (kind == TrackKind::Csv && !chiediZonaTraccia()) return false;
  // A line end at the very end counts as one more line here: the question has always been asked so.
  const bool ended = bytes.text().ends_with('\n') || bytes.text().ends_with('\r');
  const bool few = kind == TrackKind::SixColumns && read.lines + (ended ? 1 : 0) < survey_.Misure.size();
  if (few && dialogs_.MsgBox({"not enough GPS points", "", Buttons::OkCancel}) != Answer::Ok) return false;
  if (read.undated) {
    const std::string day = chiedi({DomandaData, "The log holds no date", ""});
    if (!Rifila(day).empty()) {
      options.firstDay = std::floor(DataDaTesto(day));
      read = LeggiTraccia(kind, bytes.text(), options);
    }
  }
  if (kind == TrackKind::Sav && read.fixes.size() >= 4) {
    const std::string answer = chiedi({"N Bezier Points", "Set the interpolation", ""});
    const auto count = Rifila(answer).empty()
                           ? std::nullopt
                           : NumeroDaCasella<std::int16_t>(answer, {"LeggiFileSav", "number of points"}, findings_);
    if (count && *count >= 2) read.fixes = Ricampiona(read.fixes, *count, options.layout);
  }
  findings_.add(read.findings, fileName);
  prendiTraccia(std::move(read.fixes), fileName.string());
  return true;
}

/// The zone of a survey that has none. @return false when the user gave up
bool Session::chiediZonaTraccia() {
  if (survey_.settings.ZonaUTM != 0) return true;
  const std::string answer = chiedi({"Set UTM zone", "Zone n.", "32"});
  if (Rifila(answer).empty()) return false;
  const auto zone = NumeroDaCasella<std::int16_t>(answer, {"LeggiGPSEsterno", "zone"}, findings_);
  if (zone) ImpostaZona(*zone);
  return zone.has_value();
}

void Session::prendiTraccia(Array1<PuntoGPSEst> fixes, const std::string& name) {
  ExternalTrack& track = survey_.tracciaEst;
  track = ExternalTrack{};
  track.PuntiGPSEst = std::move(fixes);
  track.layout = survey_.settings.layout;
  track.loaded = true;
  nomeTraccia_ = name;
  allineaTraccia("LeggiGPSEsterno");
  if (track.PuntiGPSEst.empty()) {
    findings_.fault("LeggiGPSEsterno", "holds no fix", name);
  } else if (survey_.Misure.empty()) {
    EstensioneDaTraccia(survey_);
  } else {
    rilevaDistanza("LeggiGPSEsterno");
  }
}

/// Nobody surveys so far from the boat that records the track.
void Session::rilevaDistanza(const char* procedure) {
  if (survey_.tracciaEst.PuntiGPSEst.empty() || GrigliaIgnota()) return;
  const double away = DistanzaDaTraccia(survey_);
  if (away <= FarAway) return;
  findings_.fault(
      procedure,
      "the track lies " + TestoNumero(std::round(away / 1000)) + " km from the survey (is the UTM zone right?)",
      nomeTraccia_);
}

/// No measurement has a position: the survey lies nowhere.
bool Session::GrigliaIgnota() const {
  return std::none_of(survey_.Misure.begin(), survey_.Misure.end(), [](const Misura& m) { return !m.SenzaFix; });
}

/// Brings the track onto the grid of the survey.
void Session::allineaTraccia(const char* procedure) {
  if (const std::size_t left = CollocaTraccia(survey_); left > 0) {
    findings_.fault(procedure, Quanti(left, "fix", "fixes") + " that cannot be converted left out", nomeTraccia_);
  }
}

void Session::LinkDataGPST(double clockOffset) {
  Trappola(findings_, "LinkDataGPST", [&] {
    allineaTraccia("LinkDataGPST");
    rilevaDistanza("LinkDataGPST");
    const TimeLink link = corvan::LinkDataGPST(survey_, clockOffset);
    if (!link.done) {
      findings_.fault("LinkDataGPST", link.undated ? "no fix of the track has a date: nothing is linked by time"
                                                   : "no external track is loaded: nothing is linked");
      return;
    }
    timeLink_ = link;
    rilevaTempi(link);
    rilevaCollegamento("LinkDataGPST", link.notes);
    view_.MostraGPS2 = false;
    renderer_.GpsNonVisibile();
    AnalisiFile();
    if (link.withoutTrack > 0) {
      ScartaSenzaTraccia(survey_);
      fixes_.discarded = survey_.Misure.size();
    }
    rifaiScena();
  });
}

/// What the measurements took from between the fixes, and what they did not.
void Session::rilevaCollegamento(const char* procedure, const LinkNotes& notes) {
  if (notes.keptDepth > 0) {
    findings_.note(procedure, Misurazioni(notes.keptDepth, "lies at a fix without a depth and kept its own",
                                          "lie at fixes without a depth and kept their own"));
  }
  if (notes.holes > 0) {
    findings_.note(procedure,
                   Misurazioni(notes.holes, "lies in a hole of the track of ", "lie in holes of the track of ") +
                       (notes.holes == 1 ? "" : "over 60 s, the longest of ") + Secondi(notes.longestHole) +
                       (notes.holes == 1 ? ": it was placed" : ": they were placed") + " on the straight line across");
  }
}

void Session::rilevaTempi(const TimeLink& link) {
  const std::string all = " of " + Quanti(survey_.Misure.size(), "measurement", "measurements");
  if (link.outside > 0) {
    findings_.fault("LinkDataGPST", std::to_string(link.outside) + all + (link.outside == 1 ? " lies" : " lie") +
                                        " outside the time of the track, by up to " + Secondi(link.farthest) +
                                        (link.outside == 1 ? ": it took" : ": they took") + " its first or last fix");
  }
  if (link.withoutTime > 0) {
    findings_.fault("LinkDataGPST", std::to_string(link.withoutTime) + all +
                                        (link.withoutTime == 1 ? " has no time and was" : " have no time and were") +
                                        " not linked");
  }
  if (link.withoutTrack > 0) {
    findings_.fault("LinkDataGPST", "the track holds no fix: all measurements are left out");
  }
}

void Session::LinkDataGPSP() {
  constexpr const char* procedure = "LinkDataGPSP";
  Trappola(findings_, procedure, [this] {
    if (!view_.MostraGPS2) {
      const bool hidden = survey_.tracciaEst.loaded;
      findings_.fault(procedure, hidden ? "a link by time has put the external track away: nothing is linked"
                                        : "no external track is loaded: nothing is linked");
      return;
    }
    if (numCollegamenti_ != 2) {
      rifiuta(procedure, "You must define two connection before link data and gps");
      return;
    }
    allineaTraccia(procedure);
    rilevaDistanza(procedure);
    LinkNotes notes;
    switch (corvan::LinkDataGPSP(survey_, collegamenti_, notes)) {
      case PlaceLink::SomethingWrong:
        rifiuta(procedure, "Something wrong");
        return;
      case PlaceLink::Nothing:
        findings_.fault(procedure, motivoNulla() + ": nothing is linked");
        return;
      case PlaceLink::Linked:
        rilevaCollegamento(procedure, notes);
        AnalisiFile();
        rifaiScena();
        return;
    }
  });
}

/// Why two connections lead nowhere.
std::string Session::motivoNulla() const {
  const std::int32_t fixes = survey_.tracciaEst.NumGPSEst(), measurements = survey_.NumMisure();
  if (fixes == 0) return "the track holds no fix";
  for (std::size_t k = 0; k < 2; ++k) {
    const std::int32_t measurement = collegamenti_.measurement.at(k), fix = collegamenti_.fix.at(k);
    const std::string name = "connection " + std::to_string(k + 1) + " names ";
    if (measurement < 1 || measurement > measurements) {
      return name + "measurement " + std::to_string(measurement) + ", the survey has " + std::to_string(measurements);
    }
    if (fix < 1 || fix > fixes) return name + "fix " + std::to_string(fix) + ", the track has " + std::to_string(fixes);
  }
  return "measurements " + std::to_string(collegamenti_.measurement[0]) + " and " +
         std::to_string(collegamenti_.measurement[1]) + " lie at one place";
}

/// Tells the user that a command is not carried out.
void Session::rifiuta(const char* procedure, const std::string& message) {
  findings_.fault(procedure, message);
  dialogs_.MsgBox({message, "", Buttons::Ok});
}

void Session::ptlbl_Collega(std::int32_t Index) {
  Trappola(findings_, "ptlbl_MouseDown", [this, Index] {
    if (!view_.MostraGPS2) return;
    if (++numCollegamenti_ > 2) {
      numCollegamenti_ = 0;
      return;
    }
    const auto slot = static_cast<std::size_t>(numCollegamenti_ - 1);
    collegamenti_.measurement.at(slot) = Index;
    const std::string answer = chiedi(
        {"Connection " + std::to_string(numCollegamenti_) + " (Data <--> GPS", "Data n." + std::to_string(Index), ""});
    if (Rifila(answer).empty()) {
      --numCollegamenti_;
      return;
    }
    const std::int32_t last = std::max(survey_.tracciaEst.NumGPSEst(), 1);
    const auto typed = NumeroDaCasella<std::int32_t>(answer, {"ptlbl_MouseDown", "fix"}, findings_);
    if (!typed) {
      --numCollegamenti_;
      return;
    }
    collegamenti_.fix.at(slot) = std::clamp(*typed, 1, last);
    if (*typed != collegamenti_.fix.at(slot) && survey_.tracciaEst.NumGPSEst() > 0) {
      findings_.fault("ptlbl_MouseDown", "fix " + std::to_string(*typed) + " is not 1 to " + std::to_string(last) +
                                             ": " + std::to_string(collegamenti_.fix.at(slot)) + " is taken");
    }
  });
}

void Session::gpslbl_Click(std::int32_t Index) {
  if (!survey_.tracciaEst.PuntiGPSEst.contains(static_cast<std::size_t>(Index)) || survey_.Misure.empty()) return;
  if (statoSelezione_ == 2) {
    azzeraSelezione();
    DisegnaImmagineQ();
    return;
  }
  const PuntoGPSEst& fix = survey_.tracciaEst.PuntiGPSEst(static_cast<std::size_t>(Index));
  std::int32_t nearest = 0;
  double best = std::numeric_limits<double>::infinity();
  for (std::size_t k = 1; k <= survey_.Misure.size(); ++k) {
    const Misura& m = survey_.Misure(k);
    if (!HaPosizione(m)) continue;
    const double distance = dist(m.UTMx, m.UTMy, fix.X, fix.Y);
    if (distance >= best) continue;
    best = distance;
    nearest = static_cast<std::int32_t>(k);
  }
  if (nearest == 0) return;
  ++statoSelezione_;
  pickedFixes_.push_back(Index);
  const bool first = statoSelezione_ == 1;
  std::string& box = first ? FrameExtrema.E1Txt : FrameExtrema.E2txt;
  TaggedLabel& label = first ? FrameExtrema.PrimoLbl : FrameExtrema.SecondoLbl;
  box = std::to_string(nearest);
  label.Caption = DescriviFix(survey_, static_cast<std::size_t>(Index));
  label.Tag.clear();
  DisegnaImmagineQ();
}

}  // namespace corvan

// The external track: reading it, connecting measurements to fixes, the two links.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "geo/Plane.h"
#include "input/TrackFile.h"
#include "session/Session.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

/// Nobody surveys so far from the boat that records the track, m.
constexpr double FarAway = 50'000.0;

/// Lines of a text, the empty one behind the last line end included.
std::size_t Pezzi(std::string_view content) {
  return static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n')) + 1;
}

std::string Secondi(double seconds) {
  if (seconds < 120.0) return TestoNumero(seconds) + " s";
  if (seconds < 7200.0) return FormattaNumero(seconds / 60.0, "0.#") + " min";
  if (seconds < 172800.0) return FormattaNumero(seconds / 3600.0, "0.#") + " h";
  return FormattaNumero(seconds / 86400.0, "0.#") + " days";
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
  if (kind == TrackKind::Csv && survey_.settings.ZonaUTM == 0) {
    const std::string answer = dialogs_.InputBox({"Set UTM zone", "Zone n.", "32"});
    if (Rifila(answer).empty()) return false;
    survey_.settings.ZonaUTM = AInt16(Val(answer));
  }
  if (kind == TrackKind::Csv) geo_.UTMzone(survey_.settings.ZonaUTM);
  const bool few = kind == TrackKind::SixColumns && Pezzi(bytes.text()) < survey_.Misure.size();
  if (few && dialogs_.MsgBox({"not enough GPS points", "", Buttons::OkCancel}) != Answer::Ok) return false;

  TrackRead read = LeggiTraccia(kind, bytes.text(), geo_, dialogs_);
  findings_.add(read.findings, fileName);
  ExternalTrack& track = survey_.tracciaEst;
  track.PuntiGPSEst = std::move(read.fixes);
  track.meanSpacing = CalcolaProgressiva(track.PuntiGPSEst);
  track.loaded = true;
  track.zone = geo_.UTMzone();
  track.layout = geo_.LatLonFormat();
  if (track.PuntiGPSEst.empty()) {
    findings_.fault("LeggiGPSEsterno", "holds no fix", fileName.string());
  } else if (survey_.Misure.empty()) {
    EstensioneDaTraccia(survey_);
  } else if (const double away = DistanzaDaTraccia(survey_); away > FarAway) {
    findings_.fault(
        "LeggiGPSEsterno",
        "the track lies " + TestoNumero(std::round(away / 1000)) + " km from the survey (is the UTM zone right?)",
        fileName.string());
  }
  return true;
}

/// Brings the track into the zone of the survey.
void Session::allineaTraccia() {
  ExternalTrack& track = survey_.tracciaEst;
  if (!track.loaded || geo_.UTMzone() == 0 || geo_.UTMzone() == track.zone) return;
  GeoGeo other(dialogs_);
  other.LatLonFormat(track.layout);
  other.UTMzone(geo_.UTMzone());
  for (PuntoGPSEst& fix : track.PuntiGPSEst) {
    other.Posizione(other.Gradi(fix.GeoA), other.Gradi(fix.GeoB));
    other.Nord(geo_.Nord());
    if (!other.Geo2UTM()) continue;
    fix.X = other.UTMx();
    fix.Y = other.UTMy();
  }
  track.meanSpacing = CalcolaProgressiva(track.PuntiGPSEst);
  track.zone = geo_.UTMzone();
}

void Session::LinkDataGPST(double clockOffset) {
  Trappola(findings_, "LinkDataGPST", [&] {
    allineaTraccia();
    const TimeLink link = corvan::LinkDataGPST(survey_, clockOffset);
    if (!link.done) return;
    timeLink_ = link;
    rilevaTempi(link);
    view_.MostraGPS2 = false;
    renderer_.GpsNonVisibile();
    AnalisiFile();
    if (link.withoutTrack > 0) ScartaSenzaTraccia(survey_);
    rifaiScena();
  });
}

void Session::rilevaTempi(const TimeLink& link) {
  const std::string all = " of " + std::to_string(survey_.NumMisure()) + " measurements ";
  if (link.outside > 0) {
    findings_.fault("LinkDataGPST", std::to_string(link.outside) + all +
                                        "lie outside the time of the track, by up to " + Secondi(link.farthest) +
                                        ": they took its first or last fix");
  }
  if (link.withoutTime > 0) {
    findings_.fault("LinkDataGPST", std::to_string(link.withoutTime) + all + "have no time and were not linked");
  }
  if (link.withoutTrack > 0) {
    findings_.fault("LinkDataGPST", "the track holds no fix: all measurements are left out");
  }
}

void Session::LinkDataGPSP() {
  Trappola(findings_, "LinkDataGPSP", [this] {
    if (!view_.MostraGPS2) return;
    if (numCollegamenti_ != 2) {
      dialogs_.MsgBox({"You must define two connection before link data and gps", "", Buttons::Ok});
      return;
    }
    allineaTraccia();
    switch (corvan::LinkDataGPSP(survey_, collegamenti_)) {
      case PlaceLink::SomethingWrong:
        dialogs_.MsgBox({"Something wrong", "", Buttons::Ok});
        return;
      case PlaceLink::Nothing:
        findings_.fault("LinkDataGPSP",
                        "the connections name a measurement or fix that does not exist, or two "
                        "measurements at one place: nothing is linked");
        return;
      case PlaceLink::Linked:
        AnalisiFile();
        rifaiScena();
        return;
    }
  });
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
    const std::string answer = dialogs_.InputBox(
        {"Connection " + std::to_string(numCollegamenti_) + " (Data <--> GPS", "Data n." + std::to_string(Index), ""});
    if (Rifila(answer).empty()) {
      --numCollegamenti_;
      return;
    }
    const std::int32_t last = std::max(survey_.tracciaEst.NumGPSEst(), 1);
    const std::int32_t typed = AInt32(Val(answer));
    collegamenti_.fix.at(slot) = std::clamp(typed, 1, last);
    if (typed != collegamenti_.fix.at(slot)) {
      findings_.fault("ptlbl_MouseDown", "fix " + std::to_string(typed) + " is not 1 to " + std::to_string(last) +
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

// Reading files and preparing the survey: the chain from the selected files to the analysed track.
#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "input/InputDriver.h"
#include "session/BoxNumbers.h"
#include "session/Session.h"
#include "track/Cable.h"
#include "track/FormatGuess.h"

namespace corvan {
namespace {

constexpr const char* BadPositions = "Some Data have incorrect GPS position";
constexpr const char* ZoneAssumed = "SelezionaZonaUTM";
constexpr std::int16_t DefaultZone = 32;

}  // namespace

Session::Session(Dialogs& dialogs, Clock clock) : dialogs_(dialogs), clock_(std::move(clock)) { Form_Load(); }

void Session::Form_Load() {
  FrameFileIn.DonelblVisible = false;
  FrameFileIn.LatLonCmbx = CoordinateEntry::DDMM;
  survey_.settings = Settings{};
  FrameDataMove = TranslationPanel{};
  AzzeraVista(view_);
  mostraAngoli();
  ImpostaZona(DefaultZone);
}

void Session::LoadFiles_Click() { FrameFileIn.visible = true; }

void Session::CancCmd_Click() { FrameFileIn.visible = false; }

void Session::ConvertAsciiCmd_Click() {
  findings_.clear();
  const CoordinateEntry chosen = FrameFileIn.LatLonCmbx;
  Form_Load();
  FrameFileIn.LatLonCmbx = chosen;  // the user's choices outlive the reset
  if (FrameFileIn.Option2) survey_.settings.filter = BadGps::Skip;
  if (FrameFileIn.Option3) survey_.settings.filter = BadGps::Interpolate;
  survey_.settings.CoordUTM = chosen == CoordinateEntry::UTM;
  survey_.settings.layout = opzioni().layout.value_or(AngleFormat::DMM_MMM);
  rangeTyped_ = false;
  BatOperation();
  if (!survey_.Misure.empty()) {
    stabilisciGriglia();
    CreaCavoDaMisure(survey_);
    RilevaCavo(survey_, findings_);
    AnalisiFile();
    rilevaLettura();
  } else {
    rifaiStrati();
  }
  azzeraSelezione();
  FrameExtrema.E1Txt = "1";
  FrameExtrema.E2txt = std::to_string(survey_.NumMisure());
  FrameExtrema.PrimoLbl.Caption = "Extreme 1";
  FrameExtrema.SecondoLbl.Caption = "Extreme 2";
  FrameFileIn.visible = FrameFileOut.visible = FrameExtrema.visible = false;
  rifaiScena();
}

ReadOptions Session::opzioni() const {
  ReadOptions options;
  options.span = FrameFileIn.pastGaps ? ReadSpan::PastLostFixes : ReadSpan::ToFirstLostFix;
  switch (FrameFileIn.LatLonCmbx) {
    case CoordinateEntry::DDMMSS:
      options.layout = AngleFormat::DMMSS;
      break;
    case CoordinateEntry::DDMM:
      options.layout = AngleFormat::DMM_MMM;
      break;
    case CoordinateEntry::DD:
      options.layout = AngleFormat::D_DDDD;
      break;
    case CoordinateEntry::UTM:
      options.layout.reset();
      break;
  }
  options.channels = [this](std::int32_t usual) {
    return dialogs_.InputBox({"Set Channel Number", "N. Channel", TestoNumero(static_cast<double>(usual))})
        .value_or("");
  };
  return options;
}

/// The one grid of the survey: of its first position, or of UTM files that of the start until a zone is stated.
void Session::stabilisciGriglia() {
  GridZone& grid = survey_.settings.griglia;
  grid = {DefaultZone, Hemisphere::North};
  if (survey_.settings.CoordUTM) {
    grid.hemisphere = FrameFileIn.south ? Hemisphere::South : Hemisphere::North;
  } else if (const std::optional<GridZone> first = GrigliaDelPrimoFix(survey_)) {
    grid = *first;
  }
  ImpostaZona(grid.zone);
}

/// What only the whole survey shows about how it was read.
void Session::rilevaLettura() {
  if (SenzaZona(survey_)) {
    findings_.note(ZoneAssumed, "UTM coordinates without a stated zone: zone " + std::to_string(DefaultZone) +
                                    " is assumed (\"Set UTM Zone\", --zone)");
  }
  RilevaFormato(survey_, findings_);
}

void Session::BatOperation() {
  survey_.Misure.clear();
  survey_.files.clear();
  survey_.file = CurrentFile{};
  survey_.traccia = TrackExtent{};
  fixes_ = TrackResult{};
  section_.reset();
  timeLink_.reset();
  numCollegamenti_ = 0;
  const ReadOptions options = opzioni();
  for (const auto& name : FrameFileIn.File1) {
    survey_.file.NomeFile = name;
    survey_.file.TitoloFile = name.filename().string();
    ++survey_.file.NumFile;
    outputs_.proteggi(name);
    dialogs_.Avanzamento({survey_.file.TitoloFile, survey_.files.size(), FrameFileIn.File1.size()});
    leggiFile(options);
  }
  dialogs_.Avanzamento({"", survey_.files.size(), FrameFileIn.File1.size()});
  FrameFileIn.Donelbl = "Read " + TestoConSegno(static_cast<double>(survey_.NumMisure())) + " meas.";
  FrameFileIn.DonelblVisible = true;
}

/// Appends what a file gives to the survey.
void Session::leggiFile(const ReadOptions& options) {
  CurrentFile& file = survey_.file;
  Trappola(findings_, "LeggiFile", [&] {
    FileRead report = LeggiFile(file.NomeFile, options);
    for (Misura& m : report.measurements) {
      if (!Vuota(m)) m.NumFile = file.NumFile;  // an empty firing names no file
      survey_.Misure.append(m);
    }
    findings_.add(report.findings, file.NomeFile);
    survey_.files.push_back(report.summary);
    if (report.summary.format.empty()) return;
    file.NumCanali = report.summary.channels;
    if (report.HeaderBin.empty()) return;
    file.LungRecord = static_cast<std::int16_t>(report.summary.recordLength);
    file.HeaderBin = std::move(report.HeaderBin);
  });
}

void Session::AnalisiFile() {
  Trappola(findings_, "AnalisiFile", [this] {
    fixes_ = corvan::AnalisiFile(survey_, findings_);
    if (!rangeTyped_) colours_ = ScalaDaDati(survey_.traccia.RhoMin, survey_.traccia.RhoMax);
    rifaiStrati();
  });
  if (fixes_.bad == 0 && fixes_.discarded == 0) return;
  if (fixes_.bad > 0 && survey_.settings.filter == BadGps::NoFilter) {
    InfoLbl.Caption = BadPositions;
    InfoLbl.Visible = true;
  }
  findings_.note("AnalisiFile",
                 std::string(BadPositions) + ": " + std::to_string(fixes_.bad) + " of " +
                     std::to_string(survey_.NumMisure()) + ", " + std::to_string(fixes_.discarded) + " discarded, " +
                     std::to_string(fixes_.interpolated) + " interpolated" +
                     (fixes_.empty > 0 ? ", " + std::to_string(fixes_.empty) + " without any reading" : ""));
}

/// Window and layers around the cells.
void Session::rifaiStrati() {
  allineaTraccia("AnalisiFile");
  ImpostaFinestra(view_, survey_.traccia);
  GeneraTraiettoria(scene_, survey_);
  GeneraContorno(scene_, survey_);
  GeneraEchoSounder(scene_, survey_);
  GeneraNordG(scene_, view_.Lato);
  AggiornaZoom(view_);
  GeneraGPS(scene_, survey_);
  GeneraGPSD(scene_, survey_);
  scene_.cable.clear();
}

void Session::ImpostaZona(std::int16_t zone) {
  survey_.settings.ZonaUTM = zone;
  survey_.settings.griglia.zone = std::clamp<std::int16_t>(zone, 1, 60);
  zona_ = InizializzaUTM(zone);
  InfoLbl.Caption = "WGS 84 - UTM " + std::to_string(zone);
}

void Session::CableConf_Click() {
  Trappola(findings_, "ModificaCavo", [this] {
    const std::string answer(Rifila(chiedi({"Set String", "Cable Configuration", survey_.cavo.StringaCavo})));
    if (answer.empty()) return;
    const std::size_t tokens = ContaCampi(answer, ScegliSeparatore(answer));
    if (tokens < 2 * CableElectrodes) {
      findings_.note("ModificaCavo", "the cable configuration has " + std::to_string(tokens) + " of " +
                                         std::to_string(2 * CableElectrodes) + " tokens, the missing positions are 0");
    }
    findings_.ritira("CreaCavoDaMisure");  // the cable that was typed holds for all
    rilevaGettoni(answer);
    survey_.cavo.PosCavo = LeggiStringaCavo(answer);
    survey_.cavo.StringaCavo = answer;
    AnalisiFile();
    rifaiScena();
  });
}

/// Tells of the places of a cable that are no numbers.
void Session::rilevaGettoni(const std::string& cable) {
  NumberCheck check;
  std::size_t k = 0;
  const std::string separator = ScegliSeparatore(cable);
  for (FieldCursor tokens(cable, separator); tokens.more() && k < 2 * CableElectrodes;) {
    const std::string_view token = tokens.next();
    if (++k % 2 == 0) check.leggi(token, 0, k);
  }
  if (check.count() > 0) findings_.note("ModificaCavo", check.detto());
}

void Session::SetUtmZone_Click() {
  Trappola(findings_, "SetUtmZone", [this] {
    const std::string answer =
        chiedi({"UTM Zone n. ", "Set Universal Trasverse Mercatore Zone", std::to_string(survey_.settings.ZonaUTM)});
    const std::optional<std::int16_t> typed =
        Rifila(answer).empty() ? std::optional(DefaultZone)
                               : NumeroDaCasella<std::int16_t>(answer, {"SetUtmZone", "zone"}, findings_);
    if (!typed) return;
    const std::int16_t zone = *typed;
    ImpostaZona(zone);
    const std::int16_t used = survey_.settings.griglia.zone;
    if (used != zone) {
      findings_.fault("SetUtmZone", "zone " + std::to_string(zone) +
                                        " is not 1 to 60: positions are computed in zone " + std::to_string(used));
    }
    findings_.ritira(ZoneAssumed);
    survey_.settings.CoordUTM = false;
    AnalisiFile();
    rifaiScena();
  });
}

void Session::SetRange_Click() {
  Trappola(findings_, "SetRange", [this] {
    constexpr Mask bound = "#####0.0#";
    const std::string range = FormattaNumero(static_cast<double>(colours_.ScalaMin), bound) + ";" +
                              FormattaNumero(static_cast<double>(colours_.ScalaMax), bound);
    const std::optional<std::string> answer = dialogs_.InputBox({"Scale (Min; Max)", "Set Colour Scale Range", range});
    if (!answer) return;
    if (Rifila(*answer).empty()) {
      rangeTyped_ = false;
      colours_ = ScalaDaDati(survey_.traccia.RhoMin, survey_.traccia.RhoMax);
    } else {
      const auto typed = CoppiaDaCasella<float>(*answer, {"SetRange", "range"}, findings_);
      if (!typed) return;
      colours_ = {typed->first, typed->second};
      rangeTyped_ = true;
    }
    DisegnaImmagineQ();
  });
}

}  // namespace corvan

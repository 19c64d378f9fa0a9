// Reading files and preparing the survey: the chain from the selected files to the analysed track.
#include <cmath>
#include <string>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "input/InputDriver.h"
#include "session/Session.h"
#include "track/Cable.h"
#include "track/UtmZone.h"

namespace corvan {
namespace {

constexpr const char* BadPositions = "Some Data have incorrect GPS position";
constexpr std::int16_t DefaultZone = 32;

}  // namespace

Session::Session(Dialogs& dialogs, Clock clock) : dialogs_(dialogs), clock_(std::move(clock)), geo_(dialogs) {
  Form_Load();
}

void Session::Form_Load() {
  FrameFileIn.DonelblVisible = false;
  FrameFileIn.LatLonCmbx = CoordinateEntry::DDMM;
  survey_.settings = Settings{};
  FrameDataMove = TranslationPanel{};
  AzzeraVista(view_);
  mostraAngoli();
  geo_.Reset();
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
  switch (chosen) {
    case CoordinateEntry::DDMMSS:
      geo_.LatLonFormat("DMMSS");
      break;
    case CoordinateEntry::DDMM:
      geo_.LatLonFormat("DMM.MMM");
      break;
    case CoordinateEntry::DD:
      geo_.LatLonFormat("D.DDDD");
      break;
    case CoordinateEntry::UTM:
      survey_.settings.CoordUTM = true;
      geo_.UTMzone(survey_.settings.ZonaUTM);
      geo_.Nord(!FrameFileIn.south);
      break;
  }
  BatOperation();
  if (!survey_.Misure.empty()) {
    CreaCavoDaMisure(survey_);
    AnalisiFile();
    colours_ = {survey_.traccia.RhoMin, survey_.traccia.RhoMax};
    if (chosen != CoordinateEntry::UTM) ImpostaZonaDaDati();
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

void Session::BatOperation() {
  survey_.Misure.clear();
  survey_.files.clear();
  survey_.file = CurrentFile{};
  survey_.traccia = TrackExtent{};
  fixes_ = TrackResult{};
  section_.reset();
  timeLink_.reset();
  numCollegamenti_ = 0;
  const ReadSpan span = FrameFileIn.pastGaps ? ReadSpan::PastLostFixes : ReadSpan::ToFirstLostFix;
  InputContext context{survey_, dialogs_, findings_, span};
  for (const auto& name : FrameFileIn.File1) {
    survey_.file.NomeFile = name;
    survey_.file.TitoloFile = name.filename().string();
    survey_.file.CanaliImpostati = 0;
    survey_.file.FileLetto = 0;
    ++survey_.file.NumFile;
    outputs_.proteggi(name);
    dialogs_.Avanzamento({survey_.file.TitoloFile, survey_.files.size(), FrameFileIn.File1.size()});
    LeggiFile(context);
  }
  dialogs_.Avanzamento({"", survey_.files.size(), FrameFileIn.File1.size()});
  FrameFileIn.Donelbl = "Read " + TestoConSegno(static_cast<double>(survey_.NumMisure())) + " meas.";
  FrameFileIn.DonelblVisible = true;
}

void Session::AnalisiFile() {
  Trappola(findings_, "AnalisiFile", [this] {
    fixes_ = corvan::AnalisiFile(survey_, geo_, findings_);
    rifaiStrati();
  });
  if (fixes_.bad == 0) return;
  if (survey_.settings.filter == BadGps::NoFilter) {
    InfoLbl.Caption = BadPositions;
    InfoLbl.Visible = true;
  }
  findings_.note("AnalisiFile", std::string(BadPositions) + ": " + std::to_string(fixes_.bad) + " of " +
                                    std::to_string(survey_.NumMisure()) + ", " + std::to_string(fixes_.discarded) +
                                    " discarded, " + std::to_string(fixes_.interpolated) + " interpolated");
}

/// Window and layers around the cells.
void Session::rifaiStrati() {
  allineaTraccia();
  ImpostaFinestra(view_, survey_.traccia);
  GeneraTraiettoria(scene_, survey_);
  GeneraContorno(scene_, survey_);
  GeneraEchoSounder(scene_, survey_);
  GeneraNordG(scene_, survey_, view_.Lato);
  AggiornaZoom(view_);
  GeneraGPS(scene_, survey_);
  GeneraGPSD(scene_, survey_);
  scene_.cable.clear();
}

/// The zone of the first position, in decimal degrees whatever the file's layout; 32 when there is none.
void Session::ImpostaZonaDaDati() {
  const std::int16_t used = geo_.UTMzone();
  const std::size_t first = PrimaPosizione(survey_);
  std::int16_t zone = DefaultZone;
  if (first > 0) {
    Trappola(findings_, "SelezionaZonaUTM",
             [&] { zone = SelezionaZonaUTM(ASingolo(geo_.Gradi(survey_.Misure(first).Lon))); });
  }
  const bool badPositions = InfoLbl.Caption == BadPositions;
  ImpostaZona(zone);
  geo_.UTMzone(zone);
  if (badPositions) InfoLbl.Caption = BadPositions;
  // The two ways to a zone part at its very border (180 degrees): positions and zone must not.
  if (geo_.UTMzone() != used) AnalisiFile();
}

void Session::ImpostaZona(std::int16_t zone) {
  survey_.settings.ZonaUTM = zone;
  zona_ = InizializzaUTM(zone);
  InfoLbl.Caption = "WGS 84 - UTM " + std::to_string(zone);
}

void Session::CableConf_Click() {
  Trappola(findings_, "ModificaCavo", [this] {
    const std::string answer(
        Rifila(dialogs_.InputBox({"Set String", "Cable Configuration", survey_.cavo.StringaCavo})));
    if (answer.empty()) return;
    const std::size_t tokens = ContaCampi(answer, ScegliSeparatore(answer));
    if (tokens < 2 * CableElectrodes) {
      findings_.note("ModificaCavo", "the cable configuration has " + std::to_string(tokens) + " of " +
                                         std::to_string(2 * CableElectrodes) + " tokens, the missing positions are 0");
    }
    survey_.cavo.PosCavo = LeggiStringaCavo(answer);
    survey_.cavo.StringaCavo = answer;
    AnalisiFile();
    rifaiScena();
  });
}

void Session::SetUtmZone_Click() {
  Trappola(findings_, "SetUtmZone", [this] {
    const std::string answer = dialogs_.InputBox(
        {"UTM Zone n. ", "Set Universal Trasverse Mercatore Zone", std::to_string(survey_.settings.ZonaUTM)});
    const std::int16_t zone = Rifila(answer).empty() ? DefaultZone : AInt16(Val(answer));
    ImpostaZona(zone);
    geo_.UTMzone(zone);
    if (geo_.UTMzone() != zone) {
      findings_.fault("SetUtmZone", "zone " + std::to_string(zone) +
                                        " is not 1 to 60: positions are computed in zone " +
                                        std::to_string(geo_.UTMzone()));
    }
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
    const std::string answer = dialogs_.InputBox({"Scale (Min; Max)", "Set Colour Scale Range", range});
    const std::size_t separator = answer.find(';');
    if (separator == std::string::npos) return;
    const ColourRange typed{ASingolo(Val(answer.substr(0, separator))), ASingolo(Val(answer.substr(separator + 1)))};
    colours_ = typed;
    DisegnaImmagineQ();
  });
}

}  // namespace corvan

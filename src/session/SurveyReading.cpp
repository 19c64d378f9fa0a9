// Reading files into the survey: the chain from the selected files to the analysed track.
#include <algorithm>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "input/InputDriver.h"
#include "session/SurveyDesk.h"
#include "track/Cable.h"
#include "track/FormatGuess.h"

namespace corvan {
namespace {

constexpr const char* UsualColumns = "a b m n r easting northing";
constexpr BoxNumber SpacingBox{"LeggiFileColonne", "electrode spacing", 1e-3, 1e5};  // m

}  // namespace

bool SurveyDesk::leggi() {
  desk_.findings.dimentica();
  columnsUsed_ = spacingUsed_ = false;
  Survey fresh;
  try {
    fresh = leggiTutti();
  } catch (const Interrotto&) {
    desk_.dialogs.Avanzamento({});
    desk_.findings.note("LeggiFile", "given up: the survey that was there stays");
    return false;
  }
  if (fresh.Misure.empty() && !FrameFileIn.File1.empty() && !survey_.Misure.empty()) {
    desk_.findings.fault("LeggiFile", "nothing could be read: the survey that was there stays");
    return false;
  }
  prendi(std::move(fresh));
  if (!survey_.Misure.empty()) {
    stabilisciGriglia();
    CreaCavoDaMisure(survey_);
    RilevaCavo(survey_, desk_.findings);
    analizza();
    rilevaLettura();
  } else {
    fixes_ = TrackResult{};
    colori_.segui();
    desk_.tell(Change::Analysis);
  }
  FrameFileIn.Donelbl = "Read " + TestoConSegno(static_cast<double>(survey_.NumMisure())) + " meas.";
  FrameFileIn.DonelblVisible = true;
  return true;
}

ReadOptions SurveyDesk::opzioni() const {
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
  return options;
}

Survey SurveyDesk::leggiTutti() {
  Survey survey;
  ReadOptions options = opzioni();
  options.channels = [this, &survey](std::int32_t usual) {
    return desk_.chiedi({.question = Question::ChannelNumber,
                         .defaultAnswer = TestoNumero(static_cast<double>(usual)),
                         .details = survey.file.TitoloFile});
  };
  options.columns = [this, &survey] { return chiediColonne(survey.file.TitoloFile); };
  options.spacing = [this, &survey](bool whole) { return chiediPasso(survey.file.TitoloFile, whole); };
  for (const auto& name : FrameFileIn.File1) {
    survey.file.NomeFile = name;
    survey.file.TitoloFile = name.filename().string();
    ++survey.file.NumFile;
    ProgressStep step{ProgressStep::Work::Reading, survey.file.TitoloFile, survey.files.size(),
                      FrameFileIn.File1.size()};
    const auto tell = [&] {
      if (!desk_.dialogs.Avanzamento(step)) throw Interrotto();
    };
    tell();
    options.progress = [&](std::size_t firings, std::size_t expected) {
      step.share = expected > 0 ? static_cast<double>(firings) / static_cast<double>(expected) : 0.0;
      tell();
    };
    leggiFile(survey, options);
  }
  desk_.dialogs.Avanzamento({});
  return survey;
}

/// The columns of a text without a header, as the panel or the user states them.
std::string SurveyDesk::chiediColonne(const std::string& title) {
  columnsUsed_ = true;
  return desk_.chiedi({.question = Question::ColumnNames,
                       .defaultAnswer = UsualColumns,
                       .details = title +
                                  " names no columns. r in ohm, or u (mV) and i (mA), or rhoa (ohm m); latitude "
                                  "and longitude, or easting and northing; depth, time, line; \"-\" for a "
                                  "column that is not read."});
}

/// What electrodes' numbers are multiplied with; none where they are places.
std::optional<double> SurveyDesk::chiediPasso(const std::string& title, bool whole) {
  spacingUsed_ = true;
  std::string answer = FrameFileIn.spacing;
  if (Rifila(answer).empty() && whole) {
    answer = desk_.chiedi({.question = Question::ElectrodeSpacing,
                           .details = title + ": electrodes look like numbers. Metres from one to the next; an empty "
                                              "answer takes them as places in metres."});
  }
  if (Rifila(answer).empty()) return std::nullopt;
  return NumeroDaCasella<double>(answer, SpacingBox, desk_.findings);
}

/// Appends what a file gives to the survey.
void SurveyDesk::leggiFile(Survey& survey, const ReadOptions& options) {
  CurrentFile& file = survey.file;
  Trappola(desk_.findings, "LeggiFile", [&] {
    FileRead report = LeggiFile(file.NomeFile, options);
    for (Misura& m : report.measurements) {
      if (!Vuota(m)) m.NumFile = file.NumFile;  // an empty firing names no file
      survey.Misure.append(m);
    }
    desk_.findings.add(report.findings, file.NomeFile);
    survey.files.push_back(report.summary);
    if (report.summary.format.empty()) return;
    file.NumCanali = report.summary.channels;
    if (report.HeaderBin.empty()) return;
    file.LungRecord = static_cast<std::int16_t>(report.summary.recordLength);
    file.HeaderBin = std::move(report.HeaderBin);
  });
}

/// The survey that was read takes the place of the one before; external track and typed cable are kept.
void SurveyDesk::prendi(Survey survey) {
  survey.tracciaEst = std::move(survey_.tracciaEst);
  survey.cavo = survey_.cavo;
  survey.qualita.limiti = survey_.qualita.limiti;
  survey_ = std::move(survey);
  azzera();
  desk_.tell(Change::Survey);
  survey_.settings.filter = FrameFileIn.filter;
  survey_.settings.CoordUTM = FrameFileIn.LatLonCmbx == CoordinateEntry::UTM;
  survey_.settings.layout = opzioni().layout.value_or(AngleFormat::DMM_MMM);
  desk_.history.vuota();
}

/// The one grid of the survey: of its first latitude and longitude; where there are eastings and northings alone that
/// of the start, until a zone is stated.
void SurveyDesk::stabilisciGriglia() {
  GridZone& grid = survey_.settings.griglia;
  grid = {DefaultZone, Hemisphere::North};
  if (const std::optional<GridZone> first = GrigliaDelPrimoFix(survey_)) {
    grid = *first;
  } else if (survey_.settings.CoordUTM || SenzaZona(survey_)) {
    grid.hemisphere = FrameFileIn.south ? Hemisphere::South : Hemisphere::North;
  }
  segnaZona(grid.zone);
  desk_.tell(Change::Label);
}

/// What only the whole survey shows about how it was read.
void SurveyDesk::rilevaLettura() {
  if (SenzaZona(survey_)) {
    desk_.findings.note("SelezionaZonaUTM", "UTM coordinates without a stated zone: zone " +
                                                std::to_string(survey_.settings.griglia.zone) +
                                                " is assumed (\"Set UTM Zone\", --zone)");
  }
  RilevaFormato(survey_, desk_.findings);
}

}  // namespace corvan

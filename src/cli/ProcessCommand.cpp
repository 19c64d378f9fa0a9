// corvan-cli process: the whole chain from survey files to a written section.
#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Clock.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "cli/Commands.h"
#include "cli/ProcessOptions.h"
#include "cli/ProcessSummary.h"
#include "cli/Report.h"
#include "cli/ScriptedDialogs.h"
#include "cli/Toolkit.h"
#include "session/Caption.h"
#include "session/Session.h"

namespace corvan::cli {
namespace {

constexpr std::array<std::pair<const char*, bool OutputPanel::*>, 10> FormatBoxes{
    {{"bin", &OutputPanel::BinChk},
     {"txt", &OutputPanel::TxtChk},
     {"ecs", &OutputPanel::EchoZChk},
     {"kml", &OutputPanel::KMLchk},
     {"ert", &OutputPanel::ErtChk},
     {"bottom", &OutputPanel::BottomChk},
     {"res2dinv", &OutputPanel::Res2dinvChk},
     {"gpkg", &OutputPanel::GpkgChk},
     {"geojson", &OutputPanel::GeojsonChk},
     {"vtu", &OutputPanel::VtuChk}}};

void PreparaRisposte(ScriptedDialogs& dialogs, const ProcessOptions& options) {
  if (!options.channels.empty()) dialogs.answer(Question::ChannelNumber, options.channels);
  if (!options.columns.columns.empty()) dialogs.answer(Question::ColumnNames, options.columns.columns);
  dialogs.answer(Question::UtmZone, options.zone);
  dialogs.answer(Question::ColourRange, options.colours.range);
  if (!options.trackDate.empty()) dialogs.answer(Question::TrackDate, options.trackDate);
}

/// What the questions for the offsets are answered: what was typed, else what a project says.
void RispondiAgliOffset(ScriptedDialogs& dialogs, const Session& session, const ProcessOptions& options) {
  const auto answer = [&dialogs](Question question, const std::string& typed, const std::string& otherwise) {
    dialogs.answer(question, typed.empty() ? otherwise : typed);
  };
  answer(Question::CableOffset, options.cableOffset, TestoNumero(session.exporter.offsetCavo()));
  answer(Question::EchoOffset, options.echoOffset, TestoNumero(session.exporter.offsetEco()));
  answer(Question::KmlOffset, options.kmlOffset, session.exporter.quotaKml());
}

/// The root of the output names; a folder alone is where the files of the default name go.
std::string Radice(const Session& session, const ProcessOptions& options) {
  const std::vector<std::filesystem::path>& files = session.survey.FrameFileIn.File1;
  const std::string usual = (files.empty() ? std::string() : files.front().stem().string()) + "_section";
  if (!FinisceInCartella(options.out)) return options.out;
  return (PercorsoDi(options.out) / PercorsoDi(usual)).string();
}

/// Changes the choices of a reading to those that were typed.
void CambiaLettura(InputPanel& in, const ProcessOptions& options) {
  in.LatLonCmbx = options.coords.value_or(in.LatLonCmbx);
  in.filter = options.badGps.value_or(in.filter);
  in.pastGaps = in.pastGaps || options.pastGaps;
  in.south = in.south || options.south;
  if (!options.columns.spacing.empty()) in.spacing = options.columns.spacing;
  if (options.files.empty()) return;
  in.File1.clear();
  for (const std::string& file : options.files) in.File1.push_back(PercorsoDi(file));
}

/// The boxes of "File Out": those of a project, changed to what was typed.
OutputPanel Uscite(const Session& session, const ProcessOptions& options) {
  OutputPanel out = session.exporter.FrameFileOut;
  if (!options.formats.empty()) {
    for (const auto& [word, box] : FormatBoxes) out.*box = options.writes(word);
  } else if (options.project.open.empty()) {
    out.BinChk = true;
  }
  if (!options.ertDimension.empty()) out.Ert3DChk = options.ertDimension == "3";
  if (!options.kmlPositions.empty()) out.KmlExactChk = options.kmlPositions == "exact";
  out.TruePosChk = out.TruePosChk || options.truePosition;
  out.ExtGPSChk = out.ExtGPSChk || options.externalGps;
  ImpostaCavo(out, options.geometry);
  if (!options.out.empty() || options.project.open.empty()) out.FileOutTxt = Radice(session, options);
  return out;
}

/// Pictures and the table, likewise.
OtherOutputs Altre(const Session& session, const ProcessOptions& options) {
  OtherOutputs other = session.exporter.altre;
  if (!options.formats.empty()) other.csv = options.writes("csv");
  if (!options.picture.file.empty()) other.picture = PercorsoDi(options.picture.file);
  if (!options.section.file.empty()) other.section = PercorsoDi(options.section.file);
  if (!options.picture.size.empty()) other.size = options.picture.size;
  other.caption = other.caption && !options.picture.noCaption;
  return other;
}

/// The two halves of "E,N".
void Trasla(Session& session, const std::string& shift, Translation east, Translation north) {
  if (shift.empty()) return;
  const std::size_t comma = shift.find(',');
  for (const auto& [what, text] :
       {std::pair(east, shift.substr(0, comma)), std::pair(north, shift.substr(comma + 1))}) {
    const auto metres = NumeroDaCasella<double>(text, CasellaDi(what), session.findings());
    if (metres) session.translations.trasla(what, *metres);
  }
}

void Connetti(Session& session, const ProcessOptions& options) {
  if (!session.view.state().layers.MostraGPS2) return;  // no track: the link tells
  for (const std::string& connection : options.connections) {
    const std::size_t colon = connection.find(':');
    const auto fix = NumeroDaCasella<std::int32_t>(connection.substr(colon + 1), FixBox, session.findings());
    if (fix) session.track.connetti(static_cast<std::int32_t>(Val(connection.substr(0, colon))), *fix);
  }
}

void CollegaTraccia(Session& session, const ScriptedDialogs& dialogs, const ProcessOptions& options) {
  if (!options.gps.empty()) session.leggiTraccia(PercorsoDi(options.gps));
  if (!options.trackDate.empty() && !dialogs.asked(Question::TrackDate)) {
    session.findings().note("LeggiGPSEsterno", "--track-date is not used: the track tells its own dates");
  }
  if (options.link == "time") session.collegaPerTempo(Val(options.clockOffset));
  if (options.link != "position") return;
  Connetti(session, options);
  session.collegaPerPosizione();
}

void FaiImmagini(Session& session, const ProcessOptions& options, const OtherOutputs& other) {
  if (other.picture.empty() && other.section.empty()) return;
  const Toolkit toolkit;
  PictureOptions picture = options.picture;
  picture.file = other.picture.string();
  picture.size = other.size.empty() ? UsualSize : other.size;
  picture.noCaption = !other.caption;
  if (options.project.open.empty() && picture.layers.empty()) picture.layers = UsualLayers;
  FaiImmagine(session, picture);
  const Caption caption = picture.noCaption ? Caption() : DidascaliaRilievo(session.survey.dati());
  SectionPictureOptions section = options.section;
  section.file = other.section.string();
  const double offset = options.cableOffset.empty() ? session.exporter.offsetCavo() : Val(options.cableOffset);
  FaiSezionePiana(session, section, {picture.size, caption, offset});
}

/// The cable and the zone that were typed.
void ImpostaCavoEZona(Session& session, const ProcessOptions& options) {
  const std::string cable(Rifila(options.cable));
  if (!cable.empty()) session.survey.impostaCavo(cable);
  if (!options.zone.empty()) session.survey.chiediZona();
}

/// Reads what is asked for, from files or a project. @return false when there is nothing to go on with
bool Leggi(Session& session, const ProcessOptions& options) {
  if (options.project.open.empty()) {
    CambiaLettura(session.survey.FrameFileIn, options);
    session.leggi();
    ImpostaCavoEZona(session, options);
    return true;
  }
  std::optional<Project> project = session.leggiProgetto(PercorsoDi(options.project.open));
  if (!project) return false;
  const Said said{!Rifila(options.cable).empty(), !options.zone.empty(), !options.gps.empty(), !options.link.empty()};
  const auto change = [&options](ReadAct& reading) {
    if (!options.files.empty()) reading.answers.clear();
    const auto typed = [&options](const GivenAnswer& a) {
      return (a.question == Question::ChannelNumber && !options.channels.empty()) ||
             (a.question == Question::ColumnNames && !options.columns.columns.empty());
    };
    std::erase_if(reading.answers, typed);
    CambiaLettura(reading.in, options);
  };
  RifaiAtti(session, *project, said, change, [&] { ImpostaCavoEZona(session, options); });
  project->limits = LimitiDi(options.quality, project->limits);
  session.riprendi(*project);
  return true;
}

/// The run as a project: without the extremes that nobody asked for.
void SalvaProgetto(Session& session, const ProcessOptions& options, const std::optional<std::int32_t>& first,
                   const std::optional<std::int32_t>& second) {
  if (options.project.save.empty()) return;
  Project project = session.progetto();
  project.from = first;
  project.to = second;
  session.salvaProgetto(PercorsoDi(options.project.save), project);
}

/// Writes what is asked for.
void Scrivi(Session& session, ScriptedDialogs& dialogs, const ProcessOptions& options) {
  RispondiAgliOffset(dialogs, session, options);
  const OutputPanel output = session.exporter.FrameFileOut = Uscite(session, options);
  const OtherOutputs other = session.exporter.altre = Altre(session, options);
  ImpostaColori(session, options.colours,
                !other.picture.empty() || !other.section.empty() || output.KMLchk || output.GpkgChk);
  if (other.csv) session.exporter.tabella(output.FileOutTxt);
  // Pictures mark the extremes that were asked for; those of the whole survey would tell nothing.
  if (options.from) session.selection.imposta(Extreme::First, *options.from);
  if (options.to) session.selection.imposta(Extreme::Second, *options.to);
  const auto first = session.selection.primo(), second = session.selection.secondo();
  FaiImmagini(session, options, other);
  if (!first && !options.from) session.selection.imposta(Extreme::First, 1);
  if (!second && !options.to) session.selection.imposta(Extreme::Second, session.survey.dati().NumMisure());
  session.salvaEstratto(output);
  SalvaProgetto(session, options, first, second);
}

int Esegui(const ProcessOptions& options) {
  ScriptedDialogs dialogs;
  PreparaRisposte(dialogs, options);
  Session session(dialogs, Adesso);
  if (Leggi(session, options)) {
    RilevaColonne(options.columns, {session.survey.colonneChieste(), session.survey.passoChiesto()},
                  session.findings());
    const bool utm = session.survey.FrameFileIn.LatLonCmbx == CoordinateEntry::UTM;
    if (options.south && !utm && !SenzaZona(session.survey.dati())) {
      session.findings().note("ConvertAsciiCmd_Click", "--south is not used: latitudes tell their own hemisphere");
    }
    CollegaTraccia(session, dialogs, options);
    session.survey.qualita().imposta(LimitiDi(options.quality, session.survey.qualita().limiti()));
    Trasla(session, options.dataShift, Translation::DataEast, Translation::DataNorth);
    Trasla(session, options.depthShift, Translation::DepthEast, Translation::DepthNorth);
    Scrivi(session, dialogs, options);
  }
  StampaRilievi(session.findings());
  std::cout << (options.json ? TestoJson(SommarioJson(session, dialogs.messages())) : SommarioTesto(session));
  return session.findings().anyFault() ? NotAllDone : AllDone;
}

}  // namespace

void AggiungiProcess(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand("process", "Read survey files, analyse the track and write a section");
  const auto options = std::make_shared<ProcessOptions>();
  AggiungiOpzioni(*command, *options);
  command->callback([options, &work] {
    Verifica(*options);
    work = [options] { return Esegui(*options); };
  });
}

}  // namespace corvan::cli
// corvan-cli process: the whole chain from survey files to a written section.
#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Clock.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "cli/CableOptions.h"
#include "cli/ColourOptions.h"
#include "cli/ColumnOptions.h"
#include "cli/Commands.h"
#include "cli/PictureOptions.h"
#include "cli/ProcessSummary.h"
#include "cli/ProjectOptions.h"
#include "cli/QualityOptions.h"
#include "cli/Report.h"
#include "cli/ScriptedDialogs.h"
#include "cli/SectionPictureOptions.h"
#include "cli/Toolkit.h"
#include "cli/Validators.h"
#include "session/Caption.h"
#include "session/Session.h"

namespace corvan::cli {
namespace {

constexpr double MostSeconds = 4e9;  // over the 120 years that a measurement's time may lie in

const std::vector<std::string> Formats{"bin",    "txt",      "ecs",  "kml",     "csv", "ert",
                                       "bottom", "res2dinv", "gpkg", "geojson", "vtu"};

/// The box of "File Out" for each of them but the table, which has none.
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

/// The options as typed; texts that answer a question are handed on unread.
struct ProcessOptions {
  std::vector<std::string> files;
  std::optional<CoordinateEntry> coords;
  std::optional<BadGps> badGps;
  std::string channels;
  bool pastGaps = false;
  std::string cable;
  std::string zone;
  bool south = false;
  ColumnOptions columns;
  std::optional<std::int32_t> from;
  std::optional<std::int32_t> to;
  bool truePosition = false;
  bool externalGps = false;
  CableOptions geometry;
  std::string cableOffset, echoOffset, kmlOffset;  ///< empty: not typed
  std::string out;
  std::string formats;  ///< empty: not typed
  ColourOptions colours;
  std::string dataShift;
  std::string depthShift;
  PictureOptions picture;
  SectionPictureOptions section;
  QualityOptions quality;
  std::string gps;
  std::string link;
  std::string clockOffset;
  std::string trackDate;
  std::vector<std::string> connections;  ///< "M:G"
  std::string ertDimension;
  std::string kmlPositions;
  ProjectOptions project;
  bool json = false;

  /// A format is asked for by the command line.
  bool writes(const std::string& format) const {
    const std::vector<std::string> chosen = Voci(formats);
    return std::find(chosen.begin(), chosen.end(), format) != chosen.end();
  }
};

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
  return (std::filesystem::path(options.out) / usual).string();
}

/// Changes the choices of a reading to those that were typed.
void CambiaLettura(InputPanel& in, const ProcessOptions& options) {
  in.LatLonCmbx = options.coords.value_or(in.LatLonCmbx);
  in.filter = options.badGps.value_or(in.filter);
  in.pastGaps = in.pastGaps || options.pastGaps;
  in.south = in.south || options.south;
  if (!options.columns.spacing.empty()) in.spacing = options.columns.spacing;
  if (!options.files.empty()) in.File1.assign(options.files.begin(), options.files.end());
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
  if (!options.picture.file.empty()) other.picture = options.picture.file;
  if (!options.section.file.empty()) other.section = options.section.file;
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
  if (!options.gps.empty()) session.leggiTraccia(options.gps);
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
  std::optional<Project> project = session.leggiProgetto(options.project.open);
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
  session.salvaProgetto(options.project.save, project);
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

void AggiungiLettura(CLI::App& command, ProcessOptions& o) {
  command
      .add_option("files", o.files, "Survey files: Syscal binaries, text exports or column texts, read in this order")
      ->type_name("FILE");
  const std::map<std::string, CoordinateEntry> coords{{"ddmmss", CoordinateEntry::DDMMSS},
                                                      {"ddmm", CoordinateEntry::DDMM},
                                                      {"dd", CoordinateEntry::DD},
                                                      {"utm", CoordinateEntry::UTM}};
  command.add_option("--coords", o.coords, "Coordinate format of the files (default ddmm)")
      ->transform(CLI::Transformer(coords))
      ->type_name("ddmmss|ddmm|dd|utm");
  const std::map<std::string, BadGps> filters{
      {"none", BadGps::NoFilter}, {"skip", BadGps::Skip}, {"interpolate", BadGps::Interpolate}};
  command
      .add_option("--bad-gps", o.badGps,
                  "Measurements without a fix: keep, leave out, or place between their neighbours (default none)")
      ->transform(CLI::Transformer(filters))
      ->type_name("none|skip|interpolate");
  command
      .add_option("--channels", o.channels,
                  "Channels per firing, where the file leaves them open (default: as counted)")
      ->check(Numero())
      ->type_name("N");
  command.add_flag("--past-gaps", o.pastGaps, "Read past lost fixes to the last positioned record");
  command.add_option("--cable", o.cable, "Cable configuration, e.g. \"C1 55 C2 60 E1 50 E2 45 ... E11 0\"")
      ->type_name("TEXT");
  command.add_option("--zone", o.zone, "UTM zone (default: that of the first fix; 32 for UTM files)")
      ->check(Numero())
      ->type_name("N");
  command.add_flag("--south", o.south, "UTM files: the southern hemisphere");
}

void AggiungiSezione(CLI::App& command, ProcessOptions& o) {
  command.add_option("--from", o.from, "First measurement of the section (default: the first)")->type_name("I");
  command.add_option("--to", o.to, "Last measurement of the section (default: the last)")->type_name("J");
  command.add_flag("--true-position", o.truePosition, "Move positions from the GPS back to the current dipole");
  command.add_flag("--external-gps", o.externalGps, "Take linked external positions as true ones");
  command
      .add_option("--cable-offset", o.cableOffset,
                  "Distance of the first floating electrode from the Syscal, m (default 0)")
      ->check(Numero())
      ->type_name("M");
  command.add_option("--echo-offset", o.echoOffset, "Distance of the echo sounder from the Syscal, m (default 0)")
      ->check(Numero())
      ->type_name("M");
  command.add_option("--kml-offset", o.kmlOffset, "Metres added to every altitude of the .kml")->type_name("TEXT");
  command.add_option("--data-shift", o.dataShift, "Translation of the data in the view, m")
      ->check(Coppia())
      ->type_name("E,N");
  command.add_option("--depth-shift", o.depthShift, "Translation of the echo-sounder profile in the view, m")
      ->check(Coppia())
      ->type_name("E,N");
}

/// Options of one link are a mistake beside another: they would do nothing, and nobody would hear of it.
void Verifica(const ProcessOptions& o) {
  if (o.files.empty() && o.project.open.empty()) throw CLI::RequiredError("files (or --project)");
  if (!o.link.empty() && o.gps.empty() && o.project.open.empty()) throw CLI::RequiresError("--link", "--gps");
  if (!o.clockOffset.empty() && o.link != "time") throw CLI::RequiresError("--clock-offset", "--link time");
  Verifica(o.geometry);
  if (!o.connections.empty() && o.link != "position") throw CLI::RequiresError("--connect", "--link position");
  const bool asProject = !o.project.open.empty() && o.formats.empty();
  if (!o.ertDimension.empty() && !asProject && !o.writes("ert"))
    throw CLI::RequiresError("--ert-dimension", "--format ert");
  if (!o.kmlPositions.empty() && !asProject && !o.writes("kml"))
    throw CLI::RequiresError("--kml-positions", "--format kml");
}

void AggiungiTraccia(CLI::App& command, ProcessOptions& o) {
  CLI::Option* gps =
      command
          .add_option("--gps", o.gps,
                      "External GPS and depth track: an NMEA log, GPX, six columns or a table, told by content")
          ->type_name("FILE");
  command.add_option("--link", o.link, "Link the data to the external track")
      ->check(Elenco({"time", "position"}))
      ->type_name("time|position");
  command.add_option("--clock-offset", o.clockOffset, "Seconds added to the measurements' times before a link by time")
      ->check(NumeroEntro(MostSeconds))
      ->type_name("S");
  command.add_option("--track-date", o.trackDate, "Day of the first fix of an NMEA log that holds no date")
      ->check(Giorno())
      ->needs(gps)
      ->type_name("YYYY-MM-DD");
  command
      .add_option("--connect", o.connections, "A measurement and the fix at its place; twice for a link by position")
      ->check(Collegamento())
      ->expected(2)
      ->type_name("M:G");
}

void AggiungiUscita(CLI::App& command, ProcessOptions& o) {
  command
      .add_option("--out", o.out,
                  "Root of the output names, or a folder ending in / (default: first file's name with _section behind)")
      ->type_name("ROOT");
  command
      .add_option("--format", o.formats,
                  "Comma-separated list of " + CLI::detail::join(Formats, ", ") + " (default bin)")
      ->check(Elenco(Formats))
      ->type_name("LIST");
  command
      .add_option("--ert-dimension", o.ertDimension,
                  "Electrodes of the unified data file along the section (2, the default) or on the map (3)")
      ->check(CLI::IsMember({"2", "3"}))
      ->type_name("2|3");
  command
      .add_option("--kml-positions", o.kmlPositions,
                  "Coordinates of the .kml: by the series of earlier files (given, the default) or exact")
      ->check(CLI::IsMember({"given", "exact"}))
      ->type_name("given|exact");
  command.add_flag("--json", o.json, "Print the summary as one JSON object");
}

}  // namespace

void AggiungiProcess(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand("process", "Read survey files, analyse the track and write a section");
  const auto options = std::make_shared<ProcessOptions>();
  AggiungiLettura(*command, *options);
  AggiungiColonne(*command, options->columns);
  AggiungiSezione(*command, *options);
  AggiungiCavo(*command, options->geometry);
  AggiungiUscita(*command, *options);
  AggiungiImmagine(*command, options->picture);
  AggiungiColori(*command, options->colours);
  AggiungiQualita(*command, options->quality);
  AggiungiSezionePiana(*command, options->section);
  AggiungiTraccia(*command, *options);
  AggiungiProgetto(*command, options->project);
  command->callback([options, &work] {
    Verifica(*options);
    work = [options] { return Esegui(*options); };
  });
}

}  // namespace corvan::cli

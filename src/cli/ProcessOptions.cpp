#include "cli/ProcessOptions.h"

#include <algorithm>
#include <map>

#include "cli/Validators.h"

namespace corvan::cli {
namespace {

constexpr double MostSeconds = 4e9;  // over the 120 years that a measurement's time may lie in

const std::vector<std::string> Formats{"bin",    "txt",      "ecs",  "kml",     "csv", "ert",
                                       "bottom", "res2dinv", "gpkg", "geojson", "vtu"};

void AggiungiLettura(CLI::App& command, ProcessOptions& o) {
  command
      .add_option("files", o.files, "Survey files: Syscal binaries, text exports or column texts, read in this order")
      ->check(Offre("endings", SurveyEndings))
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

void AggiungiTraccia(CLI::App& command, ProcessOptions& o) {
  CLI::Option* gps =
      command
          .add_option("--gps", o.gps,
                      "External GPS and depth track: an NMEA log, GPX, six columns or a table, told by content")
          ->type_name("FILE");
  command.add_option("--link", o.link, "Link the data to the external track")
      ->check(Parola({"time", "position"}))
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
      ->check(Offre("folders", {}))
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

bool ProcessOptions::writes(const std::string& format) const {
  const std::vector<std::string> chosen = Voci(formats);
  return std::find(chosen.begin(), chosen.end(), format) != chosen.end();
}

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

void AggiungiOpzioni(CLI::App& command, ProcessOptions& options) {
  AggiungiLettura(command, options);
  AggiungiColonne(command, options.columns);
  AggiungiSezione(command, options);
  AggiungiCavo(command, options.geometry);
  AggiungiUscita(command, options);
  AggiungiImmagine(command, options.picture);
  AggiungiColori(command, options.colours);
  AggiungiQualita(command, options.quality);
  AggiungiSezionePiana(command, options.section);
  AggiungiTraccia(command, options);
  AggiungiProgetto(command, options.project);
}

}  // namespace corvan::cli

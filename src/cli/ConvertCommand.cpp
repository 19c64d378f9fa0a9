// corvan-cli convert: coordinates from standard input to standard output.
#include <cmath>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/ScriptedDialogs.h"
#include "cli/Validators.h"
#include "geo/GeoGeo.h"

namespace corvan::cli {
namespace {

struct ConvertOptions {
  bool toUtm = false;
  bool toGeo = false;
  bool datums = false;
  std::string datum = "WGS84";
  std::string format = "dmm.mmm";
  std::optional<int> zone;
  bool south = false;
};

constexpr Mask Metres = "0.0000";

std::vector<std::string> Parole(const std::string& line) {
  std::istringstream words(line);
  std::vector<std::string> out;
  for (std::string word; words >> word;) out.push_back(word);
  return out;
}

/// Takes only numbers from end to end: one cut short would be another place.
void Controlla(const std::string& word, const std::string& number) {
  if (!SoloNumero(number)) throw RunTimeError(Citazione(word) + " is not a number");
}

/// An angle as its layouts read it: degree and minute marks are passed over, a comma is the decimal point.
void ControllaAngolo(const std::string& word) {
  std::string clean = word;
  for (const char* mark : {"\xC2\xB0", "\xB0", "'"}) clean = Senza(clean, mark);
  if (const std::size_t comma = clean.find(','); comma != std::string::npos) clean[comma] = '.';
  Controlla(word, clean);
}

/// One run: the zone and hemisphere of the first position hold for all.
class Converter {
 public:
  Converter(const ConvertOptions& options, Dialogs& dialogs) : toUtm_(options.toUtm), geo_(dialogs) {
    geo_.Datum(options.datum);
    geo_.LatLonFormat(options.format);
    if (options.zone) geo_.UTMzone(static_cast<std::int16_t>(*options.zone));
    if (options.south) geo_.Nord(false);
    hemisphereSet_ = options.south;
  }

  /// One line of input to one line of output. @throws RunTimeError
  std::string line(const std::string& text) {
    const std::vector<std::string> words = Parole(text);
    if (words.size() != 2) {
      throw RunTimeError("holds " + std::to_string(words.size()) + " values, two are needed");
    }
    for (const std::string& word : words) toUtm_ ? ControllaAngolo(word) : Controlla(word, word);
    return toUtm_ ? toUtm(words) : toGeo(words);
  }

 private:
  std::string toUtm(const std::vector<std::string>& words) {
    geo_.Lat(words[0]);
    const double longitude = GradiDaTesto(words[1], geo_.Layout());
    if (std::abs(geo_.LatGradi()) > 90.0) throw RunTimeError("latitude " + words[0] + " is not -90 to 90 degrees");
    if (std::abs(longitude) > 180.0) throw RunTimeError("longitude " + words[1] + " is not -180 to 180 degrees");
    geo_.Lon(words[1]);
    if (!hemisphereSet_) geo_.Nord(geo_.LatGradi() >= 0.0);
    hemisphereSet_ = true;
    if (!geo_.Geo2UTM()) throw RunTimeError("cannot be converted");
    return FormattaNumero(geo_.UTMx(), Metres) + " " + FormattaNumero(geo_.UTMy(), Metres) + " " +
           std::to_string(geo_.UTMzone());
  }

  std::string toGeo(const std::vector<std::string>& words) {
    geo_.UTMx(Val(words[0]));
    geo_.UTMy(Val(words[1]));
    if (!geo_.UTM2Geo()) throw RunTimeError("cannot be converted");
    return geo_.Lat() + " " + geo_.Lon();
  }

  bool toUtm_;
  GeoGeo geo_;
  bool hemisphereSet_ = false;
};

int ElencaDatum() {
  for (const Datum& datum : Datums) std::cout << datum.Name << "\t" << datum.Area << '\n';
  return AllDone;
}

int Esegui(const ConvertOptions& options) {
  if (options.datums) return ElencaDatum();
  ScriptedDialogs dialogs;
  Converter converter(options, dialogs);
  if (!dialogs.messages().empty()) return WrongCommandLine;
  int status = AllDone;
  std::size_t number = 0;
  for (std::string line; std::getline(std::cin, line);) {
    ++number;
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    try {
      std::cout << converter.line(line) << '\n';
    } catch (const RunTimeError& error) {
      std::cerr << "error: line " << number << ": " << Visibile(error.what()) << '\n';
      status = NotAllDone;
    }
  }
  return status;
}

void Verifica(const ConvertOptions& options) {
  if (!options.datums && !options.toUtm && !options.toGeo) {
    throw CLI::RequiredError("--to-utm, --to-geo or --datums");
  }
  if (options.toGeo && !options.zone) throw CLI::RequiredError("--zone (with --to-geo)");
}

std::vector<std::string> NomiDatum() {
  std::vector<std::string> names;
  for (const Datum& datum : Datums) names.emplace_back(datum.Name);
  return names;
}

}  // namespace

void AggiungiConvert(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand("convert",
                                         "Convert \"LAT LON\" lines of standard input to \"EASTING NORTHING ZONE\", or "
                                         "\"EASTING NORTHING\" to \"LAT LON\"");
  const auto o = std::make_shared<ConvertOptions>();
  CLI::Option* toUtm =
      command->add_flag("--to-utm", o->toUtm, "Geographic to UTM; the first line fixes zone and hemisphere for all");
  command->add_flag("--to-geo", o->toGeo, "UTM to geographic; needs --zone")->excludes(toUtm);
  command->add_option("--datum", o->datum, "Datum, as --datums names it (default WGS84)")
      ->check(Offre("words", NomiDatum()))
      ->type_name("NAME");
  command->add_option("--format", o->format, "Layout of latitudes and longitudes (default dmm.mmm)")
      ->check(CLI::IsMember({"dmmss", "dmm.mmm", "d.dddd"}, CLI::ignore_case))
      ->type_name("dmmss|dmm.mmm|d.dddd");
  command->add_option("--zone", o->zone, "UTM zone")->check(CLI::Range(1, 60))->type_name("N");
  command->add_flag("--south", o->south, "Southern hemisphere");
  command->add_flag("--datums", o->datums, "List the datums with their areas");
  command->callback([o, &work] {
    Verifica(*o);
    work = [o] { return Esegui(*o); };
  });
}

}  // namespace corvan::cli

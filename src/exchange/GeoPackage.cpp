#include "exchange/GeoPackage.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Errors.h"
#include "base/Text.h"
#include "exchange/Database.h"
#include "exchange/LayerStyle.h"
#include "exchange/OpenPlaces.h"
#include "exchange/PackageLayer.h"
#include "exchange/ReadingDepths.h"
#include "exchange/ToolkitReadings.h"
#include "export/CablePlaces.h"
#include "export/SurveyColumns.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaGeoPackage";
constexpr std::size_t RowsPerStep = 1000;  // between two looks at the user's wish to give up
constexpr std::uintmax_t RowBytes = 600;   // about; progress counts bytes

/// One package under construction.
class Package {
 public:
  Package(FileWriter& out, const Survey& survey, const Section& section, const GeoPackageRequest& request)
      : out_(out), survey_(survey), section_(section), request_(request), database_(out.nascosto()) {
    changed_ = TestoDataOra(request.written) + ".000Z";
    changed_.replace(changed_.find(' '), 1, "T");
    for (const Misura& m : survey.Misure) without_ += HaPosizione(m) ? 0U : 1U;
    spatial_ = without_ < survey.Misure.size();
  }

  void scrivi(Findings& findings) {
    database_.esegui("BEGIN");
    CreaTabelleDiPacchetto(database_);
    misure();
    linee();
    sezione();
    letture(findings);
    stili();
    database_.esegui("COMMIT");
    database_.chiudi();
    rileva(findings);
  }

 private:
  void misure();
  void linee();
  void sezione();
  void letture(Findings& findings);
  void lettura(PackageLayer& layer, const SectionPoint& point, const ElectrodePlaces& at, std::size_t c,
               const ChannelDepths& depths) const;
  void stili();
  void rileva(Findings& findings) const;
  void avanza(std::int64_t row) {
    if (row % RowsPerStep == 0) out_.avanza(rows_ += RowsPerStep * RowBytes);
  }

  FileWriter& out_;
  const Survey& survey_;
  const Section& section_;
  const GeoPackageRequest& request_;
  Database database_;
  std::string changed_;
  std::size_t without_ = 0;  ///< measurements without a position
  bool spatial_ = true;
  std::uintmax_t rows_ = 0;
};

void LegaNumero(Statement& row, double value) { std::isfinite(value) ? row.numero(value) : row.vuoto(); }

void LegaValore(Statement& row, const TableValue& value) {
  using Form = TableValue::Form;
  if (value.form == Form::Empty) {
    row.vuoto();
  } else if (value.form == Form::Whole) {
    row.intero(static_cast<std::int64_t>(value.number));
  } else {
    LegaNumero(row, value.number);
  }
}

/// The columns of the table; what is empty in the first measurement is a time that its file does not hold.
std::vector<std::string> ColonneDiMisura(const Survey& survey) {
  std::vector<std::string> columns;
  for (const TableColumn& column : ColonneTabella(survey)) {
    const auto form = survey.Misure.empty() ? TableValue::Form::Double : column.at(survey, 1).form;
    const char* type = "DOUBLE";
    if (form == TableValue::Form::Whole) type = "INTEGER";
    if (form == TableValue::Form::Single) type = "FLOAT";
    columns.push_back("\"" + column.name + "\" " + type);
  }
  return columns;
}

void Package::misure() {
  PackageLayer layer(database_,
                     {"measurements", "POINT", false, "All measurements of the survey", ColonneDiMisura(survey_)},
                     spatial_);
  const std::vector<TableColumn>& columns = ColonneTabella(survey_);
  for (std::size_t n = 1; n <= survey_.Misure.size(); ++n) {
    Statement& row = layer.punto(GradiDi(survey_, survey_.Misure(n)));
    for (const TableColumn& column : columns) LegaValore(row, column.at(survey_, n));
    layer.chiudiRiga();
    avanza(layer.righe());
  }
  layer.chiudi(changed_);
}

void Package::linee() {
  PackageLayer layer(database_,
                     {"lines",
                      "LINESTRING",
                      false,
                      "The track of each file, through the measurements that are kept",
                      {"file INTEGER", "name TEXT", "measurements INTEGER", "length DOUBLE"}},
                     spatial_);
  for (const FileLine& line : LineeDeiFile(survey_)) {
    Statement& row = layer.linea(line.track);
    row.intero(line.file).testo(Visibile(line.name)).intero(static_cast<std::int64_t>(line.measurements));
    row.numero(line.length);
    layer.chiudiRiga();
  }
  layer.chiudi(changed_);
}

void Package::sezione() {
  PackageLayer layer(database_,
                     {"section",
                      "GEOMETRY",
                      false,
                      "The section at its true positions, and its two ends",
                      {"part TEXT", "first INTEGER", "last INTEGER"}},
                     spatial_);
  const std::vector<Geographic> line = LineaDiSezione(survey_, section_);
  const auto end = [this, &layer](Statement& row, const char* part) {
    row.testo(part).intero(section_.E1).intero(section_.E2);
    layer.chiudiRiga();
  };
  end(layer.linea(line), "line");
  if (!line.empty()) {
    end(layer.punto(line.front()), "first");
    end(layer.punto(line.back()), "last");
  }
  layer.chiudi(changed_);
}

void Package::letture(Findings& findings) {
  PackageLayer layer(database_,
                     {"readings",
                      "POINT",
                      true,
                      "Readings of the section at the mean place of their electrodes, at pseudo-depth",
                      {"measurement INTEGER", "channel INTEGER", "file INTEGER", "resistivity FLOAT", "potential FLOAT",
                       "current FLOAT", "chargeability FLOAT", "deviation FLOAT", "pseudo_depth DOUBLE",
                       "water_depth DOUBLE", "easting DOUBLE", "northing DOUBLE", "distance DOUBLE"}},
                     spatial_);
  const CablePlaces places(section_);
  const ToolkitReadings readings(survey_, section_, places);
  readings.rileva(Procedure, findings);
  const ReadingDepths depths(survey_);
  const auto& points = section_.RecordOut.points();
  for (std::size_t i = 1; i <= points.size(); ++i) {
    const ReadingSet taken = readings.di(i);
    if (taken == 0) continue;
    const SectionPoint& point = points(i);
    const ElectrodePlaces at = places(point);
    const ChannelDepths deep = depths(survey_.Misure(static_cast<std::size_t>(point.misura)));
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if ((taken & BitDi(c)) == 0) continue;
      lettura(layer, point, at, c, deep);
      avanza(layer.righe());
    }
  }
  layer.chiudi(changed_);
}

void Package::lettura(PackageLayer& layer, const SectionPoint& point, const ElectrodePlaces& at, std::size_t c,
                      const ChannelDepths& depths) const {
  const ElectrodePlace middle = Mezzo(at, c);
  const std::optional<double> depth = depths.at(c);
  Statement& row =
      layer.punto(GradiDi(section_.griglia, middle.est, middle.nord), depth ? std::optional(-*depth) : std::nullopt);
  row.intero(point.misura).intero(static_cast<std::int64_t>(c)).intero(point.file);
  const auto single = [&row](float value) { LegaNumero(row, static_cast<double>(value)); };
  single(point.resistivity.at(c));
  single(point.potential.at(c));
  single(point.current);
  if (point.conQualita) {
    single(point.caricabilita.at(c));
    single(point.deviazione.at(c));
  } else {
    row.vuoto().vuoto();
  }
  depth ? row.numero(*depth) : row.vuoto();
  for (const double value : {middle.prof, middle.est, middle.nord, middle.x}) row.numero(value);
  layer.chiudiRiga();
}

/// The table in which QGIS looks for the style that a layer opens with.
void Package::stili() {
  database_.esegui(
      "CREATE TABLE layer_styles (id INTEGER PRIMARY KEY NOT NULL, f_table_catalog TEXT, f_table_schema TEXT,"
      " f_table_name TEXT, f_geometry_column TEXT, styleName TEXT, styleQML TEXT, styleSLD TEXT, useAsDefault BOOLEAN,"
      " description TEXT, owner TEXT, ui TEXT, update_time DATETIME)");
  Statement style(database_, "INSERT INTO layer_styles VALUES (?, '', '', ?, ?, ?, ?, '', 1, ?, '', NULL, ?)");
  constexpr std::array<std::array<const char*, 2>, 2> styles{{{"measurements", "rho1"}, {"readings", "resistivity"}}};
  std::int64_t id = 0;
  for (const auto& [layer, column] : styles) {
    style.intero(++id).testo(layer).testo(spatial_ ? "geom" : "").testo("resistivity");
    style.testo(StileQml(column, request_.colours)).testo("Apparent resistivity, ohm m").testo(changed_).esegui();
  }
  Statement list(database_,
                 "INSERT INTO gpkg_contents VALUES ('layer_styles', 'attributes', 'layer_styles', 'Styles of QGIS', ?,"
                 " NULL, NULL, NULL, NULL, NULL)");
  list.testo(changed_).esegui();
}

void Package::rileva(Findings& findings) const {
  if (without_ == 0) return;
  const std::string all = Quanti(survey_.Misure.size(), "measurement", "measurements");
  findings.note(Procedure, !spatial_ ? "none of " + all + " has a position: the tables have no geometry"
                                     : std::to_string(without_) + " of " + all + (without_ == 1 ? " has" : " have") +
                                           " no position and no geometry");
}

/// SQLite writes its own version into the file (bytes 96 to 99 of its header), which is no content: a fixed one stands
/// there instead, so that the same survey gives the same bytes with every library.
std::string TestaStabile(const std::filesystem::path& file) {
  constexpr std::size_t version = 96;
  const FileBytes head = LeggiInizio(file, version + 4);
  std::string bytes(head.text());
  constexpr std::uint32_t fixed = 3040001;
  for (unsigned k = 0; k < 4; ++k) bytes.at(version + k) = static_cast<char>(fixed >> (24 - 8 * k) & 0xFFU);
  return bytes;
}

}  // namespace

void SalvaGeoPackage(FileWriter& out, const Survey& survey, const Section& section, const GeoPackageRequest& request,
                     Findings& findings) {
  const std::filesystem::path& file = out.nascosto();
  try {
    Package(out, survey, section, request).scrivi(findings);
  } catch (const RunTimeError& error) {
    throw FileError(out.path(), error.what());
  }
  out.write(TestaStabile(file));
}

}  // namespace corvan

#include "exchange/GeoJson.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "exchange/JsonText.h"
#include "exchange/OpenPlaces.h"
#include "export/BlockComposer.h"
#include "export/SurveyColumns.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaGeoJson";
constexpr std::size_t RowsPerBlock = 300;  // about 400 kB

void AggiungiPosto(std::string& out, const Geographic& place) {
  out += '[';
  AggiungiNumeroJson(out, place.longitude);
  out += ',';
  AggiungiNumeroJson(out, place.latitude);
  out += ']';
}

/// Where the straight way from a to b meets the antimeridian.
double LatitudineDelTaglio(const Geographic& a, const Geographic& b) {
  const double side = a.longitude > 0.0 ? 180.0 : -180.0;
  const double way = b.longitude + 2.0 * side - a.longitude;
  return way == 0.0 ? a.latitude : a.latitude + (b.latitude - a.latitude) * (side - a.longitude) / way;
}

/// A geometry; the pieces of a line that crosses the antimeridian are lines of their own, as RFC 7946 3.1.9 asks.
void AggiungiLinea(std::string& out, const std::vector<Geographic>& line) {
  if (line.size() < 2) {
    out += "null";  // a line has two places at least
    return;
  }
  std::string pieces = "[";
  bool cut = false;
  for (std::size_t k = 0; k < line.size(); ++k) {
    if (k > 0) {
      const Geographic &a = line[k - 1], &b = line[k];
      if (std::abs(a.longitude - b.longitude) > 180.0) {
        cut = true;
        const double latitude = LatitudineDelTaglio(a, b), side = a.longitude > 0.0 ? 180.0 : -180.0;
        pieces += ',';
        AggiungiPosto(pieces, {latitude, side});
        pieces += "],[";
        AggiungiPosto(pieces, {latitude, -side});
      }
      pieces += ',';
    }
    AggiungiPosto(pieces, line[k]);
  }
  pieces += ']';
  out += cut ? R"({"type":"MultiLineString","coordinates":[)" : R"({"type":"LineString","coordinates":)";
  out += pieces;
  out += cut ? "]}" : "}";
}

void AggiungiPunto(std::string& out, const std::optional<Geographic>& place) {
  if (!place) {
    out += "null";
    return;
  }
  out += R"({"type":"Point","coordinates":)";
  AggiungiPosto(out, *place);
  out += '}';
}

constexpr std::string_view Apri = R"({"type":"Feature","geometry":)";

void AggiungiValoreJson(std::string& out, const TableValue& value) {
  using Form = TableValue::Form;
  if (value.form == Form::Empty) out += "null";
  if (value.form == Form::Whole) AggiungiNumeroJson(out, static_cast<std::int64_t>(value.number));
  if (value.form == Form::Single) AggiungiNumeroJson(out, static_cast<float>(value.number));
  if (value.form == Form::Double) AggiungiNumeroJson(out, value.number);
}

/// The columns of the table with what stands before each value.
struct Property {
  std::string name;
  const TableColumn* column;
};

std::vector<Property> Proprieta(const Survey& survey) {
  std::vector<Property> all;
  for (const TableColumn& column : ColonneTabella(survey)) all.push_back({",\"" + column.name + "\":", &column});
  return all;
}

void AggiungiMisura(std::string& out, const Survey& survey, std::size_t n, const std::vector<Property>& properties) {
  if (n > 1) out += ",\n";
  out += Apri;
  AggiungiPunto(out, GradiDi(survey, survey.Misure(n)));
  out += R"(,"properties":{"layer":"measurements")";
  for (const Property& property : properties) {
    out += property.name;
    AggiungiValoreJson(out, property.column->at(survey, n));
  }
  out += "}}";
}

void AggiungiFile(std::string& out, const FileLine& line) {
  (out += ",\n") += Apri;
  AggiungiLinea(out, line.track);
  out += R"(,"properties":{"layer":"lines","file":)";
  AggiungiNumeroJson(out, line.file);
  out += R"(,"name":)";
  AggiungiTestoJson(out, line.name);
  out += R"(,"measurements":)";
  AggiungiNumeroJson(out, line.measurements);
  out += R"(,"length":)";
  AggiungiNumeroJson(out, line.length);
  out += "}}";
}

void AggiungiSezione(std::string& out, const Section& section, const std::vector<Geographic>& line) {
  const auto feature = [&](const char* part, auto&& geometry) {
    (out += ",\n") += Apri;
    geometry();
    out += std::string(R"(,"properties":{"layer":"section","part":")") + part + R"(","from":)" +
           std::to_string(section.E1) + R"(,"to":)" + std::to_string(section.E2) + "}}";
  };
  feature("line", [&] { AggiungiLinea(out, line); });
  if (line.empty()) return;
  feature("first", [&] { AggiungiPunto(out, line.front()); });
  feature("last", [&] { AggiungiPunto(out, line.back()); });
}

std::size_t SenzaPosto(const Survey& survey) {
  std::size_t without = 0;
  for (const Misura& m : survey.Misure) without += HaPosizione(m) ? 0U : 1U;
  return without;
}

}  // namespace

void SalvaGeoJson(FileWriter& out, const Survey& survey, const Section& section, Findings& findings) {
  if (const std::size_t without = SenzaPosto(survey); without > 0) {
    findings.note(Procedure, std::to_string(without) + " of " +
                                 Quanti(survey.Misure.size(), "measurement", "measurements") +
                                 (without == 1 ? " has" : " have") + " no position and no geometry");
  }
  const std::vector<Property> properties = Proprieta(survey);
  out.write("{\"type\":\"FeatureCollection\",\"features\":[\n");
  const auto compose = [&](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t n = first + 1; n <= end; ++n) AggiungiMisura(text, survey, n, properties);
  };
  ComponiBlocchi({survey.Misure.size(), RowsPerBlock}, compose, [&out](std::string_view text) { out.write(text); });
  std::string lines;
  for (const FileLine& line : LineeDeiFile(survey)) AggiungiFile(lines, line);
  AggiungiSezione(lines, section, LineaDiSezione(survey, section));
  out.write(survey.Misure.empty() ? std::string_view(lines).substr(2) : std::string_view(lines));
  out.write("\n]}\n");
}

}  // namespace corvan

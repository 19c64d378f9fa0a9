#include "export/SurveyColumns.h"

namespace corvan {
namespace {

using Form = TableValue::Form;

template <auto Member>
TableValue Numero(const Survey& survey, std::size_t n, std::size_t) {
  const auto value = survey.Misure(n).*Member;
  if constexpr (std::is_same_v<std::remove_const_t<decltype(value)>, float>) {
    return {Form::Single, static_cast<double>(value)};
  } else {
    return {std::is_floating_point_v<decltype(value)> ? Form::Double : Form::Whole, static_cast<double>(value)};
  }
}

template <auto Member>
TableValue Serie(const Survey& survey, std::size_t n, std::size_t slot) {
  return {Form::Single, static_cast<double>((survey.Misure(n).*Member).at(slot))};
}

template <std::size_t Slot>
TableValue Vera(const Survey& survey, std::size_t n, std::size_t) {
  return {Form::Double, survey.Misure(n).Deriv[Slot]};
}

TableValue Esclusa(const Survey& survey, std::size_t n, std::size_t slot) {
  const Misura& m = survey.Misure(n);
  return {Form::Whole, HaLettura(m, slot) && !InUso(m, slot) ? 1.0 : 0.0};
}

TableValue Ordinale(const Survey&, std::size_t n, std::size_t) { return {Form::Whole, static_cast<double>(n)}; }

TableValue Tempo(const Survey& survey, std::size_t n, std::size_t) {
  const Misura& m = survey.Misure(n);
  return HaTempo(survey, m) ? TableValue{Form::Double, m.Tempo} : TableValue{};
}

/// One column, or as many as there are electrodes or channels.
struct Series {
  const char* name;
  std::size_t count;  ///< 0: one column without a number
  const char* unit;
  const char* meaning;
  TableValue (*value)(const Survey& survey, std::size_t n, std::size_t slot);
};

constexpr std::array Columns{
    Series{"n", 0, "", "number of the measurement", Ordinale},
    Series{"file", 0, "", "ordinal of its file", Numero<&Misura::NumFile>},
    Series{"time", 0, "", "days since 1899-12-30", Tempo},
    Series{"lat", 0, "", "latitude in the layout of the files", Numero<&Misura::Lat>},
    Series{"lon", 0, "", "longitude in the layout of the files", Numero<&Misura::Lon>},
    Series{"utm_x", 0, "m", "easting", Numero<&Misura::UTMx>},
    Series{"utm_y", 0, "m", "northing", Numero<&Misura::UTMy>},
    Series{"true_x", 0, "m", "true easting of the last section", Vera<3>},
    Series{"true_y", 0, "m", "true northing of the last section", Vera<4>},
    Series{"distance", 0, "m", "distance along the track", Numero<&Misura::Distanza>},
    Series{"step", 0, "m", "step as the file tells it", Numero<&Misura::Passo>},
    Series{"depth", 0, "m", "depth of the water", Numero<&Misura::Val12>},
    Series{"c1", 0, "m", "first current electrode along the cable", Numero<&Misura::Val60>},
    Series{"c2", 0, "m", "second current electrode along the cable", Numero<&Misura::Val64>},
    Series{"e", PotentialElectrodes, "m", "potential electrode along the cable", Serie<&Misura::Elettrodi>},
    Series{"i_a", 0, "mA", "current", Numero<&Misura::Val180>},
    Series{"i_b", 0, "mA", "current with the opposite sign", Numero<&Misura::Val184>},
    Series{"va", MaxChannels, "mV", "potential difference of channel", Serie<&Misura::CanaleA>},
    Series{"vb", MaxChannels, "mV", "potential difference with the opposite sign of channel", Serie<&Misura::CanaleB>},
    Series{"rho", MaxChannels, "Ohm\u00B7m", "apparent resistivity of channel", Serie<&Misura::Rho>},
    Series{"discarded", 0, "", "1: left out", Numero<&Misura::Scartata>},
    Series{"interpolated", 0, "", "1: placed between its neighbours", Numero<&Misura::Interpolata>}};

constexpr Series Excluded{"excluded", MaxChannels, "", "1: a bad reading, of channel", Esclusa};

void Distendi(const Series& s, std::vector<TableColumn>& all) {
  if (s.count == 0) all.push_back({s.name, s.unit, s.meaning, 0, s.value});
  for (std::size_t k = 1; k <= s.count; ++k) {
    all.push_back({s.name + std::to_string(k), s.unit, s.meaning, k, s.value});
  }
}

std::vector<TableColumn> Distese() {
  std::vector<TableColumn> all;
  for (const Series& s : Columns) Distendi(s, all);
  return all;
}

}  // namespace

const std::vector<TableColumn>& ColonneTabella(const Survey& survey) {
  static const std::vector<TableColumn> columns = Distese();
  static const std::vector<TableColumn> judged = [] {
    std::vector<TableColumn> all = columns;
    Distendi(Excluded, all);
    return all;
  }();
  return survey.qualita.inVigore() ? judged : columns;
}

bool HaTempo(const Survey& survey, const Misura& m) {
  const FileSummary* file = survey.fileDi(m);
  return file == nullptr || file->recordLength == 0 || file->timed();
}

std::string TestoValore(const TableValue& value) {
  std::string text;
  if (value.form == Form::Whole) AggiungiValore(text, static_cast<std::int64_t>(value.number));
  if (value.form == Form::Single) AggiungiValore(text, static_cast<float>(value.number));
  if (value.form == Form::Double) AggiungiValore(text, value.number);
  return text;
}

}  // namespace corvan

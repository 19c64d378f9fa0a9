#include "input/ColumnLayout.h"

#include <algorithm>
#include <optional>
#include <span>

#include "base/NumberCheck.h"
#include "base/Text.h"

namespace corvan {
namespace {

/// Every name that is read, first the one that messages use.
struct Synonyms {
  Column column;
  std::string_view words;  // with a blank round each
};
constexpr std::array<Synonyms, ColumnKinds> Names{{
    {Column::A, " a c1 xa ca posa eleca electrodea "},
    {Column::B, " b c2 xb cb posb elecb electrodeb "},
    {Column::M, " m p1 xm pm posm elecm electrodem "},
    {Column::N, " n p2 xn pn posn elecn electroden "},
    {Column::Resistance, " r resistance transferresistance ui vi vpi rohm "},
    {Column::Potential, " u v vp dv vmn voltage potential "},
    {Column::Current, " i current iab "},
    {Column::Resistivity, " rhoa rho appres apparentresistivity resistivity "},
    {Column::Latitude, " latitude lat "},
    {Column::Longitude, " longitude lon long lng "},
    {Column::Easting, " easting x east utmx utme xutm utmeasting "},
    {Column::Northing, " northing y north utmy utmn yutm utmnorthing "},
    {Column::Depth, " depth waterdepth water bathymetry "},
    {Column::Time, " time datetime timestamp utc utctime "},
    {Column::Date, " date day "},
    {Column::Line, " line lineid linename profile "},
}};

/// A unit and what it is worth in the one that is used.
struct Unit {
  std::string_view word;
  double factor;
};
constexpr std::array Lengths{Unit{"m", 1.0},     Unit{"metre", 1.0},  Unit{"metres", 1.0},
                             Unit{"meter", 1.0}, Unit{"meters", 1.0}, Unit{"cm", 0.01},
                             Unit{"km", 1000.0}, Unit{"ft", 0.3048},  Unit{"feet", 0.3048}};
constexpr std::array Places{Unit{"m", 1.0},      Unit{"metre", 1.0}, Unit{"metres", 1.0}, Unit{"meter", 1.0},
                            Unit{"meters", 1.0}, Unit{"cm", 0.01},   Unit{"ft", 0.3048},  Unit{"feet", 0.3048},
                            Unit{"#", 1.0},      Unit{"no", 1.0},    Unit{"number", 1.0}};
constexpr std::array Resistances{Unit{"ohm", 1.0},    Unit{"ohms", 1.0},       Unit{"v/a", 1.0},    Unit{"mv/ma", 1.0},
                                 Unit{"mohm", 0.001}, Unit{"milliohm", 0.001}, Unit{"kohm", 1000.0}};
constexpr std::array Potentials{Unit{"mv", 1.0}, Unit{"v", 1000.0}, Unit{"uv", 0.001}};
constexpr std::array Currents{Unit{"ma", 1.0}, Unit{"a", 1000.0}, Unit{"ua", 0.001}};
constexpr std::array Resistivities{Unit{"ohmm", 1.0}, Unit{"ohmmetre", 1.0}, Unit{"ohmmeter", 1.0},
                                   Unit{"ohmmetres", 1.0}, Unit{"ohmmeters", 1.0}};
constexpr std::array Angles{Unit{"deg", 1.0}, Unit{"degree", 1.0},  Unit{"degrees", 1.0}, Unit{"decimaldegrees", 1.0},
                            Unit{"dd", 1.0},  Unit{"\xC2\xB0", 1.0}};

std::span<const Unit> UnitaDi(Column column) {
  switch (column) {
    case Column::A:
    case Column::B:
    case Column::M:
    case Column::N:
      return Places;
    case Column::Easting:
    case Column::Northing:
    case Column::Depth:
      return Lengths;
    case Column::Resistance:
      return Resistances;
    case Column::Potential:
      return Potentials;
    case Column::Current:
      return Currents;
    case Column::Resistivity:
      return Resistivities;
    case Column::Latitude:
    case Column::Longitude:
      return Angles;
    case Column::Time:
    case Column::Date:
    case Column::Line:
      return {};
  }
  return {};
}

bool Bianco(char c) { return c == ' ' || c == '\t'; }

std::string_view SenzaBianchi(std::string_view text) {
  while (!text.empty() && Bianco(text.front())) text.remove_prefix(1);
  while (!text.empty() && Bianco(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view SenzaVirgolette(std::string_view field) {
  const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
  return quoted ? SenzaBianchi(field.substr(1, field.size() - 2)) : field;
}

/// Small letters, without the characters that people put between words.
std::string Parola(std::string_view text, std::string_view without) {
  std::string word;
  for (const char c : text) {
    if (without.find(c) != std::string_view::npos) continue;
    word += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return word;
}

/// Both signs that stand for ohm, and the sign for micro, in letters.
std::string UnitaScritta(std::string_view text) {
  std::string unit = Parola(text, " \t.*-_");
  for (const auto& [sign, letters] : {std::pair<std::string_view, std::string_view>{"\xCE\xA9", "ohm"},
                                      {"\xE2\x84\xA6", "ohm"},
                                      {"\xC2\xB5", "u"},
                                      {"\xCE\xBC", "u"},
                                      {"\xC2\xB7", ""}}) {
    for (std::size_t at = unit.find(sign); at != std::string::npos; at = unit.find(sign)) {
      unit.replace(at, sign.size(), letters);
    }
  }
  return unit;
}

std::optional<double> FattoreUnita(Column column, std::string_view text) {
  const std::span<const Unit> units = UnitaDi(column);
  const std::string unit = UnitaScritta(text);
  if (units.empty() || unit.empty()) return 1.0;
  const auto found = std::find_if(units.begin(), units.end(), [&unit](const Unit& u) { return u.word == unit; });
  return found == units.end() ? std::nullopt : std::optional(found->factor);
}

/// A unit that makes an electrode's place a length, not a number.
bool Lunghezza(Column column, std::string_view text) {
  const std::string unit = UnitaScritta(text);
  return column <= Column::N && !unit.empty() && unit != "#" && unit != "no" && unit != "number";
}

std::string UnitaAmmesse(Column column) {
  std::string list;
  for (const Unit& unit : UnitaDi(column)) list += (list.empty() ? "" : ", ") + std::string(unit.word);
  return list;
}

std::string UnitaIgnota(std::string_view unit, std::string_view column, Column kind) {
  return "unit " + Citazione(unit) + " of column " + Citazione(column) + " is not one of " + UnitaAmmesse(kind);
}

/// A name and the unit in brackets behind it.
struct Named {
  std::string_view name, unit;
};
Named Separa(std::string_view field) {
  const std::size_t open = field.find_first_of("[(");
  if (open == std::string_view::npos) return {field, {}};
  const std::size_t close = field.find_first_of("])", open);
  return {SenzaBianchi(field.substr(0, open)), SenzaBianchi(field.substr(open + 1, close - open - 1))};
}

std::optional<Column> ColonnaDi(std::string_view name) {
  const std::string word = " " + Parola(name, " \t_-./\"") + " ";
  if (word.size() == 2) return std::nullopt;
  const auto found = std::find_if(Names.begin(), Names.end(), [&word](const Synonyms& names) {
    return names.words.find(word) != std::string_view::npos;
  });
  return found == Names.end() ? std::nullopt : std::optional(found->column);
}

std::string_view NomeDi(Column column) {
  const std::string_view words = Names.at(static_cast<std::size_t>(column)).words.substr(1);
  return words.substr(0, words.find(' '));
}

void Unisci(std::string& list, std::string_view more, std::string_view between) {
  list += (list.empty() ? "" : std::string(between)) + std::string(more);
}

/// Gives every name its column; what stands twice or in an unknown unit is a problem.
void PrendiNomi(const std::vector<std::string_view>& fields, ColumnNames& names) {
  std::array<std::string_view, ColumnKinds> taken;
  names.layout.fields = fields.size();
  for (std::size_t k = 1; k <= fields.size(); ++k) {
    const auto [name, unit] = Separa(fields[k - 1]);
    const std::optional<Column> column = ColonnaDi(name);
    if (!column) {
      if (fields[k - 1] == "-") continue;
      names.unknown.emplace_back(fields[k - 1]);
      names.unused.emplace_back(fields[k - 1]);
      continue;
    }
    std::string_view& before = taken.at(static_cast<std::size_t>(*column));
    if (names.layout.ha(*column)) {
      Unisci(
          names.problem,
          "columns " + Citazione(before) + " and " + Citazione(name) + " both hold the " + std::string(NomeDi(*column)),
          "; ");
      continue;
    }
    before = name;
    const std::optional<double> factor = FattoreUnita(*column, unit);
    if (!factor) Unisci(names.problem, UnitaIgnota(unit, name, *column), "; ");
    names.layout.metti(*column, k, factor.value_or(1.0));
    names.layout.lunghezze = names.layout.lunghezze || Lunghezza(*column, unit);
  }
}

/// Columns that nothing is made of beside the others.
void Togli(ColumnNames& names, std::initializer_list<Column> columns) {
  for (const Column column : columns) {
    if (!names.layout.ha(column)) continue;
    names.layout.togli(column);
    names.unused.emplace_back(NomeDi(column));
  }
}

/// Settles what position and reading are made of, and names what is missing.
void Risolvi(ColumnNames& names) {
  ColumnLayout& columns = names.layout;
  std::string missing;
  for (const Column electrode : {Column::A, Column::B, Column::M, Column::N}) {
    if (!columns.ha(electrode)) Unisci(missing, NomeDi(electrode), ", ");
  }
  const bool measured = columns.ha(Column::Potential) && columns.ha(Column::Current);
  const bool any = measured || columns.ha(Column::Resistance) || columns.ha(Column::Resistivity);
  if (!any) Unisci(missing, "a reading (r, or u and i, or rhoa)", ", ");
  if (any && !measured) Togli(names, {Column::Potential});
  const bool degrees = columns.ha(Column::Latitude) && columns.ha(Column::Longitude);
  const bool metres = columns.ha(Column::Easting) && columns.ha(Column::Northing);
  if (!degrees && !metres) {
    Unisci(missing, "a position (latitude and longitude, or easting and northing)", ", ");
  } else if (degrees) {
    Togli(names, {Column::Easting, Column::Northing});
  } else {
    Togli(names, {Column::Latitude, Column::Longitude});
  }
  if (!columns.ha(Column::Time)) Togli(names, {Column::Date});
  if (!missing.empty()) Unisci(names.problem, "no column for " + missing, "; ");
}

/// Blanks cut a unit off its name: it goes back.
void RiattaccaUnita(std::vector<std::string_view>& fields) {
  std::vector<std::string_view> whole;
  for (const std::string_view field : fields) {
    const bool unit = !field.empty() && (field.front() == '[' || field.front() == '(');
    if (unit && !whole.empty()) {
      std::string_view& name = whole.back();
      name = {name.data(), static_cast<std::size_t>(field.data() + field.size() - name.data())};
    } else {
      whole.push_back(field);
    }
  }
  fields = std::move(whole);
}

bool NominaElettrodi(const std::vector<std::string_view>& fields) {
  std::array<bool, 4> seen{};
  for (const std::string_view field : fields) {
    const std::optional<Column> column = ColonnaDi(Separa(field).name);
    if (column && *column <= Column::N) seen.at(static_cast<std::size_t>(*column)) = true;
  }
  return std::all_of(seen.begin(), seen.end(), [](bool s) { return s; });
}

}  // namespace

void TagliaColonne(std::string_view line, char separator, std::vector<std::string_view>& fields) {
  fields.clear();
  const std::string_view text = SenzaBianchi(line);
  if (text.empty()) return;
  if (separator != ' ') {
    // A tab at an end is a border of an empty field, not a blank.
    const std::string_view cut = separator == '\t' ? line : text;
    for (std::size_t at = 0; at <= cut.size();) {
      const std::size_t end = std::min(cut.find(separator, at), cut.size());
      fields.push_back(SenzaVirgolette(SenzaBianchi(cut.substr(at, end - at))));
      at = end + 1;
    }
    return;
  }
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \t", at), text.size());
    fields.push_back(SenzaVirgolette(text.substr(at, end - at)));
    at = std::min(text.find_first_not_of(" \t", end), text.size());
  }
}

bool RigaDiCommento(std::string_view line) {
  const std::string_view text = SenzaBianchi(line);
  return !text.empty() && (text.front() == '#' || text.front() == '%' || text.front() == '!');
}

ColumnNames LeggiTestata(std::string_view line) {
  ColumnNames names;
  std::string_view text = SenzaBianchi(line);
  while (RigaDiCommento(text)) text = SenzaBianchi(text.substr(1));
  constexpr std::size_t longest = 4000;
  const bool numeric = !text.empty() && text.front() >= '+' && text.front() <= '9';
  if (text.empty() || numeric || text.size() > longest) return names;
  std::vector<std::string_view> fields;
  for (const char separator : ColumnSeparators) {
    TagliaColonne(text, separator, fields);
    if (separator == ' ') RiattaccaUnita(fields);
    if (!NominaElettrodi(fields)) continue;
    names.header = true;
    names.separator = separator;
    PrendiNomi(fields, names);
    Risolvi(names);
    return names;
  }
  return names;
}

ColumnNames LeggiColonne(std::string_view text) {
  std::string words(text);
  std::replace_if(
      words.begin(), words.end(), [](char c) { return c == ',' || c == ';'; }, ' ');
  std::vector<std::string_view> fields;
  TagliaColonne(words, ' ', fields);
  RiattaccaUnita(fields);
  ColumnNames names;
  names.header = NominaElettrodi(fields);
  PrendiNomi(fields, names);
  if (!names.unknown.empty()) {
    Unisci(names.problem, Citazione(names.unknown.front()) + " is no name of a column", "; ");
  }
  Risolvi(names);
  return names;
}

std::string PrendiUnita(const std::vector<std::string_view>& fields, ColumnLayout& layout) {
  std::string unknown;
  ColumnLayout with = layout;
  for (const Synonyms& names : Names) {
    const std::size_t k = layout.campo(names.column);
    if (k == 0 || k > fields.size()) continue;
    std::string_view unit = fields[k - 1];
    if (!unit.empty() && (unit.front() == '[' || unit.front() == '('))
      unit = unit.substr(1, unit.find_first_of("])") - 1);
    const std::optional<double> factor = FattoreUnita(names.column, unit);
    if (!factor) Unisci(unknown, UnitaIgnota(unit, NomeDi(names.column), names.column), "; ");
    if (factor && layout.fattore(names.column) == 1.0) with.metti(names.column, k, *factor);
    with.lunghezze = with.lunghezze || Lunghezza(names.column, unit);
  }
  if (unknown.empty()) layout = with;
  return unknown;
}

}  // namespace corvan

#include "input/ColumnRow.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/DateText.h"
#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/OleDate.h"
#include "base/Rounding.h"
#include "survey/GeometricFactor.h"
#include "survey/Misura.h"

namespace corvan {
namespace {

bool Comincia(std::string_view field) { return CercaNumero(field).end != nullptr; }

/// A field whose number is out of range is one that begins as a number: it ends the reading later.
bool CominciaComeNumero(std::string_view field) {
  try {
    return Comincia(field);
  } catch (const RunTimeError&) {
    return true;
  }
}

}  // namespace

void ColumnRows::imposta(const ColumnLayout& layout, char separator, double spacing) {
  layout_ = layout;
  separator_ = separator;
  spacing_ = layout.lunghezze ? 1.0 : spacing;
}

/// Cuts a line with the separator in use, else with the first that gives as many values as there are columns.
bool ColumnRows::taglia(std::string_view line, std::size_t number) {
  const auto fits = [&](char separator) {
    TagliaColonne(line, separator, fields_);
    while (fields_.size() > layout_.fields && fields_.back().empty()) fields_.pop_back();
    return fields_.size() == layout_.fields;
  };
  if (separator_ != 0 && fits(separator_)) return true;
  for (const char other : ColumnSeparators) {
    if (!fits(other)) continue;
    if (separator_ == 0) {
      separator_ = other;
    } else {
      tally_.separator.add(number);
    }
    return true;
  }
  std::size_t most = 0;  // what a message says of it: the separator that cuts it into the most
  for (const char other : ColumnSeparators) {
    TagliaColonne(line, other, fields_);
    most = std::max(most, fields_.size());
  }
  if (tally_.count.count == 0) tally_.held = most;
  TagliaColonne(line, separator_ == 0 ? ' ' : separator_, fields_);
  return false;
}

std::string_view ColumnRows::testo(Column column) const {
  const std::size_t k = layout_.campo(column);
  return k == 0 ? std::string_view() : fields_.at(k - 1);
}

/// The number of a column in its unit; none where no number begins. Positions alone are kept as doubles.
std::optional<double> ColumnRows::numero(Column column) {
  const std::string_view field = testo(column);
  if (field.empty()) return std::nullopt;
  const bool position = column >= Column::Latitude && column <= Column::Northing;
  try {
    if (!Comincia(field)) return std::nullopt;
    const double value = tally_.numbers.leggi(field, line_, layout_.campo(column)) * layout_.fattore(column);
    if (!position) ASingolo(value);
    return value;
  } catch (const RunTimeError&) {
    throw RunTimeError("field " + std::to_string(layout_.campo(column)) + ", " + Citazione(field) + " is too large");
  }
}

RowFault ColumnRows::leggi(std::string_view line, std::size_t number, ColumnRow& row) {
  line_ = number;
  const bool fits = taglia(line, number);
  if (std::none_of(fields_.begin(), fields_.end(), CominciaComeNumero)) return RowFault::Words;
  if (!fits) return RowFault::Count;
  for (const Column electrode : {Column::A, Column::B, Column::M, Column::N}) {
    if (!CominciaComeNumero(testo(electrode))) return RowFault::Electrodes;
  }
  row = ColumnRow{};
  leggiElettrodi(row);
  leggiLettura(row);
  leggiPosizione(row);
  leggiFondo(row);
  leggiTempo(row);
  row.line = testo(Column::Line);
  ++tally_.rows;
  return RowFault::None;
}

void ColumnRows::conta(RowFault fault, std::size_t number) {
  if (fault == RowFault::Count) tally_.count.add(number);
  if (fault == RowFault::Electrodes) tally_.electrodes.add(number);
  if (fault == RowFault::Words) tally_.words.add(number);
}

void ColumnRows::leggiElettrodi(ColumnRow& row) {
  constexpr std::array electrodes{Column::A, Column::B, Column::M, Column::N};
  for (std::size_t e = 0; e < electrodes.size(); ++e) {
    row.electrodes.at(e) = ASingolo(numero(electrodes.at(e)).value_or(0.0) * spacing_);
  }
  const auto [a, b, m, n] = row.electrodes;
  row.factor = FattoreGeometrico(a, b, m, n);
  if (row.factor == 0.0F) tally_.factor.add(line_);
}

/// A resistance by what was measured, else as it stands, else out of the apparent resistivity.
void ColumnRows::leggiLettura(ColumnRow& row) {
  const std::optional<double> u = numero(Column::Potential), i = numero(Column::Current);
  const std::optional<double> r = numero(Column::Resistance), rhoa = numero(Column::Resistivity);
  if (i && *i != 0.0) row.current = i;
  if (u && row.current) {
    row.potential = u;
    row.resistance = *u / *row.current;
  } else if (r) {
    row.resistance = r;
  } else if (rhoa && row.factor != 0.0F) {
    row.resistance = *rhoa / static_cast<double>(row.factor);
  }
  if (!row.resistance) {
    tally_.reading.add(line_);
  } else if (rhoa && (r || row.potential)) {
    confronta(row, *rhoa);
  }
}

void ColumnRows::confronta(const ColumnRow& row, double rhoa) {
  constexpr double tolerance = 0.01;
  const double computed = *row.resistance * static_cast<double>(row.factor);
  if (std::abs(computed - rhoa) <= tolerance * std::abs(rhoa)) return;
  if (tally_.disagreement.count == 0) {
    tally_.firstDisagreement =
        TestoNumero(ASingolo(computed)) + " ohm m by the resistance, " + TestoNumero(ASingolo(rhoa)) + " as it stands";
  }
  tally_.disagreement.add(line_);
}

void ColumnRows::leggiPosizione(ColumnRow& row) {
  const bool degrees = layout_.geografica();
  const Column northColumn = degrees ? Column::Latitude : Column::Northing;
  const Column eastColumn = degrees ? Column::Longitude : Column::Easting;
  for (const Column column : {northColumn, eastColumn}) {
    const std::string_view field = testo(column);
    if (!field.empty() && !Comincia(field)) tally_.numbers.leggi(field, line_, layout_.campo(column));
  }
  const double north = numero(northColumn).value_or(0.0), east = numero(eastColumn).value_or(0.0);
  if (!PosizioneUsabile(north, east)) {
    tally_.position.add(line_);
    return;
  }
  row.north = north;
  row.east = east;
}

void ColumnRows::leggiFondo(ColumnRow& row) {
  row.depth = numero(Column::Depth);
  if (row.depth) return;
  ++tally_.depthless;
  if (!testo(Column::Depth).empty()) tally_.noDepth.add(line_);
}

void ColumnRows::leggiTempo(ColumnRow& row) {
  const std::string_view time = testo(Column::Time), date = testo(Column::Date);
  if (!time.empty()) {
    try {
      const double when =
          IstanteDaTesto(date.empty() ? std::string(time) : std::string(date) + " " + std::string(time));
      if (TempoValido(when)) row.time = when;
    } catch (const RunTimeError&) {
      row.time = 0;
    }
    if (row.time == 0.0) tally_.noTime.add(line_);
  }
  if (row.time == 0.0) ++tally_.timeless;
}

}  // namespace corvan

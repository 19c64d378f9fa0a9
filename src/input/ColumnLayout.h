// Which column of a text holds what: told by a header line, or by a person in the same words.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvan {

/// What a column of a survey's text can hold.
enum class Column : std::uint8_t {
  A,  ///< current electrodes: places along the cable, m, or numbers of electrodes
  B,
  M,  ///< potential electrodes, likewise
  N,
  Resistance,   ///< ohm
  Potential,    ///< mV
  Current,      ///< mA
  Resistivity,  ///< apparent, ohm m
  Latitude,     ///< decimal degrees
  Longitude,
  Easting,  ///< m
  Northing,
  Depth,  ///< of the water, m
  Time,   ///< date and time, or the time alone beside a date
  Date,
  Line  ///< name of the survey line
};
inline constexpr std::size_t ColumnKinds = 16;

/// The columns of a text as they are used; fields count from 1.
class ColumnLayout {
 public:
  std::size_t fields = 0;  ///< of a row
  bool lunghezze = false;  ///< a unit says that electrodes are places, not numbers

  /// The field that holds it; 0 where none does.
  std::size_t campo(Column column) const { return field_.at(static_cast<std::size_t>(column)); }
  bool ha(Column column) const { return campo(column) != 0; }
  /// What its numbers are multiplied with to stand in the unit of the column.
  double fattore(Column column) const { return factor_.at(static_cast<std::size_t>(column)); }
  /// Positions are latitudes and longitudes; else eastings and northings.
  bool geografica() const { return ha(Column::Latitude); }

  void metti(Column column, std::size_t field, double factor) {
    field_.at(static_cast<std::size_t>(column)) = field;
    factor_.at(static_cast<std::size_t>(column)) = factor;
  }
  void togli(Column column) { metti(column, 0, 1.0); }

  friend bool operator==(const ColumnLayout&, const ColumnLayout&) = default;

 private:
  std::array<std::size_t, ColumnKinds> field_{};
  std::array<double, ColumnKinds> factor_{};
};

/// A line of names as it was understood.
struct ColumnNames {
  bool header = false;               ///< it names a, b, m and n
  char separator = 0;                ///< under which it does
  ColumnLayout layout;               ///< whole where there is no problem
  std::string problem;               ///< columns that are missing or named twice, units that are not known; else empty
  std::vector<std::string> unused;   ///< names that say nothing to the reader, or nothing beside the others
  std::vector<std::string> unknown;  ///< those of them that are no name of a column
};

/// The separators of rows in the order in which they are tried; the blank stands for any run of blanks and tabs.
inline constexpr std::string_view ColumnSeparators = ";\t, ";

/// Cuts a line; blanks, tabs and one pair of quotes round a field are no part of it.
void TagliaColonne(std::string_view line, char separator, std::vector<std::string_view>& fields);

/// Comment lines begin with "#", "%" or "!", blanks aside.
bool RigaDiCommento(std::string_view line);

/// A header line: the separator is the first under which it names a, b, m and n. It may be a comment. Names count in
/// any case of letters, without blanks, "_", "-", "." and "/"; a unit may stand behind a name in brackets.
ColumnNames LeggiTestata(std::string_view line);

/// The same words as somebody states them ("a b m n r easting northing"), separated by blanks, commas or semicolons;
/// "-" is a column that is not read. A word that is no name is a problem.
ColumnNames LeggiColonne(std::string_view text);

/// Gives the columns without a unit the units of a line that holds nothing else ("m;m;m;m;ohm;m;m").
/// @return what is not known of the units that stand there; then nothing changes. Empty where all are known
std::string PrendiUnita(const std::vector<std::string_view>& fields, ColumnLayout& layout);

}  // namespace corvan

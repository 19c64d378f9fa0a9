// One row of a column text: four electrodes, what was measured between them, and where.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "base/NumberCheck.h"
#include "input/ColumnLayout.h"
#include "input/NmeaWalk.h"

namespace corvan {

/// What a row tells.
struct ColumnRow {
  std::array<float, 4> electrodes{};  ///< A, B, M, N: places along the cable, m
  float factor = 0;                   ///< geometric factor of the four, m
  std::optional<double> resistance;   ///< ohm; none: the row holds no reading that can be used
  std::optional<double> potential;    ///< mV, where it was measured together with the current
  std::optional<double> current;      ///< mA, where it was measured
  double north = 0;                   ///< latitude, decimal degrees, or northing, m; 0 with `east` for no position
  double east = 0;
  std::optional<double> depth;  ///< m
  double time = 0;              ///< day number; 0 for none
  std::string_view line;        ///< name of the survey line
};

/// Why a line is no row.
enum class RowFault { None, Count, Electrodes, Words };

/// What was amiss with the rows read, each with the number of the first line.
struct RowTally {
  std::size_t rows = 0;  ///< rows read
  Counted count;         ///< left out: more or fewer values than columns
  std::size_t held = 0;  ///< values of the first of them
  Counted electrodes;    ///< left out: an electrode is no number
  Counted words;         ///< left out: no number stands there
  Counted reading;       ///< without a reading
  Counted position;      ///< without a position
  Counted factor;        ///< electrodes with a geometric factor of 0
  Counted noDepth;       ///< a depth that is no number
  std::size_t depthless = 0;
  Counted noTime;  ///< a date and time that are none
  std::size_t timeless = 0;
  Counted separator;     ///< read with another separator than the first
  Counted disagreement;  ///< resistance and apparent resistivity differ by over 1 %
  std::string firstDisagreement;
  NumberCheck numbers;
};

class ColumnRows {
 public:
  /// @param separator of the header; 0 where there is none @param spacing m from electrode to electrode, 1 where rows
  /// hold places
  void imposta(const ColumnLayout& layout, char separator, double spacing);
  const ColumnLayout& layout() const { return layout_; }

  /// Reads a line. @param row valid as long as the line is @throws RunTimeError naming a number that is too large
  RowFault leggi(std::string_view line, std::size_t number, ColumnRow& row);
  /// The fields of the line read last.
  const std::vector<std::string_view>& fields() const { return fields_; }
  /// Counts a line that is left out.
  void conta(RowFault fault, std::size_t number);

  RowTally& tally() { return tally_; }
  const RowTally& tally() const { return tally_; }

 private:
  bool taglia(std::string_view line, std::size_t number);
  std::optional<double> numero(Column column);
  std::string_view testo(Column column) const;
  void leggiElettrodi(ColumnRow& row);
  void leggiLettura(ColumnRow& row);
  void confronta(const ColumnRow& row, double rhoa);
  void leggiPosizione(ColumnRow& row);
  void leggiFondo(ColumnRow& row);
  void leggiTempo(ColumnRow& row);

  ColumnLayout layout_;
  char separator_ = 0;
  double spacing_ = 1;
  std::vector<std::string_view> fields_;
  std::size_t line_ = 0;
  RowTally tally_;
};

}  // namespace corvan

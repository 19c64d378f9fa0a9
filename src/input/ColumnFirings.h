// Builds firings out of the rows of a column text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/Position.h"
#include "input/ColumnRow.h"
#include "input/FileRead.h"
#include "input/TrackSteps.h"

namespace corvan {

/// What was seen while rows became firings.
struct ColumnFiringTally {
  std::size_t firings = 0;
  std::size_t alone = 0;       ///< firings of one row
  std::int32_t channels = 0;   ///< most of a firing
  Counted empty;               ///< firings without any reading, and the first's first line
  std::size_t nominal = 0;     ///< firings without a current of their own
  std::int32_t lines = 0;      ///< runs of one name in the column of lines
  std::size_t positions = 0;   ///< firings with a position
  Counted beyond;              ///< latitudes over 90 or longitudes over 180 degrees
  double north = 0, east = 0;  ///< largest without sign
  Counted outside;             ///< eastings or northings that no zone holds
  bool timed = false;          ///< a firing has a time
  StepCheck steps;
};

/// Rows that follow one another at one position, of one survey line, with the same A and B and the same current, are a
/// firing as long as M is the N of the row before, up to ten of them; every other row begins a firing. A row without
/// a reading keeps its channel and leaves it without one. Electrodes behind the last one of a firing repeat it, so that
/// the cable is no longer than it is.
class ColumnFirings {
 public:
  /// @param layout of the latitudes and longitudes that measurements hold
  ColumnFirings(const ColumnLayout& columns, AngleFormat layout, const MisuraSink& sink)
      : layout_(layout), sink_(sink) {
    colonne(columns);
  }

  /// The columns of the rows to come.
  void colonne(const ColumnLayout& layout) {
    geographic_ = layout.geografica();
    named_ = layout.ha(Column::Line);
  }
  /// @throws RunTimeError naming a number that has no single-precision form; then nothing is taken
  void prendi(const ColumnRow& row, std::size_t line);
  /// Hands on what is left.
  void chiudi();

  const ColumnFiringTally& tally() const { return tally_; }

 private:
  /// Current and potential of a row as singles; a nominal current where it has none.
  struct Reading {
    float current, potential;
    bool stored, nominal;
  };
  static Reading lettura(const ColumnRow& row);
  bool continua(const ColumnRow& row, const Reading& reading) const;
  void apri(const ColumnRow& row, const Reading& reading, float depth, std::size_t line);
  void notaPosizione(std::size_t line);

  bool geographic_ = false;
  bool named_ = false;  // rows name their survey lines
  AngleFormat layout_;
  const MisuraSink& sink_;
  ColumnFiringTally tally_;

  Misura m_;
  std::size_t channels_ = 0;  // of the open firing; 0: none is open
  double north_ = 0, east_ = 0;
  bool nominal_ = false;
  std::size_t first_ = 0;  // its first line
  std::string line_;
  bool anyLine_ = false;
};

}  // namespace corvan

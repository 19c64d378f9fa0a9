// Walks the lines of a column text: header, rows, and what is neither.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "input/ColumnFirings.h"
#include "input/ColumnLayout.h"
#include "input/ColumnRow.h"
#include "input/FileRead.h"

namespace corvan {

/// What is known of a column text before its rows are read.
struct ColumnPlan {
  ColumnNames names;       ///< of the header, or as somebody stated them
  std::size_t header = 0;  ///< its line; 0: the columns were stated
  double spacing = 1;      ///< m from electrode to electrode; 1 where rows hold places
};

/// What a walk saw beside rows.
struct ColumnScan {
  std::size_t lines = 0;  ///< of the file
  std::size_t blank = 0;  ///< between rows
  std::size_t comments = 0;
  std::size_t repeated = 0;  ///< headers like the one in force
  Counted preamble;  ///< lines before the header, or text before the first row where columns were stated; no comments
  Counted numbersBefore;  ///< those of them that hold numbers
  Counted headers;        ///< headers with other columns, which hold from there on
  Counted cut;            ///< lines too long to be held
  std::size_t end = 0;    ///< the line that ended the reading; 0: the file's end
  std::string endReason;
  std::size_t left = 0;             ///< rows from there on
  std::vector<std::string> unused;  ///< columns of the first header that are not read
  RowTally rows;
  ColumnFiringTally firings;
};

/// The header of a text and its line, from 1; a header without line where there is none in the beginning.
ColumnPlan CercaTestata(std::string_view beginning);

/// The first row of the beginning under a plan; none where no line is one, or where units behind the header say that
/// electrodes are places.
std::optional<ColumnRow> PrimaRiga(std::string_view beginning, const ColumnPlan& plan);

/// Hands every firing to `sink`. @param scan what was found so far, whole when the walk comes to its end
/// @throws FileError
void EsaminaColonne(const std::filesystem::path& path, const ColumnPlan& plan, AngleFormat layout,
                    const MisuraSink& sink, ColumnScan& scan, std::size_t block);

/// What was left out, passed over, or read otherwise than written.
Findings RilieviColonne(const ColumnScan& scan, const ColumnPlan& plan, const ReadOptions& options);

}  // namespace corvan

// Reader of column texts: one row a reading, columns named by a header or by a person.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "input/FileRead.h"

namespace corvan {

/// How the beginning of a file shows that it is a column text.
enum class ColumnStart {
  None,     ///< it is none
  Numbers,  ///< rows of numbers whose columns nobody names
  Partial,  ///< a header that names a, b, m and n, but neither all that is needed nor all of it once
  Named     ///< a header that names all that is needed
};

/// A first 64 KiB is enough to be handed: what stands behind it is not looked at.
ColumnStart InizioColonne(std::string_view beginning);

/// Hands the firings of a column text to `sink`, in the order of its rows (see ColumnFirings.h).
///
/// The first line that names a, b, m and n is the header; what stands before it is told and not read. Without one, or
/// where it is not whole, `columns` names them. Another header further down holds from there on. Rows with more or
/// fewer values than columns, without a number for each electrode, or without any number are left out and told; a
/// number that is too large ends the reading. A row without a position is a firing without one. Memory is that of one
/// block of the file.
/// @param columns as LeggiColonne reads them; empty: the header must do
/// @param block bytes of the file held at once
FileReport LeggiFileColonne(const std::filesystem::path& path, const std::string& columns, const ReadOptions& options,
                            const MisuraSink& sink, std::size_t block = std::size_t{1} << 20);

}  // namespace corvan

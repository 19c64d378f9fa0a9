// Walks the data lines of the instrument's text export: one measurement a line, in blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "base/NumberCheck.h"
#include "input/FileRead.h"
#include "input/FormatCheck.h"

namespace corvan {

/// What the lines taken end at.
enum class DataEnd : std::uint8_t {
  File,        ///< the file's end
  LastLine,    ///< the file's last line, left out by rule
  LostFix,     ///< a firing without position
  Blank,       ///< a blank line
  Header,      ///< a repeated header
  LastFix,     ///< the last position of the file
  OutOfRange,  ///< a number too large for its type
};

/// Lines of one kind: how many, and the first.
struct LinesSeen {
  std::size_t count = 0;
  std::size_t first = 0;   ///< its number
  std::size_t values = 0;  ///< how many values it holds

  void add(std::size_t number, std::size_t held) {
    if (count++ > 0) return;
    first = number;
    values = held;
  }
};

/// Where the data of a text export lie and what was amiss. Line numbers are 1-based; 0 stands for none. "Firings" are
/// lines that are neither blank nor a header.
struct TextScan {
  explicit TextScan(const ReadOptions& options) : format(options) {}

  std::size_t lines = 0;         ///< of any kind
  std::size_t firings = 0;       ///< lines of firings
  std::size_t taken = 0;         ///< firings handed on
  std::size_t PrimoValido = 0;   ///< first line taken
  std::size_t UltimoValido = 0;  ///< last line taken
  bool anyFix = false;
  std::size_t leading = 0;      ///< firings before the first position
  std::size_t passedOver = 0;   ///< blank lines and headers between lines taken
  DataEnd end = DataEnd::File;  ///< what ends the lines taken
  std::size_t endLine = 0;      ///< the line that did; with LastFix the one that is still taken
  std::string endText;          ///< what stands there where it is no number, or too large a one
  std::size_t left = 0;         ///< firings left out from the end on
  std::size_t leftWithFix = 0;  ///< those of them with a position
  LinesSeen incomplete;         ///< lines taken in which values are missing
  LinesSeen surplus;            ///< lines taken that hold more than a firing
  NumberCheck numbers;          ///< of the lines taken
  FormatCheck format;           ///< likewise
};

/// Finds the data of a text export and hands every firing taken to `sink`; NumFile is 1.
///
/// To the first lost fix: the data begin at the first line with a position and end before the first line whose field 26
/// is 0 or no number, so at a blank line and at a repeated header too; where none follows, the file's last line is left
/// out, as it always has been. A last line that does not reach field 26 is that same line, cut short.
/// Past lost fixes: the data end with the last line that has a position; blank lines and headers before it are no
/// firings and end nothing.
/// A file without any position gives all its firings but one in its last line.
/// A number out of its type's range in a line that would be taken ends the data before it.
/// @param scan what was found so far, whole when the walk comes to its end
/// @param block bytes of the file held at once
/// @throws FileError
void EsaminaTesto(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink, TextScan& scan,
                  std::size_t block = std::size_t{1} << 20);

}  // namespace corvan

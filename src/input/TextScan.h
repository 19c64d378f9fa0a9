// Walks the data lines of the instrument's text export: one pass, one measurement a line.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "input/InputContext.h"
#include "survey/Misura.h"

namespace corvan {

inline constexpr std::size_t TextFields = 49;  ///< values of a complete line
inline constexpr std::string_view TextHeader = "DISTANCE";

/// Where the data of a text export lie and what was amiss. Line numbers are 1-based; 0 stands for none.
struct TextScan {
  std::size_t lines = 0;
  std::size_t PrimoValido = 1;   ///< first line with a position; 1 when none has one
  std::size_t UltimoValido = 0;  ///< last line taken
  bool anyFix = false;
  std::size_t lostLine = 0;        ///< first line without position behind PrimoValido
  std::size_t lostFilled = 0;      ///< lines left out from there on that are not blank
  std::size_t lostPositioned = 0;  ///< those of them with a position
  std::size_t shortLine = 0;       ///< first line taken that has too few fields
  std::size_t shortFields = 0;     ///< how many it has
  std::size_t shortLines = 0;      ///< how many such lines
};

/// Takes the measurements in the order of their lines.
using MisuraSink = std::function<void(const Misura&)>;

/// Finds the data of a text export and hands every line taken to `sink`. The data begin at the first line with a
/// position and end before the first without one; where none follows, the file's last line is left out, as it always
/// has been. Past lost fixes the data end with the last line that has a position. A file without any position gives
/// all its lines but the last.
/// @param coordUTM fields 26 and 27 are northing and easting
/// @throws RunTimeError naming the line that holds a number out of its type's range; earlier lines have been handed on
TextScan EsaminaTesto(std::string_view text, ReadSpan span, bool coordUTM, const MisuraSink& sink);

}  // namespace corvan

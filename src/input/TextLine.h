// One line of the instrument's text export: what kind of line it is and the firing that it holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/NumberCheck.h"
#include "base/Position.h"
#include "survey/Misura.h"

namespace corvan {

inline constexpr std::size_t TextFields = 49;     ///< values of a complete line
inline constexpr std::size_t PositionField = 26;  ///< latitude or northing; 0 means that the line has no position
inline constexpr std::string_view TextHeader = "DISTANCE";

enum class LineKind : std::uint8_t {
  Firing,
  Blank,  ///< blanks, tabs and separators at most
  Header  ///< begins with TextHeader, in capitals or not
};
LineKind GenereRiga(std::string_view line);

/// Field 26, looked at alone, holds a number other than 0; one too large for a number counts as such.
bool RigaConFix(std::string_view line);

/// A firing as one line holds it, and what was amiss.
struct LineRead {
  Misura misura;
  bool fix = false;         ///< field 26 is not 0
  std::size_t values = 0;   ///< fields that are not empty, those behind the 49th included
  bool incomplete = false;  ///< a field is empty or missing and read as 0, other than those of the position
  bool surplus = false;     ///< something stands behind the 49th field
  bool improper = false;    ///< a field is not a number from end to end
};

/// @param layout of latitude and longitude; none: fields 26 and 27 are northing and easting
/// @throws RunTimeError when a number is out of its type's range
LineRead LeggiRiga(std::string_view line, std::optional<AngleFormat> layout);

/// Takes the fields of a line that are not numbers from end to end into a check.
void NotaNumeri(std::string_view line, std::size_t number, NumberCheck& check);

/// Which field of a line that LeggiRiga refuses is out of range: "field 4: "1e99" is too large".
std::string CampoFuori(std::string_view line);

}  // namespace corvan

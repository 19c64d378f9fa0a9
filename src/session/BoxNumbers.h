// Numbers typed into boxes and questions: what is read otherwise than typed is said, what fits no number is refused.
#pragma once

#include <limits>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Findings.h"

namespace corvan {

/// What a box asks for, as a finding names it.
struct BoxNumber {
  const char* procedure;                                  ///< the procedure that reads the box, e.g. "SetUtmZone"
  const char* what;                                       ///< e.g. "zone"
  double low = -std::numeric_limits<double>::infinity();  ///< the range beside that of the type, both ends in it
  double high = std::numeric_limits<double>::infinity();
};

/// The leading number of a text, rounded to the type. Not a number from end to end (a decimal comma, a tail, a word,
/// nothing at all, which reads as 0): a note says what was read. Out of the type's or the box's range: a fault.
/// @tparam Number std::int16_t, std::int32_t (halves to even), float or double
/// @return none when the answer is refused: then nothing may change
template <class Number>
std::optional<Number> NumeroDaCasella(std::string_view text, const BoxNumber& box, Findings& findings);

/// Two numbers with a ";" between them, each read as above. A side that is missing: a note, and nothing may change.
/// An empty answer has a meaning of its own, or none, and is settled before.
template <class Number>
std::optional<std::pair<Number, Number>> CoppiaDaCasella(std::string_view text, const BoxNumber& box,
                                                         Findings& findings);

}  // namespace corvan

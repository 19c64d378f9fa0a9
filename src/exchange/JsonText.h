// JSON composed as text: an output of any length needs no document in memory.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

#include "export/SurveyColumns.h"

namespace corvan {

/// Appends a text in quotes. Bytes that are no UTF-8 are replaced by U+FFFD.
void AggiungiTestoJson(std::string& out, std::string_view text);

/// Appends the shortest number that reads back to the same value; null for one that is not finite, which JSON has not.
template <class Number>
void AggiungiNumeroJson(std::string& out, Number value) {
  if constexpr (std::is_floating_point_v<Number>) {
    if (!std::isfinite(value)) {
      out += "null";
      return;
    }
  }
  AggiungiValore(out, value);
}

}  // namespace corvan

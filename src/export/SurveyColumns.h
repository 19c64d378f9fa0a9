// The columns of the survey's table: what the .csv writes and the window shows.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "survey/Survey.h"

namespace corvan {

/// What stands in one field, with the width that its text must read back to.
struct TableValue {
  enum class Form : std::uint8_t { Empty, Whole, Single, Double };
  Form form = Form::Empty;
  double number = 0;
};

struct TableColumn {
  std::string name;     ///< in the header of the .csv, e.g. "rho1"
  const char* unit;     ///< empty for none
  const char* meaning;  ///< for people, without the number of channel or electrode
  std::size_t slot;     ///< channel or electrode, from 1; 0 for a column without one
  TableValue (*value)(const Survey& survey, std::size_t n, std::size_t slot);

  /// @param n measurement, 1 to NumMisure
  TableValue at(const Survey& survey, std::size_t n) const { return value(survey, n, slot); }
};

/// The columns of a survey's table, in their order: those of excluded readings only where a limit of quality is in
/// force or a reading was decided by hand.
const std::vector<TableColumn>& ColonneTabella(const Survey& survey);

/// The time of a measurement is known. Binary records shorter than those that hold one have none; text exports keep the
/// 0 that they have always had.
bool HaTempo(const Survey& survey, const Misura& m);

/// The text of a field: empty, or the shortest that reads back to the same value of its width.
std::string TestoValore(const TableValue& value);

/// Appends a number as the table holds it.
template <class Number>
void AggiungiValore(std::string& out, Number value) {
  std::array<char, 64> buffer{};
  char* const last = buffer.data() + buffer.size();
  if constexpr (std::is_floating_point_v<Number>) {
    // Whole numbers below 100,000 are never shorter with an exponent; positions along the cable are written in a
    // fifth of the time so.
    const auto whole = static_cast<std::int32_t>(std::abs(value) < Number{1e5} ? value : Number{0});
    if (whole != 0 && static_cast<Number>(whole) == value) {
      out.append(buffer.data(), std::to_chars(buffer.data(), last, whole).ptr);
      return;
    }
  }
  out.append(buffer.data(), std::to_chars(buffer.data(), last, value).ptr);
}

}  // namespace corvan

// Texts of a file or an answer that are not the numbers they are read as: how many, the first one and what was read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/NumberText.h"

namespace corvan {

/// The text in quotes, as a message shows what a file or a box holds: without the blanks round it, a long one is cut,
/// control characters stand as \xNN.
std::string Citazione(std::string_view text);

/// "\"45,4\" read as 45".
std::string LettoCome(std::string_view text, double value);

/// One for each file or answer.
class NumberCheck {
 public:
  /// Takes a text that was read; proper numbers and empty texts are passed over.
  /// @param line,field where it stands, from 1; 0 where there is no such thing
  void prendi(std::string_view text, const NumeroLetto& number, std::size_t line = 0, std::size_t field = 0) {
    if (number.improprio()) conta(text, number.value, line, field);
  }

  /// Reads a text and takes it. @throws RunTimeError as Val does
  double leggi(std::string_view text, std::size_t line = 0, std::size_t field = 0) {
    const NumeroLetto number = LeggiNumero(text);
    prendi(text, number, line, field);
    return number.value;
  }

  std::size_t count() const { return count_; }
  /// One sentence for a finding, such as "3 values are not numbers from end to end, the first in line 4, field 26:
  /// "45,4" read as 45"; empty where all were proper.
  std::string detto() const;

 private:
  void conta(std::string_view text, double value, std::size_t line, std::size_t field);

  std::size_t count_ = 0;
  std::string first_;
};

}  // namespace corvan

// Cutting lines of text into fields.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvan {

/// The text without the blanks at both ends (blanks only, tabs stay).
std::string_view Rifila(std::string_view text);

/// Walks the fields of one line from left to right, each cut once.
class FieldCursor {
 public:
  /// @param riga the line; blanks at its ends and one separator at its very start are dropped
  /// @param separatore one or more characters
  FieldCursor(std::string_view riga, std::string_view separatore);

  /// True while a field is left; a line always has at least one, possibly empty.
  bool more() const { return !done_; }
  /// The next field, not trimmed at its right end; empty once there is none.
  std::string_view next();

 private:
  std::string_view rest_;
  std::string_view separator_;
  bool done_;
};

/// The separator of a line when none is given: ";", else a tab, else the character 0, else a blank.
std::string ScegliSeparatore(std::string_view riga);

/// The k-th field of a line as a number; 0 when the field is absent or no number.
/// @param separatore when empty, the separator is chosen by the line and written back
/// @param k 1-based
double EstraiCampo(std::string_view riga, std::string& separatore, std::size_t k);

/// The k-th field of a line as text, blanks trimmed; empty when the field is absent.
std::string_view EstraiTesto(std::string_view riga, std::string& separatore, std::size_t k);

/// How many fields the line has for this separator.
std::size_t ContaCampi(std::string_view riga, std::string_view separatore);

}  // namespace corvan

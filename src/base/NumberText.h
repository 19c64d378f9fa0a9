// Numbers to text and back: plain texts, format masks and the reading of a text's leading number. No locale anywhere.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvan {

/// The leading number of a text: optional sign, digits, one point, optional exponent; blanks and tabs before it are
/// skipped. 0 when there is none; "inf", "nan" and hexadecimal are no numbers; a comma ends the number.
/// @throws RunTimeError when the number is too large for a 64-bit float
double Val(std::string_view text);

/// What stands in a text beside the number that Val reads.
enum class TextForm : std::uint8_t {
  Number,  ///< nothing: the text is that number from end to end, but for blanks and tabs around it
  Empty,   ///< blanks at most
  Comma,   ///< a comma ends the number or stands in its place: most likely the decimal mark
  Tail,    ///< something else is behind the number
  Word     ///< no number at the beginning
};

/// The number that Val reads in a text and what else stands there.
struct NumeroLetto {
  double value = 0.0;
  TextForm form = TextForm::Empty;

  /// Something stands there that is not a number from end to end.
  bool improprio() const { return form > TextForm::Empty; }
};

/// @throws RunTimeError as Val does
NumeroLetto LeggiNumero(std::string_view text);

/// The number at a text's beginning, blanks and tabs before it skipped.
struct NumeroIniziale {
  double value = 0.0;
  const char* end = nullptr;  ///< behind the number's last character; null when the text does not begin with one
};

/// For readers that cut a line as they go: the number need not be cut out first. @throws RunTimeError as Val does
NumeroIniziale CercaNumero(std::string_view text);

/// True when the whole text, but for blanks around it, is one finite number that Val reads.
bool SoloNumero(std::string_view text);

/// Shortest plain decimal that reads back to the same value of its own type; never an exponent, "0" kept before the
/// point.
std::string TestoNumero(double value);
std::string TestoNumero(float value);

/// For messages: rounded to tenths and without a point behind a whole number ("24", "5.2").
std::string TestoDecimi(double value);

/// The same behind a blank in the place of the sign when the number is not negative (" 4", "-4").
template <class Number>
std::string TestoConSegno(Number value) {
  std::string text = TestoNumero(value);
  return text.front() == '-' ? text : " " + text;
}

/// A format mask such as "#####0.##": "0" is a digit always written, "#" one written when it is not an idle zero.
struct Mask {
  // NOLINTNEXTLINE(google-explicit-constructor): masks are written as literals where they are used
  constexpr Mask(const char* text) {
    bool fraction = false;
    for (; *text != '\0'; ++text) {
      if (*text == '.') {
        fraction = point = true;
      } else if (fraction) {
        ++places;
        if (*text == '0') forcedPlaces = places;
      } else if (*text == '0') {
        ++forcedDigits;
      }
    }
  }
  int forcedDigits = 0;  ///< digits written before the point at least
  int places = 0;        ///< digits behind the point at most
  int forcedPlaces = 0;  ///< digits behind the point at least
  bool point = false;    ///< the mask holds a point, which is then written always
};

/// Writes a number through a mask. The value is taken with 15 significant decimal digits and rounded in decimal to
/// the mask's places, halves away from zero; extra integer digits are kept; no minus sign where all digits written are
/// zeros. A value that is not finite gives an empty text.
std::string FormattaNumero(double value, Mask mask);
/// The same, appended to `out`.
void AggiungiNumero(std::string& out, double value, Mask mask);

/// The number that a mask of so many places would write and Val would read back, without the way through the text where
/// rounding cannot go two ways. 0 for a value that is not finite. @param places 0 to 15
double ArrotondaDecimale(double value, int places);

}  // namespace corvan

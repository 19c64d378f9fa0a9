// Small text operations shared by readers and boxes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvan {

/// ASCII letters to capitals; all other bytes stay.
std::string Maiuscolo(std::string_view text);

/// The text with each occurrence of `part` taken out.
std::string Senza(std::string_view text, std::string_view part);

/// "1 record", "3 records".
std::string Quanti(std::uintmax_t count, std::string_view one, std::string_view many);

/// How a finding goes on with its place: ", it is " where there is one, else ", the first is ".
std::string_view IlPrimo(std::uintmax_t count);

/// What happens to the line feeds of a text that is made harmless.
enum class LineFeeds { Shown, Kept };

/// A text from outside (a name, a cell) as it may go to a terminal: control characters, which could move its cursor or
/// answer in its place, stand as \xNN. They are 0 to 1F, 7F and, in UTF-8, U+0080 to U+009F; bytes that are no UTF-8
/// are shown likewise.
std::string Visibile(std::string_view text, LineFeeds feeds = LineFeeds::Shown);

/// Items laid out in print zones of 14 columns (starting at columns 1, 15, 29, ...): each item begins at the next free
/// zone, and at once behind an item that fills its zone exactly; no blanks at the line's end.
class PrintLine {
 public:
  void add(std::string_view item);
  /// The line without its line end.
  std::string text() const;

 private:
  std::string line_;
};

}  // namespace corvan

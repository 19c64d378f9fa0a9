// The command line of the window.
#pragma once

#include <QStringList>
#include <span>
#include <string>
#include <string>

namespace corvan {

/// What a start has to say before, or instead of, opening the window.
struct StartAnswer {
  bool ends = false;  ///< nothing is opened
  int status = 0;     ///< 0, or 2 for an option that is not known
  std::string out;    ///< for standard output
  std::string error;  ///< for standard error
};

/// Needs no display. @param arguments without the program's own name; options of the toolkit are let through
StartAnswer RispostaIniziale(std::span<const std::string> arguments);

/// The files among the arguments that the toolkit has left, without the program's own name. Behind "--" every argument
/// is a file.
QStringList FileNominati(const QStringList& arguments);

}  // namespace corvan

// What the system hands a program at its start: arguments and standard streams.
#pragma once

#include <string>
#include <vector>

namespace corvan {

/// The arguments behind the program's name, in UTF-8 on every system (elsewhere than on Windows: the bytes as they
/// are). Windows hands wildcards over as they were typed: one that fits files stands for them here, in the order of
/// their names; one that fits none, and what begins with "-", stays.
std::vector<std::string> Argomenti(int argc, const char* const* argv);

/// Makes standard input, output and error carry bytes as they are, on Windows too, where they would turn line feeds
/// into pairs and UTF-8 into another alphabet. A program for the desktop takes the console that it was started from, if
/// any.
void PreparaFlussi();

/// True where standard error is read by a person at a terminal that understands its control sequences.
bool ErroreSuTerminale();

}  // namespace corvan

// Latitudes and longitudes as text in the three layouts of the instrument's files.
#pragma once

#include <string>
#include <string_view>

#include "base/Position.h"

namespace corvan {

/// How people and the command line call a layout: "decimal degrees" and "dd".
struct AngleFormatName {
  const char* name;
  const char* word;
};
AngleFormatName NomeFormato(AngleFormat format);

/// Reads an angle. Blanks, "°" and "'" are ignored, "," counts as the decimal point. The sign belongs to the whole
/// angle; a text without a point has it at its end (4530 is 45°30'); pieces before the text's start are empty or
/// shorter (5.25 is 0°05.25'); an empty text is 0.
/// @return decimal degrees. @throws RunTimeError when a piece is too large for a number
double GradiDaTesto(std::string_view text, AngleFormat format);

/// Writes an angle in decimal degrees: 45.5 gives "453000.0", "4530.00" or "45.5000". The whole angle is rounded to
/// the last place first (0.01", 0.000001' or 1e-10°) and then split, so that no piece reads 60.
/// @throws RunTimeError when it is too large to be split
std::string TestoDaGradi(double degrees, AngleFormat format);

/// The angle that a number of this layout stands for: what GradiDaTesto reads in the number's shortest text, without
/// the way through it where the digits cannot matter. @return decimal degrees
double GradiDaNumero(double number, AngleFormat format);

/// An angle in decimal degrees as the number that TestoDaGradi writes, rounded to its last place: tables hold the
/// latitudes and longitudes of UTM positions so. @throws RunTimeError when it is too large to be split
double NumeroScritto(double degrees, AngleFormat format);

/// An angle in decimal degrees as the number that a file of this layout would hold (45.5 gives 453000, 4530 or 45.5),
/// at full precision.
double NumeroDaGradi(double degrees, AngleFormat format);

}  // namespace corvan

// Measurements and fixes described in one line, as the labels on the picture and the panel of the extremes show them.
#pragma once

#include <cstddef>
#include <string>

#include "survey/Survey.h"

namespace corvan {

/// Full name of the file that a measurement came from; empty where it names none.
std::string FileDi(const Survey& survey, const Misura& m);

/// The file's name without its folder, and the line's number where it names lines: "survey.txt, line 2".
std::string NomeLinea(const Survey& survey, const Misura& m);

/// "File." name, " Data. " date and time, " Lg." longitude, " Lt." latitude (as the file lays them out), " D.Prog. "
/// distance along the track in metres. @param k 1-based
std::string DescriviMisura(const Survey& survey, std::size_t k);

/// The same with " Dpt. " and the water depth in metres at the end.
std::string DescriviFondo(const Survey& survey, std::size_t k);

/// " GPS: " number, " Lg." and " Lt." in the layout of the coordinate format, " D.Prog. " distance along the track and
/// " Depth: ", in metres. @param k 1-based
std::string DescriviFix(const Survey& survey, std::size_t k);

}  // namespace corvan

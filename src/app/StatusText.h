// What the status line says, as texts.
#pragma once

#include <cstdint>
#include <optional>
#include <QString>
#include <vector>

#include "app/ElidedLabel.h"
#include "base/Findings.h"
#include "base/Position.h"
#include "survey/Survey.h"
#include "view3d/Picking.h"

namespace corvan {

/// "2 files, 438 measurements, track of 795 fixes"; "No survey".
QString TestoFile(const Survey& survey);

/// "UTM 33 N": the grid that all positions stand on. Empty before a survey or a track is there.
QString TestoZona(const Survey& survey);

/// "40 to 180: 140 points, 853 m": the points kept between the extremes and the length of the track there. One extreme
/// alone: "40 to ..."; none: empty.
QString TestoSezione(const Survey& survey, std::optional<std::int32_t> first, std::optional<std::int32_t> second);

/// "1: measurement 40, line_2.bin, 15/06/2026 06:02:36"; a file without times leaves theirs out.
QString TestoEstremo(const Survey& survey, int which, std::int32_t measurement);

/// "E 290214.6  N 5032118.3".
QString TestoGriglia(double easting, double northing);

/// "45.41225° N  12.31234° E"; empty where the grid has no such place.
QString TestoCoordinate(const Grid& place);

/// Latitude and longitude that the projection sends to this place: the series back alone would miss it by metres.
std::optional<Geographic> CoordinateDi(const Grid& place);

/// "level 3, 12.35 Ohm m", ", excluded" behind it.
QString TestoCella(const CellaVista& cell);

/// What is told of the last command.
struct StatusNote {
  QString text;
  QString more;   ///< " and 3 more"
  QString whole;  ///< the text with the full name of its file
  Tone tone = Tone::Plain;
};

/// The gravest of its findings, the first of equals, and behind it what the command has written all the same.
StatusNote NotaDi(std::span<const Finding> findings, const std::vector<std::filesystem::path>& written);

}  // namespace corvan

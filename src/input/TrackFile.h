// Readers of external GPS and depth tracks: bytes in, fixes and findings out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/Findings.h"
#include "base/Position.h"
#include "survey/ExternalTrack.h"

namespace corvan {

enum class TrackKind { Csv, SixColumns, Nmea, Sav, Gpx };

struct TrackOptions {
  AngleFormat layout = AngleFormat::DMM_MMM;  ///< of six columns, and of GeoA and GeoB
  std::optional<double> firstDay;             ///< day number of the first fix of an NMEA log that holds no date
};

/// What a track file gave. Each fix has its source, its time and, where there is one, its depth; GeoA and GeoB where
/// the source is geographic. Fixes stand in the order of the file.
struct TrackRead {
  TrackKind kind = TrackKind::SixColumns;
  Array1<PuntoGPSEst> fixes;
  std::size_t lines = 0;              ///< of the file, however they end
  std::optional<AngleFormat> likely;  ///< the layout that the numbers of six columns look like; nothing when no angle's
  bool undated = false;               ///< an NMEA log whose date nobody told: its first fix stands on day 0
  Findings findings;                  ///< what was passed over and why, without the file's name
};

/// The kind that a file's content tells: GPX when it begins as XML whose root is gpx, an NMEA log when any line holds a
/// known sentence, else six columns or a table by the first line that has a date and a time in its fields 1 and 2, or 3
/// and 4. Nothing when no line does.
std::optional<TrackKind> GenereDaContenuto(std::string_view content);

/// The kind of a track: ".sav" by the name's ending, everything else by content. Where the content tells nothing, a
/// name that ends in ".csv" is a table and any other six columns.
TrackKind GenereTraccia(std::string_view name, std::string_view content);

/// For people: "table of positions (.csv)" and so on.
const char* NomeGenere(TrackKind kind);

/// Delimited text with positions on the survey's grid: fields 3 and 4 date and time, 8 depth, 10 easting, 11 northing;
/// the first line is a header. A date that cannot be read or a number too large ends the track there.
TrackRead LeggiFileCSV(std::string_view content, const TrackOptions& options);

/// Date, time, a whole number, latitude, longitude in the layout, depth; no header. Ends as the table does.
TrackRead LeggiGPS6Col(std::string_view content, const TrackOptions& options);

/// An NMEA 0183 log (see NmeaLog.h).
TrackRead LeggiFileNav(std::string_view content, const TrackOptions& options);

/// A GPX track, 1.0 or 1.1: the points of all its segments in their order, with time and, from the usual extensions, a
/// depth. Points whose time or position cannot be used are left out and told; broken XML ends the track before the
/// point that it breaks in, and a document type with declarations of its own gives nothing. Where no point tells a time
/// all are kept without one.
TrackRead LeggiFileGpx(std::string_view content, const TrackOptions& options);

/// The six columns, meant to be resampled.
TrackRead LeggiFileSav(std::string_view content, const TrackOptions& options);

/// The reader of a kind.
TrackRead LeggiTraccia(TrackKind kind, std::string_view content, const TrackOptions& options);

/// Puts `count` points on the cubic Bezier curve of each run of four fixes (1 to 4, 4 to 7, ...), latitude against
/// longitude or northing against easting as they were read, time and depth linearly between the fixes: depth only where
/// both have one. A rest of fewer than four fixes stays as it is, and so do all below two points.
/// @param fixes all of one kind of source @param layout of GeoA and GeoB
Array1<PuntoGPSEst> Ricampiona(const Array1<PuntoGPSEst>& fixes, std::int16_t count, AngleFormat layout);

}  // namespace corvan

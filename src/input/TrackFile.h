// Readers of external GPS and depth tracks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "geo/GeoGeo.h"
#include "survey/ExternalTrack.h"

namespace corvan {

enum class TrackKind { Csv, SixColumns, Nmea, Sav };

/// What a track file gave. Fixes stand in the order of the file, X and Y in the zone of the Geo that was used.
struct TrackRead {
  TrackKind kind = TrackKind::SixColumns;
  Array1<PuntoGPSEst> fixes;
  std::size_t lines = 0;
  Findings findings;  ///< what was passed over and why
};

/// The reader that a name calls for: its last four characters ".sav", ".nav" and ".csv", case-sensitively; any other
/// name is read as six columns, and a ".nav" file whose lines hold sentences as an NMEA 0183 log.
TrackKind GenereTraccia(std::string_view name, std::string_view content);

/// For people: "table of positions (.csv)" and so on.
const char* NomeGenere(TrackKind kind);

/// True when a text looks like a track of six columns: its first line with a date has one.
bool SembraSeiColonne(std::string_view content);

/// Delimited text with UTM coordinates: fields 3 and 4 date and time, 8 depth, 10 easting, 11 northing; the first line
/// is a header. A date that cannot be read ends the track there.
TrackRead LeggiFileCSV(std::string_view content, GeoGeo& geo);

/// Date, time, a whole number, latitude, longitude in Geo's layout, depth; no header.
TrackRead LeggiGPS6Col(std::string_view content, GeoGeo& geo);

/// An NMEA 0183 log (see NmeaLog.h).
TrackRead LeggiFileNav(std::string_view content, GeoGeo& geo);

/// The six columns; from four fixes on asks for "N Bezier Points" and, for two or more, puts so many points on the
/// cubic Bezier curve of each run of four fixes (1 to 4, 4 to 7, ...), time and depth linearly between the fixes. A
/// rest of fewer than four stays as it is, and so do all fixes when nothing is answered.
TrackRead LeggiFileSav(std::string_view content, GeoGeo& geo, Dialogs& dialogs);

/// The reader of a kind.
TrackRead LeggiTraccia(TrackKind kind, std::string_view content, GeoGeo& geo, Dialogs& dialogs);

/// Fills Progressiva. @return the mean spacing of the fixes, m; 0 below two
double CalcolaProgressiva(Array1<PuntoGPSEst>& fixes);

}  // namespace corvan

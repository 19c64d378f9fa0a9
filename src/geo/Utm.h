// Geographic positions to the UTM grid and back, by the series that published files were made with.
#pragma once

#include <optional>

#include "base/Position.h"
#include "geo/Datum.h"

namespace corvan {

/// Easting and northing of a position on the grid of a zone, which need not be the zone that the position lies in: a
/// survey is kept in one zone.
/// Source: J. P. Snyder, Map Projections, USGS PP 1395, in the form of the US Army's TM 5-241-8; three coefficients of
/// the meridional arc differ from the textbook. Up to 3 degrees from the central meridian the result stays within
/// decimetres of the exact projection (docs/accuracy.md).
/// @param zone 1 to 61 (180 degrees east taken as it stands); southern northings are 10,000,000 m larger
/// @return nothing where the arithmetic has no finite result
std::optional<Grid> VersoUTM(const Geographic& position, const GridZone& grid, const Datum& datum = Datums.front());

/// Latitude and longitude of a place on a grid, by the footpoint latitude.
/// Source: Snyder, USGS PP 1395, eq. 3-26 and 8-17 to 8-25, but for one sign: latitudes come out up to eight metres
/// short at 3 degrees from the central meridian. So a position is never sent there and back again.
/// @param place of a stated zone @return nothing where the arithmetic has no finite result
std::optional<Geographic> DaUTM(const Grid& place, const Datum& datum = Datums.front());

/// UTM zone of a longitude in degrees; outside -180..180 it is taken as DDDMM. 180 gives 61, deliberately unclamped.
/// @throws RunTimeError when the zone has no 16-bit form
std::int16_t UTMZoneOf(float longitude);

/// The same, by the name that "Read File" knows it by.
inline std::int16_t SelezionaZonaUTM(float x) { return UTMZoneOf(x); }

}  // namespace corvan

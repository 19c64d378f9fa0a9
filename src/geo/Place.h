// The one way from the source of a position to everything that is derived from it.
#pragma once

#include <optional>

#include "base/Position.h"

namespace corvan {

/// A position in both forms, on one grid.
struct Place {
  Geographic geographic;
  Grid grid;
};

/// Derives both forms straight from the source. A geographic source is projected into the grid. Grid numbers of the
/// same zone stay as they are (of the other hemisphere, moved by 10,000,000 m); those of another zone go over latitude
/// and longitude; those of no stated zone are taken to lie on this grid. So a survey that changes its grid and comes
/// back has its first numbers again, to the last bit.
/// @param grid of a stated zone, 1 to 60
/// @return nothing without a source and where the series have no finite result
std::optional<Place> Colloca(const PositionSource& source, const GridZone& grid);

/// The grid that a position fixes for its survey: the zone of its longitude (180 degrees lie in zone 60) and the
/// hemisphere of its latitude. Nothing for a longitude that has no zone.
std::optional<GridZone> GrigliaDi(const Geographic& position);

}  // namespace corvan

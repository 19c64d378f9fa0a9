// Places on the earth as values: geographic, or on a grid of the Universal Transverse Mercator projection.
#pragma once

#include <cstdint>
#include <variant>

namespace corvan {

/// Layout of an angle written as one number or text: degrees, minutes and seconds run together, degrees and decimal
/// minutes run together, or decimal degrees.
enum class AngleFormat : std::uint8_t { DMMSS, DMM_MMM, D_DDDD };

enum class Hemisphere : std::uint8_t { North, South };

/// Decimal degrees, north and east positive.
struct Geographic {
  double latitude = 0;
  double longitude = 0;

  friend bool operator==(const Geographic&, const Geographic&) = default;
};

/// Which grid: a zone, 1 to 60, and a hemisphere. Zone 0: nobody has stated it.
struct GridZone {
  std::int16_t zone = 0;
  Hemisphere hemisphere = Hemisphere::North;

  friend bool operator==(const GridZone&, const GridZone&) = default;
};

/// Metres on the grid of a zone. With zone 0 the numbers lie on the grid of the survey, whichever that is.
struct Grid {
  double easting = 0;
  double northing = 0;
  std::int16_t zone = 0;
  Hemisphere hemisphere = Hemisphere::North;

  GridZone in() const { return {zone, hemisphere}; }
  friend bool operator==(const Grid&, const Grid&) = default;
};

/// A position as it was read, from which everything else is derived; nothing where there was none.
using PositionSource = std::variant<std::monostate, Geographic, Grid>;

inline bool HaSorgente(const PositionSource& source) { return !std::holds_alternative<std::monostate>(source); }

}  // namespace corvan

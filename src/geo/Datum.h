// The ellipsoids on which positions may be given.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace corvan {

struct Datum {
  std::string_view Name;  ///< as the user types it
  std::string_view Area;  ///< where it is used
  double SemiMajor = 0;   ///< equatorial radius a, m
  double SemiMinor = 0;   ///< polar radius b, m

  constexpr double Flattening() const { return (SemiMajor - SemiMinor) / SemiMajor; }
};

inline constexpr std::size_t DatumCount = 11;

/// The eleven datums; index 0 is slot 1 of the list. "North Amercia" is how the list has always spelled it.
inline constexpr std::array<Datum, DatumCount> Datums{{
    {"WGS84", "Global", 6378137.0, 6356752.314},
    {"NAD83", "Global", 6378137.0, 6356752.314},
    {"WGS72", "NASA", 6378135.0, 6356750.5},
    {"Australian 1965", "Australia", 6378160.0, 6356774.7},
    {"Krasovsky 1940", "Russia", 6378245.0, 6356863.0},
    {"International 1924, Hayford 1909", "Global with exception", 6378388.0, 6356911.9},
    {"Clarke 1880", "France, Africa", 6378249.1, 6356514.9},
    {"Clarke 1866", "North Amercia", 6378206.4, 6356583.8},
    {"Airy 1830", "Great Britain", 6377563.4, 6356256.9},
    {"Bessel 1841", "Central Europe, Chile, Indonesia", 6377397.2, 6356079.0},
    {"Everest 1830", "South Asia", 6378276.3, 6356075.4},
}};

}  // namespace corvan

#include "geo/ExactUtm.h"

#include <cmath>
#include <GeographicLib/TransverseMercator.hpp>

namespace corvan {

std::optional<Geographic> DaUTMEsatto(const Grid& place) {
  if (place.zone < 1 || place.zone > 60 || !std::isfinite(place.easting) || !std::isfinite(place.northing)) {
    return std::nullopt;
  }
  constexpr double falseEasting = 500000.0;
  const double falseNorthing = place.hemisphere == Hemisphere::North ? 0.0 : 10000000.0;
  Geographic found;
  GeographicLib::TransverseMercator::UTM().Reverse(6.0 * place.zone - 183.0, place.easting - falseEasting,
                                                   place.northing - falseNorthing, found.latitude, found.longitude);
  if (!std::isfinite(found.latitude) || !std::isfinite(found.longitude)) return std::nullopt;
  return found;
}

}  // namespace corvan

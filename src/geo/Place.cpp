#include "geo/Place.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Rounding.h"
#include "geo/Utm.h"

namespace corvan {
namespace {

constexpr double SouthernNorthing = 10'000'000.0;  // m, added south of the equator
constexpr std::int16_t LastZone = 60;

std::optional<Place> CollocaGriglia(Grid source, const GridZone& grid) {
  if (source.zone == 0) {
    source.zone = grid.zone;
    source.hemisphere = grid.hemisphere;
  }
  const std::optional<Geographic> geographic = DaUTM(source);
  if (!geographic) return std::nullopt;
  if (source.zone != grid.zone) {
    const std::optional<Grid> moved = VersoUTM(*geographic, grid);
    return moved ? std::optional(Place{*geographic, *moved}) : std::nullopt;
  }
  if (source.hemisphere != grid.hemisphere) {
    source.northing += grid.hemisphere == Hemisphere::South ? SouthernNorthing : -SouthernNorthing;
    source.hemisphere = grid.hemisphere;
  }
  return Place{*geographic, source};
}

}  // namespace

std::optional<Place> Colloca(const PositionSource& source, const GridZone& grid) {
  if (const auto* given = std::get_if<Grid>(&source)) return CollocaGriglia(*given, grid);
  const auto* geographic = std::get_if<Geographic>(&source);
  if (geographic == nullptr) return std::nullopt;
  const std::optional<Grid> projected = VersoUTM(*geographic, grid);
  return projected ? std::optional(Place{*geographic, *projected}) : std::nullopt;
}

std::optional<GridZone> GrigliaDi(const Geographic& position) {
  try {
    const std::int16_t zone = SelezionaZonaUTM(ASingolo(position.longitude));
    return GridZone{std::clamp<std::int16_t>(zone, 1, LastZone),
                    position.latitude >= 0.0 ? Hemisphere::North : Hemisphere::South};
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace corvan

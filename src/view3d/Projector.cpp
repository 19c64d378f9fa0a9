#include "view3d/Projector.h"

#include "base/Errors.h"

namespace corvan {

/// The line from the point to the vanishing point, cut by the line from the point's copy, shifted to the right by its
/// depth behind the window, to the left end of the horizon.
std::optional<PuntoPixel> Projector::prospettico(const Punto3D& rotated) const {
  try {
    const float shifted = ASingolo(rotated.x + (static_cast<double>(view_.FinestraIniziale.zmax) - rotated.y));
    const float leftEnd = ASingolo(static_cast<double>(view_.FugaX) - view_.DistanzaFuga);
    Punto3D point{rotated.x, rotated.z, 0.0F, 0.0F};
    Punto3D copy{shifted, rotated.z, 0.0F, 0.0F};
    Punto3D vanishing{view_.FugaX, view_.OrizzonteZ, 0.0F, 0.0F};
    Punto3D horizon{leftEnd, view_.OrizzonteZ, 0.0F, 0.0F};
    const Punto3D seen = IntersecaRette(point, copy, vanishing, horizon);
    return mappa(seen.x, seen.y);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace corvan

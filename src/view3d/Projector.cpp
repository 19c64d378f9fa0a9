#include "view3d/Projector.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"

namespace corvan {

/// In blocks with an array a coordinate, which run in vector units.
void Projector::tutti(std::span<const Punto3D> points, std::vector<PuntoPixel>& pixels) const {
  pixels.resize(points.size());
  if (view_.projection == Projection::Perspective) {
    std::transform(points.begin(), points.end(), pixels.begin(),
                   [this](const Punto3D& p) { return prospettico(ruota(p)).value_or(SenzaPixel); });
    return;
  }
  constexpr std::size_t block = 64;
  std::array<float, block> x{}, y{}, z{};
  std::array<std::int32_t, block> px{}, py{};
  for (std::size_t first = 0; first < points.size(); first += block) {
    const std::size_t count = std::min(block, points.size() - first);
    for (std::size_t k = 0; k < count; ++k) {
      const Punto3D& p = points[first + k];
      x[k] = p.x;
      y[k] = p.y;
      z[k] = p.z;
    }
    for (std::size_t k = 0; k < block; ++k) {
      const Punto3D turned = ruota({x[k], y[k], z[k], 0.0F});
      x[k] = turned.x;
      z[k] = turned.z;
    }
    ortogonali(x, z, px, py);
    for (std::size_t k = 0; k < count; ++k) pixels[first + k] = {px[k], py[k]};
  }
}

/// The line from the point to the vanishing point, cut by the line from the point's copy, shifted to the right by its
/// depth behind the window, to the left end of the horizon.
std::optional<PuntoPixel> Projector::prospettico(const Punto3D& rotated) const {
  try {
    const float shifted = ASingolo(rotated.x + (static_cast<double>(view_.FinestraIniziale.zmax) - rotated.y));
    const float leftEnd = ASingolo(static_cast<double>(view_.marker.FugaX) - view_.marker.DistanzaFuga);
    Punto3D point{rotated.x, rotated.z, 0.0F, 0.0F};
    Punto3D copy{shifted, rotated.z, 0.0F, 0.0F};
    Punto3D vanishing{view_.marker.FugaX, view_.marker.OrizzonteZ, 0.0F, 0.0F};
    Punto3D horizon{leftEnd, view_.marker.OrizzonteZ, 0.0F, 0.0F};
    const Punto3D seen = IntersecaRette(point, copy, vanishing, horizon);
    return mappa(seen.x, seen.y);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace corvan

#include "view3d/Picking.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Rounding.h"
#include "view3d/Projector.h"

namespace corvan {

namespace {

/// A pixel's place in the window that is seen, m of the picture's plane.
std::pair<double, double> NelPiano(const ViewState& view, double X, double Y) {
  const PixelArea& a = view.AreaPixel;
  const ViewWindow<float>& w = view.Finestra;
  return {w.xmin + (static_cast<double>(w.xmax) - w.xmin) * (X - a.left) / a.width(),
          w.zmin + (static_cast<double>(w.zmax) - w.zmin) * (Y - a.top) / a.height()};
}

}  // namespace

void SpostaFinestra(ViewState& view) {
  if (!(view.AreaPixel.width() > 0.0 && view.AreaPixel.height() > 0.0)) return;
  const auto from = NelPiano(view, view.drag.XDown, view.drag.YDown);
  const auto to = NelPiano(view, view.drag.XNow, view.drag.YNow);
  SpostaBase(view, view.drag.base, from.first - to.first, from.second - to.second);
}

void ZoomaVerso(ViewState& view, const PuntoPixel& place, double factor) {
  constexpr double least = 0.001, most = 100.0;
  if (!(view.AreaPixel.width() > 0.0 && view.AreaPixel.height() > 0.0)) return;
  const double zoom = std::clamp(view.ZoomFattore * factor, least, most);
  // A drag or a typed number may have left the range: then only the way back is open.
  if ((factor > 1.0) != (zoom > static_cast<double>(view.ZoomFattore))) return;
  const auto before = NelPiano(view, place.X, place.Y);
  view.ZoomFattore = static_cast<float>(zoom);
  AggiornaZoom(view);
  const auto after = NelPiano(view, place.X, place.Y);
  SpostaBase(view, view.FinestraBase, before.first - after.first, before.second - after.second);
  AggiornaZoom(view);
}

std::optional<Punto3D> SuperficieSotto(const ViewState& view, const PuntoPixel& pixel) {
  if (view.projection != Projection::Orthographic) return std::nullopt;
  if (!(view.AreaPixel.width() > 0.0 && view.AreaPixel.height() > 0.0)) return std::nullopt;
  const auto [across, down] = NelPiano(view, pixel.X, pixel.Y);
  // Where the unit vectors east and north of the surface are drawn.
  const Projector projector(view);
  const Punto3D east = projector.ruota({1, 0, 0, 0}), north = projector.ruota({0, 1, 0, 0});
  const double ax = east.x, az = east.z, bx = north.x, bz = north.z;
  const double area = ax * bz - bx * az;
  constexpr double edgeOn = 0.02;  // a pixel then stands for 50 on the surface
  if (std::abs(area) < edgeOn) return std::nullopt;
  return Punto3D{SingoloOppure((across * bz - bx * down) / area, 0.0F),
                 SingoloOppure((ax * down - across * az) / area, 0.0F), 0.0F, 0.0F};
}

}  // namespace corvan

#include "view3d/Framing.h"

#include <algorithm>

#include "view3d/Projector.h"

namespace corvan {

void InquadraScena(ViewState& view, const Scene& scene, const TrackExtent& extent) {
  view.ZoomFattore = 1.0F;
  ImpostaFinestra(view, extent);
  AggiornaZoom(view);
  if (scene.outline.empty() || view.projection != Projection::Orthographic) return;
  const Projector projector(view);
  const Punto3D start = projector.ruota(scene.outline(1));
  double left = start.x, right = left, top = start.z, bottom = top;
  for (const Punto3D& point : scene.outline) {
    const Punto3D p = projector.ruota(point);
    left = std::min<double>(left, p.x);
    right = std::max<double>(right, p.x);
    top = std::min<double>(top, p.z);
    bottom = std::max<double>(bottom, p.z);
  }
  // What the survey has of the window in the map: to the sides all but a margin, in its height L of the margin's L.
  constexpr double sides = 0.9;
  const ViewWindow<double>& base = view.FinestraBase;
  const double halfWidth = sides * (base.xmax - base.xmin) / 2.0;
  const double halfHeight = (base.zmax - base.zmin) / 2.0 / Margine(view.AreaPixel);
  if (std::max(-left, right) <= halfWidth && std::max(-top, bottom) <= halfHeight) return;
  const double zoom = std::max({1.0, (right - left) / 2.0 / halfWidth, (bottom - top) / 2.0 / halfHeight});
  view.ZoomFattore = static_cast<float>(zoom);
  SpostaBase(view, view.FinestraBase, (left + right) / 2.0, (top + bottom) / 2.0);
  AggiornaZoom(view);
}

}  // namespace corvan

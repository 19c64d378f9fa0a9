#include "view3d/Picking.h"

#include <cmath>

#include "base/Rounding.h"
#include "view3d/Projector.h"

namespace corvan {

void SpostaFinestra(ViewState& view) {
  const double W = view.AreaPixel.width(), H = view.AreaPixel.height(), L = view.Lato;
  if (!(W > 0.0 && H > 0.0)) return;
  const double dx = (static_cast<double>(view.XNow) - view.XDown) * L / W;
  const double dz = (static_cast<double>(view.YNow) - view.YDown) * L / H;
  const Punto3D& c = view.CentroVista;
  view.FinestraBase = {c.x - 0.5 * L * W / H - dx, c.x + 0.5 * L * W / H - dx, c.z - 0.5 * L - dz, c.z + 0.5 * L - dz};
}

std::optional<Punto3D> SuperficieSotto(const ViewState& view, const PuntoPixel& pixel) {
  if (view.projection != Projection::Orthographic) return std::nullopt;
  const PixelArea& a = view.AreaPixel;
  const ViewWindow<float>& w = view.Finestra;
  if (!(a.width() > 0.0 && a.height() > 0.0)) return std::nullopt;
  const double across = w.xmin + (static_cast<double>(w.xmax) - w.xmin) * (pixel.X - a.left) / a.width();
  const double down = w.zmin + (static_cast<double>(w.zmax) - w.zmin) * (pixel.Y - a.top) / a.height();
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

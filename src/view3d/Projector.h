// One view applied to points: rotated about the scene's centre and mapped to pixels.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "view3d/Routine3D.h"
#include "view3d/ViewState.h"

namespace corvan {

/// A place that no picture has.
inline constexpr PuntoPixel SenzaPixel{std::numeric_limits<std::int32_t>::min(),
                                       std::numeric_limits<std::int32_t>::min()};

/// Sines and cosines are taken once, when it is made; the view must outlive it.
class Projector {
 public:
  explicit Projector(const ViewState& view)
      : view_(view), theta_(view.AngoloVista), gamma_(view.AngoloGamma), phi_(view.AngoloPhi) {}

  /// Turned about X by theta, then about Y by gamma, then about Z by phi.
  Punto3D ruota(Punto3D p) const {
    const Punto3D& c = view_.CentroVista;
    Gira(p.y, p.z, theta_, c.y, c.z);
    Gira(p.x, p.z, gamma_, c.x, c.z);
    Gira(p.x, p.y, phi_, c.x, c.y);
    return p;
  }

  /// Picture point of a rotated one in the view's projection; none when a perspective has none.
  std::optional<PuntoPixel> proietta(const Punto3D& rotated) const {
    if (view_.projection == Projection::Orthographic) return ortogonale(rotated);
    return prospettico(rotated);
  }

  /// The same for many points at once, in the straight projection.
  template <class Floats, class Pixels>
  void ortogonali(const Floats& x, const Floats& z, Pixels& px, Pixels& py) const {
    const ViewWindow<float>& w = view_.Finestra;
    const PixelArea& a = view_.AreaPixel;
    for (std::size_t k = 0; k < x.size(); ++k) px[k] = MappaPixelX(x[k], w.xmin, w.xmax, a.left, a.right);
    for (std::size_t k = 0; k < z.size(); ++k) py[k] = MappaPixelY(z[k], w.zmin, w.zmax, a.top, a.bottom);
  }

  /// Rotates and projects points; SenzaPixel stands for those without a picture point.
  void tutti(std::span<const Punto3D> points, std::vector<PuntoPixel>& pixels) const;

  /// The same before it is rounded to pixels, in the straight projection.
  std::pair<double, double> reale(const Punto3D& rotated) const {
    const ViewWindow<float>& w = view_.Finestra;
    const PixelArea& a = view_.AreaPixel;
    return {a.left + (static_cast<double>(rotated.x) - w.xmin) * a.width() / (static_cast<double>(w.xmax) - w.xmin),
            a.top + (static_cast<double>(rotated.z) - w.zmin) * a.height() / (static_cast<double>(w.zmax) - w.zmin)};
  }

  /// x to the right, z downwards; the rotated y, the depth into the screen, is dropped.
  PuntoPixel ortogonale(const Punto3D& rotated) const { return mappa(rotated.x, rotated.z); }

 private:
  PuntoPixel mappa(float x, float z) const {
    const ViewWindow<float>& w = view_.Finestra;
    const PixelArea& a = view_.AreaPixel;
    return {MappaPixelX(x, w.xmin, w.xmax, a.left, a.right), MappaPixelY(z, w.zmin, w.zmax, a.top, a.bottom)};
  }
  std::optional<PuntoPixel> prospettico(const Punto3D& rotated) const;

  const ViewState& view_;
  Giro theta_, gamma_, phi_;
};

}  // namespace corvan

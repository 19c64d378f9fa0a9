#include "view3d/Picking.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "base/Rounding.h"
#include "picture/SpanPainter.h"
#include "view3d/ColumnShape.h"
#include "view3d/DepthOrder.h"
#include "view3d/MapBand.h"
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

/// Where columns lie on the picture, roughly: a quarter of the time of the true projection, and enough to leave out
/// those that are nowhere near a pixel.
class Sketch {
 public:
  Sketch(const Curtain& cells, const ViewState& view)
      : view_(view), top_(cells.z.front()), bottom_(cells.z.back()), lastX_(std::nan("")) {
    const Projector projector(view);
    origin_ = projector.ruota({0, 0, 0, 0});
    const auto axis = [&](float x, float y, float z) {
      const Punto3D p = projector.ruota({x, y, z, 0});
      return Punto3D{p.x - origin_.x, p.y - origin_.y, p.z - origin_.z, 0};
    };
    east_ = axis(1, 0, 0);
    north_ = axis(0, 1, 0);
    up_ = axis(0, 0, 1);
  }

  /// An upper bound of the depth key's depth where the column may cover the pixel, which is given in metres of the
  /// picture's plane with a margin for what is rough here.
  std::optional<float> vicina(const CellColumn& c, const std::pair<double, double>& at, double across, double down) {
    const Side before = c.x1 == lastX_ && c.y1 == lastY_ ? last_ : lato(c.x1, c.y1);
    last_ = lato(c.x2, c.y2);
    lastX_ = c.x2, lastY_ = c.y2;
    const bool whole = before.front == before.back && last_.front == last_.back && before.front == last_.front;
    if (whole) {
      const auto beside = [](double p, double a, double b, double c4, double d, double margin) {
        return p < std::min(std::min(a, b), std::min(c4, d)) - margin ||
               p > std::max(std::max(a, b), std::max(c4, d)) + margin;
      };
      if (beside(at.first, before.x1, before.x2, last_.x1, last_.x2, across) ||
          beside(at.second, before.z1, before.z2, last_.z1, last_.z2, down)) {
        return std::nullopt;
      }
    }
    return before.depth;
  }

 private:
  /// The upper and the lower end of a column's side.
  struct Side {
    double x1 = 0, z1 = 0, x2 = 0, z2 = 0;
    float depth = 0;
    bool front = true, back = true;  ///< of the plane in which the perspective has its pole: the ends' sides of it
  };

  Side lato(double x, double y) const {
    Side side;
    double y1 = 0, y2 = 0;
    side.front = punto(x, y, top_, side.x1, y1, side.z1);
    side.back = punto(x, y, bottom_, side.x2, y2, side.z2);
    constexpr double rough = 0.1;  // m
    side.depth = static_cast<float>(std::max(y1, y2) + rough);
    return side;
  }

  /// @return true before the perspective's pole
  bool punto(double x, double y, double z, double& px, double& py, double& pz) const {
    px = origin_.x + x * east_.x + y * north_.x + z * up_.x;
    py = origin_.y + x * east_.y + y * north_.y + z * up_.y;
    pz = origin_.z + x * east_.z + y * north_.z + z * up_.z;
    if (view_.projection == Projection::Orthographic) return true;
    const ViewMarker& m = view_.marker;
    const double depth = view_.FinestraIniziale.zmax - py, pole = m.DistanzaFuga + depth;
    px += depth / pole * (m.FugaX - px);
    pz += depth / pole * (m.OrizzonteZ - pz);
    return pole > 0.0;
  }

  const ViewState& view_;
  double top_, bottom_;
  Punto3D origin_, east_, north_, up_;
  double lastX_, lastY_ = 0;
  Side last_;  // neighbours share a side
};

/// @param k level from 0
bool Esclusa(const CellColumn& column, std::size_t k) { return (column.escluse & BitDi(k + 1)) != 0; }

/// @param i measurement, from 1 @param k level, from 0
CellaVista Cella(const CellColumn& column, std::size_t i, std::size_t k) {
  return {static_cast<std::int32_t>(i), static_cast<std::int32_t>(k + 1), column.rho.at(k), Esclusa(column, k)};
}

/// The piece of the map's band that a pixel shows: the one painted last.
std::optional<CellaVista> PezzoSotto(const Curtain& cells, const ViewState& view, const PuntoPixel& pixel) {
  MapBand band;
  band.prepara(cells, view, {});
  for (std::size_t k = band.quads().size(); k-- > 0;) {
    if (!Copre(band.quads()[k].corner, pixel)) continue;
    const std::size_t i = band.misura(k);
    const auto level = static_cast<std::size_t>(view.mappa.livello);
    return Cella(cells.columns(i), i, level - 1);
  }
  return std::nullopt;
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

std::optional<CellaVista> CellaSotto(const Scene& scene, const ViewState& view, const PuntoPixel& pixel) {
  const PixelArea& a = view.AreaPixel;
  if (pixel.X < a.left || pixel.X >= a.right || pixel.Y < a.top || pixel.Y >= a.bottom) return std::nullopt;
  if (MostraBanda(scene.cells, view)) return PezzoSotto(scene.cells, view, pixel);
  // Columns that may cover the pixel, the one that may lie in front of all others on top.
  const auto at = NelPiano(view, pixel.X, pixel.Y), next = NelPiano(view, pixel.X + 2.0, pixel.Y + 2.0);
  constexpr double rough = 0.1;  // m: single precision over 100 km, and the tilt of lines at the horizon
  const double across = std::abs(next.first - at.first) + rough, down = std::abs(next.second - at.second) + rough;
  Sketch sketch(scene.cells, view);
  std::vector<std::pair<float, std::size_t>> near;
  for (std::size_t i = 1; i <= scene.cells.columns.size(); ++i) {
    const CellColumn& column = scene.cells.columns(i);
    if (!column.present) continue;
    if (const auto depth = sketch.vicina(column, at, across, down)) near.emplace_back(*depth, i);
  }
  std::make_heap(near.begin(), near.end());
  ColumnShape shape(scene.cells, view);
  std::optional<CellaVista> found;
  DepthKey best = 0;
  float bestDepth = 0;
  for (auto end = near.end(); end != near.begin(); --end) {
    std::pop_heap(near.begin(), end);
    const auto& [depth, i] = *(end - 1);
    if (found && depth < bestDepth) break;
    const CellColumn& column = scene.cells.columns(i);
    if (!shape.prendi(column)) continue;
    for (std::size_t k = 0; k < MaxChannels; ++k) {
      const DepthKey key = ChiaveProfondita(shape.before().y[k], MaxChannels * (i - 1) + k);
      if ((found && key < best) || !(std::isfinite(column.rho[k]) || Esclusa(column, k)) ||
          !Copre(shape.corners(k), pixel))
        continue;
      best = key;
      bestDepth = shape.before().y[k];
      found = Cella(column, i, k);
    }
  }
  return found;
}

}  // namespace corvan

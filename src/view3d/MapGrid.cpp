#include "view3d/MapGrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "base/Rounding.h"
#include "picture/Ticks.h"
#include "view3d/Picking.h"
#include "view3d/Projector.h"
#include "view3d/TrackMarks.h"

namespace corvan {
namespace {

constexpr Colour GridColour = 0xDDE2E8;

/// Scene places of the picture's corners: the box around them.
struct Ground2D {
  double west = 0, east = 0, south = 0, north = 0;
};

std::optional<Ground2D> Terreno(const ViewState& view) {
  const PixelArea& a = view.AreaPixel;
  Ground2D box{1e300, -1e300, 1e300, -1e300};
  for (const PuntoPixel& corner : {PuntoPixel{a.left, a.top}, PuntoPixel{a.right, a.top}, PuntoPixel{a.right, a.bottom},
                                   PuntoPixel{a.left, a.bottom}}) {
    const std::optional<Punto3D> place = SuperficieSotto(view, corner);
    if (!place) return std::nullopt;
    box.west = std::min<double>(box.west, place->x);
    box.east = std::max<double>(box.east, place->x);
    box.south = std::min<double>(box.south, place->y);
    box.north = std::max<double>(box.north, place->y);
  }
  return box;
}

}  // namespace

bool Mappa(const ViewState& view) {
  constexpr float slack = 1e-5F;
  const Punto3D up = Projector(view).ruota({0.0F, 0.0F, 1.0F, 0.0F});
  return view.projection == Projection::Orthographic && std::abs(up.x) < slack && std::abs(up.z) < slack;
}

std::vector<GridLine> Reticolo(const Scene& scene, const ViewState& view, std::int32_t letter) {
  std::vector<GridLine> lines;
  const std::optional<Ground2D> ground = Mappa(view) ? Terreno(view) : std::nullopt;
  if (!ground) return lines;
  const ViewWindow<float>& w = view.Finestra;
  constexpr double letters = 11.0;  // from one line to the next, in heights of a text, at least
  const double room = letters * letter * (static_cast<double>(w.xmax) - w.xmin) / std::max(view.AreaPixel.width(), 1.0);
  const double step = PassoTacche(room, 1.0);
  const Projector projector(view);
  const auto pixel = [&](double east, double north) {
    return projector.ortogonale(projector.ruota(
        {SingoloOppure(east - scene.est0, 0.0F), SingoloOppure(north - scene.nord0, 0.0F), 0.0F, 0.0F}));
  };
  const double west = ground->west + scene.est0, east = ground->east + scene.est0;
  const double south = ground->south + scene.nord0, north = ground->north + scene.nord0;
  for (const double e : Tacche(west, east, step)) {
    lines.push_back({pixel(e, south), pixel(e, north), TestoTacca(e, step) + " E"});
  }
  for (const double n : Tacche(south, north, step)) {
    lines.push_back({pixel(west, n), pixel(east, n), TestoTacca(n, step) + " N"});
  }
  return lines;
}

void DisegnaReticolo(const std::vector<GridLine>& lines, const ViewState& view, Canvas& canvas) {
  for (const GridLine& line : lines) canvas.Tratto(std::array{line.from, line.to}, LineaSottile(view), GridColour);
}

void ScriviReticolo(const std::vector<GridLine>& lines, const ViewState& view, const Canvas& canvas,
                    TextLayout& texts) {
  constexpr Colour ink = 0x5A6470;
  const PixelArea& a = view.AreaPixel;
  const std::int32_t text = canvas.AltezzaTesto(), inset = text / 4 + 1;
  for (const GridLine& line : lines) {
    const double dx = static_cast<double>(line.to.X) - line.from.X, dy = static_cast<double>(line.to.Y) - line.from.Y;
    if (std::abs(dy) >= std::abs(dx)) {
      const double y = a.top + inset, x = line.from.X + (y - line.from.Y) * (dy == 0.0 ? 0.0 : dx / dy);
      texts.scriviCentrato(static_cast<std::int32_t>(ArrotondaPixel(x)), static_cast<std::int32_t>(y), line.text, ink);
    } else {
      const double x = a.left + inset, y = line.from.Y + (x - line.from.X) * dy / dx;
      texts.scrivi({static_cast<std::int32_t>(x), static_cast<std::int32_t>(ArrotondaPixel(y)) - text / 2}, line.text,
                   ink);
    }
  }
}

}  // namespace corvan

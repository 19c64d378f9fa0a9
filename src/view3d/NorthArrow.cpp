#include "view3d/NorthArrow.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "view3d/Projector.h"

namespace corvan {
namespace {

constexpr std::size_t Outline = 8;  // points of the arrow's outline; behind them stands a letter that turns with it
constexpr std::size_t Tip = 3;

}  // namespace

void DisegnaNordG(const Scene& scene, const ViewState& view, const PuntoPixel& foot, Canvas& canvas,
                  TextLayout& texts) {
  if (scene.northArrow.size() < Outline) return;
  // The middle of the design grid, half-way from the tip (point 3) to the tail (point 5).
  const Punto3D &tip = scene.northArrow(Tip), &tail = scene.northArrow(5);
  const float mx = tip.x, my = (tip.y + tail.y) / 2.0F;
  const Projector projector(view);
  const ViewWindow<double>& base = view.FinestraBase;
  const double scale = view.AreaPixel.height() / (1.1 * (base.zmax - base.zmin));  // pixels of a metre at zoom 1
  if (!std::isfinite(scale)) return;
  const auto half = static_cast<std::int32_t>(ArrotondaPixel((tip.y - my) * scale));
  const std::int32_t text = canvas.AltezzaTesto(), reach = half + text;
  const PuntoPixel middle{foot.X + reach, foot.Y - reach};
  std::vector<PuntoPixel> path;
  for (std::size_t k = 1; k <= Outline; ++k) {
    const Punto3D& p = scene.northArrow(k);
    const Punto3D turned = projector.ruota({p.x - mx, p.y - my, 0.0F, 0.0F});
    path.push_back({middle.X + static_cast<std::int32_t>(ArrotondaPixel(turned.x * scale)),
                    middle.Y + static_cast<std::int32_t>(ArrotondaPixel(turned.z * scale))});
  }
  const double dx = path[Tip - 1].X - middle.X, dy = path[Tip - 1].Y - middle.Y, length = std::hypot(dx, dy);
  const bool endOn = length < 2.0;
  const double before = (length + text * 0.6) / std::max(length, 1.0);
  const double nx = endOn ? 0.0 : dx * before, ny = endOn ? -0.6 * text : dy * before;
  const PuntoPixel letter{middle.X + static_cast<std::int32_t>(ArrotondaPixel(nx)),
                          middle.Y + static_cast<std::int32_t>(ArrotondaPixel(ny)) - text / 2};
  PixelArea plate = texts.ingombro({letter.X - canvas.LarghezzaTesto("N") / 2 - 2, letter.Y}, "N");
  for (const PuntoPixel& p : path) {
    plate = {std::min(plate.left, p.X - 2), std::max(plate.right, p.X + 3), std::min(plate.top, p.Y - 2),
             std::max(plate.bottom, p.Y + 3)};
  }
  if (!texts.libero(plate)) return;
  canvas.Velo(plate, qbcolor::White, PlateOpacity);
  canvas.Poligono(path, qbcolor::DarkBlue);
  texts.scriviCentrato(letter.X, letter.Y, "N", qbcolor::DarkBlue, Ground::Bare);
  texts.occupa(plate);
}

}  // namespace corvan

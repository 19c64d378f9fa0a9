#include "view3d/DepthAxis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "picture/Ticks.h"
#include "view3d/Projector.h"
#include "view3d/TrackMarks.h"

namespace corvan {
namespace {

constexpr const char* LevelTitle = "level";
constexpr const char* WaterTitle = "water [m]";

/// The axis on the picture: from the surface to the bottom of the last level.
struct AxisLine {
  PuntoPixel top, bottom;
};

/// Room for ticks and both columns of numbers to the right of an axis.
PixelArea Posto(const AxisLine& axis, const Canvas& canvas) {
  const std::int32_t text = canvas.AltezzaTesto();
  const std::int32_t width = canvas.LarghezzaTesto(LevelTitle) + canvas.LarghezzaTesto(WaterTitle) + 2 * text;
  const std::int32_t left = std::max(axis.top.X, axis.bottom.X) + 2;
  return {left, left + width, std::min(axis.top.Y, axis.bottom.Y) - 2 * text,
          std::max(axis.top.Y, axis.bottom.Y) + text};
}

/// The axes at the two ends of each line, those farther to the right first.
std::vector<AxisLine> Assi(const Scene& scene, const ViewState& view, std::int32_t levels) {
  std::vector<AxisLine> axes;
  const Projector projector(view);
  std::size_t first = 1;
  const float bottom = scene.cells.z.at(static_cast<std::size_t>(levels));
  for (const std::size_t last : scene.lineEnds) {
    const auto present = [&](std::size_t k) { return scene.cells.columns(k).present; };
    std::size_t low = first, high = last;
    while (low < high && !present(low)) ++low;
    while (high > low && !present(high)) --high;
    first = last + 1;
    if (!present(low)) continue;
    const CellColumn &start = scene.cells.columns(low), &end = scene.cells.columns(high);
    for (const auto& [x, y] : {std::pair(start.x1, start.y1), std::pair(end.x2, end.y2)}) {
      const auto above = projector.proietta(projector.ruota({x, y, 0.0F, 0.0F}));
      const auto below = projector.proietta(projector.ruota({x, y, bottom, 0.0F}));
      if (above && below) axes.push_back({*above, *below});
    }
  }
  std::stable_sort(axes.begin(), axes.end(), [](const AxisLine& a, const AxisLine& b) { return a.top.X > b.top.X; });
  return axes;
}

/// Columns of the numbers beside an axis.
class AxisNumbers {
 public:
  AxisNumbers(const AxisLine& axis, const ViewState& view, std::int32_t levels, Canvas& canvas, TextLayout& texts)
      : axis_(axis), view_(view), levels_(levels), canvas_(canvas), texts_(texts), text_(canvas.AltezzaTesto()) {}

  void scrivi() {
    const double pitch = std::abs(axis_.bottom.Y - axis_.top.Y) / static_cast<double>(levels_);  // pixels of a level
    const double step = std::max(1.0, PassoTacche(levels_, std::max(1.0, levels_ * pitch / (1.3 * text_))));
    const std::int32_t first = std::max(axis_.top.X, axis_.bottom.X) + text_ / 2 + 2;
    const std::int32_t second = first + canvas_.LarghezzaTesto(LevelTitle) + text_ / 2;
    DisegnaBordato({axis_.top, axis_.bottom}, view_, InkColour, canvas_);
    const std::int32_t title = std::min(axis_.top.Y, axis_.bottom.Y) - 2 * text_ + 2;
    texts_.scrivi({first, title}, LevelTitle);
    texts_.scrivi({second, title}, WaterTitle);
    for (const double edge : Tacche(0.0, levels_, step)) {
      const PuntoPixel at = posto(edge);
      canvas_.Tratto(std::array{at, PuntoPixel{at.X + text_ / 3, at.Y}}, LineaSottile(view_), InkColour);
      texts_.scrivi({second, at.Y - text_ / 2}, TestoTacca(edge, step));
    }
    // Of every so many levels the one that ends at the tick.
    for (double level = step; level <= levels_; level += step) {
      texts_.scrivi({first, posto(level - 0.5).Y - text_ / 2}, TestoTacca(level, 1.0));
    }
  }

 private:
  PuntoPixel posto(double edge) const {
    const double share = edge / levels_;
    return {axis_.top.X + static_cast<std::int32_t>(ArrotondaPixel(share * (axis_.bottom.X - axis_.top.X))),
            axis_.top.Y + static_cast<std::int32_t>(ArrotondaPixel(share * (axis_.bottom.Y - axis_.top.Y)))};
  }

  const AxisLine& axis_;
  const ViewState& view_;
  std::int32_t levels_;
  Canvas& canvas_;
  TextLayout& texts_;
  std::int32_t text_;
};

}  // namespace

void DisegnaAsse(const Scene& scene, const ViewState& view, std::int32_t levels, Canvas& canvas, TextLayout& texts) {
  if (levels < 1 || levels > static_cast<std::int32_t>(MaxChannels)) return;
  for (const AxisLine& axis : Assi(scene, view, levels)) {
    const double height = std::abs(static_cast<double>(axis.bottom.Y) - axis.top.Y);
    if (height < 1.2 * canvas.AltezzaTesto() || !texts.libero(Posto(axis, canvas))) continue;
    AxisNumbers(axis, view, levels, canvas, texts).scrivi();
    texts.occupa(Posto(axis, canvas));
    return;
  }
}

}  // namespace corvan

#include "view3d/TrackMarks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <span>
#include <string_view>
#include <utility>

#include "picture/Ticks.h"
#include "view3d/Projector.h"

namespace corvan {
namespace {

using Labels = std::span<const PointLabel>;

double Distanza(const PuntoPixel& a, const PuntoPixel& b) {
  return std::hypot(static_cast<double>(b.X) - a.X, static_cast<double>(b.Y) - a.Y);
}

double Misura800(const ViewState& view) { return std::max(1.0, view.AreaPixel.height() / 800.0); }

/// The labels of measurements first..last.
Labels Fra(const std::vector<PointLabel>& labels, std::size_t first, std::size_t last) {
  const auto before = [](const PointLabel& label, std::size_t k) { return static_cast<std::size_t>(label.index) < k; };
  const auto from = std::lower_bound(labels.begin(), labels.end(), first, before);
  const auto to = std::lower_bound(from, labels.end(), last + 1, before);
  return {from, to};
}

/// Runs over the labels of each line.
template <class Work>
void PerLinea(const std::vector<PointLabel>& labels, const Scene& scene, Work work) {
  std::size_t first = 1;
  for (std::size_t line = 0; line < scene.lineEnds.size(); ++line) {
    const Labels of = Fra(labels, first, scene.lineEnds[line]);
    if (!of.empty()) work(of, line);
    first = scene.lineEnds[line] + 1;
  }
}

/// Runs over the paths of labels that follow each other without a hole.
template <class Work>
void PerTratto(Labels labels, Work work) {
  std::vector<PuntoPixel> path;
  for (std::size_t i = 0; i < labels.size(); ++i) {
    if (i > 0 && labels[i].index != labels[i - 1].index + 1) {
      work(path);
      path.clear();
    }
    path.push_back(labels[i].at);
  }
  if (!path.empty()) work(path);
}

/// The way of the track at label i: between the nearest labels that lie some pixels before and behind; length 1, or 0
/// where the boat stood still.
std::pair<double, double> Verso(Labels labels, std::size_t i) {
  constexpr double apart = 4.0;
  std::size_t low = i, high = i;
  while (low > 0 && Distanza(labels[low].at, labels[i].at) < apart) --low;
  while (high + 1 < labels.size() && Distanza(labels[high].at, labels[i].at) < apart) ++high;
  const double dx = static_cast<double>(labels[high].at.X) - labels[low].at.X;
  const double dy = static_cast<double>(labels[high].at.Y) - labels[low].at.Y, length = std::hypot(dx, dy);
  return length > 0.0 ? std::pair(dx / length, dy / length) : std::pair(0.0, 0.0);
}

PuntoPixel Accanto(const PuntoPixel& at, double x, double y) {
  return {at.X + static_cast<std::int32_t>(ArrotondaPixel(x)), at.Y + static_cast<std::int32_t>(ArrotondaPixel(y))};
}

bool Dentro(const PuntoPixel& p, const PixelArea& area) {
  return p.X >= area.left && p.X < area.right && p.Y >= area.top && p.Y < area.bottom;
}

/// Measurements from one tick to the next: a round number of them, some 40 pixels or more apart.
std::size_t PassoTacche(Labels labels, double size) {
  double length = 0.0;
  for (std::size_t i = 1; i < labels.size(); ++i) length += Distanza(labels[i - 1].at, labels[i].at);
  constexpr double apart = 40.0;
  if (!(length > 0.0)) return labels.size() + 1;
  const double step = corvan::PassoTacche(apart * size * static_cast<double>(labels.size()) / length, 1.0);
  return static_cast<std::size_t>(std::clamp(step, 1.0, 1e9));
}

/// A small arrow head over a label, with a casing.
void DisegnaFreccia(Labels labels, std::size_t i, double size, Canvas& canvas) {
  const auto [x, y] = Verso(labels, i);
  if (x == 0.0 && y == 0.0) return;
  const PuntoPixel at = labels[i].at;
  const auto head = [&](double tip, double back, double wide) {
    return std::array{Accanto(at, x * tip, y * tip), Accanto(at, -x * back - y * wide, -y * back + x * wide),
                      Accanto(at, -x * back + y * wide, -y * back - x * wide)};
  };
  canvas.Poligono(head(13.0 * size, 7.0 * size, 9.0 * size), qbcolor::White);
  canvas.Poligono(head(9.0 * size, 5.0 * size, 6.0 * size), InkColour);
}

/// Where the picture shows curtains, in squares of some pixels: names keep off them where they can.
class Coperto {
 public:
  explicit Coperto(const PixelArea& area)
      : area_(area),
        columns_(static_cast<std::size_t>(std::max(area.right - area.left, 0) / Side + 1)),
        squares_(columns_ * static_cast<std::size_t>(std::max(area.bottom - area.top, 0) / Side + 1)) {}

  /// The way from the surface down to the curtain's foot.
  void copri(const PuntoPixel& at, const PuntoPixel& down) {
    const std::int32_t steps = std::max(std::abs(down.X), std::abs(down.Y)) / Side + 1;
    for (std::int32_t k = 0; k <= steps; ++k) {
      const PuntoPixel p{at.X + down.X * k / steps, at.Y + down.Y * k / steps};
      if (Dentro(p, area_)) squares_[square(p.X, p.Y)] = true;
    }
  }
  bool libero(const PixelArea& box) const {
    for (std::int32_t y = std::max(box.top, area_.top); y < std::min(box.bottom + Side, area_.bottom); y += Side) {
      for (std::int32_t x = std::max(box.left, area_.left); x < std::min(box.right + Side, area_.right); x += Side) {
        if (squares_[square(x, y)]) return false;
      }
    }
    return true;
  }

 private:
  static constexpr std::int32_t Side = 8;

  std::size_t square(std::int32_t x, std::int32_t y) const {
    return static_cast<std::size_t>((y - area_.top) / Side) * columns_ +
           static_cast<std::size_t>((x - area_.left) / Side);
  }

  PixelArea area_;
  std::size_t columns_;
  std::vector<bool> squares_;
};

/// The squares of all curtains.
Coperto Coperti(const std::vector<PointLabel>& labels, const Scene& scene, const ViewState& view) {
  Coperto covered(view.AreaPixel);
  PuntoPixel down;
  if (view.projection == Projection::Orthographic) {
    const Projector projector(view);
    const float bottom = scene.cells.z.at(static_cast<std::size_t>(std::clamp(scene.livelli, 0, 10)));
    const PuntoPixel top = projector.ortogonale(projector.ruota({}));
    const PuntoPixel foot = projector.ortogonale(projector.ruota({0.0F, 0.0F, bottom, 0.0F}));
    down = {std::clamp(foot.X - top.X, -4096, 4096), std::clamp(foot.Y - top.Y, -4096, 4096)};
  }
  for (const PointLabel& label : labels) covered.copri(label.at, down);
  return covered;
}

/// A text beside a place, on the first of eight sides that has room, off the curtains if there is one; those that lie
/// most towards (x, y) first.
bool ScriviVerso(const PuntoPixel& at, std::pair<double, double> towards, std::int32_t gap, std::string_view text,
                 Colour colour, const Coperto& covered, TextLayout& texts) {
  std::array<std::pair<double, double>, 8> sides{
      {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
  std::stable_sort(sides.begin(), sides.end(), [&](const auto& a, const auto& b) {
    const auto share = [&](const auto& s) {
      return (s.first * towards.first + s.second * towards.second) / std::hypot(s.first, s.second);
    };
    return share(a) > share(b);
  });
  const PixelArea box = texts.ingombro({0, 0}, text);
  for (const bool off : {true, false}) {
    for (const auto& [x, y] : sides) {
      const std::int32_t left = at.X + (x > 0 ? gap : x < 0 ? -gap - box.right : -box.right / 2);
      const std::int32_t top = at.Y + (y > 0 ? gap : y < 0 ? -gap - box.bottom : -box.bottom / 2);
      if (off && !covered.libero({left, left + box.right, top, top + box.bottom})) continue;
      if (texts.scrivi({left, top}, text, colour)) return true;
    }
  }
  return false;
}

}  // namespace

std::int32_t LineaSottile(const ViewState& view) { return static_cast<std::int32_t>(ArrotondaPixel(Misura800(view))); }

void DisegnaBordato(const std::vector<PuntoPixel>& path, const ViewState& view, Colour colour, Canvas& canvas) {
  const std::int32_t width = LineaSottile(view);
  canvas.Tratto(path, 3 * width, qbcolor::White);
  canvas.Tratto(path, width, colour);
}

void DisegnaTracciato(const std::vector<PointLabel>& labels, const Scene& scene, const ViewState& view, Colour colour,
                      Canvas& canvas) {
  const double size = Misura800(view), tick = 4.0 * size;
  const std::int32_t width = LineaSottile(view);
  PerLinea(labels, scene, [&](Labels line, std::size_t) {
    PerTratto(line, [&](const std::vector<PuntoPixel>& path) { canvas.Tratto(path, width, colour); });
    const std::size_t step = PassoTacche(line, size);
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (static_cast<std::size_t>(line[i].index) % step != 0 || !Dentro(line[i].at, view.AreaPixel)) continue;
      const auto [x, y] = Verso(line, i);
      canvas.Tratto(std::array{Accanto(line[i].at, -y * tick, x * tick), Accanto(line[i].at, y * tick, -x * tick)},
                    width, colour);
    }
  });
}

void DisegnaTratto(const std::vector<PointLabel>& labels, std::int32_t from, std::int32_t to, const Scene& scene,
                   std::int32_t width, Colour colour, Canvas& canvas) {
  PerLinea(labels, scene, [&](Labels line, std::size_t) {
    const auto first = std::max(from, line.front().index), last = std::min(to, line.back().index);
    if (first > last) return;
    PerTratto(Fra(labels, static_cast<std::size_t>(first), static_cast<std::size_t>(last)),
              [&](const std::vector<PuntoPixel>& path) { canvas.Tratto(path, width, colour); });
  });
}

void DisegnaNomi(const std::vector<PointLabel>& labels, const Scene& scene, const ViewState& view, Canvas& canvas,
                 TextLayout& texts) {
  const double size = Misura800(view);
  const auto gap = static_cast<std::int32_t>(ArrotondaPixel(7.0 * size));
  const Coperto covered = Coperti(labels, scene, view);
  PerLinea(labels, scene, [&](Labels line, std::size_t number) {
    const auto name = [&](std::size_t i, const std::string& text, double sign) {
      const auto [x, y] = Verso(line, i);
      if (Dentro(line[i].at, view.AreaPixel))
        ScriviVerso(line[i].at, {sign * x, sign * y}, gap, text, InkColour, covered, texts);
    };
    name(0, scene.lineNames.at(number) + "  " + std::to_string(line.front().index), -1.0);
    if (line.size() < 2) return;
    name(line.size() - 1, std::to_string(line.back().index), 1.0);
    const std::size_t middle = line.size() / 2;
    if (Dentro(line[middle].at, view.AreaPixel)) DisegnaFreccia(line, middle, size, canvas);
  });
}

void ScriviEstremo(const PuntoPixel& at, std::string_view text, const ViewState& view, Colour colour,
                   TextLayout& texts) {
  const auto gap = static_cast<std::int32_t>(ArrotondaPixel(6.0 * Misura800(view)));
  ScriviVerso(at, {0.3, -1.0}, gap, text, colour, Coperto(view.AreaPixel), texts);
}

}  // namespace corvan

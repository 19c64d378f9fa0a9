#include "view3d/Renderer.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <utility>

#include "picture/Legend.h"
#include "view3d/Projector.h"

namespace corvan {
namespace {

constexpr Colour MeasurementColour = 0x202020;
constexpr Colour FixColour = 0x00A838;
constexpr Colour ElectrodeColour = 0xB03000;

/// Marks grow with the picture, so that they are as easy to see on a fine screen.
LabelStyle Stile(MarkerShape shape, std::int32_t radius, Colour colour, const PixelArea& area) {
  const double size = std::max(1.0, area.height() / 800.0);
  return {shape, static_cast<std::int32_t>(ArrotondaPixel(radius * size)), colour};
}

std::span<const Punto3D> Tutti(const Array1<Punto3D>& points) {
  return points.empty() ? std::span<const Punto3D>() : std::span<const Punto3D>(&points(1), points.size());
}

/// Draws an outline of 2N + 1 points as a ring for each survey line, so that nothing joins one line to the next.
void DisegnaAnelli(const Array1<Punto3D>& outline, const Scene& scene, const ViewState& view,
                   std::vector<PuntoPixel>& path, Canvas& canvas, Colour colour) {
  if (outline.empty()) return;
  std::vector<PuntoPixel> all;
  Projector(view).tutti(Tutti(outline), all);
  const auto add = [&](std::size_t from, std::size_t to) {
    for (std::size_t k = from; k <= to; ++k) {
      if (all[k - 1] != SenzaPixel) path.push_back(all[k - 1]);
    }
  };
  const std::size_t back = outline.size();  // point k of the way out stands at `back` - k on the way home
  std::size_t first = 1;
  for (const std::size_t last : scene.lineEnds) {
    path.clear();
    add(first, last);
    add(back - last, back - first);
    add(first, first);
    canvas.Linea(path, colour);
    first = last + 1;
  }
}

/// A label for each of the points 1..count that `wanted` accepts by its index.
template <class Wanted>
std::vector<PointLabel> Etichette(const Array1<Punto3D>& points, std::size_t count, const ViewState& view,
                                  Colour colour, Wanted wanted) {
  std::vector<PuntoPixel> pixels;
  Projector(view).tutti(Tutti(points).first(count), pixels);
  std::vector<PointLabel> labels;
  labels.reserve(count);
  for (std::size_t k = 1; k <= count; ++k) {
    if (wanted(k) && pixels[k - 1] != SenzaPixel) {
      labels.push_back({static_cast<std::int32_t>(k), pixels[k - 1], true, colour, 0});
    }
  }
  return labels;
}

/// Gives the labels of these indexes the colour of what was chosen.
void Arrossa(std::vector<PointLabel>& labels, const std::vector<std::int32_t>& picked) {
  for (const std::int32_t index : picked) {
    const auto found = std::lower_bound(labels.begin(), labels.end(), index,
                                        [](const PointLabel& label, std::int32_t k) { return label.index < k; });
    if (found != labels.end() && found->index == index) found->colour = PickedColour;
  }
}

/// Dots that lie closer than they are wide become smaller: a band of them would hide the cells below it.
LabelStyle Diradato(LabelStyle style, const std::vector<PointLabel>& labels) {
  if (labels.size() < 2) return style;
  std::int64_t length = 0;
  for (std::size_t i = 1; i < labels.size(); ++i) {
    const PuntoPixel& a = labels[i - 1].at;
    const PuntoPixel& b = labels[i].at;
    length += std::max(std::abs(static_cast<std::int64_t>(b.X) - a.X), std::abs(static_cast<std::int64_t>(b.Y) - a.Y));
  }
  const auto needed = static_cast<std::int64_t>(labels.size()) * (2 * style.radius + 3);
  if (length < needed) style.radius = std::max(1, style.radius / 2);
  return style;
}

/// Puts labels on a layer, thinned where they crowd, and paints them.
void Mostra(PointLayer& layer, std::vector<PointLabel> labels, const LabelStyle& style, const PixelArea& area,
            Canvas& canvas) {
  const LabelStyle fitting = Diradato(style, labels);
  layer.assign(std::move(labels), fitting, area);
  layer.dipingi(canvas);
}

constexpr auto Every = [](std::size_t) { return true; };

/// The arrow keeps to the straight projection in every view.
void DisegnaNordG(const Scene& scene, const ViewState& view, std::vector<PuntoPixel>& path, Canvas& canvas) {
  const Projector projector(view);
  path.clear();
  for (const Punto3D& p : scene.northArrow) path.push_back(projector.ortogonale(projector.ruota(p)));
  if (!path.empty()) canvas.Poligono(path, qbcolor::DarkBlue);
}

}  // namespace

void Renderer::DisegnaImmagineQ(const Scene& scene, const ViewState& view, const ColourRange& colours,
                                const PictureNotes& notes, Canvas& canvas) {
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  curtain_.dipingi(scene.cells, view, colours, canvas);
  DisegnaTraiettoria(scene, view, notes, canvas);
  if (view.layers.MostraNord) DisegnaNordG(scene, view, path_, canvas);
  if (view.layers.MostraScalaColori) DisegnaScalaColori3D(colours, canvas);
  if (view.layers.MostraProfondita) {
    DisegnaEchoSounder(scene, view, canvas);
  } else {
    DepthNonVisibile();
  }
  if (view.layers.MostraGPS2) {
    DisegnaGPS(scene, view, notes, canvas);
  } else {
    GpsNonVisibile();
  }
  if (!notes.info.empty()) {
    const std::int32_t inset = canvas.AltezzaTesto() * 3 / 4;
    canvas.Testo({view.AreaPixel.left + inset, view.AreaPixel.top + inset}, notes.info, MeasurementColour);
  }
}

void Renderer::DisegnaContorno(const Scene& scene, const ViewState& view, Canvas& canvas) {
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  DisegnaAnelli(scene.outline, scene, view, path_, canvas, qbcolor::Green);
  if (view.layers.MostraNord) DisegnaNordG(scene, view, path_, canvas);
}

void Renderer::DisegnaCavoG(const Scene& scene, const ViewState& view, Canvas& canvas) {
  const LabelStyle style = Stile(MarkerShape::Diamond, 5, ElectrodeColour, view.AreaPixel);
  CableLbl_.assign(Etichette(scene.cable, scene.cable.size(), view, style.colour, Every), style, view.AreaPixel);
  CableLbl_.dipingi(canvas);
}

void Renderer::DisegnaTraiettoria(const Scene& scene, const ViewState& view, const PictureNotes& notes,
                                  Canvas& canvas) {
  if (!view.layers.MostraElettrodi) {
    TraiettoriaNonVisibile();
    return;
  }
  const LabelStyle style = Stile(MarkerShape::Dot, 2, MeasurementColour, view.AreaPixel);
  auto labels = Etichette(scene.trajectory, scene.trajectory.size(), view, style.colour,
                          [&scene](std::size_t k) { return scene.placed[k - 1]; });
  Arrossa(labels, notes.picked);
  Mostra(ptlbl_, std::move(labels), style, view.AreaPixel, canvas);
}

void Renderer::DisegnaEchoSounder(const Scene& scene, const ViewState& view, Canvas& canvas) {
  DisegnaAnelli(scene.echoSounder, scene, view, path_, canvas, qbcolor::DarkBlue);
  const LabelStyle style = Stile(MarkerShape::Dot, 2, qbcolor::DarkBlue, view.AreaPixel);
  auto labels = Etichette(scene.echoSounder, scene.placed.size(), view, style.colour,
                          [&scene](std::size_t k) { return scene.placed[k - 1]; });
  Mostra(dptlbl_, std::move(labels), style, view.AreaPixel, canvas);
}

/// The fixes of the external track, and its bottom: out along it and back the same way, so that the filled polygon is a
/// line and hides nothing.
void Renderer::DisegnaGPS(const Scene& scene, const ViewState& view, const PictureNotes& notes, Canvas& canvas) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, FixColour, view.AreaPixel);
  auto labels = Etichette(scene.gps, scene.gps.size(), view, style.colour, Every);
  Arrossa(labels, notes.pickedFixes);
  Mostra(gpslbl_, std::move(labels), style, view.AreaPixel, canvas);
  Projector(view).tutti(Tutti(scene.gpsDepth), path_);
  std::erase(path_, SenzaPixel);
  canvas.Linea(path_, qbcolor::DarkBlue);
}

}  // namespace corvan

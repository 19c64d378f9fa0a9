#include "view3d/Renderer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
#include <utility>

#include "picture/Legend.h"
#include "picture/TextLayout.h"
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

/// Puts labels on a layer, thinned where they crowd.
void Mostra(PointLayer& layer, std::vector<PointLabel> labels, const LabelStyle& style, const PixelArea& area) {
  const LabelStyle fitting = Diradato(style, labels);
  layer.assign(std::move(labels), fitting, area);
}

constexpr auto Every = [](std::size_t) { return true; };

/// The arrow keeps to the straight projection in every view.
void DisegnaNordG(const Scene& scene, const ViewState& view, std::vector<PuntoPixel>& path, Canvas& canvas) {
  const Projector projector(view);
  path.clear();
  for (const Punto3D& p : scene.northArrow) path.push_back(projector.ortogonale(projector.ruota(p)));
  if (!path.empty()) canvas.Poligono(path, qbcolor::DarkBlue);
}

/// Name of an electrode by its place in the list of positions.
std::string NomeElettrodo(std::int32_t index) {
  constexpr std::int32_t floating = 11;
  return index <= floating ? "E" + std::to_string(index) : "C" + std::to_string(index - floating);
}

/// Places of the names above the electrodes' marks.
std::vector<PixelArea> PostiNomi(const std::vector<PointLabel>& electrodes, std::int32_t radius, const Canvas& canvas) {
  std::vector<PixelArea> places;
  for (const PointLabel& e : electrodes) {
    const std::int32_t half = canvas.LarghezzaTesto(NomeElettrodo(e.index)) / 2 + 2;
    const std::int32_t bottom = e.at.Y - radius - 2;
    places.push_back({e.at.X - half, e.at.X + half, bottom - canvas.AltezzaTesto(), bottom});
  }
  return places;
}

/// The two ends of a cable: the electrodes farthest from each other on the picture. Electrodes are not listed in the
/// order in which they lie.
std::pair<std::size_t, std::size_t> Estremi(const std::vector<PointLabel>& electrodes) {
  std::pair<std::size_t, std::size_t> ends{0, 0};
  double most = -1.0;
  for (std::size_t i = 0; i < electrodes.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const PuntoPixel &a = electrodes[i].at, &b = electrodes[j].at;
      const double distance = std::hypot(static_cast<double>(a.X) - b.X, static_cast<double>(a.Y) - b.Y);
      if (distance <= most) continue;
      most = distance;
      ends = {j, i};
    }
  }
  return ends;
}

/// The names on white: they stand over cells of any colour.
void ScriviNomi(const std::vector<PointLabel>& electrodes, std::int32_t radius, Canvas& canvas) {
  const std::vector<PixelArea> places = PostiNomi(electrodes, radius, canvas);
  bool free = true;
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) free = free && !SiToccano(places[i], places[j]);
  }
  const auto [first, last] = Estremi(electrodes);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const bool end = i == first || (i == last && !SiToccano(places[first], places[last]));
    if (!free && !end) continue;
    canvas.Riquadro(places[i], qbcolor::White);
    canvas.Testo({places[i].left + 2, places[i].top}, NomeElettrodo(electrodes[i].index), ElectrodeColour);
  }
}

}  // namespace

void Renderer::DisegnaImmagineQ(const Scene& scene, const ViewState& view, const ColourScale& colours,
                                const PictureNotes& notes, Canvas& canvas) {
  Disponi(scene, view, notes);
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  curtain_.dipingi(scene.cells, view, colours, canvas);
  ptlbl_.dipingi(canvas);
  if (view.layers.MostraNord) DisegnaNordG(scene, view, path_, canvas);
  TextLayout texts(canvas);
  if (view.layers.MostraScalaColori) {
    const PixelArea& area = view.AreaPixel;
    DisegnaScalaColori3D(colours, {(area.left + area.right) / 2, area.bottom - canvas.AltezzaTesto() / 2}, canvas,
                         texts);
  }
  texts.dipingi(canvas);
  if (view.layers.MostraProfondita) DisegnaEchoSounder(scene, view, canvas);
  if (view.layers.MostraGPS2) DisegnaGPS(scene, view, canvas);
  if (!notes.info.empty()) {
    const std::int32_t inset = canvas.AltezzaTesto() * 3 / 4;
    canvas.Testo({view.AreaPixel.left + inset, view.AreaPixel.top + inset}, notes.info, MeasurementColour);
  }
}

void Renderer::Disponi(const Scene& scene, const ViewState& view, const PictureNotes& notes) {
  const Layers& shown = view.layers;
  shown.MostraElettrodi ? DisponiTraiettoria(scene, view, notes) : TraiettoriaNonVisibile();
  shown.MostraProfondita ? DisponiEchoSounder(scene, view) : DepthNonVisibile();
  shown.MostraGPS2 ? DisponiGPS(scene, view, notes) : GpsNonVisibile();
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
  ScriviNomi(CableLbl_.labels(), style.radius, canvas);
}

void Renderer::DisponiTraiettoria(const Scene& scene, const ViewState& view, const PictureNotes& notes) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, MeasurementColour, view.AreaPixel);
  auto labels = Etichette(scene.trajectory, scene.trajectory.size(), view, style.colour,
                          [&scene](std::size_t k) { return scene.placed[k - 1]; });
  Arrossa(labels, notes.picked);
  Mostra(ptlbl_, std::move(labels), style, view.AreaPixel);
}

void Renderer::DisponiEchoSounder(const Scene& scene, const ViewState& view) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, qbcolor::DarkBlue, view.AreaPixel);
  Mostra(dptlbl_,
         Etichette(scene.echoSounder, scene.placed.size(), view, style.colour,
                   [&scene](std::size_t k) { return scene.placed[k - 1]; }),
         style, view.AreaPixel);
}

void Renderer::DisegnaEchoSounder(const Scene& scene, const ViewState& view, Canvas& canvas) {
  DisegnaAnelli(scene.echoSounder, scene, view, path_, canvas, qbcolor::DarkBlue);
  dptlbl_.dipingi(canvas);
}

void Renderer::DisponiGPS(const Scene& scene, const ViewState& view, const PictureNotes& notes) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, FixColour, view.AreaPixel);
  auto labels = Etichette(scene.gps, scene.gps.size(), view, style.colour, Every);
  Arrossa(labels, notes.pickedFixes);
  Mostra(gpslbl_, std::move(labels), style, view.AreaPixel);
}

/// The fixes of the external track, and its bottom: out along it and back the same way, so that the filled polygon is a
/// line and hides nothing.
void Renderer::DisegnaGPS(const Scene& scene, const ViewState& view, Canvas& canvas) {
  gpslbl_.dipingi(canvas);
  Projector(view).tutti(Tutti(scene.gpsDepth), path_);
  std::erase(path_, SenzaPixel);
  canvas.Linea(path_, qbcolor::DarkBlue);
}

}  // namespace corvan

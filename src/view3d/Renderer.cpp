#include "view3d/Renderer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
#include <utility>

#include "picture/Legend.h"
#include "picture/ScaleBar.h"
#include "view3d/CableNames.h"
#include "view3d/DepthAxis.h"
#include "view3d/MapGrid.h"
#include "view3d/NorthArrow.h"
#include "view3d/Projector.h"
#include "view3d/TrackMarks.h"

namespace corvan {
namespace {

constexpr Colour MeasurementColour = 0x202020;
constexpr Colour FixColour = 0x00A838;
constexpr Colour ElectrodeColour = 0xB03000;

/// Marks grow with the picture, so that they are as easy to see on a fine screen. The many dots of the measurements
/// have no ring: it would hide the cells around them.
LabelStyle Stile(MarkerShape shape, std::int32_t radius, Colour colour, const PixelArea& area) {
  const double size = std::max(1.0, area.height() / 800.0);
  return {shape, static_cast<std::int32_t>(ArrotondaPixel(radius * size)), colour, colour != MeasurementColour};
}

std::span<const Punto3D> Tutti(const Array1<Punto3D>& points) {
  return points.empty() ? std::span<const Punto3D>() : std::span<const Punto3D>(&points(1), points.size());
}

struct LineStyle {
  Colour colour = 0;
  bool cased = true;
};

/// Draws an outline of 2N + 1 points as a ring for each survey line, so that nothing joins one line to the next.
void DisegnaAnelli(const Array1<Punto3D>& outline, const Scene& scene, const ViewState& view,
                   std::vector<PuntoPixel>& path, Canvas& canvas, const LineStyle& style) {
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
    style.cased ? DisegnaBordato(path, view, style.colour, canvas) : canvas.Linea(path, style.colour);
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

/// Dots that lie closer than they are wide crowd: a band of them would hide the cells below it.
bool Fitti(const LabelStyle& style, const std::vector<PointLabel>& labels) {
  if (labels.size() < 2) return false;
  std::int64_t length = 0;
  for (std::size_t i = 1; i < labels.size(); ++i) {
    const PuntoPixel& a = labels[i - 1].at;
    const PuntoPixel& b = labels[i].at;
    length += std::max(std::abs(static_cast<std::int64_t>(b.X) - a.X), std::abs(static_cast<std::int64_t>(b.Y) - a.Y));
  }
  const auto needed = static_cast<std::int64_t>(labels.size()) * (2 * style.radius + 3);
  return length < needed;
}

/// Puts labels on a layer; where they crowd a line stands for them.
void Mostra(PointLayer& layer, std::vector<PointLabel> labels, LabelStyle style, const PixelArea& area) {
  style.crowded = Fitti(style, labels);
  layer.assign(std::move(labels), style, area);
}

/// Rows of the picture's foot: a line for the caption, above it legend, scale bar and north arrow.
struct Foot {
  std::int32_t inset, caption, legend;

  Foot(const PixelArea& area, std::int32_t text)
      : inset(text * 3 / 4), caption(area.bottom - text * 5 / 4), legend(caption - text / 4) {}
};

double MetriPerPixel(const ViewState& view) {
  return (static_cast<double>(view.Finestra.xmax) - view.Finestra.xmin) / view.AreaPixel.width();
}

constexpr auto Every = [](std::size_t) { return true; };

}  // namespace

void Renderer::DisegnaImmagineQ(const Scene& scene, const ViewState& view, const ColourScale& colours,
                                const PictureNotes& notes, Canvas& canvas) {
  Disponi(scene, view, notes);
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  const bool grid = view.layers.MostraGriglia && !scene.trajectory.empty();
  const auto lines = grid ? Reticolo(scene, view, canvas.AltezzaTesto()) : std::vector<GridLine>();
  DisegnaReticolo(lines, view, canvas);
  DisegnaCelle(scene, view, colours, notes, canvas);
  if (view.layers.MostraProfondita) DisegnaAnelli(scene.echoSounder, scene, view, path_, canvas, {qbcolor::DarkBlue});
  if (view.layers.MostraGPS2) DisegnaGPS(scene, view, canvas);
  if (ptlbl_.style().crowded) DisegnaTracciato(ptlbl_.labels(), scene, view, MeasurementColour, canvas);
  for (const PointLayer* layer : {&ptlbl_, &dptlbl_, &gpslbl_}) layer->dipingi(canvas);
  texts_.emplace(canvas);
  ScriviPiede(scene, view, colours, notes, canvas);
  ScriviEstremi(view, notes);
  if (view.layers.MostraAsse) DisegnaAsse(scene, view, scene.livelli, canvas, *texts_);
  if (view.layers.MostraNomi) DisegnaNomi(track_, scene, view, canvas, *texts_);
  ScriviReticolo(lines, view, canvas, *texts_);
  texts_->dipingi(canvas);
}

/// Curtain or, from above, the band of the map; the chosen section is marked as a border of the band, else along the
/// surface.
void Renderer::DisegnaCelle(const Scene& scene, const ViewState& view, const ColourScale& colours,
                            const PictureNotes& notes, Canvas& canvas) {
  const bool section = notes.E1 && notes.E2 && *notes.E1 != *notes.E2;
  const auto mark = [&](std::int32_t width, Colour colour) {
    const auto [from, to] = std::minmax(*notes.E1, *notes.E2);
    DisegnaTratto(track_, from, to, scene, width, colour, canvas);
  };
  if (MostraBanda(scene.cells, view)) {
    const std::int32_t width = LarghezzaBanda(view), line = LineaSottile(view);
    if (section) mark(width + 8 * line, PickedColour);
    if (section) mark(width + 4 * line, qbcolor::White);
    band_.prepara(scene.cells, view, colours);
    band_.dipingi(canvas);
    return;
  }
  curtain_.dipingi(scene.cells, view, colours, canvas);
  const std::int32_t line = LineaSottile(view);
  if (section) mark(5 * line, qbcolor::White);
  if (section) mark(3 * line, PickedColour);
}

/// What stands along the picture's edges: the line of information, the caption, legend, scale bar and north arrow.
void Renderer::ScriviPiede(const Scene& scene, const ViewState& view, const ColourScale& colours,
                           const PictureNotes& notes, Canvas& canvas) {
  const PixelArea& area = view.AreaPixel;
  const std::int32_t text = canvas.AltezzaTesto();
  const Foot foot(area, text);
  const std::int32_t left = area.left + foot.inset, room = area.right - area.left - 2 * foot.inset - 4;
  texts_->scrivi({left, area.top + foot.inset}, Accorcia(canvas, notes.info, room));
  texts_->scrivi({left, foot.caption}, Riga(notes.caption, room, canvas));
  if (view.layers.MostraScalaColori) {
    DisegnaScalaColori3D(colours, {(area.left + area.right) / 2, foot.legend}, canvas, *texts_);
  }
  if (view.layers.MostraScala && view.projection == Projection::Orthographic && !scene.trajectory.empty()) {
    DisegnaScala(MetriPerPixel(view), {area.right - foot.inset - text / 2, foot.legend - 4}, canvas, *texts_);
  }
  if (view.layers.MostraNord) DisegnaNordG(scene, view, {area.left + foot.inset, foot.legend}, canvas, *texts_);
}

/// "1" and "2" at the chosen measurements.
void Renderer::ScriviEstremi(const ViewState& view, const PictureNotes& notes) {
  for (const auto& [index, text] : {std::pair(notes.E1, "1"), std::pair(notes.E2, "2")}) {
    const auto found = std::find_if(track_.begin(), track_.end(),
                                    [&](const PointLabel& label) { return index && label.index == *index; });
    if (found != track_.end()) ScriviEstremo(found->at, text, view, PickedColour, *texts_);
  }
}

void Renderer::Disponi(const Scene& scene, const ViewState& view, const PictureNotes& notes) {
  const Layers& shown = view.layers;
  track_.clear();
  if (shown.MostraElettrodi || shown.MostraNomi || notes.E1 || notes.E2) {
    track_ = Etichette(scene.trajectory, scene.trajectory.size(), view, MeasurementColour,
                       [&scene](std::size_t k) { return scene.placed[k - 1]; });
  }
  shown.MostraElettrodi ? DisponiTraiettoria(view, notes) : TraiettoriaNonVisibile();
  shown.MostraProfondita ? DisponiEchoSounder(scene, view) : DepthNonVisibile();
  shown.MostraGPS2 ? DisponiGPS(scene, view, notes) : GpsNonVisibile();
}

void Renderer::DisegnaContorno(const Scene& scene, const ViewState& view, Canvas& canvas) {
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  DisegnaAnelli(scene.outline, scene, view, path_, canvas, {qbcolor::Green, false});
  texts_.emplace(canvas);
  if (view.layers.MostraNord) {
    const Foot foot(view.AreaPixel, canvas.AltezzaTesto());
    DisegnaNordG(scene, view, {view.AreaPixel.left + foot.inset, foot.legend}, canvas, *texts_);
  }
  texts_->dipingi(canvas);
}

void Renderer::DisegnaCavoG(const Scene& scene, const ViewState& view, Canvas& canvas) {
  const LabelStyle style = Stile(MarkerShape::Diamond, 5, ElectrodeColour, view.AreaPixel);
  CableLbl_.assign(Etichette(scene.cable, scene.cable.size(), view, style.colour, Every), style, view.AreaPixel);
  CableLbl_.dipingi(canvas);
  TextLayout names(canvas);
  ScriviElettrodi(CableLbl_.labels(), style.radius, ElectrodeColour, names);
  names.dipingi(canvas);
}

void Renderer::DisponiTraiettoria(const ViewState& view, const PictureNotes& notes) {
  std::vector<PointLabel> labels = track_;
  Arrossa(labels, notes.picked);
  Mostra(ptlbl_, std::move(labels), Stile(MarkerShape::Dot, 2, MeasurementColour, view.AreaPixel), view.AreaPixel);
}

void Renderer::DisponiEchoSounder(const Scene& scene, const ViewState& view) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, qbcolor::DarkBlue, view.AreaPixel);
  Mostra(dptlbl_,
         Etichette(scene.echoSounder, scene.placed.size(), view, style.colour,
                   [&scene](std::size_t k) { return scene.placed[k - 1]; }),
         style, view.AreaPixel);
}

void Renderer::DisponiGPS(const Scene& scene, const ViewState& view, const PictureNotes& notes) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, FixColour, view.AreaPixel);
  auto labels = Etichette(scene.gps, scene.gps.size(), view, style.colour, Every);
  Arrossa(labels, notes.pickedFixes);
  Mostra(gpslbl_, std::move(labels), style, view.AreaPixel);
}

/// The external track: a line where its fixes would touch, and its bottom, out along it and back the same way, so that
/// the filled polygon is a line and hides nothing.
void Renderer::DisegnaGPS(const Scene& scene, const ViewState& view, Canvas& canvas) {
  if (gpslbl_.style().crowded) {
    path_.clear();
    for (const PointLabel& label : gpslbl_.labels()) path_.push_back(label.at);
    DisegnaBordato(path_, view, FixColour, canvas);
  }
  Projector(view).tutti(Tutti(scene.gpsDepth), path_);
  std::erase(path_, SenzaPixel);
  DisegnaBordato(path_, view, qbcolor::DarkBlue, canvas);
}

}  // namespace corvan

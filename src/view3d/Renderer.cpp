#include "view3d/Renderer.h"

#include <algorithm>
#include <cmath>

#include "view3d/Projector.h"

namespace corvan {
namespace {

constexpr Colour MeasurementColour = 0x202020;
constexpr Colour FixColour = 0x006400;
constexpr Colour ElectrodeColour = 0xB03000;

/// Marks grow with the picture, so that they are as easy to see on a fine screen.
LabelStyle Stile(MarkerShape shape, std::int32_t radius, Colour colour, const PixelArea& area) {
  const double size = std::max(1.0, area.height() / 800.0);
  return {shape, static_cast<std::int32_t>(ArrotondaPixel(radius * size)), colour};
}

/// Rotates, projects and draws the points first..last of a layer; those without a picture point are left out.
class PathDrawer {
 public:
  PathDrawer(const Array1<Punto3D>& points, const ViewState& view, std::vector<PuntoPixel>& path)
      : points_(points), projector_(view), path_(path) {
    path_.clear();
  }

  void add(std::size_t first, std::size_t last) {
    for (std::size_t k = first; k <= last; ++k) {
      if (const auto seen = projector_.proietta(projector_.ruota(points_(k)))) path_.push_back(*seen);
    }
  }
  void draw(Canvas& canvas, Colour colour) {
    canvas.Linea(path_, colour);
    path_.clear();
  }

 private:
  const Array1<Punto3D>& points_;
  Projector projector_;
  std::vector<PuntoPixel>& path_;
};

/// Draws an outline of 2N + 1 points as a ring for each survey line, so that nothing joins one line to the next.
void DisegnaAnelli(const Array1<Punto3D>& outline, const Scene& scene, const ViewState& view,
                   std::vector<PuntoPixel>& path, Canvas& canvas, Colour colour) {
  if (outline.empty()) return;
  PathDrawer ring(outline, view, path);
  const std::size_t back = outline.size();  // point k of the way out stands at `back` - k on the way home
  std::size_t first = 1;
  for (const std::size_t last : scene.lineEnds) {
    ring.add(first, last);
    ring.add(back - last, back - first);
    ring.add(first, first);
    ring.draw(canvas, colour);
    first = last + 1;
  }
}

/// A label for each point that `wanted` accepts by its index.
template <class Wanted>
std::vector<PointLabel> Etichette(const Array1<Punto3D>& points, const ViewState& view, Colour colour, Wanted wanted) {
  const Projector projector(view);
  std::vector<PointLabel> labels;
  labels.reserve(points.size());
  for (std::size_t k = 1; k <= points.size(); ++k) {
    if (!wanted(k)) continue;
    if (const auto seen = projector.proietta(projector.ruota(points(k)))) {
      labels.push_back({static_cast<std::int32_t>(k), *seen, true, colour, 0});
    }
  }
  return labels;
}

/// Dots that lie closer than they are wide become smaller: a band of them would hide the cells below it.
LabelStyle Diradato(LabelStyle style, const std::vector<PointLabel>& labels) {
  double length = 0.0;
  for (std::size_t i = 1; i < labels.size(); ++i) {
    length += std::hypot(static_cast<double>(labels[i].at.X) - labels[i - 1].at.X,
                         static_cast<double>(labels[i].at.Y) - labels[i - 1].at.Y);
  }
  const bool dense = length < (2.0 * style.radius + 3.0) * static_cast<double>(labels.size());
  if (dense && labels.size() > 1) style.radius = std::max(1, style.radius / 2);
  return style;
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

void Renderer::DisegnaImmagineQ(const Scene& scene, const Survey& survey, const ViewState& view,
                                const ColourRange& colours, const PictureNotes& notes, Canvas& canvas) {
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  curtain_.dipingi(scene.cells, view, colours, canvas);
  DisegnaTraiettoria(scene, survey, view, notes, canvas);
  if (view.MostraNord) DisegnaNordG(scene, view, path_, canvas);
  if (view.MostraScalaColori) DisegnaScalaColori3D(colours, canvas);
  if (view.MostraProfondita) {
    DisegnaEchoSounder(scene, survey, view, canvas);
  } else {
    dptlbl_.hide();
  }
  if (view.MostraGPS2) {
    DisegnaGPS(scene, view, canvas);
  } else {
    gpslbl_.hide();
  }
  if (!notes.info.empty()) {
    const std::int32_t inset = canvas.AltezzaTesto() * 3 / 4;
    canvas.Testo({view.AreaPixel.left + inset, view.AreaPixel.top + inset}, notes.info, MeasurementColour);
  }
}

void Renderer::DisegnaContorno(const Scene& scene, const ViewState& view, Canvas& canvas) {
  canvas.Riquadro(view.AreaPixel, qbcolor::White);
  DisegnaAnelli(scene.outline, scene, view, path_, canvas, qbcolor::Green);
  if (view.MostraNord) DisegnaNordG(scene, view, path_, canvas);
}

void Renderer::DisegnaCavoG(const Scene& scene, const ViewState& view, Canvas& canvas) {
  const LabelStyle style = Stile(MarkerShape::Diamond, 5, ElectrodeColour, view.AreaPixel);
  CableLbl_.assign(Etichette(scene.cable, view, style.colour, Every), style, view.AreaPixel);
  CableLbl_.dipingi(canvas);
}

void Renderer::DisegnaTraiettoria(const Scene& scene, const Survey& survey, const ViewState& view,
                                  const PictureNotes& notes, Canvas& canvas) {
  if (!view.MostraElettrodi) {
    ptlbl_.hide();
    return;
  }
  const LabelStyle style = Stile(MarkerShape::Dot, 2, MeasurementColour, view.AreaPixel);
  auto labels = Etichette(scene.trajectory, view, style.colour,
                          [&survey](std::size_t k) { return HaPosizione(survey.Misure(k)); });
  for (PointLabel& label : labels) {
    if (std::find(notes.picked.begin(), notes.picked.end(), label.index) != notes.picked.end())
      label.colour = PickedColour;
  }
  const LabelStyle fitting = Diradato(style, labels);
  ptlbl_.assign(std::move(labels), fitting, view.AreaPixel);
  ptlbl_.dipingi(canvas);
}

void Renderer::DisegnaEchoSounder(const Scene& scene, const Survey& survey, const ViewState& view, Canvas& canvas) {
  DisegnaAnelli(scene.echoSounder, scene, view, path_, canvas, qbcolor::DarkBlue);
  const LabelStyle style = Stile(MarkerShape::Dot, 2, qbcolor::DarkBlue, view.AreaPixel);
  const std::size_t count = survey.Misure.size();
  auto labels = Etichette(scene.echoSounder, view, style.colour,
                          [&](std::size_t k) { return k <= count && HaPosizione(survey.Misure(k)); });
  const LabelStyle fitting = Diradato(style, labels);
  dptlbl_.assign(std::move(labels), fitting, view.AreaPixel);
  dptlbl_.dipingi(canvas);
}

/// The fixes of the external track, and its bottom: out along it and back the same way, so that the filled polygon is a
/// line and hides nothing.
void Renderer::DisegnaGPS(const Scene& scene, const ViewState& view, Canvas& canvas) {
  const LabelStyle style = Stile(MarkerShape::Dot, 2, FixColour, view.AreaPixel);
  auto labels = Etichette(scene.gps, view, style.colour, Every);
  const LabelStyle fitting = Diradato(style, labels);
  gpslbl_.assign(std::move(labels), fitting, view.AreaPixel);
  gpslbl_.dipingi(canvas);
  PathDrawer bottom(scene.gpsDepth, view, path_);
  bottom.add(1, scene.gpsDepth.size());
  bottom.draw(canvas, qbcolor::DarkBlue);
}

}  // namespace corvan

// A whole repaint against the bare painting of its quadrilaterals, drags, and the labels of the point layers.
#include <benchmark/benchmark.h>

#include <cmath>
#include <map>
#include <memory>

#include "BigSurvey.h"
#include "PixelCanvas.h"
#include "track/TrackAnalysis.h"
#include "view3d/MapBand.h"
#include "view3d/Renderer.h"

namespace corvan::bench {
namespace {

/// A survey as boats sail them: parallel lines 50 m apart, a firing every 5 m, about as wide as it is long.
Survey Lines(std::size_t count) {
  Survey survey = Measurements(count);
  const auto lines = static_cast<std::size_t>(std::sqrt(static_cast<double>(count) / 10.0));
  const std::size_t perLine = (count + lines - 1) / lines;
  for (std::size_t k = 0; k < count; ++k) {
    Misura& m = survey.Misure(k + 1);
    const double along = 5.0 * static_cast<double>(k % perLine);
    const std::size_t number = k / perLine;
    const auto line = static_cast<double>(number);
    m.NumFile = static_cast<std::int16_t>(number + 1);
    ImpostaUTM(m, 5'030'000.0 + along, 300'000.0 + 50.0 * line + 10.0 * std::sin(along / 80.0));
  }
  survey.file.NumCanali = 10;
  return survey;
}

/// An analysed survey of one size, seen from the south-west and above.
struct Prepared {
  Silent dialogs;
  Findings findings;
  Survey survey;
  Scene scene;
  ColourScale colours;
  ViewState view;
  std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(Width) * Height);
  PixelCanvas canvas{pixels};
  Renderer renderer;

  explicit Prepared(std::size_t count) : survey(Lines(count)) {
    survey.settings.griglia.zone = 33;
    AnalisiFile(survey, findings);
    CreaFourArray(scene, survey);
    GeneraTraiettoria(scene, survey);
    GeneraContorno(scene, survey);
    view.AreaPixel = canvas.area();
    view.AngoloVista = InRadianti(125);
    view.AngoloPhi = InRadianti(15);
    view.layers.MostraElettrodi = false;
    ImpostaFinestra(view, survey.traccia);
  }
  void zoom(double factor) {
    view.ZoomFattore = static_cast<float>(factor);
    AggiornaZoom(view);
  }
  void repaint() { renderer.DisegnaImmagineQ(scene, view, colours, {}, canvas); }
};

Prepared& At(const benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<Prepared>> sizes;
  auto& slot = sizes[state.range(0)];
  if (!slot) slot = std::make_unique<Prepared>(static_cast<std::size_t>(state.range(0)));
  return *slot;
}

constexpr double Whole = 1.0;
constexpr double Close = 0.05;  // about one cell in a hundred is inside

/// The quadrilaterals of all cells in the order of painting, those outside the window too.
std::vector<PixelQuad> Projected(Prepared& p) {
  ViewState all = p.view;
  all.AreaPixel = {-1'000'000, 1'000'000, -1'000'000, 1'000'000};  // nothing is outside
  const PixelArea& a = p.view.AreaPixel;
  // The same pixels from a larger area: the window grows about its middle with the area.
  const ViewWindow<float>& w = p.view.Finestra;
  const double perPixelX = (static_cast<double>(w.xmax) - w.xmin) / a.width();
  const double perPixelZ = (static_cast<double>(w.zmax) - w.zmin) / a.height();
  all.Finestra = {static_cast<float>(w.xmin - 1e6 * perPixelX), static_cast<float>(w.xmin + 1e6 * perPixelX),
                  static_cast<float>(w.zmin - 1e6 * perPixelZ), static_cast<float>(w.zmin + 1e6 * perPixelZ)};
  CurtainPainter painter;
  painter.prepara(p.scene.cells, all, p.colours);
  std::vector<PixelQuad> sorted;
  sorted.reserve(painter.order().size());
  for (const DepthKey key : painter.order()) sorted.push_back(painter.quads()[key & 0xFFFFFFFFU]);
  return sorted;
}

void Floor(benchmark::State& state, double zoom) {
  Prepared& p = At(state);
  p.zoom(zoom);
  const std::vector<PixelQuad> quads = Projected(p);
  SpanPainter painter(p.canvas.picture());
  for (auto _ : state) {
    painter.box(p.view.AreaPixel, qbcolor::White);
    for (const PixelQuad& quad : quads) painter.quad(quad);
    benchmark::ClobberMemory();
  }
  state.counters["cells"] = static_cast<double>(quads.size());
}

void Repaint(benchmark::State& state, double zoom) {
  Prepared& p = At(state);
  p.zoom(zoom);
  for (auto _ : state) {
    p.repaint();
    benchmark::ClobberMemory();
  }
}

/// The same view from above, where the map's band stands for the curtain.
ViewState Above(const Prepared& p) {
  ViewState map = p.view;
  map.AngoloVista = InRadianti(90);
  map.AngoloPhi = 0;
  return map;
}

/// The map's band laid out and painted, against the painting of its pieces alone.
void BandFloor(benchmark::State& state) {
  Prepared& p = At(state);
  MapBand band;
  band.prepara(p.scene.cells, Above(p), p.colours);
  SpanPainter painter(p.canvas.picture());
  for (auto _ : state) {
    painter.box(p.view.AreaPixel, qbcolor::White);
    for (const PixelQuad& quad : band.quads()) painter.quad(quad);
    benchmark::ClobberMemory();
  }
}

void BandAll(benchmark::State& state) {
  Prepared& p = At(state);
  MapBand band;
  const ViewState map = Above(p);
  for (auto _ : state) {
    p.canvas.Riquadro(map.AreaPixel, qbcolor::White);
    band.prepara(p.scene.cells, map, p.colours);
    band.dipingi(p.canvas);
    benchmark::ClobberMemory();
  }
}

void PaintFloor(benchmark::State& state) { Floor(state, Whole); }
void PaintAll(benchmark::State& state) { Repaint(state, Whole); }
void ZoomFloor(benchmark::State& state) { Floor(state, Close); }
void ZoomAll(benchmark::State& state) { Repaint(state, Close); }

void Drag(benchmark::State& state) {
  Prepared& p = At(state);
  p.zoom(Whole);
  for (auto _ : state) {
    p.renderer.DisegnaContorno(p.scene, p.view, p.canvas);
    benchmark::ClobberMemory();
  }
}

/// The picture of 10,000 cells with an external track of so many fixes over it.
void Markers(benchmark::State& state) {
  static Prepared p(1'000);
  Survey track;
  track.Misure = Lines(static_cast<std::size_t>(state.range(0))).Misure;
  track.traccia = p.survey.traccia;
  const double scale = std::sqrt(1000.0 / static_cast<double>(state.range(0)));  // over the same ground
  for (const Misura& m : track.Misure) {
    PuntoGPSEst fix;
    fix.X = 300'000.0 + (m.UTMx - 300'000.0) * scale;
    fix.Y = 5'030'000.0 + (m.UTMy - 5'030'000.0) * scale;
    track.tracciaEst.PuntiGPSEst.append(fix);
  }
  GeneraGPS(p.scene, track);
  p.view.layers.MostraGPS2 = true;
  p.zoom(Whole);
  for (auto _ : state) {
    p.repaint();
    benchmark::ClobberMemory();
  }
}

/// One question for the label under the pointer, at places all over the track.
void HitTest(benchmark::State& state) {
  Prepared& p = At(state);
  p.zoom(Whole);
  p.view.layers.MostraElettrodi = true;
  p.repaint();
  const std::vector<PointLabel>& labels = p.renderer.ptlbl().labels();
  std::size_t k = 0;
  for (auto _ : state) {
    k = (k + 7919) % labels.size();
    benchmark::DoNotOptimize(p.renderer.ptlbl().cerca(labels[k].at, 0));
  }
  p.view.layers.MostraElettrodi = false;
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(PaintFloor)->Apply(Sizes);
BENCHMARK(PaintAll)->Apply(Sizes);
BENCHMARK(ZoomFloor)->Apply(Sizes);
BENCHMARK(ZoomAll)->Apply(Sizes);
BENCHMARK(BandFloor)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BandAll)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Drag)->Apply(Sizes);
BENCHMARK(Markers)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(HitTest)->Arg(100'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvan::bench

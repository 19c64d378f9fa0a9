// The flat section: a repaint against the bare painting of its cells, the curves, and the model behind both.
#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <memory>
#include <vector>

#include "BigSurvey.h"
#include "PixelCanvas.h"
#include "track/PseudoDepth.h"
#include "track/TrackAnalysis.h"
#include "view2d/SectionPainter.h"

namespace corvan::bench {
namespace {

struct Flat {
  Survey survey;
  ReadingPlaces places;
  SectionModel model;
  std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(Width) * Height);
  PixelCanvas canvas{pixels};
  ColourScale colours{{0.0F, 3.0F}};

  explicit Flat(std::size_t count) : survey(Measurements(count)) {
    Findings findings;
    survey.settings.griglia.zone = 33;
    AnalisiFile(survey, findings);
    places = CollocaLetture(survey.cavo, 0.0);
    model = CreaSezionePiana(survey, places);
  }
  SectionLayout paint(bool curves) {
    SectionView view;
    view.curves.fill(curves);
    return DisegnaSezione(model, view, colours, {}, canvas);
  }
};

Flat& At(const benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<Flat>> sizes;
  auto& slot = sizes[state.range(0)];
  if (!slot) slot = std::make_unique<Flat>(static_cast<std::size_t>(state.range(0)));
  return *slot;
}

/// The cells that a repaint shows, each once, as quadrilaterals with the corners of their pixels.
std::vector<PixelQuad> Shown(const Flat& flat, const SectionLayout& layout) {
  std::vector<PixelQuad> quads;
  const SectionBlock& block = layout.blocks.front();
  const double step = block.plot.width() / static_cast<double>(flat.model.size());
  for (const SectionRow& row : flat.model.metres) {
    const auto [top, bottom] = RigheDiPixel(layout, block, row);
    for (std::size_t i = 0; i < flat.model.size(); ++i) {
      const auto left = block.plot.left + static_cast<std::int32_t>(static_cast<double>(i) * step);
      const auto right = std::max(left, left + static_cast<std::int32_t>(step) - 1);
      quads.push_back({{PuntoPixel{left, top}, {right, top}, {right, bottom - 1}, {left, bottom - 1}}, 0x336699});
    }
  }
  return quads;
}

void FlatFloor(benchmark::State& state) {
  Flat& flat = At(state);
  const std::vector<PixelQuad> quads = Shown(flat, flat.paint(false));
  SpanPainter painter(flat.canvas.picture());
  for (auto _ : state) {
    painter.box(flat.canvas.area(), qbcolor::White);
    for (const PixelQuad& quad : quads) painter.quad(quad);
    benchmark::ClobberMemory();
  }
}

void FlatAll(benchmark::State& state) {
  Flat& flat = At(state);
  for (auto _ : state) {
    flat.paint(false);
    benchmark::ClobberMemory();
  }
}

void FlatCurves(benchmark::State& state) {
  Flat& flat = At(state);
  for (auto _ : state) {
    flat.paint(true);
    benchmark::ClobberMemory();
  }
}

void FlatModel(benchmark::State& state) {
  Flat& flat = At(state);
  for (auto _ : state) benchmark::DoNotOptimize(CreaSezionePiana(flat.survey, flat.places));
}

BENCHMARK(FlatFloor)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FlatAll)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FlatCurves)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FlatModel)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvan::bench

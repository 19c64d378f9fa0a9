#include "session/SectionMouse.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "survey/MeasurementText.h"

namespace corvan {
namespace {

bool Dentro(const PixelArea& area, const PuntoPixel& p) {
  return p.X >= area.left && p.X < area.right && p.Y >= area.top && p.Y < area.bottom;
}

}  // namespace

/// The block on whose strips of the track a pixel lies. The numbers at the picture's foot belong to the lowest one.
const SectionBlock* SectionMouse::asse(const PuntoPixel& at) const {
  const SectionLayout& layout = desk_.disposta();
  if (layout.blocks.empty()) return nullptr;
  const SectionBlock& last = layout.blocks.back();
  if (at.X < last.plot.left || at.X >= last.plot.right) return nullptr;
  const std::int32_t strip = (layout.axisTitle - layout.axis) / 2;
  for (const SectionBlock& block : layout.blocks) {
    const bool air = at.Y >= block.air.top && at.Y < block.air.bottom;
    const bool below = at.Y >= block.plot.bottom && at.Y < block.plot.bottom + strip;
    if (air || below) return &block;
  }
  return at.Y >= layout.axis && at.Y < layout.axisTitle ? &last : nullptr;
}

/// The measurement nearest to a pixel column, held to the plot; 0 for none.
std::int32_t SectionMouse::vicina(const SectionBlock& block, std::int32_t X) {
  const std::int32_t column = std::clamp(X, block.plot.left, block.plot.right - 1);
  return MisuraVicina(desk_.modello(), block, desk_.disposta().distanza(block, column + 0.5));
}

bool SectionMouse::oltre(const PuntoPixel& at) const {
  return std::abs(at.X - press_.X) + std::abs(at.Y - press_.Y) > slack_;
}

void SectionMouse::premi(const PuntoPixel& at, SectionPress why) {
  const SectionLayout& layout = desk_.disposta();
  if (dragging_ != SectionDrag::Nothing || layout.blocks.empty()) return;
  press_ = at;
  why_ = why;
  before_ = layout.window;
  wished_ = desk_.view().window;
  dragging_ = SectionDrag::Press;
}

void SectionMouse::muovi(const PuntoPixel& at) {
  const SectionLayout& layout = desk_.disposta();
  if (layout.blocks.empty()) return;
  if (dragging_ == SectionDrag::Press && oltre(at)) {
    const SectionBlock* block = asse(press_);
    dragging_ = block != nullptr ? SectionDrag::Range : SectionDrag::Scroll;
    if (block != nullptr) block_ = static_cast<std::size_t>(block - layout.blocks.data());
  }
  if (dragging_ == SectionDrag::Range) tendi(at);
  if (dragging_ != SectionDrag::Scroll) return;
  const double metres = (press_.X - at.X) / layout.blocks.front().plot.width() * before_.width();
  finestra(Scorri(before_, metres, layout.whole));
}

/// The stretch from the press to here.
void SectionMouse::tendi(const PuntoPixel& at) {
  const SectionLayout& layout = desk_.disposta();
  stretch_.reset();
  if (block_ >= layout.blocks.size()) return;
  const std::int32_t one = vicina(layout.blocks[block_], press_.X), other = vicina(layout.blocks[block_], at.X);
  if (one != 0 && other != 0 && one != other) stretch_ = std::minmax(one, other);
}

SectionChoice SectionMouse::rilascia(const PuntoPixel& at) {
  muovi(at);
  SectionChoice asked;
  if (dragging_ == SectionDrag::Press && why_ == SectionPress::Toggle) asked.toggle = lettura(at);
  if (dragging_ == SectionDrag::Press && why_ == SectionPress::Choose) asked.pick = bersaglio(at);
  asked.section = stretch_;
  lascia();
  return asked;
}

void SectionMouse::doppio(const PuntoPixel& at) {
  if (!bersaglio(at)) intera();
}

/// The whole is kept as none, so that it stays the whole when the survey's reach changes.
void SectionMouse::finestra(const TrackWindow& window) {
  desk_.mostra(window == desk_.disposta().whole ? std::nullopt : std::optional(window));
}

void SectionMouse::rotella(const PuntoPixel& at, double notches) {
  constexpr double notch = 1.2;
  const SectionLayout& layout = desk_.disposta();
  if (dragging_ != SectionDrag::Nothing || layout.blocks.empty()) return;
  const SectionBlock& block = layout.blocks.front();
  const double place = layout.distanza(block, std::clamp(at.X, block.plot.left, block.plot.right)) - block.origin;
  finestra(Ingrandisci(layout.window, place, std::pow(notch, -notches), layout.whole));
}

void SectionMouse::scorri(double share) {
  const SectionLayout& layout = desk_.disposta();
  finestra(Scorri(layout.window, share * layout.window.width(), layout.whole));
}

void SectionMouse::ingrandisci(double factor) {
  const TrackWindow& w = desk_.disposta().window;
  finestra(Ingrandisci(w, (w.from + w.to) / 2.0, factor, desk_.disposta().whole));
}

void SectionMouse::lascia() {
  dragging_ = SectionDrag::Nothing;
  stretch_.reset();
}

void SectionMouse::rinuncia() {
  if (dragging_ == SectionDrag::Scroll) desk_.mostra(wished_);
  lascia();
}

std::optional<ReadingUnder> SectionMouse::lettura(const PuntoPixel& at) {
  return LetturaSotto(desk_.modello(), desk_.disposta(), at);
}

std::optional<std::int32_t> SectionMouse::bersaglio(const PuntoPixel& at) {
  if (const auto found = lettura(at)) return found->measurement;
  const SectionBlock* block = asse(at);
  for (const SectionBlock& any : desk_.disposta().blocks) {
    const bool curve =
        std::any_of(any.curves.begin(), any.curves.end(), [&](const CurvePlot& c) { return Dentro(c.plot, at); });
    if (curve) block = &any;
  }
  const std::int32_t nearest = block == nullptr ? 0 : vicina(*block, at.X);
  return nearest == 0 ? std::nullopt : std::optional(nearest);
}

std::string SectionMouse::suggerimento(const PuntoPixel& at) {
  if (const auto found = lettura(at)) return DescriviLettura(survey_, desk_.modello(), *found);
  const SectionBlock* block = BloccoSotto(desk_.disposta(), at);
  if (block == nullptr) block = asse(at);
  if (block == nullptr || at.X < block->plot.left || at.X >= block->plot.right) return {};
  const std::int32_t nearest = vicina(*block, at.X);
  if (nearest == 0) return {};
  return "Measurement " + std::to_string(nearest) + ", " + DescriviFondo(survey_, static_cast<std::size_t>(nearest));
}

}  // namespace corvan

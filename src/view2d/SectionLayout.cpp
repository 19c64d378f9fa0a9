#include "view2d/SectionLayout.h"

#include <algorithm>
#include <cmath>

#include "picture/Legend.h"

namespace corvan {
namespace {

constexpr std::int32_t StripLines = 4;  // lines of text that a strip is high at least
constexpr std::int32_t CurveLines = 2;  // likewise a curve, below its title
constexpr double CurveShare = 0.16;     // of a block's height for each curve, as long as the strip keeps a third

/// The line that is shown alone.
std::size_t Scelta(const SectionModel& model, const SectionView& view) {
  return std::clamp<std::size_t>(view.line, 1, std::max<std::size_t>(model.lines.size(), 1)) - 1;
}

/// How far cells and boat reach before and behind a line's ends, m.
TrackWindow Ampiezza(const SectionModel& model, const SectionLine& line) {
  double most = 0.0, least = 0.0;
  for (const SectionRow& row : model.levels) {
    most = std::max(most, model.behind.at(row.channel));
    least = std::min(least, model.behind.at(row.channel));
  }
  return {line.start - most - line.step / 2.0, line.end - least + line.step / 2.0};
}

/// Blocks without places in the picture yet.
std::vector<SectionBlock> Blocchi(const SectionModel& model, const SectionView& view, SectionLines lines) {
  std::vector<SectionBlock> blocks;
  if (model.lines.empty()) return {SectionBlock()};
  const std::size_t last = model.lines.size() - 1, one = Scelta(model, view);
  const auto add = [&](std::size_t from, std::size_t to) {
    SectionBlock block;
    block.firstLine = from;
    block.lastLine = to;
    block.origin = model.lines[from].start;
    blocks.push_back(block);
  };
  if (lines == SectionLines::Along) add(0, last);
  if (lines == SectionLines::One) add(one, one);
  if (lines == SectionLines::Stacked) {
    for (std::size_t k = 0; k <= last; ++k) add(k, k);
  }
  return blocks;
}

/// The stretch that holds all that the blocks show, m from their origins.
TrackWindow Intera(const SectionModel& model, const std::vector<SectionBlock>& blocks) {
  if (model.lines.empty()) return {0.0, 100.0};
  TrackWindow whole{HUGE_VAL, -HUGE_VAL};
  for (const SectionBlock& block : blocks) {
    for (std::size_t k = block.firstLine; k <= block.lastLine; ++k) {
      const TrackWindow reach = Ampiezza(model, model.lines[k]);
      whole.from = std::min(whole.from, reach.from - block.origin);
      whole.to = std::max(whole.to, reach.to - block.origin);
    }
  }
  return whole.to > whole.from ? whole : TrackWindow{0.0, 100.0};
}

/// Depth at the lower edge: the lowest row's, more where the water is deeper, up to twice it.
double PiuProfondo(const SectionModel& model, const SectionLayout& layout, std::vector<std::string>& told) {
  double rows = 0.0;
  for (const SectionRow& row : RigheDi(model, layout)) rows = std::max(rows, row.bottom);
  if (!(rows > 0.0)) rows = 1.0;
  double bottom = 0.0;
  for (const float depth : model.depth) {
    if (std::isfinite(depth)) bottom = std::max(bottom, static_cast<double>(depth));
  }
  if (bottom <= 2.0 * rows) return std::max(rows, 1.04 * bottom);
  told.emplace_back("the bottom lies below the axis in places: its profile ends at the lower edge there");
  return 2.0 * rows;
}

/// Heights of a picture's parts, in pixels.
struct Measures {
  std::int32_t text, gap;
  std::int32_t top, bottom;  ///< rows between which the blocks stand
  std::int32_t left, right;

  std::int32_t title() const { return text + gap / 2; }
  std::int32_t air() const { return text + gap; }
  std::int32_t height(std::size_t blocks) const { return (bottom - top) / static_cast<std::int32_t>(blocks); }
  /// A block of so many curves has room for its strip and for them.
  bool fits(std::size_t blocks, std::size_t curves, std::int32_t strip) const {
    const auto below = static_cast<std::int32_t>(curves) * (title() + gap + CurveLines * text);
    return height(blocks) >= title() + air() + strip * text + below + gap;
  }
};

/// Places of a block that takes the rows from top on.
void Colloca(SectionBlock& block, const Measures& m, std::int32_t top, std::int32_t height,
             const std::vector<Curve>& curves) {
  const std::int32_t bottom = top + height - m.gap, head = m.title() + m.gap;
  const auto count = static_cast<std::int32_t>(curves.size());
  const std::int32_t room = height - m.title() - m.air() - m.gap;
  const std::int32_t least = head + CurveLines * m.text;
  const std::int32_t each =
      count == 0 ? 0
                 : std::max(least, std::min(static_cast<std::int32_t>(CurveShare * room) + head, 2 * room / 3 / count));
  block.title = top;
  block.air = {m.left, m.right, top + m.title(), top + m.title() + m.air()};
  block.plot = {m.left, m.right, block.air.bottom, bottom - count * each};
  std::int32_t at = block.plot.bottom + m.gap;
  for (const Curve curve : curves) {
    block.curves.push_back({curve, at, {m.left, m.right, at + m.title(), at + each - m.gap}});
    at += each;
  }
}

/// Rows of the parts that stand outside the blocks.
Measures Misure(SectionLayout& layout, bool caption, const Canvas& canvas) {
  Measures m{};
  m.text = canvas.AltezzaTesto();
  m.gap = m.text / 2;
  const PixelArea& a = layout.area;
  const auto width = static_cast<std::int32_t>(a.width());
  m.left = a.left + std::min(canvas.LarghezzaTesto("-0000.0") + m.gap + m.text / 3, width / 4);
  m.right = a.right - std::max(1, std::min(m.text, width / 16));
  std::int32_t foot = a.bottom;
  layout.caption = foot - m.text - m.gap / 4;
  if (caption) foot = layout.caption;
  layout.legend = {(m.left + m.right) / 2, foot - m.gap / 2};
  foot = layout.legend.Y - AltezzaLegenda(m.text) - m.gap / 2;
  layout.axisTitle = foot - m.text;
  layout.axis = layout.axisTitle - m.text - m.gap / 4;
  m.bottom = layout.axis + m.gap / 4;
  layout.notes = a.top + m.gap / 2;
  const auto lines = static_cast<std::int32_t>(layout.told.size()) + (layout.marks ? 1 : 0);
  m.top = layout.notes + lines * (m.text + 2);
  return m;
}

std::vector<Curve> Scelte(const SectionView& view) {
  std::vector<Curve> curves;
  for (std::size_t k = 0; k < Curves; ++k) {
    if (view.curves.at(k)) curves.push_back(static_cast<Curve>(k));
  }
  return curves;
}

}  // namespace

std::pair<std::int32_t, std::int32_t> RigheDiPixel(const SectionLayout& layout, const SectionBlock& block,
                                                   const SectionRow& row) {
  const auto y = [&](double depth) {
    return static_cast<std::int32_t>(std::lround(std::min(layout.riga(block, depth), 1.0 * block.plot.bottom)));
  };
  const std::int32_t top = std::min(y(row.top), block.plot.bottom - 1);
  return {top, std::max(y(row.bottom), top + 1)};
}

SectionLayout DisponiSezione(const SectionModel& model, const SectionView& view, bool caption, const Canvas& canvas) {
  SectionLayout layout;
  layout.area = canvas.area();
  layout.levels = view.depth == DepthAxis::Levels || !model.metric;
  layout.told = model.lacks;
  layout.marks = !model.marks.empty();
  layout.deepest = PiuProfondo(model, layout, layout.told);
  std::vector<Curve> curves = Scelte(view);
  layout.blocks = Blocchi(model, view, view.lines);
  Measures m = Misure(layout, caption, canvas);
  if (layout.blocks.size() > 1 && !m.fits(layout.blocks.size(), curves.size(), StripLines)) {
    layout.told.push_back("no room for " + std::to_string(layout.blocks.size()) +
                          " strips: the lines are shown along one axis");
    layout.blocks = Blocchi(model, view, SectionLines::Along);
    m = Misure(layout, caption, canvas);
  }
  const std::size_t asked = curves.size();
  while (!curves.empty() && !m.fits(1, curves.size(), StripLines)) curves.pop_back();
  if (curves.size() < asked && layout.blocks.size() == 1) {
    const std::size_t left = asked - curves.size();
    layout.told.push_back("no room for " + std::to_string(left) + (left == 1 ? " curve" : " curves") +
                          ": make the picture higher");
    m = Misure(layout, caption, canvas);
  }
  layout.whole = Intera(model, layout.blocks);
  layout.window = Scorri(view.window.value_or(layout.whole), 0.0, layout.whole);
  if (!(layout.window.width() > 0.0)) layout.window = layout.whole;
  const std::int32_t height = m.height(layout.blocks.size());
  for (std::size_t k = 0; k < layout.blocks.size(); ++k) {
    Colloca(layout.blocks[k], m, m.top + static_cast<std::int32_t>(k) * height, height, curves);
  }
  const PixelArea& plot = layout.blocks.front().plot;
  if (plot.width() < 1.0 || plot.height() < 1.0) layout.blocks.clear();
  return layout;
}

}  // namespace corvan

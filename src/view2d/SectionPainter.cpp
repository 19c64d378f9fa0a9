#include "view2d/SectionPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "base/Text.h"
#include "picture/Legend.h"
#include "picture/TextLayout.h"
#include "picture/Ticks.h"
#include "view2d/ColumnPath.h"
#include "view2d/CurvePainter.h"
#include "view2d/SectionColumns.h"

namespace corvan {
namespace {

constexpr Colour WaterColour = 0x2C6FB7;
constexpr Colour FrameColour = 0xB8B8B8;
constexpr Colour PickColour = 0xC00020;
constexpr Colour PickTint = 0xF6D5D9;
constexpr Colour QuietInk = 0x606060;
constexpr Colour NoteColour = 0xA04000;

/// Everything that the parts of one painting need.
struct Painting {
  const SectionModel& model;
  const SectionLayout& layout;
  const ColourScale& colours;
  const SectionNotes& notes;
  Canvas& canvas;
  TextLayout& texts;
  std::int32_t text;  ///< height of the letters, pixels

  std::int32_t stroke() const { return std::max(1, text / 12); }
  std::int32_t inset() const { return layout.area.left + text / 2; }
  /// Pixel column of a place along the track, held to one pixel beside the plot.
  std::int32_t x(const SectionBlock& block, double distance) const {
    const double at = std::clamp(layout.colonna(block, distance), -1.0, block.plot.width());
    return block.plot.left + static_cast<std::int32_t>(std::floor(at));
  }
  bool inside(const SectionBlock& block, std::int32_t column) const {
    return column >= block.plot.left && column < block.plot.right;
  }
  /// Pixel row of a depth, held to the plot.
  std::int32_t y(const SectionBlock& block, double depth) const {
    return static_cast<std::int32_t>(std::lround(std::clamp(
        layout.riga(block, depth), static_cast<double>(block.plot.top), static_cast<double>(block.plot.bottom))));
  }
};

/// One row of pixels through a channel's cells. Excluded readings show the outline of theirs.
/// @param shown measurement of each column, 0 for none @param edge of the cells, not through their middle
std::vector<std::uint32_t> ColoraRiga(const std::vector<std::uint32_t>& shown, const std::vector<float>& rho,
                                      const ColourLookup& colour, bool edge) {
  constexpr std::uint32_t opaque = 0xFF000000U;
  std::vector<std::uint32_t> pixels(shown.size(), opaque | qbcolor::White);
  for (std::size_t x = 0; x < shown.size(); ++x) {
    const std::uint32_t k = shown[x];
    if (k == 0) continue;
    if (std::isfinite(rho[k - 1])) {
      pixels[x] = opaque | colour(rho[k - 1]);
      continue;
    }
    const bool side = x == 0 || x + 1 == shown.size() || shown[x - 1] != k || shown[x + 1] != k;
    if (edge || side) pixels[x] = opaque | ExcludedOutline;
  }
  return pixels;
}

/// Cells: all pixel rows of a channel are alike but for outlines, so one is coloured and copied. Box by box it took
/// forty times as long.
void DisegnaCelle(const Painting& p, const SectionBlock& block, const ColourLookup& colour) {
  const PixelBuffer picture = p.canvas.picture();
  std::vector<std::uint32_t> shown;
  for (const SectionRow& row : RigheDi(p.model, p.layout)) {
    CelleDi(p.model, p.layout, block, row.channel, shown);
    const std::vector<float>& rho = p.model.rho.at(row.channel);
    const bool outlines = !p.model.lette.at(row.channel).empty();
    const std::vector<std::uint32_t> middle = ColoraRiga(shown, rho, colour, false);
    const std::vector<std::uint32_t> edge = outlines ? ColoraRiga(shown, rho, colour, true) : middle;
    const auto [top, bottom] = RigheDiPixel(p.layout, block, row);
    for (std::int32_t y = top; y < bottom; ++y) {
      const std::vector<std::uint32_t>& pixels = y == top || y + 1 == bottom ? edge : middle;
      std::copy(pixels.begin(), pixels.end(), picture.pixels + y * picture.stride + block.plot.left);
    }
  }
}

/// The water's surface and its bottom, dark on a light border so that it is seen on cells of any colour. In levels the
/// depth counts in levels, as it does where the section hangs below the track.
void DisegnaAcqua(const Painting& p, const SectionBlock& block) {
  const std::int32_t top = block.plot.top, width = p.stroke() + 1;
  std::vector<ColumnValues> columns;
  ColonneDi(p.model, p.layout, block, p.model.depth, 0.0, columns);
  const auto row = [&](float depth) { return std::min(p.y(block, depth), block.plot.bottom - 1 - width / 2); };
  TracciaColonne(block.plot, columns, row, width + 2, qbcolor::White, p.canvas);
  TracciaColonne(block.plot, columns, row, width, InkColour, p.canvas);
  p.canvas.Riquadro({block.plot.left, block.plot.right, top - p.stroke(), top}, WaterColour);
}

/// Depths or levels beside the strip.
void DisegnaAsseVerticale(const Painting& p, const SectionBlock& block) {
  const std::int32_t x = block.plot.left - 1, tick = p.text / 3;
  const auto number = [&](std::int32_t y, const std::string& text, bool mark) {
    if (mark) p.canvas.Linea(std::array{PuntoPixel{x - tick, y}, PuntoPixel{x, y}}, InkColour);
    const std::int32_t left = x - tick - 3 - p.canvas.LarghezzaTesto(text);
    p.texts.scrivi({left, y - p.text / 2}, text, InkColour, Ground::Bare);
  };
  p.canvas.Linea(std::array{PuntoPixel{x, block.plot.top}, PuntoPixel{x, block.plot.bottom}}, InkColour);
  if (p.layout.levels) {
    for (const SectionRow& row : p.model.levels) {
      number(p.y(block, (row.top + row.bottom) / 2.0), std::to_string(row.channel), false);
    }
    return;
  }
  const double step = PassoTacche(p.layout.deepest, std::max(1.0, block.plot.height() / (2.0 * p.text)));
  for (const double depth : Tacche(0.0, p.layout.deepest, step)) {
    number(std::min(p.y(block, depth), block.plot.bottom - 1), TestoTacca(depth, step), true);
  }
}

/// Marks of firings without cells, in the air above the water.
void DisegnaPerdite(const Painting& p, const SectionBlock& block) {
  const std::int32_t side = std::max(2, p.text / 4), bottom = block.air.bottom - p.stroke() - 1;
  const std::size_t first = p.model.lines.empty() ? 0 : p.model.lines[block.firstLine].first;
  const std::size_t last = p.model.lines.empty() ? 0 : p.model.lines[block.lastLine].last;
  std::int32_t painted = -1;
  Loss kind = Loss::NoFix;
  for (const LossMark& mark : p.model.marks) {
    if (mark.measurement < first || mark.measurement > last) continue;
    const std::int32_t x = p.x(block, mark.distance);
    if (!p.inside(block, x) || (x == painted && mark.kind == kind)) continue;
    p.canvas.Riquadro({x - side / 2, x - side / 2 + side, bottom - side, bottom}, ColoreDi(mark.kind));
    painted = x;
    kind = mark.kind;
  }
}

/// Part of a block between the chosen extremes, m along the track.
std::optional<std::pair<double, double>> TrattoScelto(const Painting& p, const SectionBlock& block) {
  const auto& [first, second, caption] = p.notes;
  const auto exists = [&](std::int32_t k) { return k >= 1 && static_cast<std::size_t>(k) <= p.model.size(); };
  if (!first || !second || !exists(*first) || !exists(*second)) return std::nullopt;
  const auto [low, high] = std::minmax(*first, *second);
  const std::size_t from = std::max(static_cast<std::size_t>(low), p.model.lines[block.firstLine].first);
  const std::size_t to = std::min(static_cast<std::size_t>(high), p.model.lines[block.lastLine].last);
  if (from > to) return std::nullopt;
  return std::pair(p.model.distance[from - 1], p.model.distance[to - 1]);
}

/// The section between the extremes: a tint above the water and a bar below the strip.
void TingiScelta(const Painting& p, const SectionBlock& block) {
  const auto chosen = TrattoScelto(p, block);
  if (!chosen) return;
  const std::int32_t left = std::max(p.x(block, chosen->first), block.plot.left);
  const std::int32_t right = std::min(p.x(block, chosen->second) + 1, block.plot.right);
  if (left >= right) return;
  p.canvas.Riquadro({left, right, block.air.top, block.air.bottom}, PickTint);
  p.canvas.Riquadro({left, right, block.plot.bottom, block.plot.bottom + std::max(3, p.text / 3)}, PickColour);
}

/// Flags "1" and "2" on their poles.
void DisegnaEstremi(const Painting& p, const SectionBlock& block) {
  int flag = 0;
  for (const std::optional<std::int32_t>& extreme : {p.notes.first, p.notes.second}) {
    ++flag;
    if (!extreme || *extreme < 1 || static_cast<std::size_t>(*extreme) > p.model.size()) continue;
    const std::size_t line = p.model.line[static_cast<std::size_t>(*extreme) - 1];
    const std::int32_t x = p.x(block, p.model.distance[static_cast<std::size_t>(*extreme) - 1]);
    if (line < block.firstLine || line > block.lastLine || !p.inside(block, x)) continue;
    p.canvas.Tratto(std::array{PuntoPixel{x, block.air.top}, PuntoPixel{x, block.plot.bottom}}, p.stroke() + 2,
                    qbcolor::White);
    p.canvas.Tratto(std::array{PuntoPixel{x, block.air.top}, PuntoPixel{x, block.plot.bottom}}, p.stroke(), PickColour);
    const std::string text = std::to_string(flag);
    const std::int32_t width = p.canvas.LarghezzaTesto(text) + 6;
    for (const std::int32_t left : {x + p.stroke(), x - width - p.stroke()}) {
      if (p.texts.scrivi({left, block.air.top}, text, PickColour)) break;
    }
  }
}

/// Where the lines begin, on an axis that all share.
void DisegnaConfini(const Painting& p, const SectionBlock& block) {
  for (std::size_t k = block.firstLine + 1; k <= block.lastLine; ++k) {
    const std::int32_t x = p.x(block, p.model.lines[k].start);
    if (!p.inside(block, x)) continue;
    p.canvas.Riquadro({x, x + p.stroke(), block.title, block.plot.bottom}, QuietInk);
  }
}

/// Title of the vertical axis and names of the lines, each from where its line begins to the next one's name.
void ScriviTitolo(const Painting& p, const SectionBlock& block) {
  const char* axis = p.layout.levels ? "Level" : "Depth [m]";
  p.texts.scrivi({p.inset(), block.title}, axis, InkColour, Ground::Bare);
  const std::int32_t behindAxis = p.inset() + p.canvas.LarghezzaTesto(axis) + p.text;
  if (p.model.lines.empty()) return;
  for (std::size_t k = block.firstLine; k <= block.lastLine; ++k) {
    const std::int32_t start = p.x(block, p.model.lines[k].start), stop = p.x(block, p.model.lines[k].end);
    const bool first = k == block.firstLine;
    if (!first && !p.inside(block, start)) continue;
    if (stop < block.plot.left || start >= block.plot.right) continue;
    const std::int32_t left = first ? std::max(block.plot.left, behindAxis) : std::max(start + p.stroke(), behindAxis);
    std::int32_t right = block.plot.right;
    if (k < block.lastLine) right = std::min(right, p.x(block, p.model.lines[k + 1].start));
    p.texts.scrivi({left, block.title}, Accorcia(p.canvas, p.model.lines[k].name, right - left - 6), InkColour,
                   Ground::Bare);
  }
}

/// The shared axis at the lower edge, with marks below every strip and curve.
void DisegnaAsseOrizzontale(const Painting& p) {
  const SectionBlock& any = p.layout.blocks.back();
  const std::int32_t tick = p.text / 3;
  const double most = std::max(1.0, any.plot.width() / (6.0 * p.text));
  const double step = PassoTacche(p.layout.window.width(), most);
  for (const double place : Tacche(p.layout.window.from, p.layout.window.to, step)) {
    const std::int32_t x = p.x(any, any.origin + place);
    if (!p.inside(any, x)) continue;
    const auto mark = [&](std::int32_t y) {
      p.canvas.Linea(std::array{PuntoPixel{x, y}, PuntoPixel{x, y + tick}}, InkColour);
    };
    for (const SectionBlock& block : p.layout.blocks) {
      mark(block.plot.bottom);
      for (const CurvePlot& curve : block.curves) mark(curve.plot.bottom);
    }
    p.texts.scriviCentrato(x, p.layout.axis, TestoTacca(place, step), InkColour, Ground::Bare);
  }
  for (const SectionBlock& block : p.layout.blocks) {
    p.canvas.Linea(std::array{PuntoPixel{block.plot.left - 1, block.plot.bottom},
                              PuntoPixel{block.plot.right - 1, block.plot.bottom}},
                   InkColour);
  }
  const bool lines = p.layout.blocks.size() > 1 || p.layout.blocks.front().firstLine > 0;
  const std::string title = lines ? "Distance from the line's beginning [m]" : "Distance along the track [m]";
  p.texts.scriviCentrato((any.plot.left + any.plot.right) / 2, p.layout.axisTitle,
                         Accorcia(p.canvas, title, static_cast<std::int32_t>(p.layout.area.width()) - 8), InkColour,
                         Ground::Bare);
}

/// How many firings show no cells and why, each kind behind a mark of its colour.
void SpiegaPerdite(const Painting& p, std::int32_t top) {
  constexpr std::array Names{"without a fix", "left out", "without readings"};
  std::array<std::size_t, 3> count{};
  for (const LossMark& mark : p.model.marks) ++count.at(static_cast<std::size_t>(mark.kind));
  const std::int32_t side = std::max(4, p.text / 2);
  std::int32_t x = p.inset();
  for (std::size_t k = 0; k < count.size(); ++k) {
    if (count.at(k) == 0) continue;
    const std::string text = std::to_string(count.at(k)) + " " + Names.at(k);
    if (!p.texts.scrivi({x + side + side / 4, top}, text, InkColour, Ground::Bare)) return;
    const std::int32_t y = top + (p.text - side) / 2;
    p.canvas.Riquadro({x, x + side, y, y + side}, ColoreDi(static_cast<Loss>(k)));
    x += side + side / 4 + p.canvas.LarghezzaTesto(text) + p.text;
  }
}

/// How much larger depths are drawn than distances, at the right end of the first title.
void ScriviEsagerazione(const Painting& p) {
  const SectionBlock& block = p.layout.blocks.front();
  if (p.layout.levels || p.model.lines.empty()) return;
  const double down = block.plot.height() / p.layout.deepest, along = block.plot.width() / p.layout.window.width();
  const std::string text = "depths \u00D7 " + TestoDecimi(down / along);
  p.texts.scrivi({block.plot.right - p.canvas.LarghezzaTesto(text) - 4, block.title}, text, QuietInk, Ground::Bare);
}

void ScriviNote(const Painting& p) {
  const auto width = static_cast<std::int32_t>(p.layout.area.width()) - p.text - 4;
  std::int32_t y = p.layout.notes;
  for (const std::string& note : p.layout.told) {
    std::string text = note;
    text.front() = static_cast<char>(Maiuscolo(text.substr(0, 1)).front());
    p.texts.scrivi({p.inset(), y}, Accorcia(p.canvas, text, width), NoteColour, Ground::Bare);
    y += p.text + 2;
  }
  if (p.layout.marks) SpiegaPerdite(p, y);
  if (p.notes.caption.empty()) return;
  p.texts.scrivi({p.inset(), p.layout.caption}, Riga(p.notes.caption, width, p.canvas), QuietInk, Ground::Bare);
}

void DisegnaBlocco(const Painting& p, const SectionBlock& block, const ColourLookup& colour) {
  p.canvas.Linea(
      std::array{PuntoPixel{block.plot.right, block.plot.top}, PuntoPixel{block.plot.right, block.plot.bottom}},
      FrameColour);
  if (!p.model.lines.empty()) {
    DisegnaCelle(p, block, colour);
    TingiScelta(p, block);
    DisegnaConfini(p, block);
    DisegnaAcqua(p, block);
    DisegnaPerdite(p, block);
    DisegnaEstremi(p, block);
  }
  DisegnaAsseVerticale(p, block);
  ScriviTitolo(p, block);
  DisegnaCurve(p.model, p.layout, block, p.colours, p.canvas, p.texts);
}

}  // namespace

SectionLayout DisegnaSezione(const SectionModel& model, const SectionView& view, const ColourScale& colours,
                             const SectionNotes& notes, Canvas& canvas) {
  SectionLayout layout = DisponiSezione(model, view, !notes.caption.empty(), canvas);
  canvas.Riquadro(layout.area, qbcolor::White);
  TextLayout texts(canvas);
  const Painting p{model, layout, colours, notes, canvas, texts, canvas.AltezzaTesto()};
  ScriviNote(p);
  if (!layout.blocks.empty()) {
    DisegnaScalaColori3D(colours, layout.legend, canvas, texts);
    const ColourLookup colour(colours);
    for (const SectionBlock& block : layout.blocks) DisegnaBlocco(p, block, colour);
    ScriviEsagerazione(p);
    DisegnaAsseOrizzontale(p);
  }
  texts.dipingi(canvas);
  return layout;
}

}  // namespace corvan

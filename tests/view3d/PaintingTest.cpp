// Painting against plain references, and pictures at sampled points.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <utility>

#include "base/Rounding.h"
#include "picture/Bitmap.h"
#include "picture/Legend.h"
#include "picture/Palette.h"
#include "picture/SpanPainter.h"
#include "PlainCurtain.h"
#include "view3d/DepthOrder.h"
#include "view3d/Picking.h"
#include "view3d/Projector.h"
#include "view3d/Renderer.h"

namespace corvan {
namespace {

using test::Painted;
using test::PlainCell;
using test::PlainCells;
using test::Prepared;
using test::SurveyOf;
using test::TestCanvas;
using test::Winding;

constexpr std::int32_t W = 60, H = 40;
constexpr std::uint32_t Ink = 0xFF000000;

/// The plain way: every pixel of a line one by one, the exact place across rounded with halves up.
template <class Paint>
void PlainLine(PuntoPixel a, PuntoPixel b, Paint paint) {
  const std::int64_t dx = std::int64_t{b.X} - a.X, dy = std::int64_t{b.Y} - a.Y;
  const bool steep = std::abs(dx) <= std::abs(dy);
  const std::int64_t along = steep ? dy : dx, across = steep ? dx : dy;
  for (std::int64_t t = 0; t <= std::abs(along); ++t) {
    const std::int64_t step = along < 0 ? -t : t;
    const std::int64_t side =
        along == 0 ? 0 : static_cast<std::int64_t>(std::floor((2.0L * across * t / std::abs(along) + 1) / 2));
    paint(steep ? a.X + side : a.X + step, steep ? a.Y + step : a.Y + side);
  }
}

std::vector<std::uint32_t> PlainQuad(const PixelQuad& quad) {
  std::vector<std::uint32_t> pixels(std::size_t{W} * H, 0xFFFFFFFF);
  for (std::int64_t y = 0; y < H; ++y) {
    std::int64_t low = std::numeric_limits<std::int64_t>::max(), high = std::numeric_limits<std::int64_t>::min();
    for (std::size_t i = 0; i < 4; ++i) {
      PlainLine(quad.corner[i], quad.corner[(i + 1) % 4], [&](std::int64_t px, std::int64_t py) {
        if (py != y) return;
        low = std::min(low, px);
        high = std::max(high, px);
      });
    }
    for (std::int64_t x = std::max<std::int64_t>(low, 0); x <= std::min<std::int64_t>(high, W - 1); ++x) {
      pixels[static_cast<std::size_t>(y * W + x)] = quad.colour | Ink;
    }
  }
  return pixels;
}

void Paint(TestCanvas& canvas, const PixelQuad& quad) {
  const DepthKey key = 0;
  canvas.Quadrilateri({&quad, 1}, {&key, 1});
}

TEST(Quadrilaterals, HaveThePixelsOfThePlainRuleToTheLastOne) {
  std::mt19937 random(20261121);
  std::size_t painted = 0;
  for (int i = 0; i < 4000; ++i) {
    const int reach = i % 4 == 0 ? 4 : i % 4 == 1 ? 50 : i % 4 == 2 ? 300 : 20000;  // from specks to far outside
    std::uniform_int_distribution<std::int32_t> offset(-reach / 2, reach);
    PixelQuad quad;
    quad.colour = 0x123456;
    for (PuntoPixel& corner : quad.corner) corner = {offset(random) + (i % 30), offset(random) + (i % 20)};
    if (reach == 20000 && i % 80 != 3) continue;  // the plain way takes long over these
    TestCanvas canvas(W, H);
    Paint(canvas, quad);
    ASSERT_EQ(canvas.pixels(), PlainQuad(quad)) << i;
    painted += std::count(canvas.pixels().begin(), canvas.pixels().end(), 0x123456U | Ink) > 0 ? 1U : 0U;
  }
  EXPECT_GT(painted, 1500U);
}

TEST(Quadrilaterals, OfFourEqualCornersAreOnePixelAndFarOnesEnd) {
  TestCanvas canvas(W, H);
  PixelQuad quads[] = {
      {{PuntoPixel{5, 6}, {5, 6}, {5, 6}, {5, 6}}, 0x0000FF},
      {{PuntoPixel{-2147483647 - 1, 20}, {2147483647, 20}, {2147483647, 21}, {-2147483647 - 1, 21}}, 1},
      {{PuntoPixel{10, -2147483647}, {12, -2147483647}, {12, 2147483647}, {10, 2147483647}}, 2}};
  const std::vector<DepthKey> order{0, 1, 2};
  canvas.Quadrilateri(quads, order);
  EXPECT_TRUE(canvas.at(5, 6) == 0x0000FF && canvas.at(6, 6) == 0xFFFFFF && canvas.at(59, 20) == 1);
  EXPECT_EQ(canvas.at(11, 21), 2U) << "later ones lie above";
}

TEST(Lines, HaveTheSamePixelsFromEitherEnd) {
  std::mt19937 random(7);
  std::uniform_int_distribution<std::int32_t> place(-30, 80);
  for (int i = 0; i < 500; ++i) {
    const std::array<PuntoPixel, 2> there{PuntoPixel{place(random), place(random)}, {place(random), place(random)}};
    const std::array<PuntoPixel, 2> back{there[1], there[0]};
    TestCanvas a(W, H), b(W, H), plain(W, H);
    a.Linea(there, 0);
    b.Linea(back, 0);
    PlainLine(there[0], there[1], [&](std::int64_t x, std::int64_t y) {
      const auto left = static_cast<std::int32_t>(x), top = static_cast<std::int32_t>(y);
      plain.Riquadro({left, left + 1, top, top + 1}, 0);
    });
    ASSERT_EQ(a.pixels(), b.pixels()) << i;
    ASSERT_EQ(a.pixels(), plain.pixels()) << i;
  }
}

TEST(Depths, AreOrderedAsNumbersAndTiesKeepTheirOrder) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> depth(-3, 3);
  for (const std::size_t count : {std::size_t{7}, std::size_t{5000}}) {
    std::vector<float> depths;
    for (std::size_t i = 0; i < count; ++i) depths.push_back(i % 3 == 0 ? (i % 2 == 0 ? -0.0F : 0.0F) : depth(random));
    depths[1] = 1e30F;
    depths[2] = -1e-40F;
    std::vector<DepthKey> keys, scratch;
    for (std::size_t i = 0; i < count; ++i) keys.push_back(ChiaveProfondita(depths[i], i));
    OrdinaQuad(keys, scratch);
    std::vector<std::size_t> plain(count);
    std::iota(plain.begin(), plain.end(), 0U);
    std::stable_sort(plain.begin(), plain.end(), [&](std::size_t a, std::size_t b) { return depths[a] < depths[b]; });
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(keys[i] & 0xFFFFFFFFU, plain[i]) << i;
  }
}

TEST(Pictures, AreThoseOfThePlainWay) {
  struct Case {
    double theta, phi, gamma;
    float zoom;
    Projection projection = Projection::Orthographic;
  };
  const Case cases[] = {{90, 0, 0, 1},
                        {125, 15, 0, 1},
                        {180, 0, 0, 1},
                        {-20, 130, 77, 0.13F},
                        {125, 15, 10, 0.002F},
                        {120, 30, 5, 1.3F, Projection::Perspective},
                        {90, 0, 0, 0.2F, Projection::Perspective}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.theta);
    Prepared p(Winding());
    p.view.AngoloVista = InRadianti(c.theta);
    p.view.AngoloPhi = InRadianti(c.phi);
    p.view.AngoloGamma = InRadianti(c.gamma);
    p.view.ZoomFattore = c.zoom;
    p.view.projection = c.projection;
    p.view.layers.MostraElettrodi = false;
    p.update();
    const std::vector<PlainCell> cells = PlainCells(p);
    EXPECT_EQ(cells.size(), 589U);  // 59 firings of ten cells, one without a number
    TestCanvas plain(300, 200);
    for (const PlainCell& cell : cells) Paint(plain, cell.quad);
    EXPECT_EQ(Painted(p).pixels(), plain.pixels());
  }
}

TEST(MapView, HasNorthUpAndEastToTheRight) {
  Prepared p(SurveyOf({{299950, 4999950}, {300000, 4999950}, {300000, 5000050}}));
  const Projector projector(p.view);
  const auto at = [&](std::size_t k) { return *projector.proietta(projector.ruota(p.scene.trajectory(k))); };
  EXPECT_GT(at(2).X, at(1).X);
  EXPECT_EQ(at(2).Y, at(1).Y);
  EXPECT_LT(at(3).Y, at(2).Y);
  EXPECT_EQ(at(3).Y, 0) << "the survey's north end at the picture's upper edge";
}

TEST(SideView, HangsTheCurtainFromTheTrackInFullColour) {
  Prepared p(SurveyOf({{299980, 5e6}, {299990, 5e6}, {300000, 5e6}, {300010, 5e6}}));
  p.colours = {{1, 5}};
  p.view.AngoloVista = InRadianti(180);
  p.view.layers.MostraElettrodi = false;
  const Painted canvas(p);
  // 100 m in 200 / 1.1 pixels; the surface at z = 0 falls on row 100 / 1.1.
  const std::int32_t surface = 91, level = 18;
  EXPECT_EQ(canvas.at(132, surface - 2), 0xFFFFFFU) << "nothing above the water";
  // Firing 3, level 1: rho 3.01 on 1..5 -> index round(128.64) = 129, 00FE3E, facing the light.
  EXPECT_EQ(canvas.at(150, surface + level / 2), 0x00FE3EU);
  EXPECT_NE(canvas.at(150, surface + 9 * level / 2), 0xFFFFFFU);
}

TEST(SideView, ShowsACellSeenEdgeOnAtThirtyPercent) {
  Prepared p(SurveyOf({{300000, 4999980}, {300000, 4999990}, {300000, 5e6}, {300000, 5000010}}));
  p.view.AngoloVista = InRadianti(180);
  CurtainPainter painter;
  painter.prepara(p.scene.cells, p.view, {0, 16});
  // Firing 1, level 1: rho 1.01 of 0..16 -> index round(16.16) = 16, 3900FE -> 0.3 of it.
  EXPECT_EQ(painter.quads()[0].colour, 0x11004CU);
}

// The cell of firing 3, level 1, reaches from column 132 to 168 and from row 91 to 109 or so.
TEST(Excluded, CellsShowTheirOutlineAloneInEveryView) {
  Survey survey = SurveyOf({{299980, 5e6}, {299990, 5e6}, {300000, 5e6}, {300010, 5e6}});
  survey.Misure(3).escluse = BitDi(1);
  Prepared p(std::move(survey));
  p.colours = {{1, 5}};
  p.view.AngoloVista = InRadianti(180);
  p.view.layers.MostraElettrodi = false;
  const Painted side(p);
  EXPECT_EQ(side.at(150, 100), 0xFFFFFFU);
  EXPECT_EQ(side.at(150, 91), 0x8A8A8AU) << "its upper edge";
  EXPECT_NE(side.at(150, 118), 0xFFFFFFU) << "the level below is filled";
  const auto cell = CellaSotto(p.scene, p.view, {150, 100});
  ASSERT_TRUE(cell.has_value());
  EXPECT_TRUE(cell->esclusa);
  EXPECT_EQ(cell->misura, 3);
  EXPECT_EQ(cell->resistivita, 3.01F) << "its value stands";
  EXPECT_FALSE(CellaSotto(p.scene, p.view, {150, 118})->esclusa);
  p.view.AngoloVista = InRadianti(90);
  p.view.mappa = {1, 15};
  const Painted map(p);
  EXPECT_EQ(map.at(150, 91), 0xFFFFFFU) << "inside the band";
  EXPECT_NE(map.at(115, 91), 0xFFFFFFU) << "its neighbour";
  EXPECT_TRUE(CellaSotto(p.scene, p.view, {150, 91})->esclusa);
  std::size_t grey = 0;
  for (std::int32_t y = 80; y < 103; ++y) grey += map.at(150, y) == 0x8A8A8AU ? 1U : 0U;
  EXPECT_EQ(grey, 2U) << "two long sides";
}

// A lying-down parallelogram: its outline is its fill without what no edge touches, in any part of the picture.
TEST(Quadrilaterals, ThatAreOutlinesHaveThePixelsOfTheirEdges) {
  const std::array<PuntoPixel, 4> corner{{{5, 40}, {60, 10}, {80, 30}, {25, 60}}};
  TestCanvas outline(100, 80), lines(100, 80);
  const PixelQuad quad{corner, OutlineOnly | 0x123456U};
  const DepthKey key = 0;
  outline.Quadrilateri({&quad, 1}, {&key, 1});
  for (std::size_t i = 0; i < 4; ++i) lines.Linea(std::array{corner[i], corner[(i + 1) % 4]}, 0x123456U);
  EXPECT_EQ(outline.pixels(), lines.pixels());
  EXPECT_EQ(outline.at(42, 35), 0xFFFFFFU);
  // Each half of the picture painted by its own painter joins to the same.
  std::vector<std::uint32_t> halves(100 * 80, 0xFFFFFFFFU);
  const PixelBuffer buffer{halves.data(), 100, 80, 100};
  SpanPainter(buffer, 0, 33).quad(quad);
  SpanPainter(buffer, 33, 80).quad(quad);
  for (std::int32_t k = 0; k < 8000; ++k)
    ASSERT_EQ(halves[static_cast<std::size_t>(k)] & 0xFFFFFFU, outline.at(k % 100, k / 100)) << k;
}

TEST(Batches, HaveNoCellBetweenTheirLines) {
  Prepared p(SurveyOf({{299960, 4999980}, {299960, 4999990}, {300040, 4999980, 2}, {300040, 4999990, 2}}));
  p.view.AngoloVista = InRadianti(125);
  p.view.layers.MostraElettrodi = false;
  const Painted canvas(p);
  for (std::int32_t y = 0; y < 200; ++y) ASSERT_EQ(canvas.at(150, y), 0xFFFFFFU) << y;
  TestCanvas drag(300, 200);
  Renderer().DisegnaContorno(p.scene, p.view, drag);
  for (std::int32_t y = 0; y < 200; ++y) ASSERT_EQ(drag.at(150, y), 0xFFFFFFU) << "outline, " << y;
  EXPECT_NE(drag.pixels(), TestCanvas(300, 200).pixels());
}

TEST(OneMeasurement, PaintsItsCellsAndNothingElse) {
  Survey survey = SurveyOf({{300000, 5e6}});
  survey.traccia.AltezzaCella = 0;
  survey.traccia.EstensioneX = survey.traccia.EstensioneY = 0;
  Prepared p(std::move(survey));
  p.view.layers.MostraElettrodi = false;
  const Painted canvas(p);
  EXPECT_EQ(std::count_if(canvas.pixels().begin(), canvas.pixels().end(), [](auto c) { return c != 0xFFFFFFFF; }), 1);
}

TEST(EmptySurvey, IsAWhitePictureWithTheEnabledLayers) {
  Prepared p(Survey{});
  p.view.layers.MostraScalaColori = true;
  const Painted canvas(p);
  EXPECT_EQ(canvas.at(10, 10), 0xFFFFFFU);
  EXPECT_EQ(canvas.texts.size(), 6U) << "title and five values";
}

TEST(Bitmaps, HoldRowsFromTheBottomInWholeWords) {
  std::vector<std::uint32_t> pixels{0xFF112233, 0xFF445566, 0xFF778899, 0xFF000000, 0xFFFFFFFF, 0xFF010203};
  const std::string bytes = ComponiBmp({pixels.data(), 3, 2, 3});
  ASSERT_EQ(bytes.size(), 54U + 2 * 12);
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(bytes.substr(54, 15), std::string("\0\0\0\xFF\xFF\xFF\x03\x02\x01\0\0\0\x33\x22\x11", 15));
}

// Two cores share the columns of a long survey: the cells and their order are those of its parts put together.
TEST(LongCurtains, ArePreparedAsTheirPartsAre) {
  Curtain whole;
  std::vector<Curtain> parts(4);
  for (Curtain* curtain : {&whole, &parts[0], &parts[1], &parts[2], &parts[3]}) {
    for (std::size_t k = 0; k < curtain->z.size(); ++k) curtain->z[k] = -static_cast<float>(k);
  }
  std::mt19937 random(7);
  constexpr std::size_t columns = 9001;
  for (std::size_t k = 0; k < columns; ++k) {
    const auto along = static_cast<float>(k) * 0.1F;
    CellColumn column{along, static_cast<float>(random() % 50), along + 0.1F, static_cast<float>(random() % 50)};
    column.present = random() % 7 != 0;
    for (float& rho : column.rho) rho = static_cast<float>(random() % 900);
    whole.columns.append(column);
    parts[k * parts.size() / columns].columns.append(column);
  }
  ViewState view;
  view.AngoloVista = 2.0;
  view.AngoloPhi = 0.3;
  view.Finestra = {100, 700, -60, 60};
  view.AreaPixel = {0, 900, 0, 600};
  const ColourScale range{{0, 900}};
  using Painted = std::pair<DepthKey, PixelQuad>;
  const auto prepared = [&](const Curtain& curtain) {
    CurtainPainter painter;
    painter.prepara(curtain, view, range);
    std::vector<Painted> cells;
    for (const DepthKey key : painter.order()) cells.emplace_back(key >> 32U, painter.quads()[key & 0xFFFFFFFFU]);
    return cells;
  };
  std::vector<Painted> expected;
  for (const Curtain& part : parts) {
    const auto cells = prepared(part);
    expected.insert(expected.end(), cells.begin(), cells.end());
  }
  std::stable_sort(expected.begin(), expected.end(),
                   [](const Painted& a, const Painted& b) { return a.first < b.first; });
  const std::vector<Painted> found = prepared(whole);
  ASSERT_EQ(found.size(), expected.size());
  EXPECT_GT(found.size(), 10000U);
  for (std::size_t k = 0; k < found.size(); ++k) {
    ASSERT_EQ(found[k].first, expected[k].first) << k;
    ASSERT_EQ(found[k].second.corner, expected[k].second.corner) << k;
    ASSERT_EQ(found[k].second.colour, expected[k].second.colour) << k;
  }
}

// Two cores paint a very long list, each its own rows: the picture is that of the list painted in short pieces.
TEST(LongCurtains, ArePaintedAsInShortPieces) {
  std::mt19937 random(11);
  std::vector<PixelQuad> quads(250'001);
  std::vector<DepthKey> order;
  for (PixelQuad& quad : quads) {
    const auto at = [&] {
      return PuntoPixel{static_cast<std::int32_t>(random() % 140) - 10, static_cast<std::int32_t>(random() % 110) - 10};
    };
    const PuntoPixel p = at();
    quad = {{p, {p.X + 5, p.Y + 1}, {p.X + 4, p.Y + 9}, at()}, static_cast<Colour>(random() & 0xFFFFFFU)};
    order.push_back(order.size());
  }
  std::shuffle(order.begin(), order.end(), random);
  TestCanvas whole(120, 90), pieces(120, 90);
  whole.Quadrilateri(quads, order);
  for (std::size_t k = 0; k < order.size(); k += 50'000) {
    pieces.Quadrilateri(quads, std::span(order).subspan(k, std::min<std::size_t>(50'000, order.size() - k)));
  }
  EXPECT_TRUE(whole.pixels() == pieces.pixels());
}

}  // namespace
}  // namespace corvan

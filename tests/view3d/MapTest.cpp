// The picture's ground: framing, the map's band, grid and scale bar.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "picture/Legend.h"
#include "picture/ScaleBar.h"
#include "Shown.h"
#include "view3d/Framing.h"
#include "view3d/MapBand.h"
#include "view3d/MapGrid.h"
#include "view3d/Picking.h"

namespace corvan::test {
namespace {

// --- framing

TEST(Framing, KeepsAMarginAndTheLegendsBandFreeInEverySize) {
  for (const PuntoPixel size : {PuntoPixel{400, 300}, PuntoPixel{800, 600}, PuntoPixel{1280, 800},
                                PuntoPixel{600, 1200}, PuntoPixel{3840, 2160}}) {
    for (const auto& [east, north] : {std::pair(1000.0, 400.0), std::pair(20.0, 1500.0), std::pair(700.0, 700.0)}) {
      const Prepared p = Shown({{300000, 5e6}}, east, north, size);
      const auto dx = static_cast<float>(east / 2), dy = static_cast<float>(north / 2);
      const PuntoPixel low = At(p, -dx, -dy), high = At(p, dx, dy);
      EXPECT_GE(low.X, size.X / 50) << size.X << ", east " << east;
      EXPECT_LE(high.X, size.X - size.X / 50) << size.X << ", east " << east;
      EXPECT_GE(high.Y, size.Y / 40) << size.Y;
      TestCanvas canvas(size.X, size.Y);
      TextLayout texts(canvas);
      const PixelArea plate = DisegnaScalaColori3D({{1, 2}}, {size.X / 2, size.Y - 18}, canvas, texts);
      EXPECT_LT(low.Y, plate.top) << size.Y << ", north " << north;
    }
  }
}

TEST(Framing, HasAMetreAsLongToTheEastAsToTheNorthAtEveryZoom) {
  for (const float zoom : {0.25F, 1.0F, 3.0F}) {
    Prepared p = Shown(Straight(3, 1, 0), 1000, 800, {900, 700});
    p.view.ZoomFattore = zoom;
    AggiornaZoom(p.view);
    const PuntoPixel o = At(p, 0, 0), e = At(p, 100, 0), n = At(p, 0, 100);
    EXPECT_NEAR(e.X - o.X, o.Y - n.Y, 1) << zoom;
    EXPECT_GT(e.X, o.X);
  }
}

// A line of 40 m with cells 10 m high: from the side its curtain is 100 m deep and has to be zoomed out to be seen.
TEST(Framing, ShowsTheWholeCurtainAtAnyAngle) {
  for (const double theta : {90.0, 120.0, 180.0, 250.0}) {
    for (const double gamma : {0.0, 50.0}) {
      Prepared p = Shown(Straight(5, 1, 0), 40, 0, {800, 600});
      p.view.AngoloVista = InRadianti(theta);
      p.view.AngoloGamma = InRadianti(gamma);
      InquadraScena(p.view, p.scene, p.survey.traccia);
      const bool fits = theta == 90.0 || (theta == 250.0 && gamma == 0.0);  // 100 m x |cos 250| are 34
      EXPECT_EQ(p.view.ZoomFattore == 1.0F, fits) << theta << " " << gamma;
      for (const float x : {-20.0F, 20.0F}) {
        for (const float z : {0.0F, -100.0F}) {
          const PuntoPixel corner = At(p, x, 0, z);
          EXPECT_TRUE(corner.X >= 20 && corner.X <= 780) << theta << " " << gamma << ": " << corner.X;
          EXPECT_TRUE(corner.Y >= 20 && corner.Y <= 515) << theta << " " << gamma << ": " << corner.Y;
        }
      }
    }
  }
}

// --- the map's band

// Firing i of these reads i + level / 100 ohm m, on a scale from 0 to 64 colour 4 i for level 1 (1.01 x 4 = 4).
TEST(MapBand, ShowsTheChosenLevelInItsWidthAndLeavesGaps) {
  std::vector<Firing> firings = Straight(21, 1, 0);
  firings[15] = {0, 0};
  Prepared p = Shown(firings, 200, 200, {800, 600});
  p.view.layers.MostraElettrodi = p.view.layers.MostraNomi = p.view.layers.MostraGriglia = false;
  for (const auto& [level, width] : {std::pair(1, 7), std::pair(6, 12), std::pair(10, 1)}) {
    p.view.mappa = {level, width};
    const Told told(p);
    for (const int i : {3, 12}) {
      const PuntoPixel at = At(p, static_cast<float>(10 * (i - 11)), 0);
      const Colour expected = ColourLookup(p.colours)(static_cast<float>(i) + static_cast<float>(level) / 100.0F);
      EXPECT_EQ(told.canvas.at(at.X, at.Y), expected) << level;
      std::int32_t across = 0;
      for (std::int32_t y = at.Y - 20; y <= at.Y + 20; ++y) across += told.canvas.at(at.X, y) == expected ? 1 : 0;
      EXPECT_EQ(across, width) << "level " << level;
      const auto cell = CellaSotto(p.scene, p.view, at);
      ASSERT_TRUE(cell);
      EXPECT_EQ(cell->misura, i);
      EXPECT_EQ(cell->livello, level);
      EXPECT_FLOAT_EQ(cell->resistivita, static_cast<float>(i) + static_cast<float>(level) / 100.0F);
    }
    const PuntoPixel hole = At(p, 50, 0);
    EXPECT_EQ(told.canvas.at(hole.X, hole.Y), 0xFFFFFFU) << "a lost fix";
    EXPECT_FALSE(CellaSotto(p.scene, p.view, hole));
  }
}

TEST(MapBand, GivesWayToTheCurtainWhereThatIsSeen) {
  Prepared p = Shown(Straight(21, 1, 0), 200, 200, {800, 600});
  const auto shown = [&] { return MostraBanda(p.scene.cells, p.view); };
  EXPECT_TRUE(shown());
  p.view.AngoloVista = InRadianti(100);
  EXPECT_FALSE(shown()) << "theta";
  p.view.AngoloVista = InRadianti(90);
  p.view.AngoloPhi = InRadianti(20);
  EXPECT_FALSE(shown()) << "phi leans the curtain";
  p.view.AngoloPhi = 0;
  p.view.AngoloGamma = InRadianti(70);
  EXPECT_TRUE(shown()) << "gamma turns the map in its plane";
  p.view.projection = Projection::Perspective;
  EXPECT_FALSE(shown());
  p.view.projection = Projection::Orthographic;
  p.view.mappa.livello = 0;
  EXPECT_FALSE(shown());
}

// A right angle: no pixel of the band, 9 wide, is left white where its pieces meet.
TEST(MapBand, HasNoGapInABendAndSquaresForSingleMeasurements) {
  Prepared p =
      Shown({{300000, 5e6}, {300040, 5e6}, {300080, 5e6}, {300080, 5000040}, {300080, 5000080}, {299900, 5e6 - 50, 2}},
            200, 200, {800, 600});
  p.view.layers = Layers{};
  p.view.layers.MostraElettrodi = p.view.layers.MostraNomi = p.view.layers.MostraGriglia = false;
  p.view.mappa = {2, 9};
  const Told told(p);
  const PuntoPixel alone = At(p, -100, -50);
  const std::vector<std::pair<float, float>> way{{2, 0}, {60, 0}, {80, 20}, {80, 78}};  // half-way points joined
  for (std::size_t leg = 1; leg < way.size(); ++leg) {
    for (float share = 0; share <= 1.0F; share += 0.02F) {
      const auto along = [share](float a, float b) { return a + (b - a) * share; };
      const PuntoPixel at =
          At(p, along(way[leg - 1].first, way[leg].first), along(way[leg - 1].second, way[leg].second));
      for (const std::int32_t d : {-3, 0, 3}) EXPECT_NE(told.canvas.at(at.X + d, at.Y - d), 0xFFFFFFU) << leg << share;
    }
  }
  for (const std::int32_t d : {-4, 0, 4}) {
    EXPECT_NE(told.canvas.at(alone.X + d, alone.Y - d), 0xFFFFFFU) << d;
  }
  EXPECT_EQ(told.canvas.at(alone.X + 5, alone.Y), 0xFFFFFFU);
}

// --- scale bar, grid

// 500 pixels are 1000 m: room for 166 m, so 100 m, 50 pixels. By hand.
TEST(ScaleBar, IsTheLongestRoundLengthThatFits) {
  struct Case {
    double metresPerPixel;
    const char* text;
    std::int32_t length;
  };
  for (const Case& c : {Case{2, "100 m", 50}, Case{0.5, "20 m", 40}, Case{24.1, "2 km", 83}, Case{0.006, "0.5 m", 83},
                        Case{0.005, "0.2 m", 40}}) {
    TestCanvas canvas(500, 200);
    TextLayout texts(canvas);
    DisegnaScala(c.metresPerPixel, {480, 150}, canvas, texts);
    ASSERT_EQ(texts.testi().size(), 1U);
    EXPECT_EQ(texts.testi()[0].text, c.text);
    for (std::int32_t x = 480 - c.length; x <= 480; ++x) EXPECT_EQ(canvas.at(x, 150), InkColour) << c.text;
    EXPECT_NE(canvas.at(480 - c.length - 1, 150), InkColour) << c.text;
  }
  TestCanvas canvas(500, 200);
  TextLayout texts(canvas);
  for (const double none : {0.0, -1.0, std::nan("")}) DisegnaScala(none, {480, 150}, canvas, texts);
  EXPECT_TRUE(texts.testi().empty());
}

// The picture's middle is (300000, 5000000); 250 m over 500 pixels, letters 12 high: lines 11 x 12 / 2 = 66 m apart at
// least, so 100 m.
TEST(MapGrid, HasRoundCoordinatesWhereTheyAre) {
  Prepared p = Shown(Straight(5, 1, 0), 100, 100, {500, 500});
  p.view.FinestraBase = {-125, 125, -125, 125};
  p.view.Finestra = {-125, 125, -125, 125};
  const auto lines = Reticolo(p.scene, p.view, 12);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[0].text, "299\u2009900 E");
  EXPECT_EQ(lines[0].from.X, 50);
  EXPECT_EQ(lines[2].text, "300\u2009100 E");
  EXPECT_EQ(lines[2].to.X, 450);
  EXPECT_EQ(lines[5].text, "5\u2009000\u2009100 N");
  EXPECT_EQ(lines[5].from.Y, 50);
  EXPECT_EQ(lines[3].to.Y, 450);
  p.view.AngoloGamma = InRadianti(90);  // turned in its plane: lines of equal easting now run across
  const auto turned = Reticolo(p.scene, p.view, 12);
  ASSERT_EQ(turned.size(), 6U);
  EXPECT_EQ(turned[0].from.Y, turned[0].to.Y);
  p.view.AngoloGamma = 0;
  p.view.AngoloVista = InRadianti(100);
  EXPECT_TRUE(Reticolo(p.scene, p.view, 12).empty()) << "no map";
}

}  // namespace
}  // namespace corvan::test

// What explains the picture beside its cells: framing, the map's band, grid, scale bar, axis, names, the north arrow.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "picture/Legend.h"
#include "picture/ScaleBar.h"
#include "PlainCurtain.h"
#include "view3d/DepthAxis.h"
#include "view3d/Framing.h"
#include "view3d/MapBand.h"
#include "view3d/MapGrid.h"
#include "view3d/NorthArrow.h"
#include "view3d/Picking.h"
#include "view3d/Projector.h"

namespace corvan::test {
namespace {

/// A survey of these firings with the extent that they have about (300000, 5000000).
Prepared Shown(const std::vector<Firing>& firings, double east, double north, PuntoPixel size) {
  Survey survey = SurveyOf(firings);
  survey.traccia.EstensioneX = east;
  survey.traccia.EstensioneY = north;
  Prepared p(std::move(survey));
  p.view.layers = Layers{};
  p.view.layers.MostraScalaColori = p.view.layers.MostraNord = true;
  p.view.mappa = {};
  p.view.AreaPixel = {0, size.X, 0, size.Y};
  ImpostaFinestra(p.view, p.survey.traccia);
  AggiornaZoom(p.view);
  return p;
}

/// A straight line of `count` firings, 10 m apart, from the middle of the scene outwards to both sides.
std::vector<Firing> Straight(int count, double east, double north, std::int16_t file = 1) {
  std::vector<Firing> firings;
  for (int i = 0; i < count; ++i) {
    const double along = 10.0 * (i - (count - 1) / 2.0);
    firings.push_back({300000 + along * east, 5e6 + along * north, file});
  }
  return firings;
}

struct Told {
  explicit Told(const Prepared& p, const PictureNotes& notes = {})
      : canvas(p.view.AreaPixel.right, p.view.AreaPixel.bottom) {
    renderer.DisegnaImmagineQ(p.scene, p.view, p.colours, notes, canvas);
    texts = renderer.testi();
  }
  std::optional<PlacedText> find(const std::string& text) const {
    for (const PlacedText& t : texts) {
      if (t.text == text) return t;
    }
    return std::nullopt;
  }

  TestCanvas canvas;
  Renderer renderer;
  std::vector<PlacedText> texts;
};

/// Pixel of a place of the scene.
PuntoPixel At(const Prepared& p, float x, float y, float z = 0) {
  const Projector projector(p.view);
  return projector.ortogonale(projector.ruota({x, y, z, 0}));
}

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

// --- depth axis

// Cells 10 m high, 1.6 pixels a metre: a level is 16 pixels, with letters 12 high each gets its number.
TEST(DepthAxis, CountsLevelsAndMetresOfWaterDownTheCurtain) {
  Prepared p = Shown(Straight(21, 1, 0), 200, 200, {800, 600});
  p.view.AngoloVista = InRadianti(180);
  p.view.Finestra = {-250, 250, -187.5F, 187.5F};
  TestCanvas canvas(800, 600);
  TextLayout texts(canvas);
  DisegnaAsse(p.scene, p.view, 10, canvas, texts);
  const auto find = [&](const std::string& text, std::size_t which) -> PixelArea {
    for (const PlacedText& t : texts.testi()) {
      if (t.text == text && which-- == 0) return t.box;
    }
    return {};
  };
  ASSERT_EQ(texts.testi().size(), 23U) << "2 titles, 11 edges, 10 levels";
  const PuntoPixel top = At(p, 100, 0), bottom = At(p, 100, 0, -100);
  EXPECT_EQ(bottom.Y - top.Y, 160);
  const auto middle = [](const PixelArea& box) { return (box.top + box.bottom) / 2; };
  EXPECT_EQ(middle(find("0", 0)), top.Y);
  EXPECT_EQ(middle(find("10", 0)), bottom.Y) << "10 m of water reach to the lower edge of level 10";
  EXPECT_EQ(middle(find("3", 0)), top.Y + 48);
  EXPECT_EQ(middle(find("3", 1)), top.Y + 40) << "level 3 lies between edges 2 and 3";
  EXPECT_GT(find("3", 0).left, top.X);
  EXPECT_EQ(canvas.at(top.X, top.Y + 30), InkColour);
}

TEST(DepthAxis, ThinsOutItsNumbersAndFollowsTheExaggeration) {
  Prepared p = Shown(Straight(21, 1, 0), 200, 200, {800, 600});
  p.survey.file.NumCanali = 5;
  p.scene.esagerazione = 2;
  CreaFourArray(p.scene, p.survey);
  GeneraContorno(p.scene, p.survey);
  EXPECT_EQ(p.scene.livelli, 5);
  EXPECT_FLOAT_EQ(p.scene.cells.z[5], -100) << "5 levels of 10 m, twice as high";
  EXPECT_FLOAT_EQ(p.scene.outline(p.scene.outline.size() - 1).z, -100);
  p.view.AngoloVista = InRadianti(180);
  p.view.Finestra = {-1000, 1000, -750, 750};  // 0.4 pixels a metre: 8 a level, so every other number
  TestCanvas canvas(800, 600);
  TextLayout texts(canvas);
  DisegnaAsse(p.scene, p.view, p.scene.livelli, canvas, texts);
  std::string all;
  for (const PlacedText& t : texts.testi()) all += t.text + " ";
  EXPECT_EQ(all, "level water [m] 0 2 4 2 4 ");
}

// --- names, extremes, arrow

TEST(LineNames, StandAtTheEndsOfTheirLinesWithAnArrowBetween) {
  std::vector<Firing> firings = Straight(21, 1, 0);
  for (Firing f : Straight(11, 0, 1, 2)) {
    f.est += 60;
    f.nord += 100;
    firings.push_back(f);
  }
  Prepared p = Shown(firings, 220, 220, {800, 600});
  const Told told(p);
  const auto first = told.find("a.bin  1"), last = told.find("21"), second = told.find("b.bin  22");
  ASSERT_TRUE(first && last && second && told.find("32"));
  EXPECT_LT(first->box.right, At(p, -100, 0).X) << "before the start, whence the boat came";
  EXPECT_GT(last->box.left, At(p, 100, 0).X);
  p.view.layers.MostraNomi = false;
  EXPECT_FALSE(Told(p).find("21"));
}

TEST(Extremes, CarryTheirNumbersAndTheSectionIsMarked) {
  Prepared p = Shown(Straight(21, 1, 0), 200, 200, {800, 600});
  PictureNotes notes;
  notes.E1 = 15;  // the second lies before the first: the section is what lies between
  notes.E2 = 6;
  notes.picked = {15, 6};
  const Told told(p, notes);
  const PuntoPixel one = At(p, 40, 0), two = At(p, -50, 0);
  ASSERT_TRUE(told.find("1") && told.find("2"));
  EXPECT_NEAR((told.find("1")->box.left + told.find("1")->box.right) / 2, one.X, 12);
  EXPECT_NEAR((told.find("2")->box.left + told.find("2")->box.right) / 2, two.X, 12);
  EXPECT_EQ(told.canvas.at(one.X, one.Y), PickedColour);
  const auto marked = [&](float x) {
    const PuntoPixel at = At(p, x, 0);
    return told.canvas.at(at.X, at.Y - LarghezzaBanda(p.view) / 2 - 3) == PickedColour;
  };
  EXPECT_TRUE(marked(-27) && marked(13) && marked(33));
  EXPECT_FALSE(marked(-73) || marked(67));
  p.view.AngoloVista = InRadianti(130);  // the mark lies along the surface then
  const Told oblique(p, notes);
  const PuntoPixel on = At(p, 13, 0), off = At(p, 67, 0);
  EXPECT_EQ(oblique.canvas.at(on.X, on.Y - 1), PickedColour);
  EXPECT_NE(oblique.canvas.at(off.X, off.Y - 1), PickedColour);
}

/// The polygon that is filled last.
struct ArrowCanvas : TestCanvas {
  using TestCanvas::TestCanvas;
  void Poligono(std::span<const PuntoPixel> corners, Colour) override {
    polygon.assign(corners.begin(), corners.end());
  }
  std::vector<PuntoPixel> polygon;
};

TEST(NorthArrow, TurnsWithTheViewKeepsItsSizeAndItsLetterStandsBeforeTheTip) {
  Prepared p = Shown(Straight(21, 1, 0), 200, 200, {800, 600});
  GeneraNordG(p.scene, p.view.Lato);
  struct Case {
    double gamma;
    float zoom;
    int dx, dy;  // the way of the tip on the picture
  };
  for (const Case& c : {Case{0, 1, 0, -1}, Case{90, 1, -1, 0}, Case{180, 0.1F, 0, 1}, Case{-90, 5, 1, 0}}) {
    p.view.AngoloGamma = InRadianti(c.gamma);
    p.view.ZoomFattore = c.zoom;
    AggiornaZoom(p.view);
    ArrowCanvas canvas(800, 600);
    TextLayout texts(canvas);
    DisegnaNordG(p.scene, p.view, {10, 560}, canvas, texts);
    ASSERT_EQ(canvas.polygon.size(), 8U);
    const PuntoPixel tip = canvas.polygon[2], tail = canvas.polygon[5];
    const double length = std::hypot(tip.X - tail.X, tip.Y - tail.Y);
    // 23 of 200 grid units from tip to notch, of L = 200 m in a window of 1.1 x 1.15 x 200 m or more over 600 pixels.
    EXPECT_NEAR(length, 23 * 600 / (1.1 * 200) * 200 / (p.view.FinestraBase.zmax - p.view.FinestraBase.zmin), 2);
    EXPECT_NEAR((tip.X - tail.X) / length, c.dx, 0.05) << c.gamma;
    EXPECT_NEAR((tip.Y - tail.Y) / length, c.dy, 0.05) << c.gamma;
    ASSERT_EQ(texts.testi().size(), 1U);
    const PixelArea box = texts.testi()[0].box;
    EXPECT_GT(((box.left + box.right) / 2.0 - tip.X) * c.dx + ((box.top + box.bottom) / 2.0 - tip.Y) * c.dy, 0)
        << c.gamma;
    for (const PuntoPixel& corner : canvas.polygon) {
      EXPECT_TRUE(corner.X >= 10 && corner.Y <= 560 && corner.X < 150 && corner.Y > 420) << "at the lower left";
    }
  }
}

// --- all of it together

/// Surveys of all kinds, each with a name.
std::vector<std::pair<std::string, Prepared>> Kinds(PuntoPixel size) {
  std::vector<Firing> three = Straight(20, 1, 0), ten;
  for (Firing f : Straight(40, 1, 0.2, 2)) three.push_back({f.est, f.nord + 150, 2});
  for (Firing f : Straight(5, 0, 1, 3)) three.push_back({f.est - 150, f.nord - 100, 3});
  for (std::int16_t line = 0; line < 10; ++line) {
    for (Firing f : Straight(12, 1, 0, static_cast<std::int16_t>(line + 1)))
      ten.push_back({f.est, f.nord + 12.0 * line, f.file});
  }
  std::vector<std::pair<std::string, Prepared>> all;
  all.emplace_back("north", Shown(Straight(60, 0, 1), 0, 590, size));
  all.emplace_back("east", Shown(Straight(60, 1, 0), 590, 0, size));
  all.emplace_back("three", Shown(three, 400, 400, size));
  all.emplace_back("ten", Shown(ten, 120, 120, size));
  all.emplace_back("one", Shown({{300000, 5e6}}, 0, 0, size));
  all.emplace_back("lost", Shown({{0, 0}, {0, 0}}, 0, 0, size));
  all.emplace_back("two channels", Shown(Straight(30, 1, 1), 300, 300, size));
  all.back().second.scene.livelli = 2;
  all.emplace_back("narrow range", Shown(Straight(30, 1, -1), 300, 300, size));
  all.back().second.colours.range = {0.21F, 0.39F};
  all.emplace_back("uniform", Shown(Straight(30, 1, -1), 300, 300, size));
  all.back().second.colours.range = {-5, -5};
  return all;
}

TEST(PictureTexts, NeverTouchAndNeverLeaveThePicture) {
  for (const PuntoPixel size : {PuntoPixel{400, 300}, PuntoPixel{800, 600}, PuntoPixel{1280, 800},
                                PuntoPixel{3840, 2160}, PuntoPixel{1, 400}, PuntoPixel{400, 1}}) {
    for (auto& [name, p] : Kinds(size)) {
      GeneraNordG(p.scene, p.view.Lato);
      for (const auto& [theta, gamma] :
           {std::pair(90.0, 0.0), std::pair(120.0, 0.0), std::pair(90.0, 40.0), std::pair(180.0, 0.0)}) {
        p.view.AngoloVista = InRadianti(theta);
        p.view.AngoloGamma = InRadianti(gamma);
        PictureNotes notes;
        notes.E1 = 1;
        notes.E2 = static_cast<std::int32_t>(p.survey.Misure.size());
        notes.info = "Zone 33 assumed: the files state none";
        notes.caption = {"a.bin, b.bin and 8 more", " \u00B7 2026-06-15 08:00:08 to 08:39:36 \u00B7 UTM zone 33 north"};
        const Told told(p, notes);
        const std::string what = name + ", " + std::to_string(size.X) + ", theta " + std::to_string(theta);
        EXPECT_GE(told.texts.size(), size.X > 1 && size.Y > 1 ? 2U : 0U) << what;
        for (std::size_t i = 0; i < told.texts.size(); ++i) {
          const PlacedText& t = told.texts[i];
          EXPECT_TRUE(t.box.left >= 0 && t.box.right <= size.X && t.box.top >= 0 && t.box.bottom <= size.Y)
              << what << t.text;
          for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(SiToccano(t.box, told.texts[j].box)) << what << ": " << t.text;
        }
      }
    }
  }
}

// Dots 10 pixels apart are dots; 2 pixels apart they are a line, and the chosen one keeps its mark with a white ring.
TEST(TrackDots, GiveWayToALineWhereTheyWouldTouch) {
  for (const auto& [east, crowded] : {std::pair(60.0, false), std::pair(2000.0, true)}) {
    Prepared p = Shown(Straight(41, 1, 0), east, 0, {800, 600});
    p.view.mappa.livello = 0;
    p.view.layers.MostraNomi = p.view.layers.MostraGriglia = false;
    PictureNotes notes;
    notes.picked = {21};
    const Told told(p, notes);
    EXPECT_EQ(told.renderer.ptlbl().style().crowded, crowded);
    const PuntoPixel between = At(p, 155, 0), chosen = At(p, 0, 0);
    EXPECT_EQ(told.canvas.at(between.X, between.Y) == 0x202020U, crowded) << east;
    EXPECT_EQ(told.canvas.at(chosen.X, chosen.Y), PickedColour);
    EXPECT_EQ(told.canvas.at(chosen.X, chosen.Y - 5), 0xFFFFFFU);
    EXPECT_EQ(told.renderer.ptlbl().cerca(At(p, 30, 0), 1)->index, 24) << "found all the same";
  }
}

}  // namespace
}  // namespace corvan::test

// What explains the picture: depth axis, names of lines, extremes, north arrow, and how their texts share the room.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "Shown.h"
#include "view3d/DepthAxis.h"
#include "view3d/MapBand.h"
#include "view3d/NorthArrow.h"

namespace corvan::test {
namespace {

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

// The legend of the colours, the texts of pictures and round numbers along axes.
#include "picture/Legend.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "picture/Caption.h"
#include "picture/Ticks.h"
#include "support/TestCanvas.h"

namespace corvan::test {
namespace {

struct LegendCase {
  ColourScale scale;
  std::vector<std::string> texts;  // the title and the values in the order of their importance
};

// Quarters by hand; on a logarithmic scale 1 to 10,000 they are the decades.
TEST(Legend, ShowsItsBoundsAndWhatLiesBetween) {
  const std::string title = "Apparent resistivity [Ohm\u00B7m]";
  for (const LegendCase& c :
       {LegendCase{{{40, 10.25F}}, {title, "40.0", "10.3", "25.1", "32.6", "17.7"}},
        LegendCase{{{0, 8}}, {title, "0", "8", "4", "2", "6"}},
        LegendCase{{{0.21F, 0.39F}}, {title, "0.21", "0.39", "0.30", "0.25", "0.34"}},
        LegendCase{{{1, 10000}, PaletteName::Spectrum, false, true}, {title, "1", "10000", "100", "10", "1000"}},
        LegendCase{{{-1, 3}, PaletteName::Spectrum, false, true}, {title, "-1", "3", "1", "0", "2"}},
        LegendCase{{{5, 5}}, {title, "5.0"}}}) {
    TestCanvas canvas(1000, 200);
    TextLayout texts(canvas);
    DisegnaScalaColori3D(c.scale, {500, 190}, canvas, texts);
    std::vector<std::string> written;
    for (const PlacedText& t : texts.testi()) written.push_back(t.text);
    EXPECT_EQ(written, c.texts);
  }
}

TEST(Legend, HasAllColoursOnItsBarFromLowToHigh) {
  for (const bool reversed : {false, true}) {
    TestCanvas canvas(1000, 100);
    TextLayout texts(canvas);
    const PixelArea plate =
        DisegnaScalaColori3D({{0, 1}, PaletteName::Spectrum, reversed, false}, {500, 95}, canvas, texts);
    const std::int32_t y = (plate.top + plate.bottom) / 2;
    EXPECT_EQ(canvas.at(500, y), PaletteRgb[reversed ? 127 : 128]) << "colour 129 begins in the middle";
    EXPECT_EQ(canvas.at(350, y), PaletteRgb[reversed ? 255 : 0]);
    EXPECT_EQ(canvas.at(649, y), PaletteRgb[reversed ? 0 : 255]);
    EXPECT_EQ(canvas.at(650, y), qbcolor::DarkBlue) << "frame";
  }
}

// A plate is seen through: black shows as the part of white that covers it, 205 of 255.
TEST(Legend, LetsWhatItCoversShowThrough) {
  TestCanvas canvas(600, 100);
  canvas.Riquadro({0, 600, 0, 100}, 0);
  TextLayout texts(canvas);
  const PixelArea plate = DisegnaScalaColori3D({{0, 1}}, {300, 95}, canvas, texts);
  EXPECT_EQ(canvas.at(plate.left, plate.top), 0xCDCDCDU);
  EXPECT_EQ(canvas.at(plate.left - 1, plate.top), 0U);
  EXPECT_FALSE(texts.libero({plate.left, plate.left + 1, plate.top, plate.top + 1})) << "kept free of other texts";
}

// Sizes of a text are those of the test's canvas: 8 pixels a letter, 12 high.
TEST(Legend, NeverTouchesItselfNorLeavesThePicture) {
  for (const auto& [width, height] :
       {std::pair(400, 300), std::pair(240, 120), std::pair(3840, 2160), std::pair(90, 90)}) {
    for (const ColourRange range :
         {ColourRange{0.0001F, 0.0002F}, ColourRange{-123456, 123456.5F}, ColourRange{3, 5}}) {
      TestCanvas canvas(width, height);
      TextLayout texts(canvas);
      DisegnaScalaColori3D({range}, {width / 2, height - 6}, canvas, texts);
      const auto& all = texts.testi();
      EXPECT_EQ(all.empty(), width < 100) << width << ": too small for a legend";
      for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_TRUE(all[i].box.left >= 0 && all[i].box.right <= width) << all[i].text;
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(SiToccano(all[i].box, all[j].box)) << all[i].text;
      }
    }
  }
}

TEST(Ticks, AreRoundNumbers) {
  struct Case {
    double span, most, step;
  };
  for (const Case& c : {Case{100, 10, 10}, Case{101, 10, 20}, Case{7, 10, 1}, Case{0.3, 4, 0.1}, Case{2500, 5, 500},
                        Case{2501, 5, 1000}, Case{0, 5, 0}, Case{-1, 5, 0}, Case{1, 0, 0}}) {
    EXPECT_NEAR(PassoTacche(c.span, c.most), c.step, 1e-12) << c.span;
  }
  EXPECT_EQ(Tacche(-1.5, 1.5, 1), (std::vector<double>{-1, 0, 1}));
  EXPECT_EQ(Tacche(2, 4, 2), (std::vector<double>{2, 4}));
  EXPECT_TRUE(Tacche(0, 1, 0).empty() && Tacche(0, 1e6, 1).empty());
  EXPECT_EQ(TestoTacca(0.30000000000000004, 0.1), "0.3");
  EXPECT_EQ(TestoTacca(-20, 10), "-20");
  EXPECT_EQ(TestoTacca(9000, 1000), "9000");
  EXPECT_EQ(TestoTacca(5012000, 1000), "5\u2009012\u2009000");
  EXPECT_EQ(TestoTacca(-0.05, 0.05), "-0.05");
}

TEST(Texts, AreCutAtWholeLetters) {
  const TestCanvas canvas(100, 100);  // a letter of two bytes counts as two, the end as three
  EXPECT_EQ(Accorcia(canvas, "lagoon", 48), "lagoon");
  EXPECT_EQ(Accorcia(canvas, "lagoon", 47), "la\u2026");
  EXPECT_EQ(Accorcia(canvas, "a\u00FC\u00FC", 4 * 8), "a\u2026");
  EXPECT_EQ(Accorcia(canvas, "lagoon", 20), "");
}

TEST(Captions, ShortenTheirFilesFirst) {
  const TestCanvas canvas(100, 100);
  const Caption caption{"north.bin, south.bin", " UTM 33"};
  EXPECT_EQ(Riga(caption, 27 * 8, canvas), "north.bin, south.bin UTM 33");
  EXPECT_EQ(Riga(caption, 20 * 8, canvas), "north.bin,\u2026 UTM 33");
  EXPECT_EQ(Riga(caption, 9 * 8, canvas), "north.\u2026") << "no room for both";
  EXPECT_EQ(Riga({}, 100, canvas), "");
}

// A line of three pixels covers its own and one to each side; a box half seen mixes the colours.
TEST(WideLines, LieAcrossTheirWay) {
  TestCanvas canvas(20, 20);
  canvas.Tratto(std::vector<PuntoPixel>{{5, 5}, {15, 5}, {15, 15}}, 3, 0xFF0000);
  for (const PuntoPixel& p : {PuntoPixel{10, 4}, PuntoPixel{10, 6}, PuntoPixel{14, 12}, PuntoPixel{16, 12}}) {
    EXPECT_EQ(canvas.at(p.X, p.Y), 0xFF0000U) << p.X;
  }
  for (const PuntoPixel& p : {PuntoPixel{10, 3}, PuntoPixel{10, 7}, PuntoPixel{13, 12}, PuntoPixel{17, 12}}) {
    EXPECT_EQ(canvas.at(p.X, p.Y), 0xFFFFFFU) << p.X;
  }
  canvas.Velo({-5, 1, 19, 40}, 0x000040, 128);
  EXPECT_EQ(canvas.at(0, 19), 0x7F7F9FU);
}

}  // namespace
}  // namespace corvan::test

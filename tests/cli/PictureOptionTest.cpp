// Options of pictures: where pixels of known colours lie, against corners that tests/support/reference.py projects.
#include <gtest/gtest.h>

#include <ostream>

#include "cli/Bitmap.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

/// The survey on the grid, painted red all over and without any layer (there is no track for "gps" to show).
Picture Paint(const Cli& cli, const std::string& options) {
  cli.folder.write("grid.txt", TextSurvey(GridPlaces()));
  cli.folder.write("grid.csv", GridTrack());
  const auto unless = [&options](const char* option, const char* with) {
    return Contains(options, option) ? "" : with;
  };
  const Outcome run = cli("process grid.txt --coords utm --out o --no-caption --picture p.bmp " + options +
                          unless("--map-level", " --map-level 0") + unless("--layers", " --layers gps") +
                          unless("--range", " '--range=-2000000;-1000000'") + unless("--size", " --size 640x400"));
  EXPECT_EQ(run.status, 0) << run.err;
  return Picture(test::Slurp(cli.folder / "p.bmp"));
}

struct ViewCase {
  const char* options;
  Box red;
};

TEST(Views, StandWhereTheFormulasPutThem) {
  const Cli cli;
  for (const auto& [options, red] : {
           ViewCase{"", {179, 76, 461, 288}},
           ViewCase{"--theta 180 --zoom 6", {296, 182, 344, 329}},
           ViewCase{"--theta 120 --zoom 6", {296, 167, 344, 271}},
           ViewCase{"--phi 30", {0, 76, 442, 288}},
           ViewCase{"--gamma 25 --zoom 3", {292, 130, 348, 234}},
           ViewCase{"--theta 150 --gamma 20 --phi=-40 --zoom 8", {302, 170, 399, 284}},
           ViewCase{"--zoom 2", {249, 129, 391, 235}},
           ViewCase{"--zoom 0.95", {171, 70, 469, 293}},
           ViewCase{"--size 400x320", {102, 72, 298, 219}},
           ViewCase{"--projection perspective --zoom 2", {275, 148, 365, 216}},
           ViewCase{"--projection perspective --theta 130 --zoom 6", {303, 174, 333, 213}},
           ViewCase{"--projection orthographic --zoom 2", {249, 129, 391, 235}},
           ViewCase{"--data-shift 3.5,0", {204, 76, 486, 288}},
           ViewCase{"--data-shift 0,2.5", {179, 58, 461, 270}},
           ViewCase{"--data-shift=-1.5,-4", {168, 104, 451, 316}},
           // -220 ohm m lies between the ninth level (above it, red) and the tenth, which takes the row that both
           // share.
           ViewCase{"--theta 180 --zoom 6 '--range=-220.0001;-220'", {296, 182, 344, 313}},
       }) {
    EXPECT_EQ(Paint(cli, options).red(), red) << options;
  }
  const Picture small = Paint(cli, "--size 333x111");
  EXPECT_EQ(std::pair(small.width(), small.height()), std::pair(333, 111));
  ASSERT_EQ(cli("process grid.txt --coords utm --out o --picture p.bmp").status, 0);
  const Picture unsaid(test::Slurp(cli.folder / "p.bmp"));
  EXPECT_EQ(std::pair(unsaid.width(), unsaid.height()), std::pair(1280, 800));
}

/// Layers add marks of a few pixels' size: their outermost ones are looked for within this many.
constexpr int Mark = 3;

struct LayerCase {
  const char* options;
  Box centres;  ///< of the outermost marks
};

class Layers : public ::testing::TestWithParam<LayerCase> {};

void PrintTo(const LayerCase& layer, std::ostream* out) { *out << layer.options; }

TEST_P(Layers, ArePaintedAtTheirPlaces) {
  const Cli cli;
  const Picture bare = Paint(cli, "");
  const auto& [options, c] = GetParam();
  const Box box = Paint(cli, options).against(bare);
  for (const auto& [is, wanted] :
       {std::pair{box.left, c.left}, {box.top, c.top}, {box.right, c.right}, {box.bottom, c.bottom}}) {
    EXPECT_NEAR(is, wanted, Mark) << ::testing::PrintToString(box);
  }
}

INSTANTIATE_TEST_SUITE_P(OnTheMap, Layers,
                         ::testing::Values(LayerCase{"--layers electrodes", {179, 76, 461, 288}},
                                           LayerCase{"--layers gps --gps grid.csv", {221, 117, 440, 263}},
                                           LayerCase{"--layers depth", {179, 76, 461, 288}},
                                           LayerCase{"--layers depth --depth-shift 6,0", {179, 76, 504, 288}},
                                           LayerCase{"--layers depth --depth-shift 0,-6", {179, 76, 461, 330}},
                                           LayerCase{"--layers depth --depth-shift=-4,3", {151, 55, 461, 288}}));

// The arrow keeps its shape: both its sides are measured in the longer side of the survey, 7.06 pixels a metre. Its
// middle stands as far from the lower left corner as its half (20 pixels) and a letter, the N above it.
INSTANTIATE_TEST_SUITE_P(NorthArrow, Layers,
                         ::testing::Values(LayerCase{"--layers north", {37, 313, 51, 366}},
                                           LayerCase{"--layers electrodes,north", {37, 76, 461, 366}}));

TEST(Legend, ShowsThePaletteFromLeftToRight) {
  const Cli cli;
  const Picture picture = Paint(cli, "--layers scale");
  // The bar takes the middle 30 % of the width; index i stands at i/256 of it.
  for (const auto& [x, colour] : {std::pair{320, 0x00FE3E}, {320 - 48, 0x009EFE}, {320 + 48, 0xDEFF00}}) {
    EXPECT_EQ(picture.at(x, 355), colour) << x;
  }
  EXPECT_EQ(picture.at(320 - 100, 355), 0xFFFFFF);
  EXPECT_EQ(picture.at(320 + 100, 355), 0xFFFFFF);
}

/// The band of the map at the survey's second measurement, from the middle of the picture outwards to both sides.
int Across(const Picture& picture, int colour) {
  int most = 0;
  for (int x = 0; x < picture.width(); ++x) {
    int rows = 0;
    for (int y = 0; y < picture.height(); ++y) rows += picture.at(x, y) == colour ? 1 : 0;
    most = std::max(most, rows);
  }
  return most;
}

TEST(PictureOptions, EachShowsWhatItIsFor) {
  const Cli cli;
  const auto paint = [&](const std::string& options) {
    EXPECT_EQ(cli("process grid.txt --coords utm --out o --picture p.bmp --size 640x400 " + options).status, 0)
        << options;
    return test::Slurp(cli.folder / "p.bmp");
  };
  cli.folder.write("grid.txt", TextSurvey(GridPlaces()));
  // Level 1 reads -0.72 at the first place, level 5 -31.7: below -10 is the palette's first colour, above it the last.
  const std::string range = "--no-caption --layers gps '--range=-10.0001;-10' ";
  const int low = 0x7800FE, high = 0xFF0900;
  EXPECT_GT(Across(Picture(paint(range)), high), 0) << "level 1, on at first";
  EXPECT_EQ(Across(Picture(paint(range + "--map-level 0")), low), 0) << "the curtain's edge is dark";
  const Picture five(paint(range + "--map-level 5,9")), wide(paint(range + "--map-level 5,31"));
  EXPECT_GT(Across(five, low), 8);
  EXPECT_GT(Across(wide, low), Across(five, low) + 20);
  const std::string side = "--no-caption --theta 160 --zoom 8 ";
  const Box once = Picture(paint(side + "--layers gps '--range=-2000000;-1000000'")).red();
  const Box twice = Picture(paint(side + "--layers gps '--range=-2000000;-1000000' --exaggeration 2")).red();
  EXPECT_EQ(once.top, twice.top);
  EXPECT_NEAR(twice.bottom - twice.top, 2 * (once.bottom - once.top), 25) << "the part of the track's width stays";
  for (const char* layer : {"names", "grid", "scale", "north"}) {
    EXPECT_NE(paint(std::string("--no-caption --layers ") + layer), paint("--no-caption --layers gps")) << layer;
  }
  EXPECT_NE(paint(side + "--layers axis"), paint(side + "--layers gps"));
  const Picture captioned(paint("")), plain(paint("--no-caption"));
  const Box line = captioned.against(plain);
  EXPECT_GT(line.top, 375) << "at the foot";
  EXPECT_GT(line.right - line.left, 200);
  for (const char* idle : {"--map-level 2", "--exaggeration 2"}) {
    EXPECT_EQ(cli(std::string("process grid.txt --coords utm --out o ") + idle).status, 2) << idle;
  }
}

}  // namespace
}  // namespace corvan

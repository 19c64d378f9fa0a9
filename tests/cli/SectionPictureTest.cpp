// Options of the flat section. The cable of these surveys has 1 m between its electrodes, C1 at 13 m, E11, its head, at
// 25 m: channel c lies 11 - c / 2 m behind the antenna. The boat is at 0, 10, 25, 45 and 50 m, so a step is 15 m.
#include <gtest/gtest.h>

#include "cli/Bitmap.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

constexpr int Water = 0x2C6FB7;
constexpr int Chosen = 0xC00020;
constexpr int SingleCurve = 0x1F5FA8;

Outcome Process(const Cli& cli, const std::string& options) {
  cli.folder.write("grid.txt", TextSurvey(GridPlaces()));
  return cli("process grid.txt --coords utm --out o --section-picture s.bmp '--range=-2000000;-1000000' " + options);
}

Picture Paint(const Cli& cli, const std::string& options) {
  const Outcome run = Process(cli, options);
  EXPECT_EQ(run.status, 0) << run.err;
  return Picture(test::Slurp(cli.folder / "s.bmp"));
}

/// Cells are painted in the palette's last colour, which the legend at the foot has too.
Box Cells(const Picture& picture) {
  return picture.box([&](int x, int y) { return y < picture.height() - 90 && picture.at(x, y) == 0xFF0900; });
}

/// The share of the axis to the left of a box's edges.
std::pair<double, double> Shares(const Picture& picture, const Box& box) {
  const Box axis = picture.colour(Water);
  const double width = axis.right + 1.0 - axis.left;
  return {(box.left - axis.left) / width, (box.right + 1.0 - axis.left) / width};
}

/// What of the chosen section's colour lies below the cells: its bar.
Box Bar(const Picture& picture) {
  const int below = Cells(picture).bottom;
  return picture.box([&](int x, int y) { return y > below && picture.at(x, y) == Chosen; });
}

TEST(FlatSection, PutsReadingsBehindTheBoat) {
  const Cli cli;
  constexpr double pixel = 2.0 / 1000;
  // From 7.5 m before the first reading of channel 1 (-18 m) to half a step behind the last boat (57.5 m); the last
  // cell of channel 10 ends at 50 - 6 + 7.5 m.
  const Picture plain = Paint(cli, "");
  EXPECT_EQ(std::pair(plain.width(), plain.height()), std::pair(1280, 800));
  EXPECT_NEAR(Shares(plain, Cells(plain)).first, 0.0, pixel);
  EXPECT_NEAR(Shares(plain, Cells(plain)).second, (51.5 + 18) / (57.5 + 18), pixel);
  const Picture trailing = Paint(cli, "--cable-offset 20 --size 1000x640");
  EXPECT_EQ(std::pair(trailing.width(), trailing.height()), std::pair(1000, 640));
  EXPECT_NEAR(Shares(trailing, Cells(trailing)).second, (31.5 + 38) / (57.5 + 38), pixel);
}

// Rows reach from 0.2755 to 2.866 m, by the depths that Python finds for dipoles 1 to 10 m apart, or from level 0 on.
TEST(FlatSection, HasDepthsInMetresOrLevels) {
  const Cli cli;
  const auto above = [](const Picture& picture) {
    const Box cells = Cells(picture);
    return (cells.top - 1.0 - picture.colour(Water).bottom) / (cells.bottom + 1.0 - cells.top);
  };
  EXPECT_NEAR(above(Paint(cli, "--section-depth metres")), 0.1063, 0.005);
  EXPECT_NEAR(above(Paint(cli, "")), 0.1063, 0.005);
  EXPECT_NEAR(above(Paint(cli, "--section-depth levels")), 0.0, 0.001);
}

TEST(FlatSection, MarksTheExtremesThatWereGiven) {
  const Cli cli;
  const Picture both = Paint(cli, "--from 2 --to 4");
  EXPECT_NEAR(Shares(both, Bar(both)).first, (10.0 + 18) / 75.5, 0.003);
  EXPECT_NEAR(Shares(both, Bar(both)).second, (45.0 + 18) / 75.5, 0.003);
  const Picture none = Paint(cli, "");
  EXPECT_EQ(none.colour(Chosen), (Box{1280, 800, -1, -1}));
}

TEST(FlatSection, ShowsTheCurvesAskedFor) {
  const Cli cli;
  const auto curve = [&](const std::string& list, int colour) {
    return Paint(cli, "--curves " + list).colour(colour).right >= 0;
  };
  EXPECT_FALSE(Paint(cli, "").colour(SingleCurve).right >= 0);
  EXPECT_TRUE(curve("current", SingleCurve));
  EXPECT_TRUE(curve("depth", SingleCurve));
  for (const int channel : {0x14123C, 0xE59A1C}) {
    EXPECT_TRUE(curve("potential", channel));
    EXPECT_TRUE(curve("resistivity", channel));
    EXPECT_FALSE(curve("current,depth", channel));
  }
  const Outcome timeless = Process(cli, "--curves speed,time");
  EXPECT_EQ(timeless.status, 0);
  EXPECT_TRUE(Contains(timeless.err, "the curve of speed is empty") && Contains(timeless.err, "the curve of time"));
  const Cli timed;
  timed.folder.write("timed.bin", test::SyscalFile(TimedFirings()));
  const auto paintTimed = [&](const char* list) {
    EXPECT_EQ(timed(std::string("process timed.bin --out o --section-picture s.bmp --curves ") + list).status, 0);
    return Picture(test::Slurp(timed.folder / "s.bmp")).colour(SingleCurve).right >= 0;
  };
  EXPECT_TRUE(paintTimed("speed"));
  EXPECT_TRUE(paintTimed("time"));
}

TEST(FlatSection, IsWrittenLikeTheOtherPicture) {
  const Cli cli;
  // The caption stands in the lowest lines of the picture, from its left edge on.
  const auto foot = [](const Picture& picture) {
    return picture.box(
        [&](int x, int y) { return x < 200 && y >= picture.height() - 14 && picture.at(x, y) != 0xFFFFFF; });
  };
  EXPECT_GT(foot(Paint(cli, "")).right, 60);
  EXPECT_EQ(foot(Paint(cli, "--no-caption")).right, -1);
  const Outcome run = Process(cli, "--picture p.png --json");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_LT(run.out.find("\"p.png\""), run.out.find("\"s.bmp\""));
  EXPECT_LT(run.out.find("\"s.bmp\""), run.out.find("\"o.bin\""));
  cli.folder.write("grid.bmp", TextSurvey(GridPlaces()));
  EXPECT_EQ(cli("process grid.bmp --coords utm --out o --section-picture grid.bmp").status, 1) << "an original";
  EXPECT_EQ(test::Slurp(cli.folder / "grid.bmp"), TextSurvey(GridPlaces()));
  EXPECT_EQ(cli("process none.bin --out o --section-picture empty.png").status, 1);
  EXPECT_TRUE(cli.exists("empty.png")) << "axes and a word that nothing was read";
  for (const char* wrong :
       {"--curves depth", "--section-depth levels", "--section-picture s.jpg",
        "--section-picture s.png --curves salinity", "--section-picture s.png --section-depth feet"}) {
    EXPECT_EQ(cli(std::string("process grid.txt --coords utm --out o ") + wrong).status, 2) << wrong;
  }
}

}  // namespace
}  // namespace corvan

// The path that was sailed: places along it, the courses beyond its ends, smoothing, and the lines of a section.
#include "track/SailedPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/Surveys.h"
#include "track/SailedLines.h"

namespace corvan {
namespace {

// 100 m to the east, 20 m to the north, 100 m back: every place by hand. A boat that stood still on the way, and fixes
// at uneven steps, change none.
TEST(Places, LieOnThePathByItsLength) {
  const std::vector<PlanPoint> turn{{0, 0}, {60, 0}, {60, 0}, {60, 0}, {100, 0}, {100, 20}, {100, 20}, {0, 20}};
  const SailedPath path(turn, 0);
  EXPECT_EQ(path.lunghezza(), 220);
  EXPECT_EQ(path.lunghezza(4), 100);
  const struct {
    double length, est, nord;
  } cases[] = {{0, 0, 0},      {40, 40, 0},   {60, 60, 0},  {99, 99, 0},   {100, 100, 0}, {110, 100, 10},
               {120, 100, 20}, {150, 70, 20}, {220, 0, 20}, {-30, -30, 0}, {230, -10, 20}};
  for (const auto& c : cases) {
    for (const std::size_t near : {0, 3, 7, 900}) {
      const PlanPoint place = path.luogo(c.length, near);
      EXPECT_NEAR(place.est, c.est, 1e-9) << c.length << " from " << near;
      EXPECT_NEAR(place.nord, c.nord, 1e-9) << c.length << " from " << near;
    }
  }
}

TEST(Places, AreFoundFromAnyGuess) {
  const std::vector<double> values{0, 0, 1, 2, 2, 2, 5, 9, 9, 12, 30, 31, 40};
  for (const double value : {-1.0, 0.0, 0.5, 2.0, 4.9, 9.0, 11.0, 31.0, 40.0, 99.0}) {
    const auto notOver = std::count_if(values.begin(), values.end(), [value](double v) { return v <= value; });
    for (std::size_t near = 0; near <= values.size(); ++near) {
      EXPECT_EQ(UltimoNonOltre(values, value, near), static_cast<std::size_t>(std::max<std::ptrdiff_t>(notOver, 1) - 1))
          << value << " from " << near;
    }
  }
}

// Half the window on either side, less where the path has less: of 10 m and 10 m round a corner at (10, 0), the means
// of 2 m and 2 m and of all of it.
TEST(Smoothing, TakesTheMeanOfTheWindow) {
  const struct {
    double window, est, nord;
  } cases[] = {{0, 10, 0}, {0.015, 10, 0}, {4, 9.5, 0.5}, {20, 7.5, 2.5}, {1000, 7.5, 2.5}};
  for (const auto& c : cases) {
    const SailedPath path({{600000, 5e6}, {600010, 5e6}, {600010, 5000010}}, c.window);
    const PlanPoint corner = path.luogo(path.lunghezza(1), 1);
    EXPECT_NEAR(corner.est - 600000, c.est, 1e-8) << c.window;
    EXPECT_NEAR(corner.nord - 5e6, c.nord, 1e-8) << c.window;
    const PlanPoint end = path.luogo(path.lunghezza(), 2);
    EXPECT_TRUE(end.est == 600010 && end.nord == 5000010) << "the ends stay";
  }
}

// A thousand kilometres out the sums are large and the window is a few metres.
TEST(Smoothing, LeavesAStraightLineWhereItIs) {
  std::vector<PlanPoint> fixes;
  for (double s = 0; s < 1.2e6; s += fixes.size() % 3 == 0 ? 1.0 : 400.0)
    fixes.push_back({3e5 + 0.6 * s, 5e6 + 0.8 * s});
  const SailedPath path(fixes, 5);
  for (std::size_t i = 0; i < fixes.size(); ++i) {
    const PlanPoint place = path.luogo(path.lunghezza(i), i);
    ASSERT_NEAR(place.est, fixes[i].est, 1e-4) << i;
    ASSERT_NEAR(place.nord, fixes[i].nord, 1e-4) << i;
  }
}

// The boat drifts about its place by decimetres before it sails east, and again behind it, having turned north.
TEST(Courses, AreThoseOverTheWindowNotOverTheFirstStep) {
  const std::vector<PlanPoint> fixes{{0, 0},  {0, 0.3}, {0.1, 0},   {-0.2, 0.1}, {10, 0},
                                     {30, 0}, {30, 40}, {30.2, 40}, {30, 40}};
  const auto there = [&](double window, bool behind) {
    const SailedPath path(fixes, window);
    return behind ? path.luogo(path.lunghezza() + 20, 0) : path.luogo(-20, 0);
  };
  EXPECT_NEAR(there(5, false).est, -20, 0.01);
  EXPECT_NEAR(there(0, false).nord, -20, 1e-9) << "without a window the next fix tells, 0.3 m to the north";
  EXPECT_NEAR(there(5, true).nord, 60, 0.01);
  EXPECT_NEAR(there(0, true).est, 10, 1e-9) << "the step back from 30.2 to 30";
  // Never a window away: the farthest fix tells.
  EXPECT_NEAR(SailedPath({{0, 0}, {1, 0}, {0, 3}, {0.5, 0}}, 100).luogo(-20, 0).nord, -20, 0.7);
  const SailedPath still({{7, 7}, {7, 7}}, 5);
  EXPECT_FALSE(still.conRotta());
  EXPECT_EQ(still.luogo(-20, 0).est, -13) << "to the west for want of any";
}

// Three files: 10 m steps to the east; the second without a fix; the third 30 m on from the end of the first.
Survey ThreeFiles() {
  Survey survey = test::Measurements({{300000, 5e6, 1, 1},
                                      {300010, 5e6, 1, 2},
                                      {0, 0, 1, 9},
                                      {300020, 5e6, 1, 4},
                                      {300030, 5e6, 1, 9},
                                      {300040, 5e6, 1, -8},
                                      {0, 0, 2, 9},
                                      {0, 0, 3, 9},
                                      {300040, 5000030, 3, 5},
                                      {300040, 5000040, 3, 6}});
  survey.Misure(5).Scartata = true;
  survey.Misure(7).Interpolata = false;
  return survey;
}

TEST(Lines, ArePathsOfFilesOnOneAxis) {
  const Survey survey = ThreeFiles();
  const struct {
    const char* name;
    std::int32_t E1, E2, p;
    double length, x;
  } cases[] = {{"the first of all", 1, 10, 1, 0, 0},
               {"without a position it repeats the one before", 1, 10, 3, 10, 10},
               {"left out likewise", 1, 10, 5, 20, 20},
               {"the path goes on straight behind it", 1, 10, 6, 40, 40},
               {"a file without any", 1, 10, 7, 40, 40},
               {"a file's start without a position", 1, 10, 8, 40, 40},
               {"30 m to the next path", 1, 10, 9, 0, 70},
               {"and on", 1, 10, 10, 10, 80},
               {"what was sailed before the section counts", 4, 10, 4, 20, 0},
               {"but is not on its axis", 4, 10, 10, 10, 60},
               {"a section that begins without a position", 3, 6, 3, 20, 0},
               {"one that has its first in another file", 7, 10, 7, 0, 0},
               {"likewise", 7, 10, 10, 10, 10}};
  for (const auto& c : cases) {
    const SailedLines lines(survey, c.E1, c.E2, 0);
    EXPECT_NEAR(lines.fix(c.p).lunghezza(), c.length, 1e-9) << c.name;
    EXPECT_NEAR(lines.fix(c.p).x(), c.x, 1e-9) << c.name;
  }
  EXPECT_TRUE(SailedLines(survey, 7, 8, 0).empty());
  EXPECT_EQ(SailedLines(survey, 2, 6, 0).size(), 1U) << "only the files of the section";
}

// Soundings of the first file: 1, 2, 4 and 8 m at 0, 10, 20 and 40 m; what is left out sounds nothing.
TEST(Lines, SoundTheDepthBetweenMeasurements) {
  Survey survey = ThreeFiles();
  const struct {
    double at, echo, depth;
  } cases[] = {{10, 0, 2}, {15, 0, 3}, {30, 0, 6}, {-5, 0, 1}, {99, 0, 8}, {10, 5, 3}, {20, -5, 3}, {0, -5, 1}};
  const SailedLines lines(survey, 1, 6, 0);
  for (const auto& c : cases) {
    EXPECT_NEAR(lines.fix(1).profondita(c.at, c.echo), c.depth, 1e-9) << c.at << " sounder " << c.echo;
  }
  for (const std::size_t k : {2U, 6U}) survey.Misure(k).Val12 = std::numeric_limits<float>::quiet_NaN();
  const SailedLines unsounded(survey, 1, 6, 0);
  EXPECT_NEAR(unsounded.fix(1).profondita(10, 0), 2.5, 1e-9) << "from 1 m at 0 to 4 m at 20";
  EXPECT_EQ(unsounded.fix(6).profondita(40, 0), 4);
}

}  // namespace
}  // namespace corvan

// The survey as points of the scene.
#include "view3d/Scene.h"

#include <gtest/gtest.h>

#include <cmath>

#include "Pictures.h"

namespace corvan {
namespace {

using test::ExpectPoint;
using test::SurveyOf;

Scene SceneOf(const Survey& survey) {
  Scene scene;
  CreaFourArray(scene, survey);
  GeneraTraiettoria(scene, survey);
  GeneraContorno(scene, survey);
  GeneraEchoSounder(scene, survey);
  return scene;
}

TEST(Cells, ReachHalfWayToTheirNeighboursOfTheSameLine) {
  // Line 1: three firings 10 m apart, a lost fix, one more; line 2: one.
  const Survey survey =
      SurveyOf({{300000, 5e6}, {300010, 5e6}, {300020, 5000004}, {0, 0}, {300040, 5e6}, {300040, 5000020, 2}});
  const Scene scene = SceneOf(survey);
  EXPECT_EQ(scene.cells.NQuad, 60);
  const auto corner = [&](std::int32_t firing, std::int32_t level, std::size_t c) {
    return scene.cells.QuadPunti((firing - 1) * 10 + level, c);
  };
  ExpectPoint(corner(1, 1, 1), 0, 0, 0, "the line begins at its first firing");
  ExpectPoint(corner(1, 1, 2), 5, 0, 0, "half-way to the next");
  ExpectPoint(corner(2, 3, 3), 15, 2, -30, "lower edge of level 3, half-way");
  ExpectPoint(corner(2, 3, 4), 5, 0, -30, "and back");
  ExpectPoint(corner(3, 1, 2), 20, 4, 0, "ends at its own place before a lost fix");
  ExpectPoint(corner(4, 1, 2), 0, 0, 0, "no cell without a position");
  ExpectPoint(corner(5, 1, 1), 40, 0, 0, "begins anew behind it");
  ExpectPoint(corner(5, 1, 2), 40, 0, 0, "and does not reach to the next line");
  EXPECT_FLOAT_EQ(corner(2, 3, 4).w, 2.03F);
  EXPECT_EQ(corner(4, 3, 4).w, 0);
}

TEST(Cells, AreMovedByTheTranslationAndLeaveOutDiscardedFirings) {
  Survey survey = SurveyOf({{300000, 5e6}, {300010, 5e6}, {300020, 5e6}});
  survey.settings.TraslDatiEst = 0.5;
  survey.settings.TraslDatiNord = -2;
  survey.Misure(2).Scartata = true;
  const Scene scene = SceneOf(survey);
  EXPECT_FALSE(scene.cells.columns(2).present);
  ExpectPoint(scene.cells.QuadPunti(1, 2), 0.5F, -2, 0, "ends at its own place");
}

TEST(Cells, OfReadingsThatDoNotExistAreNotThere) {
  Survey survey = SurveyOf({{300000, 5e6}, {300010, 5e6}});
  survey.Misure(2).letture = BitDi(1) | BitDi(4);
  const Scene scene = SceneOf(survey);
  const auto& rho = scene.cells.columns(2).rho;
  EXPECT_EQ(rho[3], 2.04F);
  for (const std::size_t level : {1U, 2U, 4U, 9U}) EXPECT_TRUE(std::isnan(rho.at(level))) << level;
}

TEST(Outlines, RunAlongTheSurfaceAndBackAlongTheBottom) {
  Survey survey = SurveyOf({{0, 0}, {300010, 5e6}, {0, 0, 0}, {300020, 5e6, 2}});
  survey.file.NumCanali = 12;
  const Scene scene = SceneOf(survey);
  ASSERT_EQ(scene.outline.size(), 9U);
  ExpectPoint(scene.outline(1), 10, 0, 0, "a lost fix at the start takes the first place");
  ExpectPoint(scene.outline(3), 10, 0, 0, "a later one the place before it");
  ExpectPoint(scene.outline(5), 20, 0, -100, "no deeper than ten levels");
  ExpectPoint(scene.outline(8), 10, 0, -100, "back at the start");
  ExpectPoint(scene.outline(9), 10, 0, 0, "closed");
  EXPECT_EQ(scene.lineEnds, (std::vector<std::size_t>{3, 4}));
  const Survey gap = SurveyOf({{300010, 5e6}, {0, 0, 0}, {300020, 5e6}});
  EXPECT_EQ(SceneOf(gap).lineEnds, (std::vector<std::size_t>{3})) << "an empty firing names no file and ends no line";
}

TEST(EchoSounder, IsTranslatedOnTheWayOutOnly) {
  Survey survey = SurveyOf({{300000, 5e6}, {300010, 5e6}});
  survey.Misure(2).Val12 = -0.4F;
  survey.settings.TraslFondoEst = 1;
  survey.settings.TraslFondoNord = 2;
  const Scene scene = SceneOf(survey);
  ASSERT_EQ(scene.echoSounder.size(), 5U);
  ExpectPoint(scene.echoSounder(1), 1, 2, -30, "3 m in levels of 10 m");
  ExpectPoint(scene.echoSounder(2), 11, 2, -4, "whatever the sign");
  ExpectPoint(scene.echoSounder(3), 10, 0, -4, "back without the translation");
  ExpectPoint(scene.echoSounder(5), 1, 2, -30, "closed");
}

TEST(NorthArrow, StandsInTheSouthWestAndPointsNorth) {
  Scene scene;
  GeneraNordG(scene, 100);
  ASSERT_EQ(scene.northArrow.size(), 18U);
  // Tip (17, 4): x = -0.375 L, y = -0.425 L + 13 x 100 / 200.
  ExpectPoint(scene.northArrow(3), -37.5F, -36, 0, "tip");
  ExpectPoint(scene.northArrow(5), -35, -50, 0, "right foot");
}

TEST(Cable, LiesTowardsIncreasingEasting) {
  Survey survey = SurveyOf({{300010, 5e6}, {300007, 4999996}, {300004, 4999992}, {300004, 5000050}});
  survey.cavo.PosCavo[1] = 50;
  survey.cavo.PosCavo[12] = 55;
  Scene scene;
  GeneraCavoDiMisura(scene, survey, 2);  // sailing southwest along a 3-4-5 slope
  ASSERT_EQ(scene.cable.size(), 13U);
  ExpectPoint(scene.cable(1), 7 + 30, -4 + 40, 0, "E1 at 50 m");
  GeneraCavoDiMisura(scene, survey, 4);  // its only neighbour lies due south
  ExpectPoint(scene.cable(12), 4, 50 + 55, 0, "C1 straight north");
}

// Two cores share the columns of a long survey: each still ends half-way to its neighbours.
TEST(LongCurtains, JoinWhereTheirHalvesMeet) {
  std::vector<test::Firing> firings;
  for (std::size_t k = 0; k < 20'000; ++k) firings.push_back({300000.0 + static_cast<double>(k), 5000000.0});
  const Survey survey = test::SurveyOf(firings);
  Scene scene;
  CreaFourArray(scene, survey);
  for (std::size_t k = 2; k <= firings.size(); ++k) {
    const CellColumn &before = scene.cells.columns(k - 1), &column = scene.cells.columns(k);
    ASSERT_TRUE(column.present) << k;
    ASSERT_EQ(column.x1, static_cast<float>(k) - 1.5F) << k;
    ASSERT_EQ(column.x1, before.x2) << k;
  }
}

}  // namespace
}  // namespace corvan

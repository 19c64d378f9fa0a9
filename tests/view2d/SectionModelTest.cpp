// The survey laid flat in numbers: bands of depth, reach of cells, lines, marks, speeds. Expected values by hand.
#include "view2d/SectionModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "view2d/FlatSurvey.h"

namespace corvan::test {
namespace {

struct Band {
  std::size_t channel;
  double top, bottom;
};

void ExpectBands(const std::vector<SectionRow>& rows, const std::vector<Band>& wanted, const char* what) {
  ASSERT_EQ(rows.size(), wanted.size()) << what;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].channel, wanted[i].channel) << what;
    EXPECT_NEAR(rows[i].top, wanted[i].top, 1e-9) << what << ", row " << i;
    EXPECT_NEAR(rows[i].bottom, wanted[i].bottom, 1e-9) << what << ", row " << i;
  }
}

/// A survey with the first of these channels only, at these depths.
SectionModel WithDepths(const std::vector<std::optional<double>>& depths) {
  Survey survey = FlatSurvey({0, 10, 20});
  ReadingPlaces places;
  for (std::size_t c = 1; c <= depths.size(); ++c) places.at(c) = {0.0, depths[c - 1]};
  for (Misura& m : survey.Misure) m.letture = static_cast<ReadingSet>((2U << depths.size()) - 2U);
  return CreaSezionePiana(survey, places);
}

TEST(Bands, ReachHalfWayToTheirNeighbours) {
  ExpectBands(WithDepths({2.0, 3.0, 7.0}).metres, {{1, 1.5, 2.5}, {2, 2.5, 5}, {3, 5, 9}}, "uneven");
  ExpectBands(WithDepths({1.0, 7.0}).metres, {{1, 0, 4}, {2, 4, 10}}, "the first reaches to the surface at most");
  ExpectBands(WithDepths({7.0, 2.0, 3.0}).metres, {{2, 1.5, 2.5}, {3, 2.5, 5}, {1, 5, 9}}, "sorted by depth");
  ExpectBands(WithDepths({2.0, 4.0, 2.0}).metres, {{1, 1, 2}, {3, 2, 3}, {2, 3, 5}}, "equal depths share a band");
  ExpectBands(WithDepths({3.0}).metres, {{1, 0, 6}}, "alone");
  ExpectBands(WithDepths({2.0, 9.0, 8.0}).levels, {{1, 0, 1}, {2, 1, 2}, {3, 2, 3}}, "levels");
}

TEST(Bands, OfChannelsWithoutDepthAreTold) {
  // 4 / 1 and 6 / 3 have the median 4 (the upper of two): channel 2 stands at 8 m.
  const SectionModel some = WithDepths({4.0, std::nullopt, 6.0});
  ExpectBands(some.metres, {{1, 3, 5}, {3, 5, 7}, {2, 7, 9}}, "at its level");
  ASSERT_EQ(some.lacks.size(), 1U);
  EXPECT_NE(some.lacks[0].find("channel 2"), std::string::npos) << some.lacks[0];
  EXPECT_TRUE(some.metric);
  const SectionModel none = WithDepths({std::nullopt, std::nullopt});
  EXPECT_FALSE(none.metric);
  EXPECT_EQ(none.lacks.size(), 1U);
  EXPECT_TRUE(WithDepths({1.0, 2.0}).lacks.empty());
  ReadingPlaces lost = EvenPlaces();
  lost[4].dietro.reset();
  const SectionModel placeless = CreaSezionePiana(FlatSurvey({0, 10}), lost);
  EXPECT_EQ(placeless.behind[4], 0.0);
  EXPECT_EQ(placeless.lacks.size(), 1U);
  EXPECT_EQ(CreaSezionePiana(Survey(), EvenPlaces()).lacks.size(), 1U) << "nothing was read";
  Survey own = FlatSurvey({0, 10, 20});
  for (Misura& m : own.Misure) m.CavoProprio = true;
  own.cavo.PosCavo[13] = own.Misure(1).Val64;
  own.cavo.PosCavo[12] = own.Misure(1).Val60;
  std::copy(own.Misure(1).Elettrodi.begin(), own.Misure(1).Elettrodi.end(), own.cavo.PosCavo.begin());
  EXPECT_TRUE(CreaSezionePiana(own, EvenPlaces()).lacks.empty());
  own.Misure(2).Elettrodi[3] += 1;
  own.Misure(3).Val64 += 1;
  ASSERT_EQ(CreaSezionePiana(own, EvenPlaces()).lacks.size(), 1U);
  EXPECT_EQ(CreaSezionePiana(own, EvenPlaces()).lacks[0].substr(0, 38), "2 measurements have electrodes elsewhe");
}

struct ReachCase {
  const char* what;
  std::vector<double> distances;
  std::size_t i, next;
  double reach;
};

TEST(Cells, ReachHalfWayButNotAcrossGaps) {
  for (const ReachCase& c : {
           ReachCase{"forwards", {0, 10, 24, 34}, 1, 2, 7},
           ReachCase{"backwards", {0, 10, 24, 34}, 1, 0, 5},
           ReachCase{"a step of four stays open", {0, 10, 50, 60}, 1, 2, 12.5},
           ReachCase{"one firing missing between", {0, 10, 20, 30}, 1, 3, 5},
           ReachCase{"one missing, the boat nearly stood", {0, 10, 14, 18, 28}, 3, 1, 4},
           ReachCase{"the boat stood still", {0, 10, 10, 10, 20}, 2, 1, 0},
       }) {
    const SectionModel model = CreaSezionePiana(FlatSurvey(c.distances), EvenPlaces());
    EXPECT_NEAR(Portata(model, c.i, c.next), c.reach, 1e-9) << c.what;
    EXPECT_NEAR(Portata(model, c.next, c.i), c.reach, 1e-9) << c.what << ", the other way";
  }
}

TEST(Lines, BeginAndEndWithTheirFiles) {
  Survey survey = FlatSurvey({0, 10, 20, 100, 104, 108, 112}, 3);
  LoseFix(survey, 4);            // the second file's first
  survey.Misure(2).NumFile = 0;  // an empty firing names no file
  survey.Misure(2).letture = 0;
  survey.Misure(2).Scartata = true;
  const SectionModel model = CreaSezionePiana(survey, EvenPlaces());
  ASSERT_EQ(model.lines.size(), 3U);
  const std::vector<std::tuple<std::string, std::size_t, std::size_t, double, double, double>> wanted{
      {"a.bin", 1, 3, 0, 20, 10}, {"b.bin", 4, 6, 104, 108, 4}, {"c.bin", 7, 7, 112, 112, 10}};
  for (std::size_t k = 0; k < wanted.size(); ++k) {
    const SectionLine& line = model.lines[k];
    EXPECT_EQ(std::tuple(line.name, line.first, line.last, line.start, line.end, line.step), wanted[k]) << k;
  }
}

TEST(Marks, StandBetweenTheKeptFirings) {
  Survey survey = FlatSurvey({0, 10, 20, 30, 40, 50, 60});
  for (const std::size_t k : {1U, 3U, 4U, 7U}) LoseFix(survey, k);
  survey.Misure(4).Scartata = true;
  survey.Misure(6).letture = 0;
  survey.Misure(6).Scartata = true;
  const SectionModel model = CreaSezionePiana(survey, EvenPlaces());
  const std::vector<std::tuple<std::uint32_t, Loss, double>> wanted{{1, Loss::NoFix, 10},
                                                                    {3, Loss::NoFix, 20},
                                                                    {4, Loss::LeftOut, 30},
                                                                    {6, Loss::NoReadings, 40},
                                                                    {7, Loss::NoFix, 40}};
  ASSERT_EQ(model.marks.size(), wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const LossMark& mark = model.marks[i];
    EXPECT_EQ(std::tuple(mark.measurement, mark.kind, mark.distance), wanted[i]) << i;
  }
  for (const std::size_t k : {1U, 3U, 4U, 6U, 7U}) {
    EXPECT_FALSE(model.tenuta(k)) << k;
    EXPECT_TRUE(std::isnan(model.rho[1][k - 1]) && std::isnan(model.current[k - 1])) << k;
  }
  EXPECT_TRUE(model.tenuta(2));
}

TEST(Series, TakeSpeedAndTimeFromNeighbours) {
  constexpr double second = 1.0 / 86400.0, start = 46188.25;
  Survey survey = FlatSurvey({0, 10, 30, 35, 100}, 4);
  const std::vector<double> seconds{0, 5, 15, 15, 3600};
  for (std::size_t k = 1; k <= seconds.size(); ++k) survey.Misure(k).Tempo = start + seconds[k - 1] * second;
  const SectionModel model = CreaSezionePiana(survey, EvenPlaces());
  EXPECT_NEAR(model.speed[1], 2.0, 1e-4);
  EXPECT_NEAR(model.speed[2], 2.0, 1e-4);
  for (const std::size_t i : {0U, 3U, 4U})
    EXPECT_TRUE(std::isnan(model.speed[i])) << i;  // start, no time passed, other file
  EXPECT_NEAR(model.hours[4], 1.0F, 1e-6);
  survey.Misure(2).Tempo = 0;  // no time: the speed counts over both steps
  const SectionModel gap = CreaSezionePiana(survey, EvenPlaces());
  EXPECT_TRUE(std::isnan(gap.speed[1]) && std::isnan(gap.hours[1]));
  EXPECT_NEAR(gap.speed[2], 2.0, 1e-4);
  survey.Misure(1).Val12 = -4.5F;
  survey.Misure(1).CanaleA[3] = -3;
  survey.Misure(1).letture = BitDi(3);
  const SectionModel signs = CreaSezionePiana(survey, EvenPlaces());
  EXPECT_EQ(signs.depth[0], 4.5F);
  EXPECT_EQ(signs.potential[3][0], 3.0F);
  EXPECT_TRUE(std::isnan(signs.potential[2][0]) && std::isnan(signs.rho[2][0]));
}

}  // namespace
}  // namespace corvan::test

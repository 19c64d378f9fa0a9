// Measurements linked to an external track by time and by position.
#include "track/TrackLink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/OleDate.h"

namespace corvan {
namespace {

const double Start = AGiorni({2026, 6, 15, 8, 0, 0});

double At(double seconds) { return Start + seconds / 86400; }

PuntoGPSEst Fix(double second, double x, double y, double depth) {
  PuntoGPSEst fix;
  fix.DataOra = At(second);
  fix.X = x;
  fix.Y = y;
  fix.Prof = depth;
  fix.GeoA = 4524 + y / 1e6;
  fix.GeoB = 1218 + x / 1e6;
  fix.Progressiva = x;
  fix.haProf = true;
  fix.sorgente = Geographic{45.4, 12.3};
  return fix;
}

Survey SurveyAt(const std::vector<double>& seconds, const std::vector<PuntoGPSEst>& fixes) {
  Survey survey;
  for (const double second : seconds) {
    Misura m;
    ImpostaGeografica(m, 4500, 1200, {45, 12});
    m.Val12 = 99;
    m.Tempo = At(second);
    survey.Misure.append(m);
  }
  for (const PuntoGPSEst& fix : fixes) survey.tracciaEst.PuntiGPSEst.append(fix);
  survey.tracciaEst.loaded = true;
  survey.tracciaEst.griglia = {33, Hemisphere::North};
  return survey;
}

TEST(TimeLinks, InterpolateBetweenFixesAndTakeTheEndsOutside) {
  Survey s = SurveyAt({10, 12.4, 15, 5, 40}, {Fix(10, 100, 0, 2), Fix(20, 200, 50, 4)});
  s.Misure(1).Interpolata = true;
  const TimeLink link = LinkDataGPST(s, 0);
  const double x[] = {100, 120, 150, 100, 200};  // 12.4 s in whole seconds
  for (std::size_t k = 1; k <= 5; ++k) EXPECT_DOUBLE_EQ(s.Misure(k).UTMx, x[k - 1]) << k;
  EXPECT_DOUBLE_EQ(s.Misure(3).UTMy, 25);
  EXPECT_EQ(s.Misure(3).Val12, 3);
  EXPECT_NEAR(s.Misure(3).Lat, s.tracciaEst.PuntiGPSEst(1).GeoB + 50e-6, 1e-9) << "the crossed coordinates";
  EXPECT_EQ(std::get<Grid>(s.Misure(3).sorgente), (Grid{150, 25, 33, Hemisphere::North}));
  EXPECT_EQ(std::tuple(link.exact, link.between, link.outside, link.farthest), std::tuple(std::size_t{1}, std::size_t{2}, std::size_t{2}, 20.0));
  EXPECT_FALSE(s.Misure(1).Interpolata) << "or the next analysis would take the position away";
}

TEST(TimeLinks, ShiftTheClockOfTheMeasurements) {
  Survey s = SurveyAt({10}, {Fix(3600 + 10, 1, 0, 0), Fix(3600 + 20, 2, 0, 0)});
  EXPECT_EQ(LinkDataGPST(s, 3605).between, 1U);
  EXPECT_DOUBLE_EQ(s.Misure(1).UTMx, 1.5);
}

TEST(TimeLinks, LeaveMeasurementsWithoutATimeAndDoNotCountEmptyFirings) {
  Survey s = SurveyAt({10, 10, 10, 10}, {Fix(10, 1, 0, 0)});
  s.Misure(1).Tempo = std::numeric_limits<double>::quiet_NaN();
  s.Misure(2).NumFile = 1;
  s.files.push_back({});
  s.files[0].recordLength = 280;  // what stands at the time's place is the next record
  s.Misure(3).letture = 0;
  s.Misure(3).Tempo = 0;
  const TimeLink link = LinkDataGPST(s, 0);
  EXPECT_EQ(std::pair(link.withoutTime, link.exact), std::pair(std::size_t{2}, std::size_t{1}));
  EXPECT_EQ(s.Misure(2).Val12, 99);
}

TEST(TimeLinks, WithAnEmptyTrackDiscardAndWithNoneDoNothing) {
  Survey s = SurveyAt({10, 20}, {});
  EXPECT_EQ(LinkDataGPST(s, 0).withoutTrack, 2U);
  EXPECT_TRUE(s.Misure(2).Scartata);
  Survey none = SurveyAt({10}, {});
  none.tracciaEst.loaded = false;
  EXPECT_FALSE(LinkDataGPST(none, 0).done);
  EXPECT_FALSE(none.Misure(1).Scartata);
}

/// The scan as it is described, fix by fix.
double PlainDepth(const Survey& s, std::int64_t moment) {
  std::size_t before = 0, after = 0;
  const auto& fixes = s.tracciaEst.PuntiGPSEst;
  const auto second = [&](std::size_t j) { return std::llround(fixes(j).DataOra * 86400); };
  for (std::size_t j = 1; j <= fixes.size(); ++j) {
    if (second(j) == moment) return fixes(j).Prof;
    if (second(j) < moment) before = j;
    if (second(j) > moment && after == 0) after = j;
    if (before > 0 && after > 0) break;
  }
  if (before == 0 || after == 0) return fixes(std::max(before, after)).Prof;
  const double T = std::abs(static_cast<double>(second(after) - second(before)));
  const double t = static_cast<double>(moment - second(before));
  return fixes(before).Prof + (fixes(after).Prof - fixes(before).Prof) * t / T;
}

TEST(TimeLinks, FindWhatAScanFindsWhateverTheOrder) {
  std::mt19937 random(5);
  for (int round = 0; round < 300; ++round) {
    std::uniform_int_distribution<int> second(0, 40), count(1, 12);
    std::vector<PuntoGPSEst> fixes;
    std::vector<double> moments;
    moments.reserve(20);
    for (int k = count(random); k > 0; --k) fixes.push_back(Fix(second(random), k, 0, 10.0 * k));
    if (round % 3 == 0) {
      std::sort(fixes.begin(), fixes.end(), [](const auto& a, const auto& b) { return a.DataOra < b.DataOra; });
    }
    for (int k = 0; k < 20; ++k) moments.push_back(second(random));
    Survey s = SurveyAt(moments, fixes);
    LinkDataGPST(s, 0);
    for (std::size_t i = 1; i <= moments.size(); ++i) {
      const std::int64_t moment = std::llround(At(moments[i - 1]) * 86400);
      ASSERT_NEAR(s.Misure(i).Val12, PlainDepth(s, moment), 1e-4) << round << " " << i;
    }
  }
}

PlaceLink Link(Survey& s, const Collegamenti& connections) {
  LinkNotes notes;
  return LinkDataGPSP(s, connections, notes);
}

Survey Along(const std::vector<double>& distances) {
  Survey s = SurveyAt(std::vector<double>(distances.size(), 0.0),
                      {Fix(0, 0, 0, 1), Fix(1, 10, 0, 2), Fix(2, 10, 0, 3), Fix(3, 30, 0, 4), Fix(4, 60, 0, 5)});
  for (std::size_t k = 0; k < distances.size(); ++k) s.Misure(k + 1).Distanza = distances[k];
  return s;
}

TEST(PlaceLinks, StretchTheMeasurementsAlongTheTrack) {
  Survey s = Along({0, 5, 10, 15, 20, 25});
  // 20 m of measurements 1..5 on 30 m of track from fix 1 to 4: s = 2/3.
  EXPECT_EQ(Link(s, {{1, 5}, {1, 4}}), PlaceLink::Linked);
  for (std::size_t k = 1; k <= 5; ++k) EXPECT_NEAR(s.Misure(k).UTMx, 7.5 * static_cast<double>(k - 1), 1e-9) << k;
  EXPECT_FLOAT_EQ(s.Misure(2).Val12, 1.75F);
  EXPECT_FLOAT_EQ(s.Misure(3).Val12, 3.25F);
  EXPECT_EQ(s.Misure(6).Val12, 99) << "outside the connections nothing changes";
}

TEST(PlaceLinks, WalkDownwardsAndPutPairsInOrder) {
  Survey s = Along({0, 10, 20});
  EXPECT_EQ(Link(s, {{3, 1}, {1, 4}}), PlaceLink::Linked);
  for (std::size_t k = 1; k <= 3; ++k) EXPECT_NEAR(s.Misure(k).UTMx, 45.0 - 15.0 * static_cast<double>(k), 1e-9) << k;
}

// 4.3 / (4.3 / 30) is 29.999999999999996 in doubles: 4.3 m of measurements on 30 m of track.
TEST(PlaceLinks, PutTheFarEndOnItsFix) {
  Survey s = Along({0, 4.3, 4.3});
  s.tracciaEst.PuntiGPSEst(3).haProf = false;
  LinkNotes notes;
  EXPECT_EQ(LinkDataGPSP(s, {{1, 3}, {1, 4}}, notes), PlaceLink::Linked);
  for (const std::size_t k : {2U, 3U}) {
    EXPECT_EQ(s.Misure(k).UTMx, 30) << k;
    EXPECT_EQ(s.Misure(k).Val12, 4) << "the depth of the fix it lies on, whatever the one before it has";
  }
  EXPECT_EQ(notes.keptDepth, 0U);
}

TEST(PlaceLinks, ThatCannotBeAreTold) {
  Survey s = Along({0, 10, 10});
  EXPECT_EQ(Link(s, {{1, 2}, {4, 4}}), PlaceLink::SomethingWrong);
  EXPECT_EQ(Link(s, {{1, 2}, {2, 3}}), PlaceLink::SomethingWrong) << "two fixes at one place";
  EXPECT_EQ(Link(s, {{2, 3}, {1, 4}}), PlaceLink::Nothing) << "two measurements at one place";
  EXPECT_EQ(Link(s, {{1, 2}, {1, 6}}), PlaceLink::Nothing);
  EXPECT_EQ(Link(s, {{0, 2}, {1, 4}}), PlaceLink::Nothing);
  EXPECT_EQ(s.Misure(2).Val12, 99);
}

// A depth is taken only where both fixes around a measurement have one; 0 is one.
TEST(Depths, AreNotCarriedAcrossAFixWithout) {
  std::vector<PuntoGPSEst> fixes{Fix(10, 1, 0, 2), Fix(20, 2, 0, 4), Fix(30, 3, 0, 0), Fix(40, 4, 0, 6)};
  fixes[1].haProf = false;
  Survey s = SurveyAt({10, 15, 20, 25, 30, 35, 40}, fixes);
  const TimeLink link = LinkDataGPST(s, 0);
  const float depths[] = {2, 99, 99, 99, 0, 3, 6};
  for (std::size_t k = 1; k <= 7; ++k) EXPECT_EQ(s.Misure(k).Val12, depths[k - 1]) << k;
  EXPECT_EQ(link.notes.keptDepth, 3U);
  EXPECT_DOUBLE_EQ(s.Misure(2).UTMx, 1.5) << "the position is taken all the same";

  Survey p = Along({0, 5, 10});
  p.tracciaEst.PuntiGPSEst(2).haProf = false;
  LinkNotes notes;
  LinkDataGPSP(p, {{1, 3}, {1, 4}}, notes);  // at fixes 1, between 3 and 4, 4
  EXPECT_EQ(notes.keptDepth, 0U);
  LinkDataGPSP(p, {{1, 3}, {1, 2}}, notes);
  EXPECT_EQ(notes.keptDepth, 2U) << "half-way to the second fix and on it";
}

TEST(Holes, OfOverAMinuteAreCountedAndTheLongestTold) {
  Survey s =
      SurveyAt({5, 40, 100, 3000, 5000}, {Fix(0, 0, 0, 1), Fix(60, 1, 0, 1), Fix(121, 2, 0, 1), Fix(3721, 3, 0, 1)});
  const TimeLink link = LinkDataGPST(s, 0);
  EXPECT_EQ(std::pair(link.notes.holes, link.notes.longestHole), std::pair(std::size_t{2}, 3600.0))
      << "60 s are none; behind the last fix there is none";
}

}  // namespace
}  // namespace corvan

// Sections: places of the electrodes, true positions, depths and what is left out.
#include "export/Section.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "support/SurveyFiles.h"
#include "support/Surveys.h"
#include "track/TrackAnalysis.h"

namespace corvan {
namespace {

using test::Firing;

/// Cable C1 55, C2 60, E1 50 ... E11 0: spacing 5, span -60, lag 2.5 + offset.
struct Fixture {
  Findings findings;
  Survey survey;
  SectionRequest request;

  explicit Fixture(const std::vector<Firing>& firings, TruePosition position = TruePosition::AsStored)
      : survey(test::Measurements(firings)) {
    request.E2 = survey.NumMisure();
    request.position = position;
  }
  Section extract() { return EstraiSezione(survey, request, findings); }
  double trueX(std::size_t k) const { return survey.Misure(k).Deriv[3]; }
  double trueY(std::size_t k) const { return survey.Misure(k).Deriv[4]; }
  bool says(const std::string& words) const { return test::Told(findings).find(words) != std::string::npos; }
};

TEST(Records, HoldThePlacesSnappedToTheElectrodeGrid) {
  Fixture f({{300000, 5e6}, {300007, 5e6}});
  f.request.OffsetCavo = 3;
  Section s = f.extract();
  ASSERT_EQ(s.NqpBin(), 20);
  const Quadrupole r = s.RecordOut(11 + 3);  // second point, channel 4
  // D = 7: A = Fix((-5 + 7 + 60) / 5) 5 + 3 = 63, B = 68, M = E4 35 -> Fix(42 / 5) 5 + 3 = 43, N = 38.
  EXPECT_EQ(r.x, (std::array<float, 4>{63, 68, 43, 38}));
  EXPECT_EQ(r.z, (std::array<float, 4>{})) << "no depths unless asked";
  EXPECT_EQ(r.channel, 4);
  EXPECT_EQ((std::array{r.current, r.potential, r.resistivity}), (std::array{1000.5F, 4.5F, 2.04F}));
  EXPECT_EQ((std::array{r.est, r.nord}), (std::array{300007.0F, 5e6F}));
  EXPECT_EQ(s.RecordOut(1).x[0], 58);
}

// A lag of 10 m, the cable's 2.5 and the offset's 7.5: along a 3-4-5 slope it is 6 m and 8 m.
TEST(TruePositions, LieBehindTheBoatByTheLag) {
  struct Case {
    const char* name;
    double dx, dy;  ///< expected shift of the true position, m
    std::vector<Firing> track;
  };
  const Case cases[] = {{"northeast", -6, -8, {{300000, 5e6}, {300030, 5000040}, {300060, 5000080}}},
                        {"southwest", 6, 8, {{300060, 5000080}, {300030, 5000040}, {300000, 5e6}}},
                        {"southeast", -6, 8, {{300000, 5e6}, {300030, 4999960}}},
                        {"west", 10, 0, {{300060, 5e6}, {300000, 5e6}}},
                        {"north", 0, -10, {{300000, 5e6}, {300000, 5000040}}},
                        {"south", 0, 10, {{300000, 5000040}, {300000, 5e6}}},
                        {"one point", 10, 0, {{300000, 5e6}}}};
  for (const Case& c : cases) {
    Fixture f(c.track, TruePosition::BehindBoat);
    f.request.OffsetCavo = 7.5;
    f.extract();
    for (std::size_t k = 1; k <= c.track.size(); ++k) {
      EXPECT_NEAR(f.trueX(k) - f.survey.Misure(k).UTMx, c.dx, 1e-6) << c.name;
      EXPECT_NEAR(f.trueY(k) - f.survey.Misure(k).UTMy, c.dy, 1e-6) << c.name;
    }
  }
}

// Sections written one after the other must not lean on each other: along a meridian the easting is the stored one.
TEST(TruePosition, DoesNotRememberAnEarlierSection) {
  Fixture f({{300000, 5e6}, {300000, 5000040}, {300030, 5000080}}, TruePosition::BehindBoat);
  f.extract();
  const double x = f.trueX(2);
  f.extract();
  EXPECT_EQ(f.trueX(2), x);
  f.request.E2 = 2;
  EXPECT_EQ(f.extract().RecordOut.points()(2).estVero, 300000);
  f.request.position = TruePosition::ExternalGps;
  f.extract();
  EXPECT_EQ(f.trueY(2), 5000040) << "external positions are true as they stand";
}

TEST(Depths, AreThoseUnderEachElectrode) {
  // Depth k metres at 10 (k - 1) metres.
  Fixture f({{300000, 5e6, 1, 1}, {300010, 5e6, 1, -2}, {300020, 5e6, 1, 3}, {300030, 5e6, 1, 4}});
  f.request.echoSounder = true;
  f.request.OffsetEco = 42;
  Section s = f.extract();
  // Point 1, channel 1: A at 55, looked up at 55 + 42 - 60 = 37 -> 4; M at 50 -> 32 -> 4; N at 45 -> 27 -> 4.
  EXPECT_EQ(s.RecordOut(1).z[0], 4);
  // Channel 10: M = E10 at 5 -> -13 -> first depth; N = E11 at 0 likewise. Channel 5: M at 30 -> 12 -> 3, N at 25 -> 7
  // -> 2.
  EXPECT_EQ(s.RecordOut(10).z[2], 1);
  EXPECT_TRUE(s.RecordOut(5).z[2] == 3 && s.RecordOut(5).z[3] == 2);
  EXPECT_TRUE(s.Profilo(2).prof == 2 && s.Profilo(4).distanza == 30);
  // Profile of true positions: C1 of point p at 55 + 10 (p - 1), looked up 18 m before that.
  EXPECT_EQ(s.ProfiloVero(1).prof, 4);
}

TEST(LostFixes, KeepPlaceInTheProfileAndGiveNoGeometry) {
  Fixture f({{0, 0}, {300000, 5e6, 1, 2}, {0, 0}, {300007, 5e6, 1, 3}, {0, 0}}, TruePosition::BehindBoat);
  f.survey.Misure(3).Scartata = true;
  f.request.echoSounder = true;
  Section s = f.extract();
  EXPECT_EQ(s.points, 4) << "left out: one; without position but not left out: its readings are written";
  EXPECT_EQ(s.Profilo(1).est, 300000) << "before the first kept point: that one";
  EXPECT_EQ(s.Profilo(3).prof, 2) << "else the kept one before";
  EXPECT_EQ(s.Profilo(5).distanza, 7);
  EXPECT_EQ(s.ProfiloVero(3).est, s.ProfiloVero(2).est);
  EXPECT_EQ(s.RecordOut(1).est, 299997.5F) << "before the first kept point: its true place";
  EXPECT_EQ(s.RecordOut(31).est, 300004.5F) << "else that of the kept one before";
  EXPECT_FALSE(s.RecordOut.points()(4).posta);
  EXPECT_TRUE(f.says("2 of 4 measurements have no position"));
  EXPECT_EQ(f.trueX(2), 300000 - 2.5) << "eastward, though the extremes have no position";
  EXPECT_EQ(s.RecordOut(21).x[0], 60) << "third point: D = 7 from the first kept one";
}

TEST(LostFixes, AllOverGiveNoRecords) {
  Fixture f({{0, 0}, {0, 0}});
  const Section s = f.extract();
  EXPECT_TRUE(s.NqpBin() == 0 && f.findings.anyFault());
  EXPECT_LT(s.Profilo.Ultimo(), s.Profilo.Primo()) << "no profile of zeros";
}

TEST(ZeroSpacing, LeavesPlacesZeroAndSaysSo) {
  Fixture f({{300000, 5e6}, {300010, 5e6}});
  f.survey.cavo.PosCavo[13] = 55;
  f.request.OffsetCavo = 3;
  Section s = f.extract();
  EXPECT_EQ(s.NqpBin(), 20);
  EXPECT_TRUE(s.RecordOut(1).x[0] == 0 && s.RecordOut(1).resistivity == 1.01F && f.findings.anyFault());
}

TEST(TruePosition, OfABendIsNoted) {
  Fixture straight({{300000, 5e6}, {300100, 5000001}, {300200, 5e6}}, TruePosition::BehindBoat);
  straight.extract();
  EXPECT_FALSE(straight.says("bends"));
  // Fitted y = 10: the middle point lies 20 m off, the lag is 2.5 m.
  Fixture bent({{300000, 5e6}, {300100, 5000030}, {300200, 5e6}}, TruePosition::BehindBoat);
  bent.extract();
  EXPECT_TRUE(bent.says("20 m from the straight line"));
  EXPECT_FALSE(bent.findings.anyFault());
}

// The way from degrees to the grid and back is not to be taken twice: only what was interpolated in degrees is
// projected.
TEST(Positions, OfTheExtractionAreTheAnalysedOnes) {
  Fixture f({{300000, 5e6}, {0, 0}, {300030, 5000040}});
  f.survey.settings.filter = BadGps::Interpolate;
  AnalisiFile(f.survey, f.findings);
  f.extract();
  EXPECT_EQ(f.survey.Misure(2).UTMx, 300015) << "between two grid positions: the grid's middle";

  Survey degrees = test::GeographicMeasurements({{10, 60}, {0, 0}, {20, 60}});
  degrees.settings.filter = BadGps::Interpolate;
  AnalisiFile(degrees, f.findings);
  const double straight = degrees.Misure(2).UTMy;
  EXPECT_DOUBLE_EQ(straight, (degrees.Misure(1).UTMy + degrees.Misure(3).UTMy) / 2);
  EstraiSezione(degrees, {1, 3, 0, 0, TruePosition::AsStored, false}, f.findings);
  // 60 N 15 E on the central meridian of zone 33: 6651411.19 m (cs2cs); ten degrees apart a parallel bends by
  // kilometres.
  EXPECT_NEAR(degrees.Misure(2).UTMy, 6651411.19, 0.2);
  EXPECT_GT(straight - degrees.Misure(2).UTMy, 10000);
}

TEST(Records, WithBothPotentialElectrodesAtOnePlaceAreTold) {
  Fixture f({{300000, 5e6}, {300007, 5e6}});
  f.survey.cavo.PosCavo = {0, 50, 47.5F, 45, 42.5F, 40, 37.5F, 35, 32.5F, 30, 27.5F, 25, 55, 60};
  f.extract();
  // Spacing 5 on a cable of 2.5: of E1 50 and E2 47.5 the second falls on 45 with E3. Five pairs of ten coincide.
  EXPECT_TRUE(f.says("10 of 20 records") && f.says("the first is channel 2 of measurement 1"));
}

}  // namespace
}  // namespace corvan

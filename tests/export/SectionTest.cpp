// Sections: places of the electrodes, true positions, depths and what is left out.
#include "export/Section.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/SurveyFiles.h"

namespace corvan {
namespace {

struct Place {
  double x, y;
  float depth = 5;
};

/// A survey in UTM with the cable C1 55, C2 60, E1 50 ... E11 0: spacing 5, span -60, lag 2.5 + offset.
struct Fixture {
  test::ScriptedAnswers dialogs;
  GeoGeo geo{dialogs};
  Findings findings;
  Survey survey;
  SectionRequest request;

  explicit Fixture(const std::vector<Place>& places) {
    geo.UTMzone(33);
    survey.cavo.PosCavo = {0, 50, 45, 40, 35, 30, 25, 20, 15, 10, 5, 0, 55, 60};
    for (const Place& p : places) {
      Misura m;
      m.SorgenteUTM = true;
      ImpostaPosizione(m, p.y, p.x);
      m.Val12 = p.depth;
      m.Val180 = 1000;
      m.Val184 = -1001;
      m.Deriv[3] = m.UTMx;
      m.Deriv[4] = m.UTMy;
      for (std::size_t c = 1; c <= MaxChannels; ++c) {
        m.CanaleA.at(c) = static_cast<float>(c);
        m.CanaleB.at(c) = -static_cast<float>(c) - 1;
        m.Rho.at(c) = static_cast<float>(c) / 4;
      }
      survey.Misure.append(m);
    }
    request.E2 = survey.NumMisure();
  }
  Section extract() { return EstraiSezione(survey, geo, request, findings); }
  double trueX(std::size_t k) const { return survey.Misure(k).Deriv[3]; }
  double trueY(std::size_t k) const { return survey.Misure(k).Deriv[4]; }
};

TEST(Records, HoldThePlacesSnappedToTheElectrodeGrid) {
  Fixture f({{300000, 5e6}, {300007, 5e6}});
  f.request.OffsetCavo = 3;
  Section s = f.extract();
  ASSERT_EQ(s.NqpBin(), 20);
  const Quadrupole r = s.RecordOut(11 + 3);  // second point, channel 4
  // D = 7: A = Fix((-5 + 7 + 60) / 5) 5 + 3 = 63, B = 68, M = E4 35 -> Fix(42 / 5) 5 + 3 = 43, N = 38.
  EXPECT_EQ(r.x[0], 63);
  EXPECT_EQ(r.x[1], 68);
  EXPECT_EQ(r.x[2], 43);
  EXPECT_EQ(r.x[3], 38);
  EXPECT_EQ(r.channel, 4);
  EXPECT_EQ(r.current, 1000.5F);
  EXPECT_EQ(r.potential, 4.5F);
  EXPECT_EQ(r.resistivity, 1.0F);
  EXPECT_EQ(r.z[0], 0) << "no depths unless asked";
  EXPECT_EQ(r.est, 300007.0F);
  EXPECT_EQ(r.nord, 5e6F);
  EXPECT_EQ(s.RecordOut(1).x[0], 58);
}

struct DirectionCase {
  const char* name;
  std::vector<Place> track;
  double dx, dy;  ///< expected shift of the true position, m
};

class TruePositions : public ::testing::TestWithParam<DirectionCase> {};

TEST_P(TruePositions, LieBehindTheBoatByTheLag) {
  Fixture f(GetParam().track);
  f.request.position = TruePosition::BehindBoat;
  f.request.OffsetCavo = 7.5;  // lag 2.5 + 7.5
  f.extract();
  for (std::size_t k = 1; k <= GetParam().track.size(); ++k) {
    EXPECT_NEAR(f.trueX(k) - f.survey.Misure(k).UTMx, GetParam().dx, 1e-6) << GetParam().name;
    EXPECT_NEAR(f.trueY(k) - f.survey.Misure(k).UTMy, GetParam().dy, 1e-6) << GetParam().name;
  }
}

// A lag of 10 m: along a 3-4-5 slope it is 6 m and 8 m.
INSTANTIATE_TEST_SUITE_P(
    Directions, TruePositions,
    ::testing::Values(DirectionCase{"northeast", {{300000, 5e6}, {300030, 5000040}, {300060, 5000080}}, -6, -8},
                      DirectionCase{"southwest", {{300060, 5000080}, {300030, 5000040}, {300000, 5e6}}, 6, 8},
                      DirectionCase{"southeast", {{300000, 5e6}, {300030, 4999960}}, -6, 8},
                      DirectionCase{"west", {{300060, 5e6}, {300000, 5e6}}, 10, 0},
                      DirectionCase{"north", {{300000, 5e6}, {300000, 5000040}}, 0, -10},
                      DirectionCase{"south", {{300000, 5000040}, {300000, 5e6}}, 0, 10},
                      DirectionCase{"one point", {{300000, 5e6}}, 10, 0}));

TEST(TruePosition, RepeatedGivesTheSame) {
  Fixture f({{300000, 5e6}, {300030, 5000040}});
  f.request.position = TruePosition::BehindBoat;
  f.extract();
  const double x = f.trueX(2);
  f.extract();
  EXPECT_EQ(f.trueX(2), x);
  f.request.position = TruePosition::ExternalGps;
  f.extract();
  EXPECT_EQ(f.trueX(2), 300030) << "external positions are true as they stand";
}

TEST(Depths, AreThoseUnderEachElectrode) {
  // Depth k metres at 10 (k - 1) metres.
  Fixture f({{300000, 5e6, 1}, {300010, 5e6, -2}, {300020, 5e6, 3}, {300030, 5e6, 4}});
  f.request.echoSounder = true;
  f.request.OffsetEco = 42;
  Section s = f.extract();
  // Point 1, channel 1: A at 55, looked up at 55 + 42 - 60 = 37 -> 4; M at 50 -> 32 -> 4; N at 45 -> 27 -> 4.
  EXPECT_EQ(s.RecordOut(1).z[0], 4);
  // Channel 10: M = E10 at 5 -> -13 -> first depth; N = E11 at 0 likewise. Channel 5: M at 30 -> 12 -> 3, N at 25 -> 7
  // -> 2.
  EXPECT_EQ(s.RecordOut(10).z[2], 1);
  EXPECT_EQ(s.RecordOut(5).z[2], 3);
  EXPECT_EQ(s.RecordOut(5).z[3], 2);
  EXPECT_EQ(s.Profilo(2).prof, 2);
  EXPECT_EQ(s.Profilo(4).distanza, 30);
  // Profile of true positions: C1 of point p at 55 + 10 (p - 1), looked up 18 m before that.
  EXPECT_EQ(s.ProfiloVero(1).prof, 4);
}

TEST(LostFixes, KeepPlaceInTheProfileAndGiveNoGeometry) {
  Fixture f({{0, 0}, {300000, 5e6, 2}, {0, 0}, {300007, 5e6, 3}, {0, 0}});
  f.survey.Misure(3).Scartata = true;
  f.request.echoSounder = true;
  f.request.position = TruePosition::BehindBoat;
  Section s = f.extract();
  EXPECT_EQ(s.points, 4) << "left out: one; without position but not left out: its readings are written";
  EXPECT_EQ(s.Profilo(1).est, 300000) << "before the first kept point: that one";
  EXPECT_EQ(s.Profilo(3).prof, 2) << "else the kept one before";
  EXPECT_EQ(s.Profilo(5).distanza, 7);
  EXPECT_EQ(s.ProfiloVero(3).est, s.ProfiloVero(2).est);
  EXPECT_EQ(s.RecordOut(1).est, 0) << "no position is written where there is none";
  EXPECT_EQ(f.trueX(2), 300000 - 2.5) << "eastward, though the extremes have no position";
  EXPECT_EQ(s.RecordOut(21).x[0], 60) << "third point: D = 7 from the first kept one";
}

TEST(LostFixes, AllOverGiveNoRecords) {
  Fixture f({{0, 0}, {0, 0}});
  EXPECT_EQ(f.extract().NqpBin(), 0);
  EXPECT_TRUE(f.findings.anyFault());
}

TEST(ZeroSpacing, LeavesPlacesZeroAndSaysSo) {
  Fixture f({{300000, 5e6}, {300010, 5e6}});
  f.survey.cavo.PosCavo[13] = 55;
  f.request.OffsetCavo = 3;
  Section s = f.extract();
  EXPECT_EQ(s.NqpBin(), 20);
  EXPECT_EQ(s.RecordOut(1).x[0], 0);
  EXPECT_EQ(s.RecordOut(1).resistivity, 0.25F);
  EXPECT_TRUE(f.findings.anyFault());
}

}  // namespace
}  // namespace corvan

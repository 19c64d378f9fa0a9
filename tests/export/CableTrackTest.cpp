// Sections whose cable follows the sailed track: places, depths and distances by hand, and what is told of them.
#include <gtest/gtest.h>

#include <string>

#include "export/CablePlaces.h"
#include "export/Section.h"
#include "support/SurveyFiles.h"
#include "support/Surveys.h"

namespace corvan {
namespace {

using test::Firing;

constexpr std::size_t C1 = 12, C2 = 13;

/// Cable C2 60 (its head), C1 55, E1 50 ... E11 0: 0, 5, 10 ... 60 m behind the head.
struct Fixture {
  Findings findings;
  Survey survey;
  SectionRequest request;

  explicit Fixture(const std::vector<Firing>& firings, double smoothing = 0) : survey(test::Measurements(firings)) {
    request.E2 = survey.NumMisure();
    request.shape = CableShape::AlongTrack;
    request.smoothing = smoothing;
  }
  Section extract() { return EstraiSezione(survey, request, findings); }
  bool says(const std::string& words) const { return test::Told(findings).find(words) != std::string::npos; }
};

/// 100 m to the east, 20 m to the north, 100 m back to the west, a firing every 10 m: measurement k at 10 (k - 1) m,
/// with k metres of water.
std::vector<Firing> UTurn() {
  std::vector<Firing> firings;
  for (int s = 0; s <= 220; s += 10) {
    const double est = s <= 100 ? s : s <= 120 ? 100 : 220 - s;
    const double nord = s <= 100 ? 0 : s <= 120 ? s - 100 : 20;
    firings.push_back({300000 + est, 5e6 + nord, 1, static_cast<float>(s) / 10.0F + 1.0F});
  }
  return firings;
}

// The boat is 50 m up the second leg: electrodes trail along it, across the turn and down the first.
TEST(UTurn, HasElectrodesOnBothLegs) {
  Fixture f(UTurn());
  f.request.OffsetCavo = 5;
  f.request.OffsetEco = 10;
  f.request.E1 = 3;  // at 20 m
  const Section s = f.extract();
  const SectionPoint& point = s.RecordOut.points()(16);
  ASSERT_EQ(point.misura, 18) << "at 170 m";
  const CablePlaces places(s);
  const ElectrodePlaces all = places(point);
  const struct {
    std::size_t electrode;
    double est, nord, x, depth;  ///< sounded 10 m behind the antenna: depth is (path length + 10) / 10 + 1
  } cases[] = {{C2, 55, 20, 145, 18.5}, {C1, 60, 20, 140, 18}, {1, 65, 20, 135, 17.5}, {8, 100, 20, 100, 14},
               {9, 100, 15, 95, 13.5},  {10, 100, 10, 90, 13}, {11, 100, 5, 85, 12.5}};
  for (const auto& c : cases) {
    const ElectrodePlace& place = all.at(c.electrode);
    EXPECT_NEAR(place.est, 300000 + c.est, 1e-6) << c.electrode;
    EXPECT_NEAR(place.nord, 5e6 + c.nord, 1e-6) << c.electrode;
    EXPECT_NEAR(place.x, c.x, 1e-6) << c.electrode;
    EXPECT_NEAR(place.prof, c.depth, 1e-6) << c.electrode;
  }
  // 20 m earlier the tail is still on the first leg, where measurement 10 was.
  const ElectrodePlaces earlier = places(s.RecordOut.points()(14));
  EXPECT_NEAR(earlier.at(11).est, 300000 + 85, 1e-6);
  EXPECT_NEAR(earlier.at(11).nord, 5e6, 1e-6);
  // The echo sounder saw 18 m where it was: 10 m behind the antenna.
  const ElectrodePlace bottom = places.fondo(18);
  EXPECT_NEAR(bottom.est, 300060, 1e-6);
  EXPECT_NEAR(bottom.x, 140, 1e-6);
  EXPECT_EQ(bottom.prof, 18);
}

TEST(Records, HoldPathLengthsDepthsAndTheDipolesPlace) {
  Fixture f(UTurn());
  f.request.echoSounder = true;
  f.request.OffsetCavo = 0.5;
  f.request.E1 = 3;
  const Section s = f.extract();
  const Quadrupole first = s.RecordOut(4), later = s.RecordOut(156);  // channel 4 of measurement 3, 6 of 18
  EXPECT_EQ(first.x, (std::array<float, 4>{-5.5F, -0.5F, -25.5F, -30.5F})) << "A, B, E4, E5 behind the first extreme";
  EXPECT_EQ(later.x, (std::array<float, 4>{144.5F, 149.5F, 114.5F, 109.5F}));
  EXPECT_EQ(later.z, (std::array<float, 4>{17.45F, 17.95F, 14.45F, 13.95F}));
  EXPECT_EQ(first.z, (std::array<float, 4>{2.45F, 2.95F, 1, 1})) << "before the first sounding: that one";
  // The dipole's middle is 3 m behind the antenna, asked for or not.
  for (const TruePosition position : {TruePosition::AsStored, TruePosition::BehindBoat}) {
    f.request.position = position;
    const Section again = f.extract();
    EXPECT_NEAR(f.survey.Misure(12).Deriv[3], 300100, 1e-9);
    EXPECT_NEAR(f.survey.Misure(12).Deriv[4], 5000007, 1e-9) << "round the corner at 100 m";
    EXPECT_EQ(again.RecordOut(1).est, 300017);
    const ProfilePoint& vero = again.ProfiloVero(18);
    EXPECT_NEAR(vero.est, 300053, 1e-9);
    EXPECT_NEAR(vero.distanza, 147, 1e-9) << "on the axis of x";
    EXPECT_NEAR(vero.prof, 17.7, 1e-6);
    EXPECT_TRUE(again.Profilo(18).est == 300050 && again.Profilo(18).distanza == 150 && again.Profilo(18).prof == 18);
  }
  f.request.position = TruePosition::ExternalGps;
  const Section external = f.extract();
  EXPECT_EQ(external.ProfiloVero(18).est, 300050) << "true as it stands";
  EXPECT_EQ(external.ProfiloVero(18).prof, 18);
  EXPECT_EQ(external.ProfiloVero(18).distanza, 150);
  f.request.echoSounder = false;
  EXPECT_EQ(f.extract().RecordOut(156).z, (std::array<float, 4>{})) << "no depths unless asked";
}

// 40 m to the north, then 80 m at 3-4-5 to the east of it, smoothed over 8 m: the corner lies 2 of 8 m of either leg
// inside, and the path is as much shorter.
TEST(Records, AreSmoothedOverTheWindow) {
  const std::vector<Firing> bend{{300000, 5e6}, {300000, 5000040}, {300048, 5000104}};
  Fixture f(bend, 8);
  Section s = f.extract();
  // Mean of (0, -2) and (1.2, 1.6) about the corner: (0.6, -0.2); legs |(0.6, 39.8)| and |(47.4, 64.2)|.
  const double second = 39.80452236 + 79.80225561;
  EXPECT_NEAR(s.Profilo(3).distanza, second, 1e-7);
  EXPECT_EQ(s.Profilo(2).est, 300000) << "stored positions stay";
  EXPECT_NEAR(s.RecordOut.points()(3).x[C2], second, 1e-5);
  Fixture usual(bend);
  usual.request.smoothing = std::nullopt;  // one spacing, 5 m: (0.375, -0.125) inside
  EXPECT_NEAR(usual.extract().Profilo(2).distanza, 39.87676, 1e-5);
}

// The boat sails 100 m to the east and 100 m to the north, a fix every 10 m; the cable of 60 m begins 5 m behind it.
// Places along the section are multiples of 5 m, 5 m on: 50 m up the second leg, 111.803 m from the start, C2 has x =
// 34 x 5 + 5 and is 111.803 - (175 - 60 - 10) = 6.803 m behind, E11 66.803 m. Of the fixes before, (50, 0) is the first
// 65 m away.
TEST(StraightCables, TrailBehindTheirOwnBoatOnTheMap) {
  std::vector<Firing> firings;
  for (int k = 0; k <= 20; ++k) firings.push_back({300000.0 + 10 * std::min(k, 10), 5e6 + 10 * std::max(k - 10, 0)});
  Fixture f(firings);
  f.request.shape = CableShape::Straight;
  f.request.OffsetCavo = 5;
  const Section s = f.extract();
  const CablePlaces places(s);
  const ElectrodePlaces turned = places(s.RecordOut.points()(16));
  EXPECT_EQ(turned.at(C2).x, 175);
  EXPECT_NEAR(turned.at(C2).est, 300100 - 6.8034 * 0.7071068, 1e-3);
  EXPECT_NEAR(turned.at(C2).nord, 5e6 + 50 - 6.8034 * 0.7071068, 1e-3);
  EXPECT_NEAR(turned.at(11).est, 300100 - 66.8034 * 0.7071068, 1e-3);
  EXPECT_NEAR(turned.at(11).nord, 5e6 + 50 - 66.8034 * 0.7071068, 1e-3);
  const ElectrodePlaces start = places(s.RecordOut.points()(1));
  EXPECT_NEAR(start.at(11).est, 300000 - 65, 1e-6) << "against the course that follows";
  EXPECT_NEAR(start.at(11).nord, 5e6, 1e-6);
}

// Files a and b of one line each, b sailed to the north from where a ends, 200 m on.
TEST(Files, HaveTheirOwnPaths) {
  Fixture f({{300000, 5e6, 1}, {300100, 5e6, 1}, {300300, 5e6, 2}, {300300, 5000100, 2}});
  const Section s = f.extract();
  const CablePlaces places(s);
  const ElectrodePlaces start = places(s.RecordOut.points()(3));
  EXPECT_NEAR(start.at(11).est, 300300, 1e-6) << "not back across the 200 m between the files";
  EXPECT_NEAR(start.at(11).nord, 5e6 - 60, 1e-6) << "the first course prolonged";
  EXPECT_EQ(start.at(11).x, 300 - 60);
  EXPECT_TRUE(f.says("paths of 2 files"));
  // Measurement 1: 12 electrodes behind the start, measurement 3 likewise; C2 lies on it.
  EXPECT_TRUE(f.says("24 of 52 electrode places lie up to 60 m before the first position"));
}

TEST(Findings, TellWhatOfThePathIsGuessed) {
  const struct {
    const char* name;
    std::vector<Firing> firings;
    const char* said;
    bool fault;
  } cases[] = {
      {"one position", {{300000, 5e6}}, "1 measurement lies on a line whose positions are all one place", true},
      {"a boat that stood still",
       {{300000, 5e6, 1}, {300090, 5e6, 1}, {300200, 5e6, 2}, {300200, 5e6, 2}},
       "2 measurements lie on a line whose positions are all one place: nothing tells where its cable lay, it is put "
       "to "
       "the west, as if the boat had sailed east, the first is measurement 3",
       true},
      {"a hole",
       {{300000, 5e6}, {300010, 5e6}, {0, 0}, {0, 0}, {300040, 5e6}, {0, 0}, {300050, 5e6}},
       "goes straight over 3 measurements without position or left out; the longest step is 30 m, behind measurement 2",
       true},
      {"a long step",
       {{300000, 5e6}, {300010, 5e6}, {300090, 5e6}, {300155, 5e6}, {300160, 5e6}},
       "goes straight over 2 steps longer than the cable (60 m); the longest is 80 m, behind measurement 2",
       false}};
  for (const auto& c : cases) {
    Fixture f(c.firings);
    f.extract();
    EXPECT_TRUE(f.says(c.said)) << c.name << ": " << test::Told(f.findings);
    EXPECT_EQ(f.findings.anyFault(), c.fault) << c.name;
    EXPECT_EQ(f.says("electrode places"), c.firings.size() > 1) << c.name << ": without a course none is prolonged";
  }
  Fixture ahead({{300000, 5e6}, {300100, 5e6}});
  ahead.request.OffsetCavo = -70;
  ahead.request.E1 = 2;
  ahead.extract();
  EXPECT_TRUE(ahead.says("13 of 13 electrode places lie up to 70 m beyond the last position"));
}

// What lies far before the section, or behind it, is none of its business.
TEST(Findings, LeaveOutHolesThatNoCableOfTheSectionLiesOver) {
  const std::vector<Firing> holes{{300000, 5e6}, {0, 0},        {300100, 5e6}, {300150, 5e6},
                                  {300200, 5e6}, {300250, 5e6}, {0, 0},        {300300, 5e6}};
  const struct {
    std::int32_t E1, E2;
    bool told;
  } cases[] = {{5, 6, false}, {4, 6, true}, {5, 8, true}};
  for (const auto& c : cases) {
    Fixture f(holes);
    f.request.E1 = c.E1;
    f.request.E2 = c.E2;
    f.extract();
    EXPECT_EQ(f.says("over 1 measurement without"), c.told) << c.E1;
  }
}

// A square corner, 100 m and 100 m: the straight cable of its last firing lies on the diagonal behind the boat, 60 m
// back along it at (57.6, 57.6), that on the track on the second leg at (100, 40).
TEST(Difference, IsToldInEitherShape) {
  const std::vector<Firing> corner{{300000, 5e6}, {300050, 5e6}, {300100, 5e6}, {300100, 5000050}, {300100, 5000100}};
  for (const CableShape shape : {CableShape::Straight, CableShape::AlongTrack}) {
    Fixture f(corner);
    f.request.shape = shape;
    f.request.E1 = 5;
    f.extract();
    // One firing has no direction of its own: the straight cable lies to the west of (100, 100), that on the track to
    // the south: 60 m and 60 m apart at the tail.
    EXPECT_TRUE(f.says("up to 84.9 m from the straight one, most of all at E11 of measurement 5"))
        << test::Told(f.findings);
    f.findings = {};
    f.request.E1 = 1;
    f.extract();
    // Measurement 3, 100 m along both: (100, 0) and (70.7, 70.7) at its head.
    EXPECT_TRUE(f.says("up to 76.5 m from the straight one, most of all at C2 of measurement 3"))
        << test::Told(f.findings);
    EXPECT_FALSE(f.findings.anyFault());
    f.findings = {};
    f.request.E2 = 3;
    f.extract();
    EXPECT_FALSE(f.says("straight one")) << "one leg is straight, wherever its firings lie on the electrode grid";
  }
}

TEST(Difference, IsToldFromHalfASpacingOn) {
  const struct {
    double north;  ///< of the middle one of three firings 100 m apart, m
    bool told;
  } cases[] = {{2.4, false}, {2.6, true}, {-2.6, true}};
  for (const auto& c : cases) {
    Fixture f({{300000, 5e6}, {300100, 5e6 + c.north}, {300200, 5e6}});
    f.extract();
    EXPECT_EQ(f.says("from the straight one"), c.told) << c.north;
  }
}

}  // namespace
}  // namespace corvan

// Places of readings under the towed cable, against published tables and depths that Python found by scanning.
#include "track/PseudoDepth.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "support/Surveys.h"

namespace corvan::test {
namespace {

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();

struct DepthCase {
  const char* array;
  double A, B, M, N, depth, within;
};

// Depths of the first six arrays are Edwards' table, three decimals of a; the rest is a scan by 1 mm with bisection.
TEST(MedianDepth, IsThatOfPublishedArrays) {
  for (const DepthCase& c : {
           DepthCase{"Wenner", 0, 3, 1, 2, 0.519, 5e-4},
           DepthCase{"Wenner, a = 10, moved and turned round", -70, -100, -80, -90, 5.19, 5e-3},
           DepthCase{"dipole-dipole 1", 1, 0, 2, 3, 0.416, 5e-4},
           DepthCase{"dipole-dipole 2", 1, 0, 3, 4, 0.697, 5e-4},
           DepthCase{"dipole-dipole 3", 1, 0, 4, 5, 0.962, 5e-4},
           DepthCase{"dipole-dipole 4", 1, 0, 5, 6, 1.220, 5e-4},
           DepthCase{"dipole-dipole 5", 1, 0, 6, 7, 1.476, 5e-4},
           DepthCase{"dipole-dipole 6", 1, 0, 7, 8, 1.730, 5e-4},
           DepthCase{"dipole-dipole 6, currents exchanged", 0, 1, 7, 8, 1.730, 5e-4},
           DepthCase{"Wenner in 16 digits", 0, 3, 1, 2, 0.5190229535391496, 1e-12},
       }) {
    const auto depth = ProfonditaMediana(c.A, c.B, c.M, c.N);
    ASSERT_TRUE(depth) << c.array;
    EXPECT_NEAR(*depth, c.depth, c.within) << c.array;
  }
}

TEST(MedianDepth, IsNoneWhereThereIsNoSignal) {
  EXPECT_FALSE(ProfonditaMediana(0, 10, 10, 20)) << "B on M";
  EXPECT_FALSE(ProfonditaMediana(0, 10, 20, 20)) << "M on N: the sum cancels";
  EXPECT_FALSE(ProfonditaMediana(5, 5, 10, 20)) << "A on B";
  EXPECT_FALSE(ProfonditaMediana(0, 0, 0, 0)) << "no cable";
  EXPECT_FALSE(ProfonditaMediana(0, 10, 5, Nan));
  EXPECT_FALSE(ProfonditaMediana(HUGE_VAL, 10, 5, 6));
  EXPECT_FALSE(ProfonditaMediana(0, 10, 5, 5.0 + 1e-12)) << "cancels but for roundings";
}

// The cable of these surveys: C1 55, C2 60, E1 50, E2 45 ... E11 0; its head is C2.
TEST(Places, AreMidwayBetweenTheDipoles) {
  const Survey survey = Measurements({{300000, 5000000}});
  const ReadingPlaces plain = CollocaLetture(survey.cavo, 0);
  for (const auto& [channel, behind, depth] :
       {std::tuple(1, 7.5, 2.079716), {2, 10.0, 3.486114}, {5, 17.5, 7.379353}, {10, 30.0, 13.697825}}) {
    const ReadingPlace& place = plain.at(static_cast<std::size_t>(channel));
    EXPECT_NEAR(place.dietro.value(), behind, 1e-9) << channel;
    EXPECT_NEAR(place.profondita.value(), depth, 1e-6) << channel;
  }
  EXPECT_NEAR(CollocaLetture(survey.cavo, 12.5)[4].dietro.value(), 27.5, 1e-9) << "the cable's offset adds to it";
}

// E4 moved from 35 to 33 m: channels 3 (E3 40, E4) and 4 (E4, E5 30) move back by a quarter of 2 m, no other moves.
// Depths by the same scan for M, N at 40, 33 and 33, 30.
TEST(Places, FollowOneElectrode) {
  const Survey survey = Measurements({{300000, 5000000}});
  Cable moved = survey.cavo;
  moved.PosCavo[4] = 33;
  const ReadingPlaces before = CollocaLetture(survey.cavo, 0), after = CollocaLetture(moved, 0);
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const bool touched = c == 3 || c == 4;
    EXPECT_NEAR(*after.at(c).dietro - *before.at(c).dietro, touched ? 0.5 : 0.0, 1e-9) << c;
    EXPECT_EQ(*after.at(c).profondita == *before.at(c).profondita, !touched) << c;
  }
  EXPECT_NEAR(after[3].profondita.value(), 4.976332, 1e-6);
  EXPECT_NEAR(after[4].profondita.value(), 6.406488, 1e-6);
}

TEST(Places, OfABrokenCableAreNone) {
  Survey survey = Measurements({{300000, 5000000}});
  auto& p = survey.cavo.PosCavo;
  p[4] = std::numeric_limits<float>::infinity();  // channels 3 and 4 have neither place nor depth
  p[9] = p[8];                                    // channel 8 has a place
  const ReadingPlaces places = CollocaLetture(survey.cavo, 0);
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    EXPECT_EQ(places.at(c).dietro.has_value(), c != 3 && c != 4) << c;
    EXPECT_EQ(places.at(c).profondita.has_value(), c != 3 && c != 4 && c != 8) << c;
  }
  EXPECT_NEAR(places[1].dietro.value(), 7.5, 1e-9) << "the head is the largest of the others";
}

// C at the tail: C1 5, C2 0, E1 10 ... E11 60. The head is E11; near channels lie far behind.
TEST(Places, OfAReversedCableCountFromItsHead) {
  Survey survey = Measurements({{300000, 5000000}});
  for (std::size_t k = 1; k <= PotentialElectrodes; ++k)
    survey.cavo.PosCavo.at(k) = 5.0F + 5.0F * static_cast<float>(k);
  survey.cavo.PosCavo[12] = 5;
  survey.cavo.PosCavo[13] = 0;
  const ReadingPlaces places = CollocaLetture(survey.cavo, 0);
  EXPECT_NEAR(places[1].dietro.value(), 60 - 7.5, 1e-9);
  EXPECT_NEAR(places[10].dietro.value(), 60 - 30.0, 1e-9);
  EXPECT_NEAR(places[1].profondita.value(), 2.079716, 1e-6) << "the depth is that of the same distances";
}

}  // namespace
}  // namespace corvan::test

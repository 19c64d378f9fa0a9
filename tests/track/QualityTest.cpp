// Which readings are taken as bad, and what is told of them.
#include "track/Quality.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/SurveyFiles.h"
#include "support/Surveys.h"

namespace corvan {
namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

ReadingSet Bits(const std::vector<std::size_t>& channels) {
  ReadingSet set = 0;
  for (const std::size_t c : channels) set = static_cast<ReadingSet>(set | BitDi(c));
  return set;
}

/// One firing with -300.5 mA, potentials of -(c + 0.5) mV in odd and c + 0.5 in even channels, resistivities of 10 c
/// (channel 4: -40, channel 9: none) and deviations of c / 2 %.
Survey OneFiring() {
  Survey survey = test::Measurements({{500000, 5030000}});
  Misura& m = survey.Misure(1);
  m.Val180 = -300;
  m.Val184 = 301;
  m.ConQualita = true;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const auto k = static_cast<float>(c);
    const float sign = c % 2 == 1 ? -1.0F : 1.0F;
    m.CanaleA.at(c) = sign * k;
    m.CanaleB.at(c) = -sign * (k + 1.0F);
    m.Rho.at(c) = c == 4 ? -40.0F : 10.0F * k;
    m.Deviazione.at(c) = k / 2.0F;
  }
  m.letture = static_cast<ReadingSet>(AllReadings & ~BitDi(9));
  return survey;
}

struct LimitCase {
  const char* name;
  void (*set)(QualityLimits& limits);
  Limit limit;
  std::vector<std::size_t> bad;
};

class Limits : public ::testing::TestWithParam<LimitCase> {};

// A value equal to its limit is good; currents and potentials count without their signs; a reading that does not exist
// is neither good nor bad.
TEST_P(Limits, FindTheReadingsBeyondThem) {
  const Survey survey = OneFiring();
  QualityLimits limits;
  GetParam().set(limits);
  QualityResult found;
  const std::vector<ReadingSet> bad = Giudica(survey, limits, found);
  ASSERT_EQ(bad.size(), 1U);
  EXPECT_EQ(bad.front(), Bits(GetParam().bad));
  EXPECT_EQ(found(GetParam().limit), GetParam().bad.size());
  EXPECT_EQ(found.letture, 9U);
}

INSTANTIATE_TEST_SUITE_P(
    EachAlone, Limits,
    ::testing::Values(
        LimitCase{"CurrentHeld", [](QualityLimits& l) { l.corrente = 300.5; }, Limit::Current, {}},
        LimitCase{
            "Current", [](QualityLimits& l) { l.corrente = 300.6; }, Limit::Current, {1, 2, 3, 4, 5, 6, 7, 8, 10}},
        LimitCase{"Potential", [](QualityLimits& l) { l.potenziale = 3.5; }, Limit::Potential, {1, 2}},
        LimitCase{"Deviation", [](QualityLimits& l) { l.deviazione = 3; }, Limit::Deviation, {7, 8, 10}},
        LimitCase{"Range", [](QualityLimits& l) { l.rhoMin = 20, l.rhoMax = 70; }, Limit::Range, {1, 4, 8, 10}},
        LimitCase{"LowerBound", [](QualityLimits& l) { l.rhoMin = 20.5; }, Limit::Range, {1, 2, 4}},
        LimitCase{"UpperBound", [](QualityLimits& l) { l.rhoMax = 69; }, Limit::Range, {7, 8, 10}},
        LimitCase{"Negative", [](QualityLimits& l) { l.negative = true; }, Limit::Negative, {4}}),
    [](const auto& info) { return info.param.name; });

TEST(QualityOfReadings, WithoutADeviationIsNotTestedForIt) {
  Survey survey = test::Measurements({{500000, 5030000}, {500010, 5030000}});
  survey.Misure(2).ConQualita = true;
  survey.Misure(2).Deviazione.fill(9);
  survey.Misure(2).Deviazione.at(6) = NaN;  // a number that is none holds no limit
  survey.Misure(2).Deviazione.at(7) = 0;
  QualityLimits limits;
  limits.deviazione = 9;
  QualityResult found;
  EXPECT_EQ(Giudica(survey, limits, found), (std::vector<ReadingSet>{0, Bits({6})}));
  EXPECT_EQ(found.senzaDeviazione, 10U);
}

struct SpikeCase {
  const char* name;
  std::vector<float> rho;  ///< of channel 2, measurement by measurement
  Despike rule;
  std::vector<std::size_t> spikes;  ///< measurements, from 1
  std::size_t untested;
  std::int16_t secondFile = 99;  ///< the measurement from which on the file is another one
};

class Spikes : public ::testing::TestWithParam<SpikeCase> {};

TEST_P(Spikes, StandApartFromTheirNeighbourhood) {
  const SpikeCase& c = GetParam();
  std::vector<test::Firing> firings;
  for (std::size_t i = 1; i <= c.rho.size(); ++i) {
    const auto number = static_cast<std::int16_t>(i);
    firings.push_back({500000.0 + 10.0 * number, 5030000, static_cast<std::int16_t>(number >= c.secondFile ? 2 : 1)});
  }
  Survey survey = test::Measurements(firings);
  for (std::size_t i = 1; i <= c.rho.size(); ++i) {
    survey.Misure(i).Rho.at(2) = c.rho[i - 1];
    survey.Misure(i).letture = Bits({2});
  }
  QualityLimits limits;
  limits.picchi = c.rule;
  limits.rhoMax = 5000;
  QualityResult found;
  const std::vector<ReadingSet> bad = Giudica(survey, limits, found);
  std::vector<std::size_t> spikes;
  for (std::size_t i = 1; i <= bad.size(); ++i) {
    if (bad[i - 1] != 0 && c.rho[i - 1] <= 5000.0F) spikes.push_back(i);
  }
  EXPECT_EQ(spikes, c.spikes);
  EXPECT_EQ(found(Limit::Despike), c.spikes.size());
  EXPECT_EQ(found.senzaVicini, c.untested);
}

// Of 10, 12, 1000, 11, 10 the median is 11, the deviations of the logarithms are 0.0953, 0.0870, 4.5099, 0 and 0.0953:
// their median 0.0953, and 4.5099 / 0.0953 = 47.3.
const std::vector<float> OneSpike{10, 11, 10, 12, 1000, 11, 10};

INSTANTIATE_TEST_SUITE_P(
    OneChannel, Spikes,
    ::testing::Values(
        SpikeCase{"Found", OneSpike, {4, 5}, {5}, 0}, SpikeCase{"UpToItsFactor", OneSpike, {47.2, 5}, {5}, 0},
        SpikeCase{"NotBeyondIt", OneSpike, {47.4, 5}, {}, 0},
        // Two neighbours hide each other in a narrow window.
        SpikeCase{"TwoInANarrowWindow", {10, 10.5F, 11, 500, 520, 11, 10.5F, 10}, {4, 3}, {}, 0},
        SpikeCase{"TwoInAWideWindow", {10, 10.5F, 11, 500, 520, 11, 10.5F, 10}, {4, 7}, {4, 5}, 0},
        SpikeCase{"LowOnes", {10, 11, 10, 0.1F, 12, 11, 10}, {4, 5}, {4}, 0},
        // The last digit of equal readings is none: a thousandth of the logarithm is the least deviation.
        SpikeCase{"LastDigit", {10, 10, 10.03F, 10, 10}, {4, 5}, {}, 0},
        SpikeCase{"BeyondTheLastDigit", {10, 10, 10.05F, 10, 10}, {4, 5}, {3}, 0},
        // Of four the median is the mean of the two in the middle: 30 lies 54.5 deviations away; by the upper one 27.
        SpikeCase{"AmongAnEvenNumber", {10, 10.2F, 10.4F, 30}, {40, 7}, {4}, 0},
        // No logarithm, no neighbourhood.
        SpikeCase{"Untested", {10, -10, 0, NaN, 11}, {4, 3}, {}, 4},
        // What another limit excludes is no neighbour: without it 1000 would be as usual as 10.
        SpikeCase{"AmongTheGood", {10, 9000, 9100, 1000, 10, 9200, 11}, {4, 7}, {4}, 3},
        SpikeCase{"LineByLine", {10, 10.5F, 11, 1000, 1010, 1005}, {4, 5}, {}, 0, 4},
        SpikeCase{"AloneInItsLine", {10, 10.5F, 11, 1000}, {4, 5}, {}, 1, 4}),
    [](const auto& info) { return info.param.name; });

TEST(QualityOfReadings, AHandDecidesWhateverTheLimitsSay) {
  Survey survey = OneFiring();
  QualityLimits& limits = survey.qualita.limiti;
  limits.rhoMin = 25;
  survey.qualita.aMano = {{{1, 2}, false}, {{1, 10}, true}, {{1, 9}, true}, {{7, 1}, true}};
  QualityResult found;
  Escludi(survey, Giudica(survey, limits, found), found);
  EXPECT_EQ(survey.Misure(1).escluse, Bits({1, 4, 10}));
  EXPECT_EQ(found.escluse, 3U);
  EXPECT_EQ(found.esclusaAMano, 1U);  // channel 9 and measurement 7 have no reading
  EXPECT_EQ(found.inclusaAMano, 1U);
  EXPECT_EQ(survey.qualita.escluse, 3U);
  EXPECT_EQ(survey.traccia.RhoMin, 20.0F);
  EXPECT_EQ(survey.traccia.RhoMax, 80.0F);
  Findings told;
  RilevaQualita(survey, found, told);
  EXPECT_EQ(test::Told(told), "-3 of 9 readings are excluded: 3 under 25 ohm m, 1 excluded by hand, 1 taken by hand\n");
}

TEST(QualityOfReadings, ThatAreAllBadAreAFault) {
  Survey survey = OneFiring();
  survey.Misure(1).ConQualita = false;
  QualityLimits& limits = survey.qualita.limiti;
  limits.corrente = 5000;
  limits.potenziale = 2;
  limits.deviazione = 0.25;
  limits.rhoMin = -5, limits.rhoMax = 0.5;
  limits.negative = true;
  limits.picchi = Despike{};
  QualityResult found;
  Escludi(survey, Giudica(survey, limits, found), found);
  EXPECT_EQ(survey.traccia.RhoMin, 0.0F);
  EXPECT_EQ(survey.traccia.RhoMax, 0.0F);
  Findings told;
  RilevaQualita(survey, found, told);
  EXPECT_EQ(test::Told(told),
            "!every reading is excluded, nothing is left to show: 9 of 9 readings are excluded: 9 with a current under "
            "5000 mA, 1 with a potential under 2 mV, 9 outside -5 to 0.5 ohm m, 1 with a negative resistivity\n"
            "-9 of 9 readings are not tested for deviation: their files hold none\n");
}

}  // namespace
}  // namespace corvan

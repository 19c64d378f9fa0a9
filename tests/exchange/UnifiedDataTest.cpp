// Unified data files: every column, what is left out, and a half-space that must come back whole.
#include "exchange/UnifiedData.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "Sections.h"

namespace corvan {
namespace {

using test::Cut;
using test::Decimal;
using test::Words;

constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

std::string Ohm(Cut& cut, ErtDimension dimension = ErtDimension::Two) {
  const Section section = cut.section();
  return test::WrittenBy(
      [&](FileWriter& out) { SalvaDatiUnificati(out, cut.survey, section, dimension, cut.findings); });
}

/// Two firings 7 m apart in two files: channels 1 to 3 of the first, of which 2 is excluded, and 10 of the second.
Cut TwoFirings() {
  Cut cut({{300000, 5e6, 1}, {300007, 5e6, 2}});
  cut.channels(1, {1, 2, 3});
  cut.m(1).escluse = BitDi(2);
  cut.channels(2, {10});
  cut.current(1, 500);
  cut.current(2, -250);
  cut.reading(1, 1, 4, 1.25F);
  cut.reading(1, 2, 77, 78);
  cut.reading(1, 3, 6.5F, -1.75F);
  cut.reading(2, 10, 12, 0.0625F);
  cut.quality(1, 1, 3.25F, 2.5F);
  cut.quality(1, 2, 99, 0.01F);  // excluded: not the smallest of those that are written
  cut.quality(1, 3, -4.5F, 0);
  cut.quality(2, 10, 12, 1.5F);
  return cut;
}

// By hand: electrode places Fix((p - 60 + D + 60) / 5) 5 with D = 0 and 7; r = V / I; err = deviation / 100.
TEST(UnifiedData, HoldsElectrodesOfEachFiringAndReadingsBetweenThem) {
  Cut cut = TwoFirings();
  EXPECT_EQ(Ohm(cut),
            "10# electrodes of a floating cable, x along the section (m), z at the water's surface\n"
            "# x z\n"
            "50.0 0.0\n45.0 0.0\n40.0 0.0\n35.0 0.0\n55.0 0.0\n60.0 0.0\n"
            "10.0 0.0\n5.0 0.0\n60.0 0.0\n65.0 0.0\n"
            "3# readings, r (ohm), rhoa (ohm m), u (V), i (A), err (share), ip (mV/V)\n"
            "# a b m n r rhoa u i err ip\n"
            "5 6 1 2 0.008 1.25 0.004 0.5 0.025 3.25\n"
            "5 6 3 4 0.013 -1.75 0.0065 0.5 0.015 -4.5\n"
            "9 10 7 8 -0.048 0.0625 0.012 -0.25 0.015 12.0\n");
  EXPECT_EQ(test::Told(cut.findings),
            "-1 of 4 readings is left out: 1 excluded\n"
            "-1 reading has a deviation of 0 or none that is a number: the smallest of the others, 1.5 %, is written "
            "instead\n");
}

// The cable lies behind the boat on the line from the first point to the last: electrode p is 60 - p behind.
TEST(UnifiedData, InThreeDimensionsStandsOnTheMap) {
  Cut cut({{300000, 5e6}, {300030, 5000040}});
  cut.channels(1, {1});
  cut.channels(2, {4});
  const std::vector<std::string> lines = test::Lines(Ohm(cut, ErtDimension::Three));
  ASSERT_EQ(lines.size(), 14U);
  EXPECT_EQ(lines[1], "# x y z");
  const double behind[] = {10, 15, 5, 0, 25, 30, 5, 0};
  for (std::size_t e = 0; e < 8; ++e) {
    const std::vector<std::string> words = Words(lines[2 + e]);
    const double along = (e < 4 ? 0 : 50) - behind[e];
    ASSERT_EQ(words.size(), 3U);
    EXPECT_NEAR(Decimal(words[0]), 300000 + 0.6 * along, 1e-6) << e;
    EXPECT_NEAR(Decimal(words[1]), 5e6 + 0.8 * along, 1e-6) << e;
    EXPECT_EQ(words[2], "0.0");
  }
  EXPECT_EQ(lines[11], "# a b m n r rhoa u i") << "no quality: no columns of it";
  EXPECT_EQ(lines[13].substr(0, 8), "7 8 5 6 ");
}

struct QualityCase {
  const char* name;
  void (*change)(Cut&);
  const char* columns;
  const char* told;
};
void PrintTo(const QualityCase& c, std::ostream* out) { *out << c.name; }
class QualityColumns : public testing::TestWithParam<QualityCase> {};

TEST_P(QualityColumns, StandWhereAllReadingsHaveTheirValue) {
  Cut cut({{300000, 5e6}, {300010, 5e6}});
  for (const std::size_t n : {1U, 2U}) {
    cut.channels(n, {5});
    cut.quality(n, 5, 7, 2);
  }
  GetParam().change(cut);
  EXPECT_EQ(test::Lines(Ohm(cut)).at(11), std::string("# a b m n r rhoa u i") + GetParam().columns);
  EXPECT_EQ(test::Told(cut.findings), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Of, QualityColumns,
    testing::Values(
        QualityCase{"All", [](Cut&) {}, " err ip", ""},
        QualityCase{"OneFiringWithout", [](Cut& c) { c.m(2).ConQualita = false; }, "",
                    "-1 of 2 measurements holds no deviation and chargeability: the columns err and ip are left out\n"},
        QualityCase{"NoDeviation", [](Cut& c) { c.quality(1, 5, 7, 0), c.quality(2, 5, 7, NotANumber); }, " ip",
                    "-none of 2 readings has a deviation over 0: the column err is left out\n"},
        QualityCase{"ChargeabilityNotFinite", [](Cut& c) { c.quality(2, 5, NotANumber, 2); }, " err",
                    "-1 chargeability is not finite: the column ip is left out\n"}),
    [](const auto& info) { return std::string(info.param.name); });

// Channel c of firing n is the one reading in danger, the other firing keeps the file alive.
TEST(UnifiedData, LeavesOutWhatAToolkitCannotUseAndTells) {
  const struct {
    const char* name;
    void (*change)(Cut&);
    const char* told;
    int lines = 9;  ///< two counts, two headers, four electrodes and the reading of the other firing
  } cases[] = {
      {"current", [](Cut& c) { c.current(2, 0); }, "-1 of 2 readings is left out: 1 without a current\n"},
      {"resistivity", [](Cut& c) { c.reading(2, 4, 1, NotANumber); }, "-1 of 2 readings is left out: 1 not finite\n"},
      {"current not finite", [](Cut& c) { c.current(2, NotANumber); }, "-1 of 2 readings is left out: 1 not finite\n"},
      {"potential", [](Cut& c) { c.m(2).CanaleB[4] = NotANumber; }, "-1 of 2 readings is left out: 1 not finite\n"},
      {"resistance", [](Cut& c) { c.current(2, 1e-38F), c.reading(2, 4, 1e3F, 1); },
       "-1 of 2 readings is left out: 1 not finite\n"},
      {"position", [](Cut& c) { c.m(2).SenzaFix = true; },
       "-1 of 2 readings is left out: 1 of measurements without a position\n"},
      {"left out", [](Cut& c) { c.m(2).Scartata = true; }, ""},
      {"M = N",
       [](Cut& c) {
         c.channels(2, {3, 4});
         c.survey.cavo.PosCavo[4] = c.survey.cavo.PosCavo[5] = 33;
       },
       "-1 of 3 readings is left out: 1 with two electrodes at one place, it is channel 4 of measurement 2\n", 14},
      {"A = M",
       [](Cut& c) {
         c.channels(2, {1, 4});
         c.survey.cavo.PosCavo[1] = 55;
       },
       "-1 of 3 readings is left out: 1 with two electrodes at one place, it is channel 1 of measurement 2\n", 14},
      {"B = N",
       [](Cut& c) {
         c.channels(2, {4, 7});
         c.survey.cavo.PosCavo[5] = 60;
       },
       "-1 of 3 readings is left out: 1 with two electrodes at one place, it is channel 4 of measurement 2\n", 14}};
  for (const auto& c : cases) {
    Cut cut({{300000, 5e6}, {300010, 5e6}});
    for (std::size_t k = 1; k <= 10; ++k) cut.quality(1, k, 5, 2), cut.quality(2, k, 5, 2);
    cut.channels(1, {9});
    cut.channels(2, {4});
    c.change(cut);
    const std::string written = Ohm(cut);
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), c.lines) << c.name;
    EXPECT_EQ(test::Told(cut.findings), c.told) << c.name;
  }
}

TEST(UnifiedData, IsNotMadeWithoutAReading) {
  Cut cut({{300000, 5e6}});
  cut.current(1, 0);
  EXPECT_EQ(Ohm(cut), "older!no reading is left to write: the file is not made");
  EXPECT_EQ(test::Told(cut.findings), "-10 of 10 readings are left out: 10 without a current\n");
}

TEST(UnifiedData, TellsOfElectrodesWithoutWater) {
  Cut cut({{300000, 5e6, 1, 0}});
  cut.channels(1, {2});
  cut.quality(1, 2, 5, 2);
  Ohm(cut);
  EXPECT_EQ(test::Told(cut.findings), "-4 of 4 electrodes lie where the depth of the water is 0\n");
}

// A half-space of 2 ohm m: potentials from the very places that a reader finds in the file give 2 ohm m again, for
// every channel of many firings and across the blocks that the file is composed in.
TEST(UnifiedData, GivesAHalfSpaceBack) {
  std::vector<test::Firing> firings;
  for (int i = 0; i < 1203; ++i) firings.push_back({300000.0 + 5 * i, 5e6});
  Cut cut(firings);
  constexpr std::array<double, 12> cable{0, 50, 45, 40, 35, 30, 25, 20, 15, 10, 5, 0};
  const double pi = std::acos(-1.0);
  for (std::size_t n = 1; n <= firings.size(); ++n) {
    cut.current(n, 100.0F + static_cast<float>(n));
    for (std::size_t c = 1; c <= 10; ++c) {
      const double M = cable.at(c), N = cable.at(c + 1);
      const double share = 1 / (55 - M) - 1 / (60 - M) - 1 / (55 - N) + 1 / (60 - N);
      cut.reading(n, c, static_cast<float>((100.0 + static_cast<double>(n)) * 2 * share / (2 * pi)), 2);
    }
  }
  for (const ErtDimension dimension : {ErtDimension::Two, ErtDimension::Three}) {
    const std::vector<std::string> lines = test::Lines(Ohm(cut, dimension));
    const auto electrodes = static_cast<std::size_t>(std::stoi(lines.at(0)));
    ASSERT_EQ(electrodes, 13U * 1203U);
    ASSERT_EQ(std::stoi(lines.at(2 + electrodes)), 12030);
    ASSERT_EQ(lines.size(), 4 + electrodes + 12030);
    for (std::size_t k = 4 + electrodes; k < lines.size(); ++k) {
      const std::vector<std::string> words = Words(lines[k]);
      ASSERT_EQ(words.size(), 8U);
      std::array<double, 4> x{};
      for (std::size_t e = 0; e < 4; ++e) {
        const auto number = static_cast<std::size_t>(std::stoi(words[e]));
        ASSERT_TRUE(number >= 1 && number <= electrodes);
        x.at(e) = Decimal(Words(lines[1 + number])[0]);
      }
      const auto [a, b, m, n] = x;
      const double r = Decimal(words[4]);
      const double factor =
          2 * pi / (1 / std::abs(a - m) - 1 / std::abs(b - m) - 1 / std::abs(a - n) + 1 / std::abs(b - n));
      ASSERT_NEAR(factor * r, 2, 1e-4) << lines[k];
      ASSERT_NEAR(Decimal(words[6]) / Decimal(words[7]), r, 1e-6 * r);
    }
  }
}

}  // namespace
}  // namespace corvan

// The other files for inversion toolkits: general arrays and the bottom.
#include <gtest/gtest.h>

#include "exchange/BottomTable.h"
#include "exchange/DecimalText.h"
#include "exchange/GeneralArray.h"
#include "Sections.h"

namespace corvan {
namespace {

using test::Cut;

TEST(Decimals, HaveAPointAndNoExponent) {
  const struct {
    double value;
    const char* text;
  } doubles[] = {{0, "0.0"},
                 {-0.0, "0.0"},
                 {-5, "-5.0"},
                 {99999, "99999.0"},
                 {100000, "100000.0"},
                 {-2147483648.0, "-2147483648.0"},
                 {1e22, "10000000000000000000000.0"},
                 {0.1, "0.1"},
                 {-1e-7, "-0.0000001"},
                 {288685.5, "288685.5"}};
  for (const auto& c : doubles) {
    std::string out = "=";
    AggiungiDecimale(out, c.value);
    EXPECT_EQ(out, std::string("=") + c.text);
  }
  std::string out;
  AggiungiDecimale(out, 0.1F);
  out += ' ';
  AggiungiDecimale(out, 1.17549435e-38F);
  EXPECT_EQ(out, "0.1 0.000000000000000000000000000000000000011754944") << "as short as a single allows";
  out.clear();
  AggiungiDecimale(out, 5e-324);
  EXPECT_EQ(out.size(), 326U);
}

// Electrodes by hand: Fix((p + D) / 5) 5 with D = 0 and 7.
TEST(GeneralArrays, NameTheFourPlacesOfEachReading) {
  Cut cut({{300000, 5e6, 1}, {300007, 5e6, 2}, {300100, 5e6, 2}});
  cut.channels(1, {1, 3});
  cut.m(1).escluse = BitDi(1);
  cut.channels(2, {2, 10});
  cut.m(3).Scartata = true;
  cut.reading(1, 3, 1, -1.75F);
  cut.reading(2, 2, 1, 1e-6F);
  cut.reading(2, 10, 1, 123456789.0F);  // as a single 123456792
  cut.request.OffsetCavo = 2.5;
  const Section section = cut.section();
  EXPECT_EQ(test::WrittenBy([&](FileWriter& out) { SalvaSchieraGenerale(out, cut.survey, section, cut.findings); }),
            "a.bin +1, x along section (m), rhoa (ohm m)\r\n"
            "5.0\r\n11\r\n0\r\nType of measurement (0=app. resistivity,1=resistance)\r\n0\r\n3\r\n1\r\n0\r\n"
            "4 57.5 0.0 62.5 0.0 42.5 0.0 37.5 0.0 -1.75\r\n"
            "4 62.5 0.0 67.5 0.0 52.5 0.0 47.5 0.0 0.000001\r\n"
            "4 62.5 0.0 67.5 0.0 12.5 0.0 7.5 0.0 123456792.0\r\n"
            "0\r\n0\r\n0\r\n0\r\n0\r\n");
  EXPECT_EQ(test::Told(cut.findings), "-1 of 4 readings is left out: 1 excluded\n");
}

TEST(GeneralArrays, AreNotMadeWithoutAReading) {
  Cut cut({{300000, 5e6}});
  cut.m(1).escluse = AllReadings;
  const Section section = cut.section();
  EXPECT_EQ(test::WrittenBy([&](FileWriter& out) { SalvaSchieraGenerale(out, cut.survey, section, cut.findings); }),
            "older!no reading is left to write: the file is not made");
}

// The distance counts like the electrodes' x: the cable is 60 m long and the echo sounder 4 m ahead. Degrees of grid
// numbers by cs2cs: 288685.5 5030933 of zone 33.
TEST(BottomTables, CountLikeTheElectrodesAndKeepDegreesAsRead) {
  Cut cut({{288685.5, 5030933, 1, 3.5F}, {288689.5, 5030936, 1, 0}, {0, 0, 2, 9}, {288697.5, 5030942, 2, -6.25F}});
  cut.request.OffsetEco = 4;
  cut.m(2).sorgente = Geographic{45.4000125, 12.3000625};
  const Section section = cut.section();
  const std::vector<std::string> lines =
      test::Lines(test::WrittenBy([&](FileWriter& out) { SalvaFondo(out, cut.survey, section, cut.findings); }));
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0], "distance,easting,northing,latitude,longitude,depth");
  const std::vector<std::string> first = test::Words(lines[1], ',');
  ASSERT_EQ(first.size(), 6U);
  EXPECT_EQ(first[0] + " " + first[1] + " " + first[2] + " " + first[5], "56.0 288685.5 5030933.0 3.5");
  EXPECT_NEAR(test::Decimal(first[3]), 45.39999668720, 1e-8);
  EXPECT_NEAR(test::Decimal(first[4]), 12.29999960927, 1e-8);
  EXPECT_EQ(lines[2], "61.0,288689.5,5030936.0,45.4000125,12.3000625,0.0");
  EXPECT_EQ(lines[3].substr(0, 25), "71.0,288697.5,5030942.0,4");
  EXPECT_EQ(lines[3].substr(lines[3].size() - 5), ",6.25");
  EXPECT_EQ(test::Told(cut.findings),
            "-1 of 3 rows has a depth of 0: none was read there, or no water is\n"
            "-1 measurement without a position left out\n");
}

// With the cable along the track the bottom lies where the echo sounder was, 4 m behind the boat: degrees that were
// read for the boat are not those of 288701.5 5030933 (cs2cs).
TEST(BottomTables, GiveTheDegreesOfThePlaceThatTheyName) {
  Cut cut({{288685.5, 5030933}, {288705.5, 5030933}});
  for (const std::size_t n : {1U, 2U}) cut.m(n).sorgente = Geographic{45, 12};
  cut.request.OffsetEco = 4;
  cut.request.shape = CableShape::AlongTrack;
  const Section section = cut.section();
  const std::vector<std::string> lines =
      test::Lines(test::WrittenBy([&](FileWriter& out) { SalvaFondo(out, cut.survey, section, cut.findings); }));
  ASSERT_EQ(lines.size(), 3U);
  const std::vector<std::string> second = test::Words(lines[2], ',');
  ASSERT_EQ(second.size(), 6U);
  EXPECT_NEAR(test::Decimal(second[1]), 288701.5, 1e-6);
  EXPECT_NEAR(test::Decimal(second[3]), 45.40000151763, 1e-8);
  EXPECT_NEAR(test::Decimal(second[4]), 12.30020381567, 1e-8);
}

TEST(BottomTables, AreNotMadeWithoutPositions) {
  Cut cut({{0, 0}});
  const Section section = cut.section();
  EXPECT_EQ(test::WrittenBy([&](FileWriter& out) { SalvaFondo(out, cut.survey, section, cut.findings); }),
            "older!no measurement of the section has a position: the file is not made");
}

}  // namespace
}  // namespace corvan

// Curtains for 3D viewers: corners, data and offsets of the appended bytes.
#include "exchange/VtuCurtain.h"

#include <cstring>

#include "Sections.h"

namespace corvan {
namespace {

using test::Cut;

std::string Vtu(Cut& cut) {
  const Section section = cut.section();
  return test::WrittenBy([&](FileWriter& out) { SalvaVtu(out, cut.survey, section, cut.findings); });
}

/// What an array of the file holds: its header names type and offset, its bytes begin with their count.
template <class Number>
std::vector<Number> Array(const std::string& file, const std::string& type, const std::string& name) {
  const std::string tag = "<DataArray type=\"" + type + "\" Name=\"" + name + "\"";
  const std::size_t at = file.find(tag);
  EXPECT_NE(at, std::string::npos) << name;
  if (at == std::string::npos) return {};
  const auto offset = static_cast<std::size_t>(std::stoul(file.substr(file.find("offset=\"", at) + 8)));
  const std::size_t begin = file.find("<AppendedData encoding=\"raw\">\n_") + 31 + offset;
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, file.data() + begin, sizeof bytes);
  std::vector<Number> values(bytes / sizeof(Number));
  EXPECT_LE(begin + 8 + bytes, file.size());
  std::memcpy(values.data(), file.data() + begin + 8, bytes);
  return values;
}

// Pseudo-depths of channels 1 to 4 of this cable, dipoles of 5 m one to four lengths apart, by a bisection in python.
constexpr double D1 = 2.0797164790, D2 = 3.4861144802, D3 = 4.8082874267, D4 = 6.1008533344;

TEST(Vtu, HoldsAQuadForEachReading) {
  Cut cut({{300000, 5e6, 1, 3.5F}, {300010, 5e6, 1, 4.5F}, {300030, 5000020, 1, 5.5F}, {300130, 5e6, 2, 6.5F}});
  cut.channels(1, {1, 2});
  cut.channels(2, {1, 2, 3});
  cut.m(2).escluse = BitDi(2);
  cut.channels(3, {3});
  cut.channels(4, {2});
  cut.reading(3, 3, 1, -7.25F);
  const std::string file = Vtu(cut);
  EXPECT_NE(file.find("NumberOfPoints=\"24\" NumberOfCells=\"6\""), std::string::npos);
  EXPECT_EQ(Array<std::int32_t>(file, "Int32", "measurement"), (std::vector{1, 1, 2, 2, 3, 4}));
  EXPECT_EQ(Array<std::int32_t>(file, "Int32", "channel"), (std::vector{1, 2, 1, 3, 3, 2}));
  const auto rho = Array<double>(file, "Float64", "resistivity");
  const float expected[] = {1.01F, 1.02F, 2.01F, 2.03F, -7.25F, 4.02F};
  ASSERT_EQ(rho.size(), 6U);
  for (std::size_t k = 0; k < 6; ++k) EXPECT_EQ(rho[k], static_cast<double>(expected[k])) << k;
  EXPECT_EQ(Array<double>(file, "Float64", "water_depth"), (std::vector{3.5, 3.5, 4.5, 4.5, 5.5, 6.5}));
  std::vector<std::int64_t> numbers(24), ends{4, 8, 12, 16, 20, 24};
  for (std::size_t k = 0; k < 24; ++k) numbers[k] = static_cast<std::int64_t>(k);
  EXPECT_EQ(Array<std::int64_t>(file, "Int64", "connectivity"), numbers);
  EXPECT_EQ(Array<std::int64_t>(file, "Int64", "offsets"), ends);
  EXPECT_EQ(Array<std::uint8_t>(file, "UInt8", "types"), std::vector<std::uint8_t>(6, 9));

  const auto p = Array<double>(file, "Float64", "Points");
  ASSERT_EQ(p.size(), 72U);
  const auto plan = [&p](std::size_t corner) { return std::pair(p[3 * corner], p[3 * corner + 1]); };
  const auto height = [&p](std::size_t corner) { return p[3 * corner + 2]; };
  // Ends at the own place where the file ends, half-way between neighbours of one file; alone half a spacing each way.
  const std::pair<double, double> before[] = {{300000, 5e6}, {300000, 5e6},     {300005, 5e6},
                                              {300005, 5e6}, {300020, 5000010}, {300127.5, 5e6}};
  const std::pair<double, double> behind[] = {{300005, 5e6},     {300005, 5e6},     {300020, 5000010},
                                              {300020, 5000010}, {300030, 5000020}, {300132.5, 5e6}};
  for (std::size_t k = 0; k < 6; ++k) {
    EXPECT_EQ(plan(4 * k), before[k]) << k;
    EXPECT_EQ(plan(4 * k + 1), behind[k]) << k;
    EXPECT_EQ(plan(4 * k + 2), behind[k]) << k;
    EXPECT_EQ(plan(4 * k + 3), before[k]) << k;
    EXPECT_EQ(height(4 * k), height(4 * k + 1));
    EXPECT_EQ(height(4 * k + 2), height(4 * k + 3));
  }
  const double borders[] = {0, (D1 + D2) / 2, (D2 + D3) / 2, (D3 + D4) / 2};
  const std::size_t channels[] = {1, 2, 1, 3, 3, 2};
  for (std::size_t k = 0; k < 6; ++k) {
    EXPECT_NEAR(height(4 * k), -borders[channels[k] - 1], 1e-6) << k;
    EXPECT_NEAR(height(4 * k + 2), -borders[channels[k]], 1e-6) << k;
  }
  EXPECT_EQ(file.substr(file.size() - 28), "\n</AppendedData>\n</VTKFile>\n");
}

TEST(Vtu, LowestChannelReachesAsFarDownAsUp) {
  Cut cut({{300000, 5e6, 1, 3}});
  for (std::size_t e = 3; e <= 11; ++e) cut.survey.cavo.PosCavo.at(e) = 55;  // channel 1 alone has a depth
  const std::string file = Vtu(cut);
  const auto p = Array<double>(file, "Float64", "Points");
  ASSERT_EQ(p.size(), 12U);
  EXPECT_EQ(p[2], 0);
  EXPECT_NEAR(p[8], -2 * D1, 1e-6);
  EXPECT_EQ(test::Told(cut.findings).substr(0, 60), "-9 of 10 readings are left out: 9 with two electrodes at one");
}

TEST(Vtu, IsNotMadeWithoutAReading) {
  Cut cut({{300000, 5e6}});
  cut.m(1).escluse = AllReadings;
  EXPECT_EQ(Vtu(cut), "older!no reading is left to write: the file is not made");
}

}  // namespace
}  // namespace corvan

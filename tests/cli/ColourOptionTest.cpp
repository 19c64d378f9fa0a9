// Options of colours: every cell of picture and .kml has the colour that a hand computes.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "cli/Cli.h"

namespace corvan {
namespace {

/// The colours of an uncompressed bitmap file of 24 or 32 bits a pixel, as RRGGBB in capital letters.
std::set<std::string> Colours(const std::string& bytes) {
  const auto byte = [&bytes](std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); };
  const std::size_t each = byte(28) / 8U, start = byte(10) + 256U * byte(11);
  const std::size_t width = byte(18) + 256U * byte(19);
  EXPECT_EQ(width * each % 4, 0U) << "rows without padding";
  std::set<std::string> found;
  constexpr const char* digits = "0123456789ABCDEF";
  for (std::size_t at = start; at + each <= bytes.size(); at += each) {
    std::string colour;
    for (const std::size_t part : {2U, 1U, 0U}) {
      colour += digits[byte(at + part) / 16U];
      colour += digits[byte(at + part) % 16U];
    }
    found.insert(colour);
  }
  return found;
}

/// The colours of the polygons of a KML document, RRGGBB.
std::vector<std::string> KmlColours(const std::string& text) {
  std::vector<std::string> found;
  for (std::size_t at = text.find("<PolyStyle>"); at != std::string::npos; at = text.find("<PolyStyle>", at + 1)) {
    const std::size_t colour = text.find("<color>", at) + 7;
    found.push_back(text.substr(colour + 6, 2) + text.substr(colour + 4, 2) + text.substr(colour + 2, 2));
  }
  return found;
}

/// Five firings of one channel due east, 10 m apart, with 10, 20, 40, 80 and 160 mV at 1000 mA: 0.942 ohm m (6 pi 5 m
/// / 100) times 1, 2, 4, 8, 16.
std::string Doubling() {
  auto records = test::Firings(5, 1);
  for (std::size_t k = 0; k < records.size(); ++k) {
    records[k].north = 5030000.0F;
    records[k].east = 500000.0F + 10.0F * static_cast<float>(k);
    records[k].potential = 10.0F * static_cast<float>(1U << k);
  }
  return test::SyscalFile(records);
}

struct ColourCase {
  const char* options;
  std::array<const char*, 5> colours;  ///< of the five readings
};

class ColourOptions : public ::testing::TestWithParam<ColourCase> {};

void PrintTo(const ColourCase& c, std::ostream* out) { *out << c.options; }

TEST_P(ColourOptions, GiveEachReadingItsColourInPictureAndKml) {
  const auto& [options, colours] = GetParam();
  const Cli cli;
  cli.folder.write("d.bin", Doubling());
  // From the side the cells face the light: they have their full colour.
  const Outcome run =
      cli("process d.bin --coords utm --out o --format kml --picture p.bmp --layers gps --theta 180 "
          "--zoom 2 --size 640x400 " +
          std::string(options));
  ASSERT_EQ(run.status, 0) << run.err;
  const std::vector<std::string> expected(colours.begin(), colours.end());
  EXPECT_EQ(KmlColours(test::Slurp(cli.folder / "o.kml")), expected);
  std::set<std::string> seen(expected.begin(), expected.end());
  const std::set<std::string> picture = Colours(test::Slurp(cli.folder / "p.bmp"));
  for (const std::string& colour : seen) EXPECT_TRUE(picture.contains(colour)) << colour;
}

// On a linear scale of the data the readings are colours 1, 17, 51, 119 and 256 (256 (2^k - 1) / 15), on a logarithmic
// one 1, 64, 128, 192 and 256 (64 k). From the first to the fourth they are 1, 37, 110, 256 and 256, from 0 to 100,
// where no logarithm is, 2, 5, 10, 19 and 39.
INSTANTIATE_TEST_SUITE_P(
    OfEveryPalette, ColourOptions,
    ::testing::Values(
        ColourCase{"", {"7800FE", "3400FF", "0065FF", "00FE6B", "FF0900"}},
        ColourCase{"--range auto", {"7800FE", "3400FF", "0065FF", "00FE6B", "FF0900"}},
        ColourCase{"--palette spectrum:reversed", {"FF0900", "FE4D00", "FEE500", "00FF16", "7800FE"}},
        ColourCase{"--log", {"7800FE", "009EFE", "00FE3E", "DEFF00", "FF0900"}},
        ColourCase{"--palette spectrum:reversed --log", {"FF0900", "DEFF00", "00FE3E", "009EFE", "7800FE"}},
        ColourCase{"--palette viridis", {"440154", "48186A", "414287", "24878E", "FDE725"}},
        ColourCase{"--palette viridis:reversed", {"FDE725", "D5E21A", "7CD250", "1F998A", "440154"}},
        ColourCase{"--palette viridis --log", {"440154", "3B518B", "21908D", "5CC863", "FDE725"}},
        ColourCase{"--palette cividis", {"00224E", "002E6A", "34456C", "747475", "FEE838"}},
        ColourCase{"--palette cividis:reversed --log", {"FEE838", "BCAE6C", "7D7C78", "434E6C", "00224E"}},
        ColourCase{"--palette grey", {"181818", "222222", "393939", "6D6D6D", "E2E2E2"}},
        ColourCase{"--palette grey --log --range auto", {"181818", "434343", "747474", "A9A9A9", "E2E2E2"}},
        ColourCase{"--palette grey:reversed", {"E2E2E2", "D4D4D4", "B6B6B6", "7C7C7C", "181818"}},
        ColourCase{"--palette viridis --range p0,75", {"440154", "46327E", "277F8E", "FDE725", "FDE725"}},
        ColourCase{"--palette viridis --log '--range=0;100'", {"440256", "46075A", "470E61", "481B6D", "463480"}}));

TEST(ColourOption, ThatCannotBeMeantIsRefused) {
  const Cli cli;
  cli.folder.write("d.bin", Doubling());
  const std::pair<const char*, const char*> cases[] = {
      {"--palette rainbow", "\"rainbow\" is not one of spectrum, viridis, cividis, grey"},
      {"--palette viridis:up", "\"viridis:up\" is not one of"},
      {"--palette :reversed", "\":reversed\" is not one of"},
      {"--palette ''", "\"\" is not one of"},
      {"--range p98,2", "\"p98,2\" is not pLOW,HIGH with 0 <= LOW < HIGH <= 100"},
      {"--range p2,101", "is not pLOW,HIGH"},
      {"--range '-p2,5'", ""},
      {"--range p2", "is not pLOW,HIGH"},
      {"--range 5", "\"5\" is not MIN;MAX"},
      {"--range Auto", "\"Auto\" is not MIN;MAX"}};
  for (const auto& [options, told] : cases) {
    const Outcome run = cli("process d.bin --coords utm --out o --picture p.bmp " + std::string(options));
    EXPECT_EQ(run.status, 2) << options;
    EXPECT_TRUE(Contains(run.err, told)) << run.err;
    EXPECT_FALSE(cli.exists("p.bmp")) << options;
  }
}

TEST(ColourOption, ThatShowsNowhereIsTold) {
  const Cli cli;
  cli.folder.write("d.bin", Doubling());
  const std::string common = "process d.bin --coords utm --out o ";
  const Outcome unused = cli(common + "--format bin --palette grey --log");
  EXPECT_TRUE(Contains(unused.err, "--palette is not used: no picture and no .kml")) << unused.err;
  EXPECT_TRUE(Contains(unused.err, "--log is not used: no picture and no .kml")) << unused.err;
  for (const char* used : {"--format kml", "--picture p.png"}) {
    EXPECT_FALSE(Contains(cli(common + "--palette grey --log " + used).err, "not used")) << used;
  }
  const Outcome linear = cli(common + "--picture p.png --log '--range=-1;5'");
  EXPECT_EQ(linear.status, 0);
  EXPECT_TRUE(Contains(linear.err, "the colour scale is linear: its bounds -1 and 5 are not both over 0"))
      << linear.err;
}

}  // namespace
}  // namespace corvan

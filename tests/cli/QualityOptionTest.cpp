// The limits of quality on the command line: each changes the readings that it is about, and only those.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Cli.h"

namespace corvan {
namespace {

/// Nine firings of two channels: potentials rise by 0.1 mV from 10.1 on, in channel 2 firings 5 and 6 read 900 and
/// 910 mV, in channel 1 firing 3 -10.3 mV. Deviations are 0.5 % in channel 1 and 0.5 + firing / 10 % in channel 2.
std::string Spiked() {
  std::vector<test::RecordValues> records = test::Firings(9, 2);
  for (std::size_t k = 0; k < records.size(); ++k) {
    const auto firing = static_cast<float>(k / 2 + 1);
    const bool second = k % 2 == 1;
    records[k].potential = 10.0F + firing / 10.0F;
    if (!second && firing == 3) records[k].potential = -10.3F;
    if (second && firing == 5) records[k].potential = 900;
    if (second && firing == 6) records[k].potential = 910;
    records[k].deviation = second ? 0.5F + firing / 10.0F : 0.5F;
    records[k].current = 1000.0F + firing;
  }
  return test::SyscalFile(records);
}

/// "1.3 2.3": measurement and channel of the readings that a table marks as excluded.
std::string Marked(const std::string& csv) {
  std::istringstream lines(csv);
  std::string line, marked;
  std::getline(lines, line);
  const bool judged = line.ends_with(
      "interpolated,excluded1,excluded2,excluded3,excluded4,excluded5,excluded6,excluded7,"
      "excluded8,excluded9,excluded10");
  if (!judged) return line.ends_with(",interpolated") ? "not judged" : line;
  for (std::size_t n = 1; std::getline(lines, line); ++n) {
    for (std::size_t c = 10; c >= 1; --c, line.erase(line.rfind(','))) {
      if (line.ends_with(",1")) marked = std::to_string(n) + "." + std::to_string(c) + " " + marked;
    }
  }
  return marked;
}

struct LimitCase {
  const char* name;
  const char* arguments;
  const char* marked;  ///< from the last measurement's lowest channel on backwards, as Marked gives it
};

void PrintTo(const LimitCase& c, std::ostream* out) { *out << c.arguments; }

class QualityOptions : public ::testing::TestWithParam<LimitCase> {};

// The text survey's measurement n has (1610 + 3 n) / 2 mA and 28.5 + 2 c + n / 4 mV in channel c.
TEST_P(QualityOptions, ExcludeWhatTheySay) {
  const Cli cli;
  cli.folder.write("spiked.bin", Spiked());
  cli.folder.write("grid.txt", TextSurvey(GridPlaces()));
  const Outcome run = cli(std::string("process --out o --format csv,bin,txt ") + GetParam().arguments);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Marked(test::Slurp(cli.folder / "o.csv")), GetParam().marked) << run.err;
}

INSTANTIATE_TEST_SUITE_P(
    EachAlone, QualityOptions,
    ::testing::Values(LimitCase{"None", "spiked.bin", "not judged"},
                      LimitCase{"Current", "spiked.bin --min-current 1003", "2.1 2.2 1.1 1.2 "},
                      LimitCase{"Potential", "grid.txt --coords utm --min-potential 33",
                                "5.1 4.1 3.1 2.1 1.1 1.2 "},  // channel 2: 32.5 + n / 4, channel 1: 30.5 + n / 4
                      LimitCase{"Deviation", "spiked.bin --max-deviation 1.25", "9.2 8.2 "},
                      LimitCase{"DeviationOfTextExports", "grid.txt --coords utm --max-deviation 1.25", ""},
                      LimitCase{"Range", "grid.txt --coords utm --rho-range=-3.1,-0.72",
                                // rho of channel 1, measurement 1 is -0.7186...; of channel 2 -3.0968... in measurement
                                // 3 and -3.0968 x (33.5 / 811) / (33.25 / 809.5) = -3.1143 in measurement 4
                                "5.2 5.3 5.4 5.5 5.6 5.7 5.8 5.9 5.10 4.2 4.3 4.4 4.5 4.6 4.7 4.8 4.9 4.10 3.3 3.4 3.5 "
                                "3.6 3.7 3.8 3.9 3.10 "
                                "2.3 2.4 2.5 2.6 2.7 2.8 2.9 2.10 1.1 1.3 1.4 1.5 1.6 1.7 1.8 1.9 1.10 "},
                      LimitCase{"Negative", "spiked.bin --no-negative", "3.1 "},
                      LimitCase{"DespikeBeforeAFile", "--despike spiked.bin", "6.2 5.2 "},
                      LimitCase{"DespikeAtTheEnd", "spiked.bin --despike", "6.2 5.2 "},
                      LimitCase{"DespikeFarther", "--despike 500 spiked.bin", ""},
                      LimitCase{"DespikeNarrower", "--despike 4,3 spiked.bin", ""},
                      LimitCase{"Both", "spiked.bin --despike=4,9 --max-deviation 1.3", "9.2 6.2 5.2 "}),
    [](const auto& info) { return info.param.name; });

TEST(QualityOption, LeavesTheGivenOutputsAsTheyAre) {
  const Cli cli;
  cli.folder.write("spiked.bin", Spiked());
  ASSERT_EQ(cli("process spiked.bin --out a --format bin,txt,ecs,csv").status, 0);
  const Outcome run = cli("process spiked.bin --out b --format bin,txt,ecs,csv --despike --min-potential 10.15 --json");
  ASSERT_EQ(run.status, 0);
  const std::size_t times = 60;  // bytes of the header that hold the time of writing lie before
  EXPECT_EQ(test::Slurp(cli.folder / "a.bin").substr(times), test::Slurp(cli.folder / "b.bin").substr(times));
  for (const char* name : {".txt", ".ecs", ".ecst"}) {
    EXPECT_EQ(test::Slurp(cli.folder / (std::string("a") + name)), test::Slurp(cli.folder / (std::string("b") + name)));
  }
  for (const char* part : {R"("readings": 18)", R"("excluded": 4)", R"("min_potential": 2)", R"("despike": 2)",
                           R"("without_deviation": 0)", R"("procedure": "Quality")"}) {
    EXPECT_TRUE(Contains(run.out, part)) << part << run.out;
  }
  EXPECT_FALSE(Contains(run.out, "max_deviation")) << "a limit that is not set";
  EXPECT_TRUE(Contains(cli("process spiked.bin --despike --max-deviation 1.3").out,
                       "quality       3 of 18 readings excluded (max_deviation 1, despike 2)"));
}

TEST(QualityOption, ThatExcludesEverythingIsAFaultAndNoNumberIsRefused) {
  const Cli cli;
  cli.folder.write("spiked.bin", Spiked());
  const Outcome all = cli("process spiked.bin --min-current 5000");
  EXPECT_EQ(all.status, 1);
  EXPECT_TRUE(Contains(all.err, "every reading is excluded")) << all.err;
  for (const char* wrong :
       {"--min-current -1", "--min-potential x", "--max-deviation 5%", "--rho-range 5", "--rho-range 5,1",
        "--rho-range ,3", "--despike=0", "--despike 4,2", "--despike 4,", "--despike=4,5,6", "--despike 4,99999"}) {
    EXPECT_EQ(cli(std::string("process spiked.bin ") + wrong).status, 2) << wrong;
  }
}

}  // namespace
}  // namespace corvan

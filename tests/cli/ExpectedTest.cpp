// Whole outputs of whole runs against files that another program computed (see tests/expected/README.md).
#include <gtest/gtest.h>

#include <regex>

#include "cli/Cli.h"

namespace corvan {
namespace {

struct ExpectedRun {
  const char* root;
  const char* arguments;
};

void PrintTo(const ExpectedRun& run, std::ostream* out) { *out << run.root; }

class ExpectedOutputs : public ::testing::TestWithParam<ExpectedRun> {};

/// The header of a .bin holds the clock of its writing: it is checked for its form and blanked.
std::string SenzaOrologio(std::string bytes) {
  const std::string clock = bytes.substr(20, 19);
  EXPECT_TRUE(std::regex_match(clock, std::regex(R"([0-3]\d/[01]\d/\d{4} [0-2]\d:[0-5]\d:[0-5]\d)"))) << clock;
  return bytes.replace(20, 19, 19, ' ');
}

TEST_P(ExpectedOutputs, AreWrittenByteForByte) {
  const Cli cli;
  const std::filesystem::path expected = CORVAN_EXPECTED;
  for (const char* input : {"line_1.bin", "line_2.bin", "line_1.txt", "line_2.txt", "track.csv"}) {
    std::filesystem::copy_file(expected / input, cli.folder / input);
  }
  const std::string root = GetParam().root;
  const Outcome run = cli("process --format csv,bin,txt,ecs,kml --out " + root + " " + GetParam().arguments);
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* ending : {".csv", ".bin", ".txt", ".ecs", ".ecst", ".kml"}) {
    std::string is = test::Slurp(cli.folder / (root + ending)), wanted = test::Slurp(expected / (root + ending));
    ASSERT_GT(wanted.size(), 100U);
    ASSERT_GT(is.size(), 100U) << ending;
    if (ending == std::string(".bin")) {
      is = SenzaOrologio(is);
      wanted = SenzaOrologio(wanted);
    }
    const auto differ = std::mismatch(is.begin(), is.end(), wanted.begin(), wanted.end());
    const auto at = static_cast<std::size_t>(differ.first - is.begin());
    EXPECT_TRUE(is == wanted) << ending << " differs from byte " << at
                              << " on: " << ::testing::PrintToString(is.substr(at, 40)) << " instead of "
                              << ::testing::PrintToString(wanted.substr(at, 40));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Runs, ExpectedOutputs,
    ::testing::Values(
        ExpectedRun{"true", "--true-position --cable-offset 8 --echo-offset 25 --from 5 --to 12 line_1.bin line_2.bin"},
        ExpectedRun{"time",
                    "--gps track.csv --link time --clock-offset 20 --true-position --external-gps --from 3 --to 7 "
                    "line_1.bin line_2.bin"},
        ExpectedRun{"degrees", "--coords dd --from 14 --to 3 line_1.txt line_2.txt"}),
    [](const auto& test) { return std::string(test.param.root); });

}  // namespace
}  // namespace corvan

// The cable along the sailed track on the command line: numbers of its files by hand, and what it refuses.
#include <gtest/gtest.h>

#include <sstream>

#include "base/NumberText.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

constexpr const char* Cable =
    " --cable 'C1 55 C2 60 E1 50 E2 45 E3 40 E4 35 E5 30 E6 25 E7 20 E8 15 E9 10 E10 5 E11 0'";

/// 100 m to the east, 20 m to the north, 100 m back and 50 m on; 3.25, 3.75, 4.5, 5.5 and 6.25 m deep.
struct UTurn : Cli {
  UTurn() {
    folder.write("turn.txt", TextSurvey({{"5034000", "612000"},
                                         {"5034000", "612100"},
                                         {"5034020", "612100"},
                                         {"5034020", "612000"},
                                         {"5034020", "611950"}}));
  }
};

/// Column k (1 is the number) of row n of a text output.
double Cell(const Cli& cli, const char* name, std::size_t n, std::size_t k) {
  std::istringstream lines(test::Slurp(cli.folder / name));
  std::string line, word;
  const std::size_t above = std::string_view(name).ends_with(".txt") ? n : n - 1;  // its first line has the names
  for (std::size_t i = 0; i <= above; ++i) std::getline(lines, line);
  std::istringstream words(line);
  for (std::size_t i = 0; i < k; ++i) words >> word;
  return Val(word);
}

constexpr std::size_t Ax = 2, Bx = 3, Mx = 4, Nx = 5, Az = 10, Nz = 13, UTMx = 19, UTMy = 20;

// Rows 31 to 40 are measurement 4, at 220 m; its C1 and C2 trail 5 and 0 m behind the head, E10 and E11 55 and 60 m.
TEST(CableGeometry, AlongTheTrackPutsElectrodesOnThePath) {
  struct Cells {
    const char* arguments;
    struct {
      const char* file;
      std::size_t row, column;
      double value;
    } cells[6];
  };
  const Cells cases[] = {
      {"--cable-geometry track --track-smoothing 0",
       {{"o.txt", 40, Ax, 215},
        {"o.txt", 40, Nx, 160},
        {"o.txt", 40, Az, 5.45},
        {"o.txt", 40, Nz, 4.9},
        {"o.txt", 40, UTMx, 612002.5},
        {"o.ecst", 4, 5, 217.5}}},
      {"--cable-geometry track --track-smoothing 0 --true-position --cable-offset 150",
       {{"o.txt", 40, Ax, 65},
        {"o.txt", 40, Nx, 10},
        {"o.txt", 10, Nx, -210},
        {"o.txt", 40, UTMx, 612067.5},
        {"o.txt", 40, UTMy, 5034000},
        {"o.ecst", 4, 2, 612067.5}}},
      {"--cable-geometry track --track-smoothing 0 --echo-offset 5",
       {{"o.txt", 40, Ax, 215},
        {"o.txt", 40, Az, 5.5},
        {"o.txt", 40, Nz, 4.95},
        {"o.txt", 41, Az, 6.25},
        {"o.ecs", 4, 4, 5.5},
        {"o.ecs", 4, 5, 220}}},
      // Half of 40 m on either side: corners at (95, 5) and (95, 15); the legs are 95.131, 10 and 95.131 m.
      {"--cable-geometry track --track-smoothing 40",
       {{"o.txt", 40, Bx, 200.26},
        {"o.txt", 40, Ax, 195.26},
        {"o.ecs", 4, 5, 200.26},
        {"o.ecs", 2, 5, 95.13},
        {"o.ecs", 3, 5, 105.13},
        {"o.ecs", 2, 2, 612100}}},
      // One spacing, 5 m: corners at (99.375, 0.625) and (99.375, 19.375).
      {"--cable-geometry track",
       {{"o.txt", 40, Bx, 217.5},
        {"o.txt", 40, Mx, 162.5},
        {"o.ecs", 2, 5, 99.38},
        {"o.ecs", 3, 5, 118.13},
        {"o.ecs", 4, 5, 217.5},
        {"o.ecs", 5, 5, 267.5}}},
      // From measurement 2 on: x counts from there, the path from measurement 1 on.
      {"--cable-geometry track --track-smoothing 0 --from 2",
       {{"o.txt", 30, Ax, 115},
        {"o.txt", 10, Nx, -60},
        {"o.txt", 10, UTMx, 612097.5},
        {"o.ecs", 1, 5, 0},
        {"o.ecs", 3, 5, 120},
        {"o.ecst", 1, 5, -2.5}}},
      {"--cable-geometry straight",
       {{"o.txt", 40, Ax, 75},
        {"o.txt", 40, Nx, 20},
        {"o.txt", 40, UTMx, 612000},
        {"o.ecs", 4, 5, 220},
        {"o.ecst", 4, 5, 220},
        {"o.txt", 10, Nx, 0}}}};
  for (const Cells& c : cases) {
    const UTurn cli;
    const Outcome run =
        cli("process turn.txt --coords utm --out o --format txt,ecs " + std::string(c.arguments) + Cable);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(Contains(run.err, "from the straight one, most of all at ")) << run.err;
    for (const auto& cell : c.cells) {
      EXPECT_NEAR(Cell(cli, cell.file, cell.row, cell.column), cell.value, 1e-9)
          << c.arguments << ": " << cell.file << ' ' << cell.row << ' ' << cell.column;
    }
  }
}

TEST(CableGeometry, LeavesReadingsAndTheTableAlone) {
  std::string table, readings[2];
  for (const char* geometry : {"straight", "track"}) {
    const UTurn cli;
    cli("process turn.txt --coords utm --out o --format txt,csv --cable-geometry " + std::string(geometry) + Cable);
    const std::string csv = test::Slurp(cli.folder / "o.csv");
    EXPECT_TRUE(table.empty() || csv == table) << csv;
    table = csv;
    for (std::size_t k = 14; k <= 16; ++k) {
      readings[geometry[0] == 't' ? 1 : 0] += TestoNumero(Cell(cli, "o.txt", 27, k)) + " ";
    }
  }
  EXPECT_EQ(readings[0], readings[1]);
  EXPECT_GT(readings[0].size(), 6U);
}

TEST(CableGeometry, RefusesWhatItCannotDo) {
  const struct {
    const char *arguments, *said;
  } cases[] = {{"--track-smoothing 5", "requires --cable-geometry track"},
               {"--cable-geometry straight --track-smoothing 5", "requires --cable-geometry track"},
               {"--cable-geometry bent", "--cable-geometry"},
               {"--cable-geometry track --track-smoothing=-1", "is not 0 to 1000"},
               {"--cable-geometry track --track-smoothing 1001", "is not 0 to 1000"},
               {"--cable-geometry track --track-smoothing 5m", "not a number"}};
  for (const auto& c : cases) {
    const UTurn cli;
    const Outcome run = cli("process turn.txt --coords utm --out o " + std::string(c.arguments));
    EXPECT_EQ(run.status, 2) << c.arguments;
    EXPECT_TRUE(Contains(run.err, c.said)) << run.err;
    EXPECT_FALSE(cli.exists("o.bin")) << c.arguments;
  }
}

}  // namespace
}  // namespace corvan

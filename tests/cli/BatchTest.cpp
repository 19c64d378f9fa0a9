// Batches of files, southern surveys, lost fixes and the world around the command line.
#include <gtest/gtest.h>

#include <sstream>

#include "base/NumberText.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

struct RefusalCase {
  const char* arguments;
  const char* file;  ///< that must stay as it was
};

TEST(Originals, AreNeverWrittenOver) {
  const Cli cli;
  cli.folder.write("a.bin", test::SyscalFile(TimedFirings()));
  for (const auto& [arguments, file] : {
           RefusalCase{"a.bin b.bin --out a", "a.bin"},
           RefusalCase{"a.bin b.bin --out b", "b.bin"},
           RefusalCase{"a.bin b.bin --out ./b", "b.bin"},
           RefusalCase{"t.txt s.txt --coords utm --format txt --out s", "s.txt"},
           RefusalCase{"t.txt s.txt --coords utm --format bin,csv --gps track.csv --out track", "track.csv"},
       }) {
    cli.folder.write("b.bin", test::SyscalFile(TimedFirings()));
    cli.folder.write("t.txt", TextSurvey(GridPlaces()));
    cli.folder.write("s.txt", TextSurvey(GridPlaces()));
    cli.folder.write("track.csv", GridTrack());
    const std::string before = test::Slurp(cli.folder / file);
    const Outcome run = cli(std::string("process ") + arguments);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_TRUE(Contains(run.err, file) && Contains(run.err, "was read in this run")) << arguments << '\n' << run.err;
    EXPECT_TRUE(before == test::Slurp(cli.folder / file)) << arguments;
    EXPECT_FALSE(Contains(run.out, std::string("written       ") + file)) << run.out;
  }
  EXPECT_TRUE(cli.exists("track.bin")) << "the other output is written";
}

/// The cells of row n of o.csv.
std::vector<std::string> Row(const Cli& cli, std::size_t n) {
  std::istringstream lines(test::Slurp(cli.folder / "o.csv"));
  std::string line, cell;
  for (std::size_t k = 0; k <= n; ++k) std::getline(lines, line);
  std::istringstream cells(line);
  std::vector<std::string> row;
  while (std::getline(cells, cell, ',')) row.push_back(cell);
  return row;
}

TEST(Batch, NumbersFilesInTheOrderGiven) {
  const Cli cli;
  std::vector<Place> east = GridPlaces();
  for (Place& place : east) place.second.replace(3, 1, "6");  // 612... becomes 6126...
  cli.folder.write("a.txt", TextSurvey(GridPlaces()));
  cli.folder.write("b.txt", TextSurvey(east));
  ASSERT_EQ(cli("process b.txt a.txt --coords utm --out o --format csv,kml").status, 0);
  const auto fifth = Row(cli, 5), sixth = Row(cli, 6);
  EXPECT_EQ(fifth.at(1) + " " + fifth.at(5), "1 612680.25");
  EXPECT_EQ(sixth.at(1) + " " + sixth.at(5), "2 612340.25");
  // Height of a cell: 100 m in eight steps, without the 342 m between the files.
  EXPECT_TRUE(Contains(test::Slurp(cli.folder / "o.kml"), ",125.00000\r\n"));
}

TEST(South, LinksATrackOfSixColumns) {
  const Cli cli;
  cli.folder.write("s.bin", test::SyscalFile(TimedFirings(-1.0F)));
  cli.folder.write("six.gps",
                   "2026-06-15 06:00:00 1 -4524.5 1218.25 7.5\r\n2026-06-15 06:00:28 2 -4524.75 1218.5 9.25\r\n");
  // The fixes are 566 m and 28 s apart, which is a boat's speed below 50 m/s.
  const Outcome run = cli("process s.bin --gps six.gps --link time --out o --format csv,kml");
  EXPECT_EQ(run.status, 0) << run.err;
  const auto cell = [&cli](std::size_t n, std::size_t column) { return Val(Row(cli, n).at(column)); };
  EXPECT_NEAR(cell(1, 5), 289042.6568422782, 1e-6);
  EXPECT_NEAR(cell(1, 6), 4968151.715497232, 1e-6);
  EXPECT_NEAR(cell(3, 5), (289042.6568422782 + 289384.20630419225) / 2, 1e-6) << "half-way in time";
  EXPECT_NEAR(cell(5, 6), 4967699.749483162, 1e-6);
  EXPECT_EQ(cell(1, 11), 7.5);
  EXPECT_EQ(cell(3, 11), 8.375);
  EXPECT_TRUE(Contains(test::Slurp(cli.folder / "o.kml"), ",-45.408")) << "45 degrees 24.5 minutes south";
}

struct LostCase {
  const char* options;
  int status;
  const char* measurements;
  const char* discarded;
  const char* interpolated;
};

TEST(LostFixes, JustBeforeTheLastFiringAreTold) {
  const Cli cli;
  auto records = TimedFirings();
  for (std::size_t k = 30; k < 40; ++k) records[k].north = records[k].east = 0;
  cli.folder.write("gap.bin", test::SyscalFile(records));
  for (const auto& [options, status, measurements, discarded, interpolated] : {
           LostCase{"", 1, "3", "0", "0"},
           LostCase{"--past-gaps --bad-gps skip", 0, "5", "1", "0"},
           LostCase{"--past-gaps --bad-gps interpolate", 0, "5", "0", "1"},
       }) {
    const Outcome run = cli(std::string("process gap.bin --json --out o ") + options);
    EXPECT_EQ(run.status, status) << options << run.err;
    for (const auto& [key, value] :
         {std::pair{"measurements", measurements}, {"discarded", discarded}, {"interpolated", interpolated}}) {
      EXPECT_TRUE(Contains(run.out, std::string("\"") + key + "\": " + value + ",")) << options << key;
    }
  }
}

TEST(LostFixes, LeftInsideASectionAreAFault) {
  const Cli cli;
  auto records = TimedFirings();
  for (std::size_t k = 30; k < 40; ++k) records[k].north = records[k].east = 0;
  cli.folder.write("gap.bin", test::SyscalFile(records));
  const Outcome run = cli("process gap.bin --out o --past-gaps");
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_EQ(std::filesystem::file_size(cli.folder / "o.bin"), 1029U + 50U * 280U) << "written all the same";
  EXPECT_EQ(cli("process gap.bin --out o --past-gaps --to 3").status, 0) << "the section ends before the gap";
}

TEST(Names, OfAnyLettersAreReadWrittenAndTold) {
  const Cli cli;
  const std::string line =
                        "Pr\xC3\xBC"
                        "f linea 1.bin",
                    track = "trac\xC3\xA9.csv", out = "gi\xC3\xB9 \xE6\xB2\xB3";
  cli.folder.write(line, test::SyscalFile(TimedFirings()));
  cli.folder.write(track, CsvTrack({{289027.0, 5031846.0, 7.5}, {289040.0, 5031850.0, 8.25}}, 0));
  const Outcome run =
      cli("process '" + line + "' --gps '" + track + "' --out '" + out + "' --format bin,csv,gpkg --picture '" + out +
          ".png' --section-picture '" + out + "_2.png' --save-project '" + out + ".corvan'");
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* ending : {".bin", ".csv", ".gpkg", ".png", "_2.png", ".corvan"}) {
    EXPECT_TRUE(std::filesystem::exists(cli.folder / (out + ending))) << ending;
    EXPECT_TRUE(Contains(run.out, out + ending)) << run.out;
  }
  const std::string first = test::Slurp(cli.folder / (out + ".csv"));
  std::filesystem::remove(cli.folder / (out + ".csv"));
  EXPECT_EQ(cli("process --project '" + out + ".corvan'").status, 0);
  EXPECT_EQ(test::Slurp(cli.folder / (out + ".csv")), first);
  const Outcome info = cli("info '" + line + "' '" + track + "'");
  EXPECT_TRUE(Contains(info.out, line) && Contains(info.out, track)) << info.out << info.err;
  const Outcome gone = cli("info 'perd\xC3\xBC'");
  EXPECT_TRUE(Contains(gone.err, "perd\xC3\xBC: No such file or directory")) << gone.err;
}

}  // namespace
}  // namespace corvan

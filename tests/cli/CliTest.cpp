// The command line from outside: standard output, standard error, exit status, files.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "cli/Cli.h"

namespace corvan {
namespace {

using test::Firings;
using test::SyscalFile;

const std::string Sample = CORVAN_SAMPLES "/lagoon_1.bin";

TEST(Process, WritesEveryFormatUnderTheDefaultRoot) {
  const Cli cli;
  const Outcome run =
      cli("process " + Sample + " --past-gaps --bad-gps interpolate --format bin,txt,ecs,kml,csv --json");
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* name : {"bin", "txt", "ecs", "ecst", "kml", "csv"}) {
    EXPECT_TRUE(cli.exists(std::string("lagoon_1_section.") + name)) << name;
  }
  for (const char* key : {"\"files\"",
                          "\"format\": \"syscal\"",
                          "\"record_length\": 304",
                          "\"records\": 2200",
                          "\"channels\": 10",
                          "\"firings\": 218",
                          "\"measurements\": 218",
                          "\"discarded\": 0",
                          "\"interpolated\": 2",
                          "\"zone\": 33",
                          "\"rho_min\"",
                          "\"rho_max\"",
                          "\"track_length\"",
                          "\"mean_spacing\"",
                          "\"from\": 1",
                          "\"to\": 218",
                          "\"points\": 218",
                          "\"outputs\"",
                          "\"messages\": []",
                          "\"diagnostics\""}) {
    EXPECT_TRUE(Contains(run.out, key)) << key;
  }
  const std::string csv = test::Slurp(cli.folder / "lagoon_1_section.csv");
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 219);
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\r'), 0);
}

TEST(Process, AnswersEveryQuestionFromItsOption) {
  const Cli cli;
  auto records = Firings(8, 4);
  for (auto& r : records) r.channel = 0;
  cli.folder.write("s.bin", SyscalFile(records));
  const Outcome run =
      cli("process s.bin --channels 2 --zone 32 --cable 'C1 10 C2 20 E1 1' --range '1;2' --from 7 --to 3 "
          "--cable-offset 3 --echo-offset=-2 --kml-offset 50 --true-position --out sub --format txt,kml,csv --json "
          "--data-shift 1,2 --depth-shift=-1,2.5");
  EXPECT_EQ(run.status, 1) << "ten electrodes of that cable stand at one place";
  EXPECT_TRUE(Contains(run.err,
                       "50 of 50 records have both potential electrodes at one place, since places are multiples of "
                       "the distance of C1 and C2 (10 m); 40 of them without a reading, the first is channel 1 of "
                       "measurement 3"))
      << run.err;
  EXPECT_TRUE(Contains(run.out, "\"measurements\": 16"));
  EXPECT_TRUE(Contains(run.out, "\"zone\": 32"));
  EXPECT_TRUE(Contains(run.out, "\"from\": 3"));
  EXPECT_TRUE(Contains(run.out, "\"points\": 5"));
  // Spacing 10, span -20: A at Fix((10 - 20 + 0 + 20) / 10) 10 + 3 = 13.
  EXPECT_EQ(test::CrLfLines(test::Slurp(cli.folder / "sub.txt")).at(1).substr(0, 11), " 1 \t13.\t23.");
  const std::string kml = test::Slurp(cli.folder / "sub.kml");
  EXPECT_TRUE(Contains(kml, "<name>n.  7 -  2</name>") && !Contains(kml, "<name>n.  7 -  3</name>"))
      << "readings that are not there have no cell";
  EXPECT_TRUE(Contains(run.err, "6 of 26 tokens"));
}

struct StatusCase {
  const char* arguments;
  int status;
  const char* words;  ///< on standard error
};

class Statuses : public ::testing::TestWithParam<StatusCase> {};

TEST_P(Statuses, TellWhetherAllWasDone) {
  const Cli cli;
  const std::string good = SyscalFile(Firings(4, 10));
  auto gap = Firings(4, 10);
  for (std::size_t k = 20; k < 30; ++k) gap[k].north = gap[k].east = 0;
  cli.folder.write("good.bin", good);
  cli.folder.write("gap.bin", SyscalFile(gap));
  cli.folder.write("cut.bin", good.substr(0, good.size() - 10));
  cli.folder.write("five.bin", SyscalFile(Firings(4, 5)));
  cli.folder.write("picture.bin", "\x89PNG" + std::string(4000, '\x77'));
  cli.folder.write(
      "track.log",
      "$GPRMC,080000,A,4524.0,N,01218.0,E,1,2,150626,,\n$GPRMC,080010,A,4524.1,N,01218.0,E,1,2,150626,,\n");
  cli.folder.write("none.log", "$GPRMC,080000,V,,,,,,,,,\n");
  const Outcome run = cli(GetParam().arguments);
  EXPECT_EQ(run.status, GetParam().status) << run.err;
  EXPECT_TRUE(Contains(run.err, GetParam().words)) << run.err;
}

INSTANTIATE_TEST_SUITE_P(
    Table, Statuses,
    ::testing::Values(
        StatusCase{"process good.bin", 0, ""},
        StatusCase{"process good.bin missing.bin", 1, "missing.bin: No such file"},
        StatusCase{"process .", 1, "is a folder"}, StatusCase{"process gap.bin", 1, "gap.bin: fix lost at record 21"},
        StatusCase{"process gap.bin --past-gaps", 1, "1 of 4 measurements has no position and is written"},
        StatusCase{"process gap.bin --past-gaps --bad-gps skip", 0, "Some Data have incorrect GPS position"},
        StatusCase{"process five.bin", 0, "at one place, of channels without a reading, the first is channel 7 of"},
        StatusCase{"process gap.bin --past-gaps --bad-gps skip", 0, "1 of 4, 1 discarded, 0 interpolated\n"},
        StatusCase{"process cut.bin", 1, "294 of 304 bytes"},
        StatusCase{"process picture.bin", 1, "picture.bin: is neither"},
        StatusCase{"process good.bin --from 0", 1, "No points selected"},
        StatusCase{"process good.bin --to 5", 1, "No points selected"},
        StatusCase{"process good.bin --out good", 1, "good.bin: was read in this run"},
        StatusCase{"process good.bin --out no/where", 1, "no/where.bin: No such file"},
        StatusCase{"process good.bin --zone 75", 1, "zone 75 is not 1 to 60"}, StatusCase{"process", 2, "files"},
        StatusCase{"", 2, "subcommand"}, StatusCase{"process good.bin --format bin,gif", 2, "gif"},
        StatusCase{"process good.bin --coords xyz", 2, "coords"},
        StatusCase{"process good.bin --range 5", 2, "MIN;MAX"},
        StatusCase{"process good.bin --cable-offset 3m", 2, "not a number"},
        StatusCase{"process good.bin --picture x.jpg", 2, "does not end in"},
        StatusCase{"process good.bin --picture x.png --size 0x5", 2, "sides of 1 to 20000"},
        StatusCase{"process good.bin --picture x.png --size 320", 2, "sides of 1 to 20000"},
        StatusCase{"process good.bin --picture x.png --zoom 0", 2, "greater than 0"},
        StatusCase{"process good.bin --picture x.png --layers cells", 2, "not one of"},
        StatusCase{"process good.bin --link time", 2, "requires"},
        StatusCase{"process good.bin --gps x.csv --link sideways", 2, "not one of"},
        StatusCase{"process good.bin --gps x.csv --link position --connect 1:0 --connect 2:3", 2, "numbers from 1 on"},
        StatusCase{"process good.bin --clock-offset 5", 2, "--link time"},
        StatusCase{"process good.bin --gps x.csv --link time --connect 1:1 --connect 2:2", 2, "--link position"},
        StatusCase{"process good.bin --gps x.csv --link time,position", 2, "--link"},
        StatusCase{"process good.bin --gps x.csv --link time --clock-offset 1e300", 2, "is not -4000000000 to"},
        StatusCase{"process good.bin --track-date 2026-06-15", 2, "--gps"},
        StatusCase{"process good.bin --south", 0, "--south is not used"},
        StatusCase{"process good.bin --gps track.log --link time --track-date 2026-06-16", 1,
                   "--track-date is not used"},
        StatusCase{"process good.bin --gps track.log --link position --connect 1:1 --connect 9:1", 1,
                   "connection 2 names measurement 9, the survey has 4: nothing"},
        StatusCase{"process good.bin --gps track.log --link position --connect 3:1 --connect 3:2", 1,
                   "measurements 3 and 3 lie at one place: nothing"},
        StatusCase{"process good.bin --gps none.log --link position --connect 1:1 --connect 2:2", 1,
                   "the track holds no fix: nothing"},
        StatusCase{"info good.bin", 0, ""}, StatusCase{"info gap.bin", 1, "fix lost"},
        StatusCase{"info missing", 1, "missing"}, StatusCase{"--help", 0, ""}, StatusCase{"process --help", 0, ""},
        StatusCase{"--version", 0, ""}, StatusCase{"convert --to-geo", 2, "--zone"},
        StatusCase{"convert --to-utm --zone 61", 2, "61"},
        StatusCase{"convert --to-utm --datum Mars", 2, "Wrong Datum Name"}));

TEST(Process, LeavesEveryOriginalAlone) {
  const Cli cli;
  cli.folder.write("line.bin", SyscalFile(Firings(4, 10)));
  const std::string precious = "DISTANCE;DEPTH\n" + test::TextLine({}) + "\n";
  const std::vector<std::string> names{"o.bin", "o.txt", "o.ecs", "o.ecst", "o.kml", "o.csv", "o.png"};
  for (const std::string& name : names) cli.folder.write(name, precious);
  const Outcome run = cli("process line.bin --out o --format bin,txt,ecs,kml,csv --picture o.png");
  EXPECT_EQ(run.status, 1);
  for (const std::string& name : names) {
    EXPECT_TRUE(Contains(run.err, name + ": is an instrument's text export and is not overwritten")) << run.err;
    EXPECT_EQ(test::Slurp(cli.folder / name), precious) << name;
  }
  EXPECT_FALSE(Contains(run.out, "written"));
  EXPECT_EQ(cli("process line.bin --out p --format bin,txt,ecs,kml,csv --picture p.png").status, 0);
  EXPECT_EQ(cli("process line.bin --out p --format bin,txt,ecs,kml,csv --picture p.png").status, 0) << "its own";
}

TEST(Process, TakesAFolderAsThePlaceOfTheDefaultName) {
  const Cli cli;
  cli.folder.write("line.bin", SyscalFile(Firings(4, 10)));
  std::filesystem::create_directory(cli.folder / "results");
  EXPECT_EQ(cli("process line.bin --out results/").status, 0);
  EXPECT_EQ(cli("process line.bin --out results/. --format txt").status, 0);
  EXPECT_TRUE(cli.exists("results/line_section.bin") && cli.exists("results/line_section.txt"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(cli.folder / "results"), {}), 2) << "nothing hidden";
}

TEST(Info, TellsWhatAFileHoldsAndWhatWouldBeLeft) {
  const Cli cli;
  auto records = Firings(4, 10);
  for (std::size_t k = 20; k < 30; ++k) records[k].north = 0;
  for (std::size_t k = 0; k < 10; ++k) records[k].depth = 7;
  cli.folder.write("gap.bin", SyscalFile(records));
  cli.folder.write(
      "t.txt", "DISTANCE\n" + test::TextLine({{2, "1.5"}}) + "\n" + test::TextLine({{2, "2.5"}, {27, "0"}}) + "\n\n");
  const Outcome run = cli("info --json gap.bin t.txt");
  EXPECT_EQ(run.status, 1);
  for (const char* part :
       {"\"firings\": 2", "\"positioned\": 2", "\"time_first\": \"2026-06-15 06:00:00\"", "\"depth_max\": 7.0",
        "10 of them with a position", "\"format\": \"text\"", "\"positioned\": 1", "\"depth_max\": 1.5"}) {
    EXPECT_TRUE(Contains(run.out, part)) << part << run.out;
  }
}

TEST(Convert, GoesBothWaysLineByLine) {
  const Cli cli;
  const Outcome forth = cli("convert --to-utm --format d.dddd", "45.4 12.3\n\n45.4 11.9\nabc 12\n91 12\n45\n");
  EXPECT_EQ(forth.status, 1);
  std::istringstream lines(forth.out);
  std::string first;
  std::string second;
  std::string third;
  std::getline(lines, first);
  std::getline(lines, second);
  EXPECT_EQ(first, "288685.5168 5030933.4458 33");
  EXPECT_TRUE(Contains(second, " 33")) << "the first position fixes the zone";
  EXPECT_FALSE(std::getline(lines, third));
  for (const char* word : {"line 4: \"abc\"", "line 5: latitude 91", "line 6: holds 1 value"})
    EXPECT_TRUE(Contains(forth.err, word)) << word;
  EXPECT_EQ(cli("convert --to-utm", "4524 1218\n").out, "288685.5168 5030933.4458 33\n");
  EXPECT_EQ(cli("convert --to-geo --zone 56 --south --format d.dddd", "334000 6252000\n").out.substr(0, 9),
            "-33.85925");
  EXPECT_EQ(cli("convert --to-utm --format d.dddd", "45,4 12.3\xC2\xB0\n").out, "288685.5168 5030933.4458 33\n");
  const Outcome back =
      cli("convert --to-geo --zone 33", "288685,5 5030933\n288685 5030933m\n288685 x\n288685 5030933\n");
  EXPECT_EQ(back.status, 1);
  EXPECT_EQ(std::count(back.out.begin(), back.out.end(), '\n'), 1) << back.out;
  for (const char* word : {"line 1: \"288685,5\"", "line 2: \"5030933m\"", "line 3: \"x\""})
    EXPECT_TRUE(Contains(back.err, word)) << word;
  EXPECT_TRUE(Contains(cli("convert --datums").out, "Clarke 1866\tNorth Amercia\n"));
}

TEST(Picture, HasTheDefaultsOfTheManual) {
  const Cli cli;
  const std::string process = "process " + Sample + " --past-gaps --bad-gps interpolate --out s --picture ";
  ASSERT_EQ(cli(process + "map.bmp --size 320x200").status, 0);
  ASSERT_EQ(cli(process + "again.bmp --size 320x200 --theta 90 --phi 0 --gamma 0 --zoom 1 --layers electrodes "
                          "--projection orthographic")
                .status,
            0);
  const auto bytes = [&](const char* name) { return test::Slurp(cli.folder / name); };
  EXPECT_EQ(bytes("map.bmp"), bytes("again.bmp"));
  const Outcome json = cli(process + "view.PNG --json");
  EXPECT_EQ(json.status, 0);
  EXPECT_EQ(json.err.find("QStandardPaths"), std::string::npos) << json.err;
  EXPECT_TRUE(Contains(json.out, "\"view.PNG\"")) << "listed among the outputs";
  EXPECT_EQ(bytes("view.PNG").substr(1, 3), "PNG");
}

TEST(Picture, ThatCannotBeWrittenIsNamedAndTheRestIsDone) {
  const Cli cli;
  const Outcome run = cli("process " + Sample + " --past-gaps --out s --picture missing/view.png");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.err, "missing/view.png")) << run.err;
  EXPECT_TRUE(cli.exists("s.bin"));
}

const std::string Track = CORVAN_SAMPLES "/lagoon_track.";

TEST(Tracks, AreLinkedByTimeAndByPosition) {
  const Cli cli;
  const std::string process = "process " + Sample + " --past-gaps --out s --format csv,bin ";
  const Outcome time = cli(process + "--gps " + Track + "nav --link time --json");
  EXPECT_EQ(time.status, 0) << time.err;
  EXPECT_TRUE(Contains(time.out, "\"outside\": 0")) << time.out;
  EXPECT_TRUE(Contains(time.out, "\"fixes\": 795"));
  const Outcome late = cli(process + "--gps " + Track + "nav --link time --clock-offset 7200");
  EXPECT_EQ(late.status, 1);
  EXPECT_TRUE(Contains(late.err, "218 of 218 measurements lie outside the time of the track")) << late.err;
  const Outcome place = cli(process + "--gps " + Track + "csv --link position --connect 3:4 --connect 218:295");
  EXPECT_EQ(place.status, 0) << place.err;
  EXPECT_EQ(place.out.find("linked "), std::string::npos) << "no link by time";
  EXPECT_EQ(cli(process + "--gps missing.nav --link time").status, 1);
  EXPECT_EQ(cli(process + "--gps " + Track + "csv --link position").status, 1) << "no connections";
}

TEST(Tracks, AreToldByInfo) {
  const Cli cli;
  const Outcome run = cli("info " + Track + "nav " + Track + "csv " + Track + "gps");
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* words : {"NMEA 0183 log, ", "table of positions (.csv), ", "six columns, ", "fixes      795",
                            "2026-06-15 07:59:58 to 2026-06-15 08:39:40", "depth      2.0 to 12.0 m"}) {
    EXPECT_TRUE(Contains(run.out, words)) << words;
  }
  cli.folder.write("log.txt", test::Slurp(Track + "nav"));
  const Outcome renamed = cli("info log.txt");
  EXPECT_EQ(renamed.status, 0) << renamed.err;
  EXPECT_TRUE(Contains(renamed.out, "NMEA 0183 log, ")) << "whatever its name is";
  // A thousandth of a degree of latitude is 111.1 m long; nobody tells how six columns are written, their size does.
  const char* const places[][2] = {
      {"45.4 12.3", "45.401 12.3"}, {"4524 1218", "4524.06 1218"}, {"452400 121800", "452403.6 121800"}};
  for (const auto& [first, second] : places) {
    cli.folder.write("six.txt",
                     std::string("15/06/2026 08:00:00 1 ") + first + " 5\n15/06/2026 08:00:10 2 " + second + " 5\n");
    const Outcome six = cli("info six.txt");
    EXPECT_EQ(six.status, 0) << six.err;
    EXPECT_TRUE(Contains(six.out, "length     111.1")) << six.out;  // 0.001 degrees
  }
  cli.folder.write("bad.csv", "h\n1;x;soon;8;;;;1;;1;1\n");
  const Outcome bad = cli("info bad.csv");
  EXPECT_EQ(bad.status, 1);
  EXPECT_TRUE(Contains(bad.err, "line 2: \"soon 8\" is no date and time")) << bad.err;
}

}  // namespace
}  // namespace corvan

// Column texts and GPX tracks through the command line, from options to outputs.
#include <gtest/gtest.h>

#include <sstream>

#include "base/NumberText.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

/// A cell of a table with a header line; row 1 stands below it.
double Cell(const Cli& cli, const char* file, const std::string& column, std::size_t row) {
  std::istringstream lines(test::Slurp(cli.folder / file));
  std::string header, line;
  std::getline(lines, header);
  while (row-- > 0) std::getline(lines, line);
  std::istringstream names(header), values(line);
  for (std::string name, value; std::getline(names, name, ',') && std::getline(values, value, ',');) {
    if (name == column) return Val(value);
  }
  ADD_FAILURE() << "no column " << column << " in " << header;
  return 0;
}

/// Two firings 5 m apart of two channels each. By hand, as elsewhere: K is -94.248 and -376.992 m, so -0.25 and -0.0625
/// ohm are 23.562 ohm m each.
const std::string Rows =
    "1 6 11 16 -0.25 288685.5 5030933.25\n1 6 16 21 -0.0625 288685.5 5030933.25\n"
    "1 6 11 16 -0.5 288688.5 5030937.25\n1 6 16 21 -0.125 288688.5 5030937.25\n";
const char* const Columns = " --columns 'a b m n r easting northing'";

TEST(ColumnTexts, GoThroughTheWholeChain) {
  const Cli cli;
  cli.folder.write("rows.dat", Rows);
  const Outcome run =
      cli("process rows.dat --zone 33 --out o --format bin,txt,ecs,kml,csv --picture o.png --true-position "
          "--cable-offset 2" +
          std::string(Columns));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(Contains(run.out, "rows.dat: columns, 146 bytes, 4 lines, 2 channels, 2 firings")) << run.out;
  EXPECT_NEAR(Cell(cli, "o.csv", "rho1", 1), 23.562, 1e-4);
  EXPECT_NEAR(Cell(cli, "o.csv", "rho2", 2), 47.124, 1e-4);
  EXPECT_EQ(Cell(cli, "o.csv", "rho3", 1), 0);
  EXPECT_EQ(Cell(cli, "o.csv", "distance", 2), 5);
  const std::vector<std::string> lines = test::CrLfLines(test::Slurp(cli.folder / "o.txt"));
  ASSERT_EQ(lines.size(), 21U);
  // Span 20, spacing 5, offset 2: the head at 22 and 27, A 20 m behind it.
  EXPECT_EQ(lines[1].substr(0, 18), " 1 \t2.\t7.\t12.\t17.\t") << lines[1];
  EXPECT_EQ(lines[11].substr(0, 20), " 11 \t7.\t12.\t17.\t22.\t") << lines[11];
  for (const char* name : {"o.bin", "o.ecs", "o.ecst", "o.kml", "o.png"}) EXPECT_TRUE(cli.exists(name)) << name;
}

TEST(ColumnTexts, StandInTheZoneThatIsStated) {
  const Cli cli;
  cli.folder.write("rows.dat", Rows);
  cli.folder.write("head.dat", "a b m n r lat lon\n1 6 11 16 1 -45.5 12.25\n");
  const auto latitude = [&](const std::string& options) {
    cli("process --coords dd --format csv --out o " + options + Columns);
    return Cell(cli, "o.csv", "lat", 1);
  };
  // Krueger's series to the third order, by another program: 45.3999989 N, in the southern zone 44.8437064 S;
  // the series in use is known to lie up to 5 m beside it.
  EXPECT_NEAR(latitude("rows.dat --zone 33"), 45.3999989, 6e-5);
  EXPECT_NEAR(latitude("rows.dat --zone 33 --south"), -44.8437064, 6e-5);
  EXPECT_EQ(latitude("head.dat"), -45.5);
}

TEST(ColumnTexts, ShareABatchWithTheInstrumentsFiles) {
  const Cli cli;
  cli.folder.write("dd.txt", TextSurvey(DegreePlaces()));
  cli.folder.write("rows.dat", "a b m n r x y\n1 6 11 16 -0.25 288700 5030900\n");
  const Outcome run = cli("process rows.dat dd.txt --coords dd --format csv --out o");
  EXPECT_TRUE(Contains(run.err, "zone 33 is assumed")) << "that of the latitudes: " << run.err;
  EXPECT_EQ(Cell(cli, "o.csv", "utm_x", 1), 288700);
  EXPECT_NEAR(Cell(cli, "o.csv", "rho1", 1), 23.562, 1e-4);
  EXPECT_EQ(Cell(cli, "o.csv", "lat", 2), 45.4009);
  EXPECT_FALSE(Contains(run.err, "another cable")) << run.err;
  const Outcome typed = cli("process rows.dat dd.txt --coords dd --cable 'C1 55 C2 60 E1 50' --format csv --out o");
  EXPECT_TRUE(Contains(typed.err, "1 measurement keeps the electrodes that the rows of a column text name"))
      << typed.err;
  EXPECT_NEAR(Cell(cli, "o.csv", "rho1", 1), 23.562, 1e-4);
}

TEST(ColumnTexts, TakeNumbersOfElectrodesTimesTheSpacing) {
  const Cli cli;
  cli.folder.write("rows.dat", "1 2 3 4 -0.25 288685.5 5030933.25\n");
  EXPECT_EQ(cli("process rows.dat --format csv --out o --spacing 2.5" + std::string(Columns)).status, 0);
  EXPECT_EQ(Cell(cli, "o.csv", "e2", 1), 10);
  // 6.2832 / (1/5 - 1/7.5 - 1/2.5 + 1/5) = -47.124 m
  EXPECT_NEAR(Cell(cli, "o.csv", "rho1", 1), 11.781, 1e-4);
}

TEST(ColumnTexts, OptionsThatDoNothingOrAreWrongAreSaid) {
  const Cli cli;
  cli.folder.write("line.bin", test::SyscalFile(test::Firings(4, 10)));
  cli.folder.write("rows.dat", Rows);
  cli.folder.write("head.dat", "a b m n r x y\n" + Rows);
  struct Case {
    std::string arguments;
    int status;
    const char* words;
  };
  const Case cases[] = {{"process line.bin" + std::string(Columns), 0, "--columns is not used"},
                        {"process line.bin --spacing 5", 0, "--spacing is not used"},
                        {"process head.dat" + std::string(Columns), 0, "--columns is not used"},
                        {"process rows.dat", 1, "no header names the columns and nobody has stated them (--columns)"},
                        {"process rows.dat --columns 'a b m n r easting'", 2, "no column for a position"},
                        {"process rows.dat --columns 'a b m n r x y foo'", 2, "\"foo\" is no name of a column"},
                        {"process rows.dat --spacing 0" + std::string(Columns), 2, "is not 0.001 to 100000 m"},
                        {"process rows.dat --out q --format csv --coords dd" + std::string(Columns), 0,
                         "the coordinate format (dd) is that"},
                        {"process rows.dat --out head --format txt" + std::string(Columns), 0, ""},
                        {"process head.dat --out rows", 0, ""},
                        {"info line.bin --spacing 5" + std::string(Columns), 0, "--columns is not used"},
                        {"info line.bin --spacing 5" + std::string(Columns), 0, "--spacing is not used"},
                        {"info rows.dat", 1, "no header"},
                        {"info rows.dat" + std::string(Columns), 0, ""}};
  for (const Case& c : cases) {
    const Outcome run = cli(c.arguments);
    EXPECT_EQ(run.status, c.status) << c.arguments << run.err;
    EXPECT_TRUE(Contains(run.err, c.words)) << c.arguments << '\n' << run.err;
  }
  cli.folder.write("o.csv", "a,b,m,n,rhoa,lat,lon\n");
  EXPECT_TRUE(
      Contains(cli("process line.bin --out o --format csv").err, "o.csv: is a column text and is not overwritten"));
}

TEST(GpxTracks, AreLinkedByTime) {
  const Cli cli;
  cli.folder.write("rows.dat", "a b m n r lat lon time\n1 6 11 16 -0.25 45.4 12.3 2026-06-15T08:00:05Z\n");
  cli.folder.write(
      "track.gpx",
      "<gpx><trk><trkseg><trkpt lat='45.40' lon='12.30'><time>2026-06-15T08:00:00Z</time><depth>3</depth>"
      "</trkpt><trkpt lat='45.4002' lon='12.3002'><time>2026-06-15T08:00:10Z</time><depth>4</depth></trkpt>"
      "</trkseg></trk></gpx>");
  const Outcome run = cli("process rows.dat --gps track.gpx --link time --coords dd --format csv --out o");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NEAR(Cell(cli, "o.csv", "lat", 1), 45.4001, 6e-5);
  EXPECT_EQ(Cell(cli, "o.csv", "depth", 1), 3.5);
  const Outcome info = cli("info track.gpx rows.dat");
  EXPECT_TRUE(Contains(info.out, "GPX track") && Contains(info.out, "fixes      2") &&
              Contains(info.out, "column text"));
}

}  // namespace
}  // namespace corvan

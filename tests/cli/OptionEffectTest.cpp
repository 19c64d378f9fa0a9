// Every option of the command line has its effect: cells of the outputs against values of tests/support/reference.py.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "base/NumberText.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

std::vector<std::string> Pieces(const std::string& line, char separator) {
  std::vector<std::string> pieces;
  std::istringstream words(line);
  for (std::string piece; std::getline(words, piece, separator);) {
    if (separator != ' ' || !piece.empty()) pieces.push_back(piece);
  }
  return pieces;
}

/// Row k of a .kml: the k-th vertex (lon, lat, alt), or the k-th colour of a cell as a number.
double KmlValue(const std::string& text, const std::string& column, std::size_t row) {
  std::vector<double> values;
  for (std::string line : Pieces(text, '\n')) {
    std::erase(line, ' ');
    if (const std::size_t at = line.find("<color>"); column == "colour" && at != std::string::npos) {
      values.push_back(static_cast<double>(std::stoul(line.substr(at + 7, 8), nullptr, 16)));
    }
    const std::vector<std::string> parts = Pieces(line, ',');
    if (column != "colour" && parts.size() == 3 && !Contains(line, "<")) {
      values.push_back(Val(parts.at(column == "lon" ? 0 : column == "lat" ? 1 : 2)));
    }
  }
  return values.at(row - 1);
}

/// A cell of an output with the root "o": "csv utm_x 2" is column utm_x of its row 2, "txt rows" the number of rows.
double Value(const Cli& cli, const std::string& where) {
  const std::vector<std::string> words = Pieces(where, ' ');
  const std::string& kind = words.at(0);
  const std::string text = test::Slurp(cli.folder / ("o." + kind));
  const std::size_t row = words.size() > 2 ? std::stoul(words[2]) : 0;
  if (kind == "kml") return KmlValue(text, words.at(1), row);
  std::vector<std::string> lines = Pieces(text, '\n');
  const char separator = kind == "csv" ? ',' : kind == "txt" ? '\t' : ' ';
  std::vector<std::string> names{"n", "x", "y", "depth", "distance"};
  if (separator != ' ') {
    lines.front().erase(lines.front().find_last_not_of('\r') + 1);
    names = Pieces(lines.front(), separator);
    lines.erase(lines.begin());
  }
  if (words.at(1) == "rows") return static_cast<double>(lines.size());
  const auto column = std::find(names.begin(), names.end(), words.at(1));
  if (column == names.end()) throw std::out_of_range("no column " + words[1]);
  return Val(Pieces(lines.at(row - 1), separator).at(static_cast<std::size_t>(column - names.begin())));
}

struct Cell {
  const char* where;
  double value;
};

struct Effect {
  const char* name;
  const char* arguments;
  std::vector<Cell> cells;
};

void PrintTo(const Effect& effect, std::ostream* out) { *out << effect.arguments; }

void WriteSurveys(const Cli& cli) {
  std::vector<Place> gap = DegreePlaces();
  gap[3] = {"0", "0"};
  cli.folder.write("grid.txt", TextSurvey(GridPlaces()));
  cli.folder.write("dd.txt", TextSurvey(DegreePlaces()));
  cli.folder.write("ddmm.txt", TextSurvey({{"4524.054", "1218.084"}, {"4524.072", "1218.126"}}));
  cli.folder.write("ddmmss.txt", TextSurvey({{"452403.24", "121805.04"}, {"452404.32", "121807.56"}}));
  cli.folder.write("south.txt", TextSurvey(DegreePlaces("-")));
  cli.folder.write("gap.txt", TextSurvey(gap, false));
  cli.folder.write("grid.csv", GridTrack());
  cli.folder.write("times.bin", test::SyscalFile(TimedFirings()));
  cli.folder.write("clock.csv", CsvTrack({{288690, 5030890, 4.25},
                                          {288700, 5030900, 5.5},
                                          {288731, 5030913, 6.25},
                                          {288757, 5030937, 7.75},
                                          {288798, 5030952, 9.5},
                                          {288822, 5030971, 11.25}},
                                         -10));
  auto open = test::Firings(8, 4);
  for (auto& record : open) record.channel = 0;
  cli.folder.write("open.bin", test::SyscalFile(open));
}

class Options : public ::testing::TestWithParam<Effect> {};

TEST_P(Options, ChangeWhatTheySay) {
  const Cli cli;
  WriteSurveys(cli);
  const Outcome run = cli(std::string("process --out o --format csv,txt,ecs,kml ") + GetParam().arguments);
  for (const auto& [where, value] : GetParam().cells) {
    double is = 0;
    ASSERT_NO_THROW(is = Value(cli, where)) << where << run.err;
    EXPECT_NEAR(is, value, 1e-12 * std::abs(value)) << where << '\n' << run.err;
  }
}

std::string GivenName(const ::testing::TestParamInfo<Effect>& test) { return test.param.name; }

INSTANTIATE_TEST_SUITE_P(
    Reading, Options,
    ::testing::Values(
        Effect{"CoordsDegrees",
               "dd.txt --coords dd",
               {{"csv utm_x 2", 288854.3439847181}, {"csv utm_y 2", 5031061.241472263}}},
        Effect{"CoordsMinutes",
               "ddmm.txt --coords ddmm",
               {{"csv utm_x 2", 288854.3439847181}, {"csv utm_y 2", 5031061.241472263}}},
        Effect{"CoordsUnsaidAreMinutes",
               "ddmm.txt",
               {{"csv utm_x 2", 288854.3439847181}, {"csv utm_y 2", 5031061.241472263}}},
        Effect{"CoordsSeconds",
               "ddmmss.txt --coords ddmmss",
               {{"csv utm_x 2", 288854.3439847181}, {"csv utm_y 2", 5031061.241472263}}},
        Effect{"CoordsGrid",
               "grid.txt --coords utm",
               {{"csv utm_x 2", 612348.25},
                {"csv utm_y 2", 5034573.5},
                {"csv distance 4", 45},
                {"csv step 3", 103},
                {"kml lon 1", 10.4367953139},
                {"kml lat 1", 45.4555934148}}},
        Effect{"Zone",
               "dd.txt --coords dd --zone 32",
               {{"csv utm_x 2", 758431.5518959477}, {"csv utm_y 2", 5032825.806807494}}},
        Effect{"ZoneOfGridFiles",
               "grid.txt --coords utm --zone 31",
               {{"csv utm_x 2", 612348.25}, {"kml lon 1", 4.4367953139}, {"kml lat 1", 45.4555934148}}},
        Effect{"SouthOfGridFiles",
               "grid.txt --coords utm --south",
               {{"csv utm_y 1", 5034567.5}, {"kml lon 1", 10.4212487064}, {"kml lat 1", -44.8334550081}}},
        Effect{"SouthernDegrees",
               "south.txt --coords dd",
               {{"csv utm_x 2", 288854.3439847181},
                {"csv utm_y 2", 4968938.758527737},
                {"csv lat 1", -45.4009},
                {"kml lat 1", -45.4008537914},
                {"kml lon 1", 12.3013996314}}},
        // Measurement 4 of 5 has no position.
        Effect{"GapEndsTheReading", "gap.txt --coords dd", {{"csv rows", 3}, {"txt rows", 30}}},
        Effect{"GapKept",
               "gap.txt --coords dd --past-gaps",
               {{"csv rows", 5},
                {"csv utm_x 4", 0},
                {"csv utm_x 5", 289014.9657521607},
                {"csv discarded 4", 0},
                {"csv interpolated 4", 0}}},
        Effect{"GapSkipped",
               "gap.txt --coords dd --past-gaps --bad-gps skip",
               {{"csv rows", 5}, {"csv discarded 4", 1}, {"csv discarded 3", 0}, {"txt rows", 40}}},
        Effect{"GapInterpolated",
               "gap.txt --coords dd --past-gaps --bad-gps interpolate",
               {{"csv utm_x 4", 288950.4936669853},
                {"csv utm_y 4", 5031124.747519865},
                {"csv lat 4", 45.4018},
                {"csv lon 4", 12.3033},
                {"csv interpolated 4", 1},
                {"csv interpolated 5", 0},
                {"csv discarded 4", 0},
                {"csv depth 4", 5.5},
                {"txt rows", 50}}},
        Effect{"ChannelsUnsaid", "open.bin", {{"csv rows", 8}, {"csv e3 1", 40}, {"csv e4 1", 35}}},
        Effect{"Channels", "open.bin --channels 2", {{"csv rows", 16}, {"csv e1 2", 40}, {"csv e2 2", 35}}},
        Effect{"CableOfTheFile",
               "grid.txt --coords utm",
               {{"csv rho2 3", -3.096795}, {"csv rho1 1", -0.7186459}, {"txt Bx 13", 11}, {"txt Nx 13", 15}}},
        Effect{"CableTyped",
               "grid.txt --coords utm --cable 'C1 13 C2 15.5 E1 18 E2 20.5 E3 23 E4 25.5 E5 28 E6 30.5 E7 33 E8 35.5 "
               "E9 38 "
               "E10 40.5 E11 43'",
               {{"csv rho2 3", -7.741988},
                {"txt Ax 13", 10},
                {"txt Bx 13", 12.5},
                {"txt Mx 13", 20},
                {"txt Nx 13", 22.5}}},
        Effect{"TextColumns",  // each column of a text line in its place
               "grid.txt --coords utm",
               {{"csv c1 2", 13},
                {"csv c2 2", 14},
                {"csv e1 2", 15},
                {"csv e11 2", 25},
                {"csv depth 2", 3.75},
                {"csv i_a 2", 802},
                {"csv i_b 2", -814},
                {"csv va1 2", 30.5},
                {"csv vb1 2", -31.5},
                {"csv va10 2", 48.5},
                {"csv vb10 2", -49.5}}}),
    GivenName);

INSTANTIATE_TEST_SUITE_P(
    Section, Options,
    ::testing::Values(
        // Record 13 is channel 3 of measurement 2; record 20 the last of that measurement.
        Effect{"NoOffset",
               "grid.txt --coords utm",
               {{"txt Ax 13", 10},
                {"txt Nx 13", 15},
                {"txt Az 13", 3.25},
                {"txt Mz 13", 3.75},
                {"ecst depth 2", 3.25},
                {"txt UTMx 13", 612348.25},
                {"txt UTMy 13", 5034573.5},
                {"kml alt 1", 125},
                {"txt i 13", 808},
                {"txt v 13", 35}}},
        Effect{"CableOffset",
               "grid.txt --coords utm --cable-offset 4.5",
               {{"txt Ax 13", 14.5},
                {"txt Nx 13", 19.5},
                {"txt Az 13", 3.75},
                {"ecst depth 2", 3.75},
                {"txt UTMx 13", 612348.25}}},
        Effect{
            "EchoOffset",
            "grid.txt --coords utm --echo-offset 14",
            {{"txt Ax 13", 10}, {"txt Nx 13", 15}, {"txt Az 13", 4.5}, {"ecst depth 2", 4.5}, {"ecs depth 2", 3.75}}},
        Effect{
            "TruePosition",
            "grid.txt --coords utm --true-position",
            {{"txt UTMx 13", 612339.06}, {"txt UTMy 13", 5034566.5}, {"ecst x 2", 612339.05}, {"ecs x 2", 612348.25}}},
        Effect{"TruePositionWithCableOffset",
               "grid.txt --coords utm --true-position --cable-offset 4.5",
               {{"txt UTMx 13", 612335.44}, {"txt UTMy 13", 5034564}}},
        Effect{"ExternalPositionsStay",
               "grid.txt --coords utm --true-position --external-gps --cable-offset 4.5",
               {{"txt UTMx 13", 612348.25}, {"txt UTMy 13", 5034573.5}}},
        Effect{"ExternalAloneChangesNothing", "grid.txt --coords utm --external-gps", {{"txt UTMx 13", 612348.25}}},
        Effect{"KmlOffset", "grid.txt --coords utm --kml-offset 7.25", {{"kml alt 1", 132.25}, {"kml alt 6", 119.75}}},
        Effect{"KmlOffsetDown", "grid.txt --coords utm --kml-offset=-7.25", {{"kml alt 1", 117.75}}},
        Effect{"FromTo",
               "grid.txt --coords utm --from 2 --to 4",
               {{"ecs rows", 3},
                {"ecs n 1", 2},
                {"ecs n 3", 4},
                {"ecs distance 3", 35},
                {"txt rows", 30},
                {"txt Ax 21", 35},
                {"txt Az 21", 5.5}}},
        Effect{"ToFrom",
               "grid.txt --coords utm --from 4 --to 2",
               {{"ecs rows", 3},
                {"ecs n 1", 2},
                {"ecs n 3", 4},
                {"ecs distance 3", 35},
                {"txt rows", 30},
                {"txt Ax 21", 35},
                {"txt Az 21", 5.5}}},
        // Resistivity 1 of measurement 1 is -0.7186...; colours are alpha, blue, green, red.
        Effect{"RangeInTheMiddle",
               "grid.txt --coords utm '--range=-1.2186458706855774;-0.2186458706855774'",
               {{"kml colour 1", 0xC83EFE00}}},
        Effect{"RangeBelow", "grid.txt --coords utm '--range=-1000000;-1'", {{"kml colour 1", 0xC80009FF}}},
        Effect{"RangeReversed", "grid.txt --coords utm '--range=-1;-1000000'", {{"kml colour 1", 0xC8FE0078}}}),
    GivenName);

INSTANTIATE_TEST_SUITE_P(
    Tracks, Options,
    ::testing::Values(
        Effect{"Time",
               "times.bin --gps clock.csv --link time",
               {{"csv utm_x 1", 288700}, {"csv utm_x 2", 288721.7}, {"csv utm_y 2", 5030909.1}, {"csv depth 1", 5.5}}},
        Effect{"ClockOffsetForward",
               "times.bin --gps clock.csv --link time --clock-offset 3",
               {{"csv utm_x 1", 288709.3},
                {"csv utm_y 1", 5030903.9},
                {"csv utm_x 2", 288731},
                {"csv depth 2", 6.25},
                {"csv utm_x 5", 288800.4}}},
        Effect{"ClockOffsetBack",
               "times.bin --gps clock.csv --link time --clock-offset=-4",
               {{"csv utm_x 1", 288696},
                {"csv utm_y 1", 5030896},
                {"csv depth 1", 5},
                {"csv utm_x 3", 288731},
                {"csv utm_x 5", 288773.4}}},
        Effect{"Position",
               "grid.txt --coords utm --gps grid.csv --link position --connect 1:1 --connect 5:4",
               {{"csv utm_x 1", 612346.25},
                {"csv utm_x 2", 612353.20982731},
                {"csv utm_y 2", 5034573.899928045},
                {"csv utm_x 4", 612374.4288020398},
                {"csv utm_x 5", 612377.25}}},
        Effect{"PositionOtherOrder",
               "grid.txt --coords utm --gps grid.csv --link position --connect 5:4 --connect 1:1",
               {{"csv utm_x 1", 612346.25}, {"csv utm_x 2", 612353.20982731}, {"csv utm_x 4", 612374.4288020398}}},
        Effect{"PositionDownwards",
               "grid.txt --coords utm --gps grid.csv --link position --connect 1:4 --connect 5:1",
               {{"csv utm_x 1", 612377.25}, {"csv utm_x 2", 612371.6076040795}, {"csv utm_y 4", 5034572.449964023}}},
        Effect{"PositionWithin",
               "grid.txt --coords utm --gps grid.csv --link position --connect 4:3 --connect 2:1",
               {{"csv utm_x 1", 612340.25},
                {"csv utm_x 2", 612346.25},
                {"csv utm_x 3", 612355.348901099},
                {"csv utm_x 4", 612366.25},
                {"csv utm_x 5", 612380.25}}}),
    GivenName);

TEST(Outputs, AreTheBinaryAloneUnlessAskedFor) {
  const Cli cli;
  WriteSurveys(cli);
  std::filesystem::create_directory(cli.folder / "sub");
  ASSERT_EQ(cli("process grid.txt --coords utm --out sub/line").status, 0);
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(cli.folder / "sub"))
    names.push_back(entry.path().filename().string());
  EXPECT_EQ(names, std::vector<std::string>{"line.bin"});
  EXPECT_EQ(std::filesystem::file_size(cli.folder / "sub/line.bin"), 1029U + 50U * 280U);
}

TEST(Outputs, AreSummedUpInOneJsonObject) {
  const Cli cli;
  WriteSurveys(cli);
  const Outcome run = cli("process grid.txt --coords utm --from 2 --to 4 --out sum --format txt --json");
  EXPECT_EQ(run.status, 0);
  for (const char* part : {R"("name": "grid.txt")", R"("format": "text")", R"("channels": 10)", R"("firings": 5)",
                           R"("measurements": 5)", R"("discarded": 0)", R"("interpolated": 0)", R"("zone": 32)",
                           R"("track_length": 50.0)", R"("mean_spacing": 12.5)", R"("from": 2)", R"("to": 4)",
                           R"("points": 3)", R"("records": 30)", R"("sum.txt")", R"("messages": [])"}) {
    EXPECT_TRUE(Contains(run.out, part)) << part << '\n' << run.out;
  }
}

TEST(Extremes, AreThoseOfTheComputedResistivities) {
  const Cli cli;
  WriteSurveys(cli);
  const Outcome run = cli("process grid.txt --coords utm --out o --json");
  EXPECT_TRUE(Contains(run.out, "\"rho_min\": -253.916") && Contains(run.out, "\"rho_max\": -0.71864")) << run.out;
}

struct DatumCase {
  const char* name;
  const char* grid;   ///< of 45.4321 N 13.7 E
  const char* place;  ///< of 398307.25 5031876.5 in zone 33
};

TEST(Convert, UsesTheEllipsoidOfEveryDatum) {
  const Cli cli;
  for (const auto& [name, grid, place] : {
           DatumCase{"WGS84", "398313.2714 5031775.0526 33", "45.4330102296 13.6999020541"},
           DatumCase{"NAD83", "398313.2714 5031775.0526 33", "45.4330102296 13.6999020541"},
           DatumCase{"WGS72", "398313.3047 5031773.6802 33", "45.4330225753 13.6999013444"},
           DatumCase{"Australian 1965", "398312.9004 5031792.5825 33", "45.4328525309 13.6999104193"},
           DatumCase{"Krasovsky 1940", "398311.5742 5031863.7466 33", "45.4322123237 13.6999420755"},
           DatumCase{"International 1924, Hayford 1909", "398308.5367 5031869.3128 33", "45.4321626854 13.6999820479"},
           DatumCase{"Clarke 1880", "398308.6586 5031463.5316 33", "45.4358143216 13.6998966357"},
           DatumCase{"Clarke 1866", "398310.2414 5031557.5251 33", "45.434968227 13.6998958294"},
           DatumCase{"Airy 1830", "398323.0335 5031409.8976 33", "45.4362951529 13.6997017793"},
           DatumCase{"Bessel 1841", "398325.5840 5031264.7394 33", "45.4376013073 13.6996391559"},
           DatumCase{"Everest 1830", "398304.4487 5030950.4655 33", "45.44043232 13.6998444084"},
       }) {
    const std::string datum = std::string(" --format d.dddd --datum '") + name + "'";
    EXPECT_EQ(cli("convert --to-utm" + datum, "45.4321 13.7\n").out, std::string(grid) + "\n") << name;
    EXPECT_EQ(cli("convert --to-geo --zone 33" + datum, "398307.25 5031876.5\n").out, std::string(place) + "\n")
        << name;
  }
}

struct ConvertCase {
  const char* arguments;
  const char* in;
  const char* out;
};

TEST(Convert, ReadsAndWritesEveryLayoutZoneAndHemisphere) {
  const Cli cli;
  for (const auto& [arguments, in, out] : {
           ConvertCase{"--to-utm --format dmmss", "452555.56 134200.0", "398313.2714 5031775.0526 33"},
           ConvertCase{"--to-utm --format dmm.mmm", "4525.926 1342.0", "398313.2714 5031775.0526 33"},
           ConvertCase{"--to-utm", "4525.926 1342.0", "398313.2714 5031775.0526 33"},
           ConvertCase{"--to-utm --format d.dddd --zone 32", "45.4321 12.4", "765948.1134 5036578.0155 32"},
           ConvertCase{"--to-utm --format d.dddd", "-45.4321 13.7", "398313.2714 4968224.9474 33"},
           ConvertCase{"--to-utm --format d.dddd --south", "-45.4321 13.7", "398313.2714 4968224.9474 33"},
           ConvertCase{"--to-geo --zone 33 --format dmmss", "398307.25 5031876.5", "452558.84 134159.65"},
           ConvertCase{"--to-geo --zone 33", "398307.25 5031876.5", "4525.980614 1341.994123"},
           ConvertCase{"--to-geo --zone 33 --south --format dmmss", "398307.25 5031876.5", "-445133.38 134246.37"},
           ConvertCase{"--to-geo --zone 33 --south --format dmm.mmm", "398307.25 5031876.5",
                       "-4451.556302 1342.772851"},
           ConvertCase{"--to-geo --zone 33 --south --format d.dddd", "398307.25 5031876.5",
                       "-44.8592717072 13.7128808421"},
       }) {
    EXPECT_EQ(cli(std::string("convert ") + arguments, std::string(in) + "\n").out, std::string(out) + "\n")
        << arguments;
  }
}

}  // namespace
}  // namespace corvan

// Text exports: which lines are data, what ends them, and lines that are not what they should be.
#include "input/TextReader.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <map>

#include "base/File.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::TextLine;

constexpr ReadSpan Stop = ReadSpan::ToFirstLostFix;
constexpr ReadSpan Past = ReadSpan::PastLostFixes;
const std::string Header = "Distance;Depth\r\n";

FileRead Read(const std::string& content, const ReadOptions& options = {}) {
  const test::TempFolder folder;
  FileRead out;
  const auto keep = [&out](const Misura& m) { out.measurements.push_back(m); };
  static_cast<FileReport&>(out) = LeggiFileCorvan(folder.write("export.txt", content), options, keep);
  return out;
}

/// The findings, one a line, faults behind "!", notes behind "-".
std::string Told(const FileReport& report) {
  std::string told;
  for (const Finding& f : report.findings.entries()) {
    EXPECT_EQ(f.procedure, "LeggiFileCorvan");
    told += (f.severity == Severity::Fault ? "!" : "-") + f.reason + "\n";
  }
  return told;
}

/// A line whose 49 values are all different and none is the number of a field; `changed` replaces some.
std::string Line(const std::map<int, std::string>& changed = {}) {
  std::map<int, std::string> all{{26, "4524.5"}, {27, "1218.5"}};
  for (int k = 1; k <= 49; ++k) {
    if (k != 26 && k != 27) all[k] = std::to_string(100 + 3 * k) + ".25";
  }
  for (const auto& [field, text] : changed) all[field] = text;
  return TextLine(all);
}

float Expected(int field) { return static_cast<float>(100 + 3 * field) + 0.25F; }

TEST(TextExport, PutsEachOfThe49FieldsInItsPlace) {
  const FileRead out = Read(Header + Line() + "\r\n\r\n");
  ASSERT_EQ(out.measurements.size(), 1U);
  const Misura& m = out.measurements[0];
  EXPECT_EQ(m.Passo, Expected(1));
  EXPECT_EQ(m.Val12, Expected(2));
  for (int c = 1; c <= 10; ++c) EXPECT_EQ(m.Rho.at(static_cast<std::size_t>(c)), Expected(2 + c)) << c;
  EXPECT_EQ(m.Val60, Expected(13));
  EXPECT_EQ(m.Val64, Expected(14));
  for (int e = 1; e <= 11; ++e) EXPECT_EQ(m.Elettrodi.at(static_cast<std::size_t>(e)), Expected(14 + e)) << e;
  EXPECT_EQ(m.Lat, 4524.5);
  EXPECT_EQ(m.Lon, 1218.5);
  EXPECT_EQ(m.Val180, Expected(28));
  EXPECT_EQ(m.Val184, Expected(29));  // as it stands, not negated
  for (int c = 1; c <= 10; ++c) {
    EXPECT_EQ(m.CanaleA.at(static_cast<std::size_t>(c)), Expected(28 + 2 * c)) << c;
    EXPECT_EQ(m.CanaleB.at(static_cast<std::size_t>(c)), Expected(29 + 2 * c)) << c;
  }
  EXPECT_EQ(m.Tempo, 0);
  EXPECT_EQ(m.NumFile, 1);
  EXPECT_EQ(m.letture, AllReadings);
  EXPECT_FALSE(m.SenzaFix);
  EXPECT_EQ(Told(out), "");
  EXPECT_EQ(out.summary.format, "text");
  EXPECT_EQ(out.summary.channels, 10);
  EXPECT_EQ(out.largestChannel, 10);
  EXPECT_EQ(out.summary.recordLength, 0U);
  EXPECT_EQ(out.summary.bytes, Header.size() + Line().size() + 4);
}

struct LayoutCase {
  std::optional<AngleFormat> layout;
  const char* north;
  const char* east;
  double lat, lon, x, y;  ///< as the measurement keeps them
  PositionSource source;
};

class Positions : public ::testing::TestWithParam<LayoutCase> {};

// Degrees by hand: 45 + 24.303/60 = 45.40505; 12 + 18/60 + 36/3600 = 12.31.
TEST_P(Positions, KeepTheirNumbersAndTheirSource) {
  const LayoutCase& c = GetParam();
  ReadOptions options;
  options.layout = c.layout;
  const FileRead out = Read(Header + Line({{26, c.north}, {27, c.east}}) + "\n\n", options);
  ASSERT_EQ(out.measurements.size(), 1U);
  const Misura& m = out.measurements[0];
  EXPECT_EQ(m.Lat, c.lat);
  EXPECT_EQ(m.Lon, c.lon);
  EXPECT_EQ(m.UTMx, c.x);
  EXPECT_EQ(m.UTMy, c.y);
  ASSERT_EQ(m.sorgente.index(), c.source.index());
  if (const auto* geographic = std::get_if<Geographic>(&c.source)) {
    EXPECT_DOUBLE_EQ(std::get<Geographic>(m.sorgente).latitude, geographic->latitude);
    EXPECT_DOUBLE_EQ(std::get<Geographic>(m.sorgente).longitude, geographic->longitude);
  } else {
    EXPECT_EQ(m.sorgente, c.source);
  }
  EXPECT_EQ(m.SenzaFix, c.source.index() == 0);
  EXPECT_EQ(Told(out), "");
}

INSTANTIATE_TEST_SUITE_P(Table, Positions,
                         ::testing::Values(LayoutCase{AngleFormat::DMM_MMM, "4524.303", "-1218.6", 4524.303, -1218.6, 0,
                                                      0, Geographic{45.40505, -12.31}},
                                           LayoutCase{AngleFormat::DMMSS, "-452418.18", "121836", -452418.18, 121836, 0,
                                                      0, Geographic{-45.40505, 12.31}},
                                           LayoutCase{AngleFormat::D_DDDD, "45.40505", "+12.31", 45.40505, 12.31, 0, 0,
                                                      Geographic{45.40505, 12.31}},
                                           LayoutCase{std::nullopt, "5031234.56", "291234.5", 0, 0, 291234.5,
                                                      5031234.56, Grid{291234.5, 5031234.56, 0, Hemisphere::North}},
                                           LayoutCase{AngleFormat::DMM_MMM, "4524.303", "0", 0, 0, 0, 0, {}},
                                           LayoutCase{AngleFormat::DMM_MMM, "4524.303", "", 0, 0, 0, 0, {}}));

/// Lines by letter: "+" with a position, "0" without latitude, "1" without longitude, "x" a word for the latitude, "."
/// blank, ";" separators alone, "H" a header, "<" cut short before its position, "-" cut short behind it, "!" a reading
/// out of range, "o" the same without position, "^" a position out of range.
std::string Export(const std::string& pattern, const std::string& end) {
  const std::map<char, std::map<int, std::string>> changed{
      {'+', {}}, {'0', {{26, "0"}}},   {'1', {{27, "0"}}},     {'x', {{26, "N45"}}},           {'<', {}},
      {'-', {}}, {'!', {{4, "1e99"}}}, {'^', {{26, "1e999"}}}, {'o', {{4, "1e99"}, {26, "0"}}}};
  std::string text = "DISTANCE;x" + end;
  int number = 0;
  for (const char c : pattern) {
    ++number;
    const auto found = changed.find(c);
    std::string line = c == 'H' ? "Distance;y" : std::string(c == ';' ? " ; ;" : " ");
    if (found != changed.end()) {
      auto fields = found->second;
      fields[1] = std::to_string(number);
      line = Line(fields);
      if (c == '<') line = line.substr(0, line.find(";4524"));
      if (c == '-') line = line.substr(0, line.find(";4524") + 18);
    }
    text += line + end;
  }
  return text;
}

struct SpanCase {
  const char* pattern;
  ReadSpan span;
  std::vector<int> taken;  ///< the lines taken, by their first field
  const char* told;
};

class DataLines : public ::testing::TestWithParam<SpanCase> {};

TEST_P(DataLines, AreTakenOrTold) {
  const SpanCase& c = GetParam();
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
      ReadOptions options;
      options.span = c.span;
      const FileRead out = Read(mark + Export(c.pattern, end), options);
      std::vector<int> taken;
      for (const Misura& m : out.measurements) taken.push_back(static_cast<int>(m.Passo));
      EXPECT_EQ(taken, c.taken) << c.pattern;
      EXPECT_EQ(Told(out), c.told) << c.pattern;
      EXPECT_EQ(out.summary.records, std::string(c.pattern).size() + 1) << c.pattern;
      EXPECT_EQ(out.summary.firings, c.taken.size()) << c.pattern;
    }
  }
}

// Line numbers count the header: the pattern's first letter is line 2.
INSTANTIATE_TEST_SUITE_P(
    Table, DataLines,
    ::testing::Values(
        SpanCase{"+++", Stop, {1, 2}, "-the last line, 4, is left out\n"},
        SpanCase{"+", Stop, {}, "-the last line, 2, is left out\n"}, SpanCase{"+++.", Stop, {1, 2, 3}, ""},
        SpanCase{"+1+.", Stop, {1, 2, 3}, ""}, SpanCase{"++;..", Stop, {1, 2}, ""}, SpanCase{".H++.", Stop, {3, 4}, ""},
        SpanCase{
            "+++0", Stop, {1, 2, 3}, "!fix lost at line 5: 1 line from there on left out, 0 of them with a position\n"},
        SpanCase{"00++0+",
                 Stop,
                 {3, 4},
                 "-2 lines between the header and the first position left out\n"
                 "!fix lost at line 6: 2 lines from there on left out, 1 of them with a position\n"},
        SpanCase{"++x+.+",
                 Stop,
                 {1, 2},
                 "!fix lost at line 4, field 26 \"N45\" read as 0: 3 lines from there on left out, 2 of them with a "
                 "position\n"},
        SpanCase{"++.+0H+",
                 Stop,
                 {1, 2},
                 "!the data end at the blank line 4: 3 lines behind it left out, 2 of them with a position\n"},
        SpanCase{"++H+.",
                 Stop,
                 {1, 2},
                 "!the data end at a repeated header, line 4: 1 line behind it left out, 1 of them with a position\n"},
        SpanCase{"+o+.", Stop, {1}, "!fix lost at line 3: 2 lines from there on left out, 1 of them with a position\n"},
        // A last line cut short is left out by rule, wherever the cut stands.
        SpanCase{"++<", Stop, {1, 2}, "-the last line, 4, is left out\n"},
        SpanCase{"++-", Stop, {1, 2}, "-the last line, 4, is left out\n"},
        SpanCase{"++!", Stop, {1, 2}, "-the last line, 4, is left out\n"},
        SpanCase{"++^", Stop, {1, 2}, "-the last line, 4, is left out\n"},
        SpanCase{"++-.", Stop, {1, 2, 3}, "!line 4 has 28 of 49 values, the missing ones read as 0 (1 line so)\n"},
        SpanCase{"++!+0+.+",
                 Stop,
                 {1, 2},
                 "!line 4, field 4: \"1e99\" is too large: reading ended there, 5 lines from there on not read\n"},
        SpanCase{"0^+.",
                 Stop,
                 {},
                 "-1 line between the header and the first position left out\n"
                 "!line 3, field 26: \"1e999\" is too large: reading ended there, 2 lines from there on not read\n"},
        SpanCase{"+0^!", Stop, {1}, "!fix lost at line 3: 3 lines from there on left out, 2 of them with a position\n"},
        // Past lost fixes.
        SpanCase{"+++", Past, {1, 2, 3}, ""},
        SpanCase{"0+00+0",
                 Past,
                 {2, 3, 4, 5},
                 "-1 line between the header and the first position left out\n"
                 "!the last position stands in line 6: 1 line behind it left out\n"},
        SpanCase{"+.H0.+.H", Past, {1, 4, 6}, "-3 lines, blank or a repeated header, passed over\n"},
        SpanCase{"+.0.<", Past, {1}, "!the last position stands in line 2: 2 lines behind it left out\n"},
        SpanCase{"+0!+",
                 Past,
                 {1, 2},
                 "!line 4, field 4: \"1e99\" is too large: reading ended there, 2 lines from there on not read\n"},
        // No position at all: every firing but one in the last line.
        SpanCase{"0.H00",
                 Stop,
                 {1, 4},
                 "!none of the 3 lines has a position\n"
                 "-2 lines, blank or a repeated header, passed over\n"
                 "-the last line, 6, is left out\n"},
        SpanCase{"0.", Past, {1}, "!the only line has no position\n"},
        SpanCase{"00.", Past, {1, 2}, "!none of the 2 lines has a position\n"},
        SpanCase{"", Stop, {}, "!none of the 0 lines has a position\n"}));

struct LineCase {
  std::map<int, std::string> first, second;
  std::string tail;  ///< behind the second line
  const char* told;
};

class OddLines : public ::testing::TestWithParam<LineCase> {};

TEST_P(OddLines, AreReadAsFarAsTheyGoAndTold) {
  const LineCase& c = GetParam();
  const FileRead out = Read(Header + Line(c.first) + "\n" + Line(c.second) + c.tail + "\n\n");
  EXPECT_EQ(out.measurements.size(), 2U);
  EXPECT_EQ(Told(out), c.told);
}

INSTANTIATE_TEST_SUITE_P(
    Table, OddLines,
    ::testing::Values(
        LineCase{{}, {{4, " \t1e2 \t"}, {30, "-.5"}}, ";  ;\t;", ""},
        LineCase{{{3, "1,5"}, {9, "x"}, {10, "7 "}},
                 {{26, "4524,5"}, {40, "7 mV"}},
                 "",
                 "!4 values are not numbers from end to end, the first in line 2, field 3: \"1,5\" read as 1\n"},
        LineCase{{},
                 {{27, "1218.5E"}},
                 "",
                 "!1 value is not a number from end to end in line 3, field 27: \"1218.5E\" read as 1218.5\n"},
        LineCase{{{5, ""}},
                 {{6, " "}, {7, ""}},
                 "",
                 "!line 2 has 48 of 49 values, the missing ones read as 0 (2 lines so)\n"},
        LineCase{{}, {}, ";;50", "!line 3 has 50 values, those behind field 49 are not read (1 line so)\n"},
        LineCase{{}, {}, ";" + Line(), "!line 3 has 98 values, those behind field 49 are not read (1 line so)\n"}));

TEST(CoordinateFormats, ThatTheNumbersContradictAreFaultsThatNameTheLine) {
  const std::string good = Line() + "\n";
  const FileRead seconds = Read(Header + good + Line({{26, "452430.5"}, {27, "121830"}}) + "\n\n");
  EXPECT_EQ(seconds.measurements.size(), 2U);
  EXPECT_EQ(Told(seconds).front(), '!');
  EXPECT_NE(Told(seconds).find("line 3"), std::string::npos) << Told(seconds);
  const std::string degrees = Line({{26, "45.5"}, {27, "12.5"}}) + "\n";
  EXPECT_NE(Told(Read(Header + degrees + degrees + "\n")).find("--coords dd)"), std::string::npos);
  EXPECT_EQ(Told(Read(Header + degrees + good + "\n")), "");
}

TEST(OddValues, AreReadAsTheirLeadingNumber) {
  const FileRead out = Read(Header + Line({{3, "12,5"}, {26, "4524,5"}, {40, "7 mV"}, {41, "mV 7"}}) + "\n\n");
  ASSERT_EQ(out.measurements.size(), 1U);
  const Misura& m = out.measurements[0];
  EXPECT_EQ(m.Rho[1], 12);
  EXPECT_EQ(m.Lat, 4524);
  EXPECT_EQ(m.CanaleA[6], 7);
  EXPECT_EQ(m.CanaleB[6], 0);
}

TEST(SingleRange, EndsWhereRoundingLeavesIt) {
  // The largest single is 3.40282347e38; numbers under 3.40282357e38 round to it.
  const FileRead out = Read(Header + Line({{2, "3.40282350e38"}}) + "\n" + Line({{2, "-3.4028236e38"}}) + "\n\n");
  ASSERT_EQ(out.measurements.size(), 1U);
  EXPECT_EQ(out.measurements[0].Val12, std::numeric_limits<float>::max());
  EXPECT_EQ(Told(out),
            "!line 3, field 2: \"-3.4028236e38\" is too large: reading ended there, 1 line from there on not read\n");
}

TEST(TextLines, CutAtBlockBordersReadAsInOnePiece) {
  const test::TempFolder folder;
  const std::string content = Export("00+1++.+0+", "\r\n") + "DISTANCE" + std::string(5000, 'x') + "\r\n" + Line();
  for (const ReadSpan span : {Stop, Past}) {
    ReadOptions options;
    options.span = span;
    const std::filesystem::path path = folder.write("export.txt", content);
    const auto walk = [&](std::size_t block) {
      TextScan scan(options);
      std::vector<double> values;
      const auto keep = [&values](const Misura& m) {
        values.insert(values.end(), {m.Passo, m.CanaleB[10], m.Lat, m.Lon});
      };
      EsaminaTesto(path, options, keep, scan, block);
      return std::pair(values, RilieviTesto(scan).entries());
    };
    const auto whole = walk(std::size_t{1} << 20);
    EXPECT_EQ(whole.first.size(), span == Stop ? 16U : 32U);
    for (std::size_t block = 700; block < 1400; block += 37) EXPECT_EQ(walk(block), whole) << block;
  }
}

TEST(TextLines, LongerThanABlockAreToldWhenTheyAreData) {
  const std::string longLine = Line() + std::string(3'000'000, ' ');
  const FileRead out = Read("DISTANCE" + std::string(2'000'000, 'x') + "\n" + longLine + "\n" + Line() + "\n\n");
  EXPECT_EQ(out.measurements.size(), 2U);
  EXPECT_EQ(Told(out), "!line 2 has 49 values, those behind field 49 are not read (1 line so)\n");
}

TEST(TextExport, ThatCannotBeReadIsAFault) {
  const test::TempFolder folder;
  std::size_t given = 0;
  const FileReport report = LeggiFileCorvan(folder / "missing.txt", {}, [&given](const Misura&) { ++given; });
  EXPECT_EQ(Told(report), "!No such file or directory\n");
  EXPECT_EQ(report.findings.entries().at(0).file, (folder / "missing.txt").string());
  EXPECT_EQ(report.summary.format, "");
  EXPECT_EQ(given, 0U);
}

TEST(TextExport, WrittenToWhileItIsReadIsAFault) {
  const test::TempFolder folder;
  const std::string line = Line() + "\n";
  const std::filesystem::path path = folder.write("export.txt", Header + line + line + "\n");
  const auto grow = [&](const Misura&) { folder.write("export.txt", Header + line + line + line + "\n"); };
  EXPECT_NE(Told(LeggiFileCorvan(path, {}, grow)).find("!was written to while it was read"), std::string::npos);
}

}  // namespace
}  // namespace corvan

// Text exports: which lines are data, what ends them, and lines that are not what they should be.
#include "input/TextReader.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <map>
#include <sstream>

#include "base/File.h"
#include "base/NumberText.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::TextLine;

constexpr ReadSpan Stop = ReadSpan::ToFirstLostFix;
constexpr ReadSpan Past = ReadSpan::PastLostFixes;
constexpr AngleFormat Dmm = AngleFormat::DMM_MMM;
const std::string Header = "Distance;Depth\r\n";

std::string Told(const FileReport& report) {
  for (const Finding& f : report.findings.entries()) EXPECT_EQ(f.procedure, "LeggiFileCorvan");
  return test::Told(report.findings);
}

FileRead Read(const std::string& content, const ReadOptions& options = {}) {
  const test::TempFolder folder;
  FileRead out;
  const auto keep = [&out](const Misura& m) { out.measurements.push_back(m); };
  static_cast<FileReport&>(out) = LeggiFileCorvan(folder.write("export.txt", content), options, keep);
  return out;
}

std::vector<std::string> Split(const std::string& text) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, '|');) parts.push_back(part);
  return parts;
}

/// A line whose 49 values are all different and none is the number of a field; "3=1,5|9=x" replaces fields 3 and 9.
std::string Line(const std::string& changed = "") {
  std::map<int, std::string> all;
  for (int k = 1; k <= 49; ++k) all[k] = std::to_string(100 + 3 * k) + ".25";
  for (const std::string& field : Split("26=4524.5|27=1218.5|" + changed)) {
    all[static_cast<int>(Val(field))] = field.substr(field.find('=') + 1);
  }
  return TextLine(all);
}

TEST(TextExport, PutsEachOfThe49FieldsInItsPlace) {
  const FileRead out = Read(Header + Line() + "\r\n\r\n");
  ASSERT_EQ(out.measurements.size(), 1U);
  const Misura& m = out.measurements[0];
  std::vector<float> kept{m.Passo, m.Val12}, expected;
  kept.insert(kept.end(), m.Rho.begin() + 1, m.Rho.end());
  kept.insert(kept.end(), {m.Val60, m.Val64});
  kept.insert(kept.end(), m.Elettrodi.begin() + 1, m.Elettrodi.end());
  kept.insert(kept.end(), {m.Val180, m.Val184});  // as they stand, not negated
  for (std::size_t c = 1; c <= MaxChannels; ++c) kept.insert(kept.end(), {m.CanaleA.at(c), m.CanaleB.at(c)});
  for (int k = 1; k <= 49; ++k) {
    if (k != 26 && k != 27) expected.push_back(static_cast<float>(100 + 3 * k) + 0.25F);
  }
  EXPECT_EQ(kept, expected);
  EXPECT_EQ(std::tuple(m.Lat, m.Lon, m.Tempo), std::tuple(4524.5, 1218.5, 0.0));
  EXPECT_TRUE(m.NumFile == 1 && m.letture == AllReadings && !m.SenzaFix);
  EXPECT_EQ(Told(out), "");
  EXPECT_EQ(out.summary.format, "text");
  EXPECT_EQ(out.summary.channels, 10);
  EXPECT_EQ(out.largestChannel, 10);
  EXPECT_EQ(out.summary.recordLength, 0U);
  EXPECT_EQ(out.summary.bytes, Header.size() + Line().size() + 4);
}

// Degrees by hand: 45 + 24.303/60 = 45.40505; 12 + 18/60 + 36/3600 = 12.31.
TEST(Positions, KeepTheirNumbersAndTheirSource) {
  struct Case {
    std::optional<AngleFormat> layout;
    const char* place;
    std::array<double, 4> kept;  ///< latitude, longitude, easting, northing of the measurement
    PositionSource source;
  };
  const Case cases[] = {
      {Dmm, "26=4524.303|27=-1218.6", {4524.303, -1218.6}, Geographic{45.40505, -12.31}},
      {AngleFormat::DMMSS, "26=-452418.18|27=121836", {-452418.18, 121836}, Geographic{-45.40505, 12.31}},
      {AngleFormat::D_DDDD, "26=45.40505|27=+12.31", {45.40505, 12.31}, Geographic{45.40505, 12.31}},
      {{}, "26=5031234.56|27=291234.5", {0, 0, 291234.5, 5031234.56}, Grid{291234.5, 5031234.56}},
      {Dmm, "26=4524.303|27=0", {}, {}},
      {Dmm, "26=4524.303|27=", {}, {}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.place);
    ReadOptions options;
    options.layout = c.layout;
    const FileRead out = Read(Header + Line(c.place) + "\n\n", options);
    ASSERT_EQ(out.measurements.size(), 1U);
    const Misura& m = out.measurements[0];
    EXPECT_EQ((std::array{m.Lat, m.Lon, m.UTMx, m.UTMy}), c.kept);
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
}

/// Lines by letter: "+" with a position, "0" without latitude, "1" without longitude, "x" a word for the latitude, "."
/// blank, ";" separators alone, "H" a header, "<" cut short before its position, "-" cut short behind it, "!" a reading
/// out of range, "o" the same without position, "^" a position out of range.
std::string Export(const std::string& pattern, const std::string& end) {
  const std::map<char, std::string> changed{{'+', ""},        {'0', "|26=0"},     {'1', "|27=0"},
                                            {'x', "|26=N45"}, {'<', ""},          {'-', ""},
                                            {'!', "|4=1e99"}, {'^', "|26=1e999"}, {'o', "|4=1e99|26=0"}};
  std::string text = "DISTANCE;x" + end;
  int number = 0;
  for (const char c : pattern) {
    ++number;
    const auto found = changed.find(c);
    std::string line = c == 'H' ? "Distance;y" : std::string(c == ';' ? " ; ;" : " ");
    if (found != changed.end()) line = Line("1=" + std::to_string(number) + found->second);
    if (c == '<') line = line.substr(0, line.find(";4524"));
    if (c == '-') line = line.substr(0, line.find(";4524") + 18);
    text += line + end;
  }
  return text;
}

struct SpanCase {
  const char* patterns;  ///< with the same outcome
  ReadSpan span;
  const char* taken;  ///< the lines taken, by their first field
  const char* told;
};

class DataLines : public ::testing::TestWithParam<SpanCase> {};

TEST_P(DataLines, AreTakenOrTold) {
  const SpanCase& c = GetParam();
  ReadOptions options;
  options.span = c.span;
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    for (const std::string& pattern : Split(c.patterns)) {
      for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
        const FileRead out = Read(mark + Export(pattern, end), options);
        std::string taken;
        for (const Misura& m : out.measurements) taken += std::to_string(static_cast<int>(m.Passo));
        EXPECT_EQ(taken, c.taken) << pattern;
        EXPECT_EQ(Told(out), c.told) << pattern;
        EXPECT_EQ(out.summary.records, pattern.size() + 1) << pattern;
        EXPECT_EQ(out.summary.firings, taken.size()) << pattern;
      }
    }
  }
}

// Line numbers count the header: the pattern's first letter is line 2. A last line cut short is left out by rule,
// wherever the cut stands.
INSTANTIATE_TEST_SUITE_P(
    Table, DataLines,
    ::testing::Values(
        SpanCase{"+++|++<|++-|++!|++^", Stop, "12", "-the last line, 4, is left out\n"},
        SpanCase{"+", Stop, "", "-the last line, 2, is left out\n"}, SpanCase{"+++.|+1+.", Stop, "123", ""},
        SpanCase{"++;..", Stop, "12", ""}, SpanCase{".H++.", Stop, "34", ""},
        SpanCase{"+++0", Stop, "123",
                 "!fix lost at line 5: 1 line from there on left out, 0 of them with a position\n"},
        SpanCase{"00++0+", Stop, "34",
                 "-2 lines between the header and the first position left out\n"
                 "!fix lost at line 6: 2 lines from there on left out, 1 of them with a position\n"},
        SpanCase{"++x+.+", Stop, "12",
                 "!fix lost at line 4, field 26 \"N45\" read as 0: 3 lines from there on left out, 2 of them with a "
                 "position\n"},
        SpanCase{"++.+0H+", Stop, "12",
                 "!the data end at the blank line 4: 3 lines behind it left out, 2 of them with a position\n"},
        SpanCase{"++H+.", Stop, "12",
                 "!the data end at a repeated header, line 4: 1 line behind it left out, 1 of them with a position\n"},
        SpanCase{"+o+.", Stop, "1", "!fix lost at line 3: 2 lines from there on left out, 1 of them with a position\n"},
        SpanCase{"++-.", Stop, "123", "!line 4 has 28 of 49 values, the missing ones read as 0 (1 line so)\n"},
        SpanCase{"++!+0+.+", Stop, "12",
                 "!line 4, field 4: \"1e99\" is too large: reading ended there, 5 lines from there on not read\n"},
        SpanCase{"0^+.", Stop, "",
                 "-1 line between the header and the first position left out\n"
                 "!line 3, field 26: \"1e999\" is too large: reading ended there, 2 lines from there on not read\n"},
        SpanCase{"+0^!", Stop, "1", "!fix lost at line 3: 3 lines from there on left out, 2 of them with a position\n"},
        // Past lost fixes.
        SpanCase{"+++", Past, "123", ""},
        SpanCase{"0+00+0", Past, "2345",
                 "-1 line between the header and the first position left out\n"
                 "!the last position stands in line 6: 1 line behind it left out\n"},
        SpanCase{"+.H0.+.H", Past, "146", "-3 lines, blank or a repeated header, passed over\n"},
        SpanCase{"+.0.<", Past, "1", "!the last position stands in line 2: 2 lines behind it left out\n"},
        SpanCase{"+0!+", Past, "12",
                 "!line 4, field 4: \"1e99\" is too large: reading ended there, 2 lines from there on not read\n"},
        // No position at all: every firing but one in the last line.
        SpanCase{"0.H00", Stop, "14",
                 "!none of the 3 lines has a position\n"
                 "-2 lines, blank or a repeated header, passed over\n"
                 "-the last line, 6, is left out\n"},
        SpanCase{"0.", Past, "1", "!the only line has no position\n"},
        SpanCase{"00.", Past, "12", "!none of the 2 lines has a position\n"}));

TEST(TextExport, OfAHeaderAloneHasNoPosition) {
  EXPECT_EQ(Told(Read("DISTANCE;x\n")), "!none of the 0 lines has a position\n");
}

// Fields changed in line 2 and in line 3, what stands behind line 3, and what is said.
TEST(OddLines, AreReadAsFarAsTheyGoAndTold) {
  const std::array<std::string, 4> cases[] = {
      {"", "4= \t1e2 \t|30=-.5", ";  ;\t;", ""},
      {"3=1,5|9=x|10=7 ", "26=4524,5|40=7 mV", "",
       "!4 values are not numbers from end to end, the first in line 2, field 3: \"1,5\" read as 1\n"},
      {"", "27=1218.5E", "",
       "!1 value is not a number from end to end in line 3, field 27: \"1218.5E\" read as 1218.5\n"},
      {"5=", "6= |7=", "", "!line 2 has 48 of 49 values, the missing ones read as 0 (2 lines so)\n"},
      {"", "", ";;50", "!line 3 has 50 values, those behind field 49 are not read (1 line so)\n"},
      {"", "", ";" + Line(), "!line 3 has 98 values, those behind field 49 are not read (1 line so)\n"}};
  for (const auto& [first, second, tail, told] : cases) {
    const FileRead out = Read(Header + Line(first) + "\n" + Line(second) + tail + "\n\n");
    EXPECT_EQ(out.measurements.size(), 2U) << told;
    EXPECT_EQ(Told(out), told);
  }
}

TEST(CoordinateFormats, ThatTheNumbersContradictAreFaultsThatNameTheLine) {
  const std::string good = Line() + "\n";
  const FileRead seconds = Read(Header + good + Line("26=452430.5|27=121830") + "\n\n");
  EXPECT_EQ(seconds.measurements.size(), 2U);
  EXPECT_EQ(Told(seconds).front(), '!');
  EXPECT_NE(Told(seconds).find("line 3"), std::string::npos) << Told(seconds);
  const std::string degrees = Line("26=45.5|27=12.5") + "\n";
  EXPECT_NE(Told(Read(Header + degrees + degrees + "\n")).find("--coords dd)"), std::string::npos);
  EXPECT_EQ(Told(Read(Header + degrees + good + "\n")), "");
}

TEST(OddValues, AreReadAsTheirLeadingNumber) {
  const FileRead out = Read(Header + Line("3=12,5|26=4524,5|40=7 mV|41=mV 7") + "\n\n");
  ASSERT_EQ(out.measurements.size(), 1U);
  const Misura& m = out.measurements[0];
  EXPECT_EQ(std::tuple(m.Rho[1], m.Lat, m.CanaleA[6], m.CanaleB[6]), std::tuple(12.0F, 4524.0, 7.0F, 0.0F));
}

TEST(SingleRange, EndsWhereRoundingLeavesIt) {
  // The largest single is 3.40282347e38; numbers under 3.40282357e38 round to it.
  const FileRead out = Read(Header + Line("2=3.40282350e38") + "\n" + Line("2=-3.4028236e38") + "\n\n");
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

// Text exports: which lines are data, what ends them, and lines that are not what they should be.
#include "input/TextReader.h"

#include <gtest/gtest.h>

#include "input/InputDriver.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::TextLine;

struct Outcome {
  Survey survey;
  Findings findings;
};

Outcome Read(const std::string& content, ReadSpan span = ReadSpan::ToFirstLostFix, bool utm = false) {
  const test::TempFolder folder;
  test::ScriptedAnswers dialogs;
  Outcome out;
  out.survey.file.NomeFile = folder.write("export.txt", content);
  out.survey.file.NumFile = 1;
  out.survey.settings.CoordUTM = utm;
  InputContext context{out.survey, dialogs, out.findings, span};
  LeggiFile(context);
  return out;
}

const std::string Header = "Distance;Depth\r\n";

TEST(TextExport, PutsEveryFieldInItsPlace) {
  const Outcome out = Read(Header + TextLine({}) + "\r\n\r\n");
  ASSERT_EQ(out.survey.NumMisure(), 1);
  const Misura& m = out.survey.Misure(1);
  EXPECT_EQ(m.Passo, 1);
  EXPECT_EQ(m.Val12, 2);
  EXPECT_EQ(m.Rho[1], 3);
  EXPECT_EQ(m.Rho[10], 12);
  EXPECT_EQ(m.Val60, 13);
  EXPECT_EQ(m.Val64, 14);
  EXPECT_EQ(m.Elettrodi[1], 15);
  EXPECT_EQ(m.Elettrodi[11], 25);
  EXPECT_EQ(m.Lat, 26);
  EXPECT_EQ(m.Lon, 27);
  EXPECT_EQ(m.Val180, 28);
  EXPECT_EQ(m.Val184, 29);
  EXPECT_EQ(m.CanaleA[1], 30);
  EXPECT_EQ(m.CanaleB[1], 31);
  EXPECT_EQ(m.CanaleA[10], 48);
  EXPECT_EQ(m.CanaleB[10], 49);
  EXPECT_EQ(m.Tempo, 0);
  EXPECT_FALSE(out.findings.anyFault());
  const Outcome utm = Read(Header + TextLine({}) + "\n\n", ReadSpan::ToFirstLostFix, true);
  EXPECT_EQ(utm.survey.Misure(1).UTMy, 26);
  EXPECT_EQ(utm.survey.Misure(1).UTMx, 27);
  EXPECT_EQ(utm.survey.Misure(1).Lat, 0);
}

/// Lines of data by letter: "+" with a position, "0" without latitude, "." blank, "1" without longitude.
std::string Export(const std::string& pattern, const std::string& end) {
  std::string text = "DISTANCE;x" + end;
  int number = 0;
  for (const char c : pattern) {
    ++number;
    if (c == '.') {
      text += end;
      continue;
    }
    text +=
        TextLine({{1, std::to_string(number)}, {26, c == '0' ? "0" : "4524.5"}, {27, c == '1' ? "0" : "1218.5"}}) + end;
  }
  return text;
}

struct SpanCase {
  const char* pattern;
  const char* end;
  ReadSpan span;
  std::vector<int> taken;  ///< the lines taken, by their first field
  bool fault;
};

class DataLines : public ::testing::TestWithParam<SpanCase> {};

TEST_P(DataLines, RunFromTheFirstPositionToTheFirstLostOne) {
  const SpanCase& c = GetParam();
  const Outcome out = Read(Export(c.pattern, c.end), c.span);
  std::vector<int> taken;
  for (const Misura& m : out.survey.Misure) taken.push_back(static_cast<int>(m.Passo));
  EXPECT_EQ(taken, c.taken) << c.pattern;
  EXPECT_EQ(out.findings.anyFault(), c.fault) << c.pattern;
}

constexpr ReadSpan Stop = ReadSpan::ToFirstLostFix;
constexpr ReadSpan Past = ReadSpan::PastLostFixes;
INSTANTIATE_TEST_SUITE_P(
    Table, DataLines,
    ::testing::Values(SpanCase{"+++", "\r\n", Stop, {1, 2}, false},  // the last line is left out
                      SpanCase{"+++.", "\r\n", Stop, {1, 2, 3}, false}, SpanCase{"+++0", "\n", Stop, {1, 2, 3}, true},
                      SpanCase{"00++0+", "\r", Stop, {3, 4}, true}, SpanCase{"+1+.", "\n", Stop, {1, 2, 3}, false},
                      SpanCase{"0+00+0", "\n", Past, {2, 3, 4, 5}, false},
                      SpanCase{"+++", "\n", Past, {1, 2, 3}, false},
                      SpanCase{"000", "\n", Stop, {0, 1, 2}, true},  // no position at all: all lines but the last
                      SpanCase{"+", "\n", Stop, {}, false}));

TEST(TextLines, WithTooFewFieldsReadAsZeroAndAreNamed) {
  const std::string line = TextLine({});
  const Outcome out = Read(Header + line + "\r\n" + line.substr(0, line.find(";30")) + "\r\n\r\n");
  ASSERT_EQ(out.survey.NumMisure(), 2);
  EXPECT_EQ(out.survey.Misure(2).Val184, 29);
  EXPECT_EQ(out.survey.Misure(2).CanaleA[1], 0);
  ASSERT_TRUE(out.findings.anyFault());
  EXPECT_NE(out.findings.entries()[0].reason.find("line 3 has 29 of 49 fields"), std::string::npos);
}

TEST(TextLines, WithANumberOutOfRangeEndTheReaderAndKeepWhatCameBefore) {
  const Outcome out = Read(Header + TextLine({}) + "\n" + TextLine({}) + "\n" + TextLine({{4, "1e99"}}) + "\n" +
                           TextLine({}) + "\n.\n");
  EXPECT_EQ(out.survey.NumMisure(), 2);
  ASSERT_TRUE(out.findings.anyFault());
  EXPECT_NE(out.findings.entries()[0].detto().find("export.txt: line 4"), std::string::npos);
}

TEST(TextLines, WithAPositionOutOfRangeAreNamedOrLeftOut) {
  const Outcome before = Read(Header + TextLine({{26, "1e999"}}) + "\n" + TextLine({}) + "\n\n");
  EXPECT_EQ(before.survey.NumMisure(), 0);
  EXPECT_NE(before.findings.entries().at(0).reason.find("line 2"), std::string::npos);
  const Outcome behind =
      Read(Header + TextLine({}) + "\n" + TextLine({{26, "0"}}) + "\n" + TextLine({{26, "1e999"}}) + "\n");
  EXPECT_EQ(behind.survey.NumMisure(), 1);
  EXPECT_NE(behind.findings.entries().at(0).reason.find("2 lines from there on left out"), std::string::npos);
}

TEST(TextLines, OfMegabytesWithoutAFieldAreNoData) {
  const Outcome out = Read("DISTANCE" + std::string(2'000'000, 'x') + "\n" + TextLine({}) + "\n\n");
  EXPECT_EQ(out.survey.NumMisure(), 1);
}

}  // namespace
}  // namespace corvan

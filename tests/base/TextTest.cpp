// Lines, fields and print zones of text files.
#include "base/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "base/Fields.h"
#include "base/File.h"
#include "base/FileLines.h"
#include "base/Lines.h"
#include "base/OleDate.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using namespace std::string_literals;

TEST(Fields, AreCutAsTheTextReadersExpect) {
  struct Case {
    std::string line, separator;
    std::size_t k;
    double value;
    std::string settled;  ///< the separator afterwards
  };
  const std::string nul = "5"s + '\0' + "6";
  const Case cases[] = {{"1;2;3", "", 2, 2, ";"}, {"1;2;3", "", 4, 0, ";"},       {";1;2", "", 1, 1, ";"},
                        {";;1", ";", 1, 0, ";"},  {"  5   6  7 ", "", 3, 7, " "}, {"5\t6 7", "", 2, 6, "\t"},
                        {nul, "", 2, 6, "\0"s},   {"5 ; 6 ", "", 2, 6, ";"},      {" ", "", 1, 0, ""},
                        {"1,2,3", "", 1, 1, " "}, {"4 5;6", " ", 2, 5, " "},      {"a;12,5", "", 2, 12, ";"}};
  for (Case c : cases) {
    EXPECT_EQ(EstraiCampo(c.line, c.separator, c.k), c.value) << c.line;
    EXPECT_EQ(c.separator, c.settled) << c.line;
  }
}

TEST(FieldCursors, OfOneLineWalkedOnceAgreeWithThoseCutOneByOne) {
  const std::string line = "  ;a; b ;;c d;  ";
  std::string separator = ";";
  FieldCursor cursor(line, separator);
  std::size_t k = 0;
  while (cursor.more()) {
    ++k;
    EXPECT_EQ(Rifila(cursor.next()), EstraiTesto(line, separator, k)) << k;
  }
  EXPECT_EQ(k, 5U);
  EXPECT_EQ(k, ContaCampi(line, ";"));
}

TEST(Lines, EndInLfCrLfOrCrAlsoMixed) {
  const std::string text =
      "\xEF\xBB\xBF"
      "a\nb\r\nc\r\rd\n\r\ne";
  std::vector<std::string> lines;
  LineCursor cursor(text);
  while (cursor.more()) lines.emplace_back(cursor.next());
  EXPECT_EQ(lines, (std::vector<std::string>{"a", "b", "c", "", "d", "", "e"}));
  EXPECT_EQ(cursor.number(), 7U);
  EXPECT_FALSE(LineCursor("").more());
}

TEST(Lines, OfAFileReadInBlocksAreThoseOfTheWholeText) {
  const test::TempFolder folder;
  std::mt19937 random(3);
  for (int run = 0; run < 300; ++run) {
    std::string text = run % 5 == 0 ? "\xEF\xBB\xBF" : "";
    for (std::size_t k = random() % 200; k > 0; --k) text += "ab\r\n\r\n;"[random() % (run % 2 == 0 ? 8 : 4)];
    std::vector<std::string> whole;
    for (LineCursor lines(text); lines.more();) whole.emplace_back(lines.next());
    FileLines lines(folder.write("lines", text), 64);
    std::vector<std::string> blocks;
    while (lines.next()) {
      blocks.emplace_back(lines.line());
      ASSERT_EQ(lines.number(), blocks.size());
      ASSERT_EQ(lines.last(), blocks.size() == whole.size()) << run;
      ASSERT_FALSE(lines.cut());
    }
    ASSERT_EQ(blocks, whole) << run;
  }
}

TEST(Lines, LongerThanABlockLoseTheirMiddleAndNothingElse) {
  const test::TempFolder folder;
  for (const std::size_t length : {31U, 32U, 33U, 62U, 63U, 64U, 65U, 100U, 1000U}) {
    for (const std::string end : {"\n", "\r", "\r\n"}) {
      const std::string text = "a" + end + std::string(length, 'x') + end + "b" + end;
      FileLines lines(folder.write("long", text), 32);
      ASSERT_TRUE(lines.next());
      EXPECT_EQ(lines.line(), "a");
      ASSERT_TRUE(lines.next());
      EXPECT_EQ(lines.line().substr(0, 16), std::string(16, 'x'));
      EXPECT_EQ(lines.cut(), lines.line().size() < length);
      EXPECT_TRUE(lines.cut() || length < 33);
      EXPECT_FALSE(lines.last());
      ASSERT_TRUE(lines.next()) << length;
      EXPECT_EQ(lines.line(), "b");
      EXPECT_TRUE(lines.last());
      EXPECT_FALSE(lines.next());
    }
  }
}

TEST(PrintZones, BeginEvery14ColumnsAndDropTrailingBlanks) {
  PrintLine line;
  line.add(" 1 ");
  line.add("12345678901234");  // fills its zone: the next item follows at once
  line.add("x");
  line.add("123456789012345");  // overruns its zone: the next item takes the one after
  line.add("y ");
  EXPECT_EQ(line.text(), " 1            12345678901234x             123456789012345             y");
}

TEST(Files, NameTheReasonTheyCannotBeReadOrWritten) {
  const test::TempFolder folder;
  EXPECT_EQ(test::Reason([&] { LeggiTutto(folder / "missing"); }), "No such file or directory");
  EXPECT_EQ(test::Reason([&] { LeggiTutto(folder.path()); }), "is a folder");
}

TEST(Texts, ShowNoControlCharacterToATerminal) {
  EXPECT_EQ(Visibile("a\x1B[31m\x07\t\r\n\x7F z"), "a\\x1B[31m\\x07\\x09\\x0D\\x0A\\x7F z");
  EXPECT_EQ(Visibile("\0"s), "\\x00");
  EXPECT_EQ(Visibile("one\ntwo\r", LineFeeds::Kept), "one\ntwo\\x0D");
  EXPECT_EQ(Visibile("\xC2\x80 \xC2\x9F"), "\\x80 \\x9F") << "C1 controls in UTF-8";
  const char* words = "Fossa della Bastiglia \xC3\xA8 \xC2\xA0 \xE2\x82\xAC \xF0\x9F\x8C\x8A C:\\x";
  EXPECT_EQ(Visibile(words), words);
  EXPECT_EQ(Visibile("\x9B\xE8 \xC3(\xE2\x82"), "\\x9B\\xE8 \\xC3(\\xE2\\x82") << "no UTF-8";
  EXPECT_EQ(Visibile("\xC0\x9B \xE0\x82\x9B"), "\\xC0\\x9B \\xE0\\x82\\x9B") << "controls in overlong forms";
}

TEST(OleDates, AreDaysSince30December1899) {
  // 40771.38371527778 is 2011-08-16 09:12:33 in a file of a real instrument; 2 is 1900-01-01 by definition.
  EXPECT_EQ(TestoDataOra(DaGiorni(40771.38371527778)), "2011-08-16 09:12:33");
  EXPECT_EQ(TestoData(DaGiorni(2.0)) + " " + TestoOra(DaGiorni(2.75)), "01/01/1900 18:00:00");
  EXPECT_EQ(TestoOra(DaGiorni(46188.9999999)), "00:00:00");  // rounds into the next day
  EXPECT_DOUBLE_EQ(AGiorni({2011, 8, 16, 9, 12, 33}), 40771.38371527778);
  EXPECT_TRUE(TempoValido(AGiorni({2100, 12, 31, 23, 59, 59})));
  for (const double none : {0.0, 29220.9, 1e9, -1.0, std::nan("")}) EXPECT_FALSE(TempoValido(none)) << none;
}

}  // namespace
}  // namespace corvan

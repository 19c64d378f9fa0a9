// Binary files: grouping into firings, lost fixes, odd lengths and kinds.
#include "input/SyscalReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "input/InputDriver.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::Firings;
using test::RecordValues;
using test::SyscalFile;

/// Reads one file after another into a survey.
struct Reading {
  test::TempFolder folder;
  test::ScriptedAnswers dialogs;
  Findings findings;
  Survey survey;
  ReadSpan span = ReadSpan::ToFirstLostFix;

  void file(const std::string& content) {
    survey.file.NomeFile = folder.write("file" + std::to_string(survey.file.NumFile) + ".bin", content);
    ++survey.file.NumFile;
    InputContext context{survey, dialogs, findings, span};
    LeggiFile(context);
  }
  bool says(const std::string& part) const {
    for (const Finding& d : findings.entries()) {
      if (d.reason.find(part) != std::string::npos) return !d.file.empty();
    }
    return false;
  }
};

struct LengthCase {
  std::int16_t type;
  std::size_t length;
};

class RecordLengths : public ::testing::TestWithParam<LengthCase> {};

TEST_P(RecordLengths, FollowTheTypeWord) {
  Reading r;
  auto records = Firings(3, 10);
  for (std::size_t k = 0; k < records.size(); ++k) {  // no electrode at 0, no two potentials the same
    records[k].m += 12.5F;
    records[k].n += 12.5F;
    records[k].potential = static_cast<float>(k + 1);
  }
  r.file(SyscalFile(records, GetParam().type, GetParam().length));
  ASSERT_EQ(r.survey.NumMisure(), 3);
  EXPECT_EQ(r.survey.Misure(3).Rho[10], 3.1F);
  EXPECT_EQ(r.survey.Misure(3).Elettrodi[11], 12.5F);
  EXPECT_EQ(r.survey.Misure(2).Lat, static_cast<double>(4524.0F + 2.0F / 128));
  EXPECT_EQ(r.survey.Misure(2).Val184, -1000.0F);
  EXPECT_EQ(r.survey.Misure(2).CanaleB[7], -17.0F);
  EXPECT_TRUE(r.dialogs.questions.empty());
  EXPECT_FALSE(r.findings.anyFault());
}

INSTANTIATE_TEST_SUITE_P(Types, RecordLengths,
                         ::testing::Values(LengthCase{1, 280}, LengthCase{2, 296}, LengthCase{3, 304},
                                           LengthCase{7, 280}, LengthCase{-1, 280}));

// A record of 248 bytes ends before its channel and position: they are the next record's first bytes, and the last
// record has none.
TEST(ShortRecords, TakeTheirPositionFromTheNextRecord) {
  Reading r;
  auto records = Firings(4, 1);
  for (RecordValues& v : records) v.c1 = 4524.5F;  // byte 16 of a record is byte 264 of the one before it
  for (RecordValues& v : records) v.c2 = 1218.5F;
  r.dialogs.answers["Set Channel Number"] = {"1"};
  r.file(SyscalFile(records, 0, 248));
  ASSERT_EQ(r.survey.NumMisure(), 3);
  EXPECT_EQ(r.survey.Misure(1).Lon, 1218.5);
  EXPECT_TRUE(r.says("248 bytes"));
}

TEST(Grouping, AsksOnceAFileWhenCountAndLargestChannelDiffer) {
  Reading r;
  auto records = Firings(6, 2);
  for (RecordValues& v : records) v.channel = 0;
  r.file(SyscalFile(records));
  ASSERT_EQ(r.dialogs.questions.size(), 1U);
  EXPECT_EQ(r.dialogs.questions[0].prompt, "Set Channel Number");
  EXPECT_EQ(r.dialogs.questions[0].title, "N. Channel");
  EXPECT_EQ(r.dialogs.questions[0].defaultAnswer, "2");
  EXPECT_EQ(r.survey.NumMisure(), 6) << "Cancel keeps the counted run";
  r.dialogs.answers["Set Channel Number"] = {"5 channels"};
  r.file(SyscalFile(records));
  EXPECT_EQ(r.survey.NumMisure(), 6 + 3) << "12 records in fives";
  EXPECT_EQ(r.survey.Misure(7).NumFile, 2);
}

TEST(Grouping, NeverCountsBelowTwoChannelsNorPastTheLastRecord) {
  Reading single;
  single.file(SyscalFile(Firings(5, 1)));
  EXPECT_EQ(single.dialogs.questions.at(0).defaultAnswer, "2");
  EXPECT_TRUE(single.says("the counted 2 channels differ from the largest channel number stored, 1"));
  Reading one;
  one.file(SyscalFile(Firings(1, 1)));
  EXPECT_EQ(one.dialogs.questions.at(0).defaultAnswer, "2");
  EXPECT_EQ(one.survey.NumMisure(), 1);
  Reading same;
  same.file(SyscalFile(Firings(1, 12)));
  EXPECT_EQ(same.survey.file.NumCanali, 12);
  EXPECT_EQ(same.survey.Misure(1).Rho[10], 1.1F) << "channels above 10 are grouped but not stored";
  EXPECT_TRUE(same.says("channels 11 to 12"));
}

TEST(Grouping, EndsTheReaderForAChannelNumberBelowOneOrTooLarge) {
  for (const char* answer : {"0", "-5", "0.5", "40000", "abc"}) {
    Reading r;
    r.dialogs.answers["Set Channel Number"] = {answer};
    r.file(SyscalFile(Firings(3, 1)));
    EXPECT_EQ(r.survey.NumMisure(), 0) << answer;
    EXPECT_TRUE(r.findings.anyFault()) << answer;
  }
}

TEST(LostFixes, EndTheFileUnlessReadPast) {
  auto records = Firings(6, 2);
  for (std::size_t k : {0U, 1U, 6U, 7U}) records[k].north = records[k].east = 0;  // firings 1 and 4
  Reading r;
  r.file(SyscalFile(records));
  ASSERT_EQ(r.survey.NumMisure(), 2);
  EXPECT_EQ(r.survey.Misure(1).Rho[1], 2.01F);
  EXPECT_TRUE(r.says("fix lost at record 7: 6 records from there on left out, 4 of them with a position"));
  EXPECT_TRUE(r.says("2 records before the first position"));

  Reading past;
  past.span = ReadSpan::PastLostFixes;
  past.file(SyscalFile(records));
  ASSERT_EQ(past.survey.NumMisure(), 5);
  EXPECT_TRUE(past.survey.Misure(3).SenzaFix);
  EXPECT_EQ(past.survey.Misure(3).Rho[2], 4.02F) << "the readings of a firing without fix are kept";
  EXPECT_FALSE(past.findings.anyFault());
}

TEST(LostFixes, WithoutLongitudeLeaveTheFiringEmpty) {
  auto records = Firings(3, 2);
  records[2].east = records[3].east = 0;
  Reading r;
  r.file(SyscalFile(records));
  ASSERT_EQ(r.survey.NumMisure(), 3);
  EXPECT_TRUE(r.survey.Misure(2).SenzaFix);
  EXPECT_EQ(r.survey.Misure(2).Rho[1], 0.0F);
  EXPECT_TRUE(r.says("2 records with a longitude or easting of 0"));
}

TEST(NonFinite, PositionsAreLostAndReadingsStay) {
  auto records = Firings(3, 2);
  records[0].rho = std::numeric_limits<float>::quiet_NaN();
  records[2].depth = records[3].depth = std::numeric_limits<float>::infinity();
  records[4].north = records[5].north = std::numeric_limits<float>::quiet_NaN();
  Reading r;
  r.file(SyscalFile(records));
  ASSERT_EQ(r.survey.NumMisure(), 2);
  EXPECT_TRUE(std::isnan(r.survey.Misure(1).Rho[1]));
  EXPECT_TRUE(std::isinf(r.survey.Misure(2).Val12));
  EXPECT_TRUE(r.says("3 records with a reading or electrode that is not a finite number, the first is record 1"));
  EXPECT_TRUE(r.findings.anyFault());

  Reading past;
  past.span = ReadSpan::PastLostFixes;
  records[4].north = records[5].north = 4524.0F;
  records[2].east = records[3].east = -std::numeric_limits<float>::infinity();
  past.file(SyscalFile(records));
  ASSERT_EQ(past.survey.NumMisure(), 3);
  EXPECT_TRUE(past.survey.Misure(2).SenzaFix);
  EXPECT_TRUE(past.says("2 records with a position that is not a finite number"));
}

TEST(UtmFiles, FillEastingAndNorthingOnly) {
  Reading r;
  r.survey.settings.CoordUTM = true;
  auto records = Firings(2, 2);
  for (RecordValues& v : records) v.north = 5030000.5F;
  records[2].north = records[3].north = 5030010.5F;
  r.file(SyscalFile(records));
  EXPECT_EQ(r.survey.Misure(2).UTMy, 5030010.5);
  EXPECT_EQ(r.survey.Misure(2).UTMx, 1218.0 + 2.0 / 64);
  EXPECT_EQ(r.survey.Misure(2).Lat, 0);
}

TEST(Sizes, ShortOfARecordAreNamed) {
  const std::string whole = SyscalFile(Firings(2, 2));
  struct Case {
    std::string content;
    std::int32_t firings;
    const char* words;
  };
  const Case cases[] = {{"", 0, "is empty"},
                        {std::string(1046, '\0'), 0, "1046 bytes, at least 1047"},
                        {std::string(1047, '\0'), 0, "holds no record"},
                        {whole.substr(0, whole.size() - 100), 2, "204 of 304 bytes"},
                        {whole + std::string(100, 'x'), 2, "100 bytes behind the last record"},
                        {std::string(5000, 'x'), 0, "neither a Syscal file nor a text export"}};
  for (const Case& c : cases) {
    Reading r;
    r.file(c.content);
    EXPECT_EQ(r.survey.NumMisure(), c.firings) << c.words;
    EXPECT_TRUE(r.says(c.words)) << c.words;
    EXPECT_TRUE(r.findings.anyFault()) << c.words;
  }
}

TEST(Sizes, BeyondSixteenBitsOfRecordsAreReadWhole) {
  Reading r;
  r.file(SyscalFile(Firings(3300, 10), 1, 280));
  EXPECT_EQ(r.survey.NumMisure(), 3300);
  EXPECT_EQ(r.survey.Misure(3300).Rho[10], 3300.1F);
}

TEST(OldRecords, AreLoadedAsTheyStand) {
  const test::TempFolder folder;
  std::string content(1029 + 2 * 248, '\0');
  content[1029] = 'a';
  content[1029 + 248 + 247] = 'z';
  const OldSyscalFile old = LeggiBin2(folder.write("old.bin", content), 248);
  ASSERT_EQ(old.RecordBin.size(), 2U);
  EXPECT_EQ(old.RecordBin(1)[0], std::byte{'a'});
  EXPECT_EQ(old.RecordBin(2)[247], std::byte{'z'});
  EXPECT_EQ(old.HeaderBin.size(), 1030U);
  EXPECT_EQ(old.HeaderBin.back(), 'a') << "the header's last byte is the first of record 1";
  EXPECT_TRUE(LeggiBin2(folder.write("short.bin", "x"), 248).RecordBin.empty());
}

}  // namespace
}  // namespace corvan

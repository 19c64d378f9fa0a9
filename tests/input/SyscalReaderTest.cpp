// Binary files: grouping into firings, lost fixes, odd lengths and kinds.
#include "input/SyscalReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <utility>
#include <vector>

#include "input/InputDriver.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::Firings;
using test::RecordValues;
using test::SyscalFile;

/// One file read.
struct Reading {
  test::TempFolder folder;
  std::vector<std::int32_t> asked;
  std::string answer;
  ReadOptions options;
  FileRead read;

  Reading() {
    options.channels = [this](std::int32_t usual) {
      asked.push_back(usual);
      return answer;
    };
  }
  explicit Reading(const std::string& content, ReadSpan span = ReadSpan::ToFirstLostFix) : Reading() {
    options.span = span;
    file(content);
  }
  void file(const std::string& content) { read = LeggiFile(folder.write("file.bin", content), options); }
  const Misura& firing(std::size_t g) const { return read.measurements.at(g - 1); }
  std::size_t firings() const { return read.measurements.size(); }
  bool says(std::initializer_list<const char*> parts) const {
    const std::string told = test::Told(read.findings);
    return std::all_of(parts.begin(), parts.end(), [&](auto part) { return told.find(part) != std::string::npos; });
  }
};

TEST(RecordLengths, FollowTheTypeWord) {
  auto records = Firings(3, 10);
  for (std::size_t k = 0; k < records.size(); ++k) {  // no electrode at 0, no two potentials the same
    records[k].m += 12.5F;
    records[k].n += 12.5F;
    records[k].potential = static_cast<float>(k + 1);
  }
  const std::pair<std::int16_t, std::size_t> lengths[] = {{1, 280}, {2, 296}, {3, 304}, {7, 280}, {-1, 280}};
  for (const auto& [type, length] : lengths) {
    SCOPED_TRACE(type);
    Reading r(SyscalFile(records, type, length));
    ASSERT_EQ(r.firings(), 3U);
    EXPECT_EQ(r.firing(3).Rho[10], 3.1F);
    EXPECT_EQ(r.firing(3).Elettrodi[1], 62.5F);
    EXPECT_EQ(r.firing(3).Elettrodi[11], 12.5F) << "the second electrode of the last channel";
    EXPECT_EQ(r.firing(3).letture, AllReadings);
    EXPECT_EQ(r.firing(1).Tempo, length == 304 ? 46188.25 : 0.0);
    EXPECT_EQ(r.firing(2).Lat, static_cast<double>(4524.0F + 2.0F / 128));
    EXPECT_EQ(r.firing(2).Val184, -1000.0F);
    EXPECT_EQ(r.firing(2).CanaleB[7], -17.0F);
    EXPECT_TRUE(r.asked.empty() && !r.read.findings.anyFault());
  }
}

// A record of 248 bytes ends before its channel and position: they are the next record's first bytes, and the last
// record has none.
TEST(ShortRecords, TakeTheirPositionFromTheNextRecord) {
  Reading r;
  auto records = Firings(4, 1);
  for (RecordValues& v : records) v.c1 = 4524.5F, v.c2 = 1218.5F;  // byte 16 of a record is byte 264 of the one before
  r.answer = "1";
  r.file(SyscalFile(records, 0, 248));
  ASSERT_EQ(r.firings(), 3U);
  EXPECT_EQ(r.firing(1).Lon, 1218.5);
  EXPECT_TRUE(r.says({"248 bytes"}));
}

TEST(Grouping, AsksOnceAFileWhenUsualLengthAndLargestChannelDiffer) {
  Reading r;
  auto records = Firings(6, 2);
  for (RecordValues& v : records) v.channel = 14;
  r.file(SyscalFile(records));
  EXPECT_EQ(r.asked, std::vector<std::int32_t>{2});
  EXPECT_EQ(r.firings(), 6U) << "an empty answer keeps the usual length";
  EXPECT_TRUE(
      r.says({"firings have 2 records as a rule, the largest channel number stored is 14: read with 2 a firing"}));
  r.answer = "5 channels";
  r.file(SyscalFile(records));
  EXPECT_EQ(r.firings(), 3U) << "12 records in fives";
  EXPECT_TRUE(
      r.says({"read with 5 a firing (--channels), whatever the borders",
              "\"5 channels\" is no number from end to end: read as 5", "the last firing has 2 of 5 channels"}));
}

TEST(Grouping, EndsTheReaderForAChannelNumberBelowOneOrTooLarge) {
  auto records = Firings(3, 1);
  for (RecordValues& v : records) v.channel = 7;
  for (const char* answer : {"0", "-5", "0.5", "40000", "abc"}) {
    Reading r;
    r.answer = answer;
    r.file(SyscalFile(records));
    EXPECT_EQ(r.firings(), 0U) << answer;
    EXPECT_TRUE(r.read.findings.anyFault()) << answer;
    EXPECT_EQ(r.read.summary.format, "syscal") << answer;
  }
}

TEST(NonFinite, PositionsAreLostAndReadingsStay) {
  auto records = Firings(3, 2);
  records[0].rho = std::numeric_limits<float>::quiet_NaN();
  records[2].depth = records[3].depth = std::numeric_limits<float>::infinity();
  records[4].north = records[5].north = std::numeric_limits<float>::quiet_NaN();
  Reading r(SyscalFile(records));
  ASSERT_EQ(r.firings(), 2U);
  EXPECT_TRUE(std::isnan(r.firing(1).Rho[1]) && std::isinf(r.firing(2).Val12));
  EXPECT_TRUE(r.says(
      {"!3 records with a reading, electrode or depth that is not a finite number, the first is record 1: kept"}));

  records[4].north = records[5].north = 4524.0F;
  records[2].east = records[3].east = -std::numeric_limits<float>::infinity();
  const Reading past(SyscalFile(records), ReadSpan::PastLostFixes);
  ASSERT_EQ(past.firings(), 3U);
  EXPECT_TRUE(past.firing(2).SenzaFix);
  EXPECT_TRUE(past.says({"2 records with a position that is not a finite number"}));
}

// Offsets 80 and 84 are looked up in the bytes, so that two that change places are seen.
TEST(Quality, IsKeptForEachChannelWhereTheFileHoldsAny) {
  const test::TempFolder folder;
  std::vector<test::RecordValues> records = test::Firings(3, 2);
  records[2].chargeability = -1.5F;
  records[2].deviation = 0.25F;
  records[3].chargeability = 7.5F;
  records[5].deviation = std::numeric_limits<float>::quiet_NaN();
  std::string file = test::SyscalFile(records);
  EXPECT_EQ(file.substr(FirstRecord + 2 * 304 + 80, 8), std::string("\0\0\xC0\xBF\0\0\x80\x3E", 8));
  const FileRead read = LeggiSyscalPro2(folder.write("quality.bin", file), {});
  ASSERT_EQ(read.measurements.size(), 3U);
  EXPECT_FALSE(read.measurements[0].ConQualita) << "zeros say nothing";
  EXPECT_TRUE(read.measurements[1].ConQualita);
  EXPECT_EQ(read.measurements[1].Caricabilita[1], -1.5F);
  EXPECT_EQ(read.measurements[1].Deviazione[1], 0.25F);
  EXPECT_EQ(read.measurements[1].Caricabilita[2], 7.5F);
  EXPECT_EQ(read.measurements[1].Deviazione[2], 0.0F);
  EXPECT_TRUE(std::isnan(read.measurements[2].Deviazione[2]));
  EXPECT_EQ(test::Told(read.findings).find("not finite"), std::string::npos) << "no reading or electrode";
}

TEST(UtmFiles, FillEastingAndNorthingOnly) {
  Reading r;
  r.options.layout.reset();
  auto records = Firings(2, 2);
  for (RecordValues& v : records) v.north = 5030000.5F, v.east += 290000.0F;
  records[2].north = records[3].north = 5030010.5F;
  r.file(SyscalFile(records));
  const Misura& m = r.firing(2);
  EXPECT_EQ((std::array{m.UTMx, m.UTMy, m.Lat}), (std::array{291218.03125, 5030010.5, 0.0}));
}

/// A file's content, the firings it gives, part of what is said, and its format.
struct ContentCase {
  std::string content;
  std::size_t firings;
  const char* words;
  const char* format;
};

void ExpectRead(const std::vector<ContentCase>& cases) {
  for (const ContentCase& c : cases) {
    SCOPED_TRACE(c.words);
    Reading r(c.content);
    EXPECT_EQ(r.firings(), c.firings);
    EXPECT_TRUE(*c.words == '\0' || r.says({c.words}));
    EXPECT_EQ(r.read.findings.anyFault(), *c.words != '\0');
    EXPECT_EQ(r.read.summary.format, c.format);
    EXPECT_TRUE(!r.read.summary.format.empty() || r.read.findings.entries().size() == 1);
  }
}

TEST(Sizes, ShortOfARecordAreNamed) {
  const std::string whole = SyscalFile(Firings(5, 2));
  ExpectRead({{"", 0, "is empty", ""},
              {std::string(1046, '\0'), 0, "1046 bytes, at least 1047", ""},
              {std::string(1047, '\0'), 0, "holds no record", "syscal"},
              {whole.substr(0, whole.size() - 100), 5, "204 of 304 bytes", "syscal"},
              {whole + std::string(100, 'x'), 5, "100 bytes behind the last record", "syscal"},
              {std::string(5000, 'x'), 0, "neither a Syscal file nor a text export", ""}});
}

TEST(Sizes, BeyondSixteenBitsOfRecordsAreReadWhole) {
  Reading r(SyscalFile(Firings(3300, 10), 1, 280));
  EXPECT_EQ(r.firings(), 3300U);
  EXPECT_EQ(r.firing(3300).Rho[10], 3300.1F);
}

/// A file of 248-byte records with random bytes behind a beginning that says nothing else.
std::string Noise(std::size_t bytes, bool signature) {
  std::string file(bytes, '\0');
  std::uint32_t state = 12345;
  for (std::size_t k = 0; k < bytes; ++k) {
    state = state * 1664525U + 1013904223U;
    if (k > 1032) file[k] = static_cast<char>(state >> 24U);
  }
  if (signature) file.replace(0, 4, std::string("\x02\0\0\x80", 4));
  return file;
}

TEST(Kinds, OtherThanReadableOnesAreRefusedByName) {
  std::string newer = SyscalFile(Firings(3, 2));
  newer.replace(16, 10, "SYSCAL Pro");
  std::string version = newer, type = newer, named = SyscalFile(Firings(3, 2));
  version[0] = 6;
  type[1031] = 6;
  named.replace(17, 10, "SYSCAL Pro");
  named[0] = 6;
  ExpectRead({{version, 0, "newer kind (.binx, version 6)", ""},
              {version.substr(0, 900), 0, "newer kind", ""},
              {type, 0, "newer kind", ""},
              {newer, 3, "", "syscal"},
              {named, 3, "", "syscal"},
              {Noise(30000, false), 0, "neither a Syscal file nor a text export", ""},
              {Noise(30000, true), 0, "neither a Syscal file nor a text export", ""}});
}

TEST(Kinds, TextExportsAreToldWithAndWithoutByteOrderMark) {
  const std::string mark = "\xEF\xBB\xBF";
  EXPECT_TRUE(TestataDiTesto("distance;x") && TestataDiTesto(mark + "Distance"));
  EXPECT_FALSE(TestataDiTesto(mark + "Distanc") || TestataDiTesto(" DISTANCE"));
  const FileRead missing = LeggiFile("/nowhere/at.all", {});
  EXPECT_TRUE(missing.summary.format.empty());
  ASSERT_EQ(missing.findings.entries().size(), 1U);
  EXPECT_EQ(missing.findings.entries()[0].file, "/nowhere/at.all");
}

TEST(Formats, OfPositionsAreChecked) {
  Reading r;
  r.options.layout = AngleFormat::D_DDDD;
  r.file(SyscalFile(Firings(3, 2)));
  EXPECT_TRUE(r.says({"are degrees and minutes (--coords ddmm), read as decimal degrees (--coords dd): 3 of 3"}));
  EXPECT_EQ(r.firing(2).Lat, static_cast<double>(4524.0F + 2.0F / 128)) << "read as it was asked for";
  r.options.layoutChosen = false;
  r.file(SyscalFile(Firings(3, 2)));
  EXPECT_TRUE(r.read.findings.empty()) << "nobody chose decimal degrees";
}

// Appended to by an acquisition that runs, replaced under the reader's hands.
TEST(Changes, WhileAFileIsReadAreAFault) {
  const test::TempFolder folder;
  const std::string whole = SyscalFile(Firings(3000, 2));
  for (const std::size_t bytes : {whole.size() / 4, whole.size() + 3040}) {
    const auto path = folder.write("growing.bin", whole);
    bool changed = false;
    const FileReport report = PercorriFile(path, {}, [&](const Misura&) {
      if (!std::exchange(changed, true)) std::filesystem::resize_file(path, bytes);
    });
    EXPECT_TRUE(report.summary.format.empty());
    ASSERT_EQ(report.findings.entries().size(), 1U);
    EXPECT_NE(test::Told(report.findings).find("while it was read"), std::string::npos);
  }
}

TEST(OldRecords, AreLoadedAsTheyStand) {
  const test::TempFolder folder;
  std::string content(1029 + 2 * 248, '\0');
  content[1029] = 'a';
  content[1029 + 248 + 247] = 'z';
  const OldSyscalFile old = LeggiBin2(folder.write("old.bin", content), 248);
  ASSERT_EQ(old.RecordBin.size(), 2U);
  EXPECT_TRUE(old.RecordBin(1)[0] == std::byte{'a'} && old.RecordBin(2)[247] == std::byte{'z'});
  EXPECT_EQ(old.HeaderBin, content.substr(0, 1030)) << "the header's last byte is the first of record 1";
  EXPECT_TRUE(LeggiBin2(folder.write("short.bin", "x"), 248).RecordBin.empty());
}

}  // namespace
}  // namespace corvan

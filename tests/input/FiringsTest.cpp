// Records into firings: which borders are told, what a lost record costs, where readings go.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "input/InputDriver.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::RecordValues;
using Records = std::vector<RecordValues>;

/// Firings of five channels whose currents differ; rho is firing + channel/100.
Records Injections(std::size_t firings = 6, std::size_t channels = 5) {
  Records records = test::Firings(firings, channels);
  for (RecordValues& v : records) v.current = 1000.0F + std::floor(v.rho);
  return records;
}

Records Lost(Records records, std::vector<std::size_t> numbers) {
  for (std::size_t i = numbers.size(); i-- > 0;)
    records.erase(records.begin() + static_cast<std::ptrdiff_t>(numbers[i] - 1));
  return records;
}

using Change = std::function<void(RecordValues&, std::size_t)>;

Records Each(Records records, const Change& change) {
  for (std::size_t k = 0; k < records.size(); ++k) change(records[k], k);
  return records;
}
Records Each(Records records, const Change& first, const Change& second) {
  return Each(Each(std::move(records), first), second);
}

void NoChannels(RecordValues& v, std::size_t) { v.channel = 0, v.m = 50, v.n = 45; }
void SetCurrent(RecordValues& v, std::size_t) { v.current = 2023.0F; }
void Moored(RecordValues& v, std::size_t) { v.north = 4524.5F, v.east = 1218.5F; }
/// The receiver speaks in the middle of firing 2, the clock everywhere.
void Steps(RecordValues& v, std::size_t k) {
  if (k >= 7 && k < 10) v.north += 0.25F;
  v.time += static_cast<double>(k / 3) / 86400.0;
}
/// One record with another current.
void Glitch(RecordValues& v, std::size_t k) {
  if (k == 7) v.current = 1.0F;
}
/// Our own files: readings counted, 600 at 248.
void Counting(RecordValues& v, std::size_t k) { v.channel = static_cast<std::int16_t>(k), v.bits = 600; }
/// The cable moves on by 3 m from firing to firing.
void Rolling(RecordValues& v, std::size_t) {
  const float moved = 3.0F * std::floor(v.rho);
  v.c1 += moved, v.m += moved, v.n += moved;
}
/// Firings 2 and 3 without border between them.
void Joined(RecordValues& v, std::size_t k) {
  if (k >= 10 && k < 15) v.current = 1002.0F, v.north = 4524.0F + 2.0F / 128, v.east = 1218.0F + 2.0F / 64;
}
/// Firings 1 and 2 likewise.
void JoinedAtStart(RecordValues& v, std::size_t k) {
  if (k < 10) v.current = 1.0F, v.north = 4524.5F, v.east = 1218.5F;
}
void NoLongitude(RecordValues& v, std::size_t k) {
  if (k == 2 || k == 3) v.east = 0;
}
Change NoFix(std::size_t from, std::size_t to) {
  return [from, to](RecordValues& v, std::size_t k) {
    if (k + 1 >= from && k < to) v.north = v.east = 0;
  };
}

/// Offset 250 counts readings, as in land files; the low bits at 248 number channels from 0, the high ones tell how
/// many.
Change Land(std::int16_t high) {
  return [high](RecordValues& v, std::size_t k) {
    v.bits = static_cast<std::int16_t>(high * 16 + v.channel - 1);
    v.channel = static_cast<std::int16_t>(k + 100);
    v.m = 50;
    v.n = 45;
  };
}

/// Firings of the numbers of channels given, land-wise, with their own numbers in the high bits.
Records LandFirings(const std::vector<std::size_t>& channels, std::vector<std::size_t> lost) {
  Records all;
  for (std::size_t g = 0; g < channels.size(); ++g) {
    for (RecordValues& v : Each(test::Firings(1, channels[g]), Land(static_cast<std::int16_t>(channels[g])))) {
      v.current = 500.0F + static_cast<float>(g);
      v.channel = static_cast<std::int16_t>(all.size() + 200);
      all.push_back(v);
    }
  }
  return Lost(all, std::move(lost));
}

Records Repeated(Records records, std::size_t number) {
  records.insert(records.begin() + static_cast<std::ptrdiff_t>(number), records[number - 1]);
  return records;
}

struct FiringCase {
  const char* what;
  Records records;
  /// Channels with a reading, firing by firing, "?" behind those of one without position; behind "~" the rho of a
  /// reading does not name its channel.
  std::string readings;
  std::string says = {};  ///< part of a fault behind "!", of a note and no fault behind "-"; empty: no fault
  const char* answer = "";
  ReadSpan span = ReadSpan::ToFirstLostFix;
};

std::string Whole(int firings) {
  std::string text;
  for (int g = 0; g < firings; ++g) text += " 12345";
  return text;
}

std::string Readings(const FileRead& read) {
  std::string text;
  for (const Misura& m : read.measurements) {
    text += text.empty() ? "" : " ";
    for (std::size_t c = 1; c <= MaxChannels; ++c) text += HaLettura(m, c) ? std::string(1, "0123456789X"[c]) : "";
    if (Vuota(m) || m.SenzaFix) text += Vuota(m) ? "-" : "?";
  }
  return text;
}

const FiringCase Cases[] = {
    // Which borders are told.
    {"whole", Injections(3), "12345 12345 12345"},
    {"lost record", Lost(Injections(4), {8}), "12345 1245 12345 12345",
     "!1 firing lost records, it is firing 2 (from record 6 on) with 4 of 5 records: 1 read by channel"},
    {"lost across a border", Lost(Injections(4), {5, 6}), "1234 2345 12345 12345",
     "!2 firings lost records, the first is firing 1 (from record 1 on) with 4 of 5 records: 2 read"},
    {"current saturates", Lost(Each(Injections(4), SetCurrent), {8}), "12345 1245 12345 12345", "!lost records"},
    {"position does not change", Lost(Each(Injections(4), Moored), {8}), "12345 1245 12345 12345", "!lost records"},
    {"position and time step inside a firing", Lost(Each(Injections(12), Steps), {13}), "12345 12345 1245" + Whole(9),
     "!lost records"},
    {"one current differs", Each(Injections(3), Glitch), "12345 12345 12345"},
    {"only the channel number tells", Lost(Each(Injections(5, 10), SetCurrent, Moored), {25}),
     "123456789X 123456789X 12346789X 123456789X 123456789X", "!lost records"},
    {"only the position tells", Each(Injections(3), SetCurrent, NoChannels), "~12345 12345 12345"},
    {"low bits at 248", Lost(Each(Injections(4), Land(0)), {8}), "12345 1245 12345 12345", "!lost records"},
    {"places of M and N", Lost(Each(Injections(5), Counting), {8}), "12345 1245 12345 12345 12345", "!lost records"},
    {"places of a moving cable", Lost(Each(Injections(5), Rolling, Counting), {8}), "12345 1245 12345 12345 12345",
     "!lost records"},
    {"first and last firing cut", Lost(Injections(4), {1, 2, 18, 19, 20}), "345 12345 12345 12",
     "!2 firings lost records"},
    {"one run between the first and the last tells the length", Lost(Injections(3), {8}), "~1234 5 1234 1234 5",
     "!2 firings lost records"},
    {"the larger of equally frequent lengths", Lost(Injections(6), {8, 13}), "12345 1245 1245 12345 12345 12345",
     "!2 firings"},
    // How runs are cut.
    {"own number in the high bits, smaller", LandFirings({5, 5, 3, 5, 5}, {}), "12345 12345 123 12345 12345"},
    {"own number in the high bits, larger", LandFirings({5, 5, 7, 5, 5}, {}), "12345 12345 1234567 12345 12345"},
    {"own number and a record lost", LandFirings({5, 5, 7, 5, 5}, {12}), "12345 12345 134567 12345 12345",
     "!firing 3 (from record 11 on) with 6 of 7 records"},
    {"high bits that tell no number", Lost(Each(Injections(4), Land(1)), {8}), "12345 1245 12345 12345", "!4 of 5"},
    {"high bits below the number", Lost(Each(Injections(4, 2), Land(1)), {3}), "12 2 12 12",
     "!with 1 of 2 records: 1 read by channel"},
    {"two firings without border between", Each(Injections(6), NoChannels, Joined),
     "~12345 12345 12345 12345 12345 12345"},
    {"a record twice", Repeated(Injections(5), 8), "12345 12345 12345 12345 12345",
     "!1 record equal to the one before dropped"},
    {"a record twice in a firing that lost others", Lost(Repeated(Injections(4), 8), {7, 11}), "12345 134 12345 12345",
     "!1 record of such firings left out for want of a channel number of their own"},
    {"lost without channel numbers", Lost(Each(Injections(4), NoChannels), {8}), "~12345 - 12345 12345",
     "!1 left without reading"},
    {"nothing left but channels above ten", Lost(Injections(4, 12), {13, 14, 15, 16, 17, 18, 19, 20, 21, 22}),
     "123456789X - 123456789X 123456789X", "!firing 2 (from record 13 on) with 2 of 12 records"},
    {"cut at the end of the file", Lost(Each(Injections(4), NoChannels), {19, 20}), "~12345 12345 12345 123",
     "!with 3 of 5 records: 1 read in order"},
    {"begins before the first position", Each(Injections(11), NoFix(1, 7)), "345" + Whole(9),
     "-firing 1 (from record 8 on) has 3 of 5 records, the others being among those"},
    {"the same without channel numbers", Each(Injections(4), NoChannels, NoFix(1, 7)), "~- 12345 12345",
     "-1 left without reading"},
    {"begins inside two firings without border between",
     Each(Each(Injections(12), NoChannels), JoinedAtStart, NoFix(1, 3)), "~-" + Whole(11),
     "-firing 1 (from record 4 on) has 2 of 5 records"},
    {"begins without position", Each(Injections(5, 1), NoFix(1, 1)), "1 1 1 1", "-1 record before the first position"},
    {"fix lost between firings", Each(Injections(6, 2), NoFix(1, 2), NoFix(7, 8)), "12 12",
     "!fix lost at record 7: 6 records from there on left out, 4 of them with a position"},
    {"the same read past", Each(Injections(6, 2), NoFix(1, 2), NoFix(7, 8)), "12 12 12? 12 12",
     "-2 records without position kept as bad fixes, the first is record 7", "", ReadSpan::PastLostFixes},
    {"no longitude", Each(Injections(3, 2), NoLongitude), "12 - 12", "!2 records with a longitude or easting of 0"},
    {"fix lost inside a firing", Each(Injections(4), NoFix(14, 14)), "12345 12345 123", "!fix lost at record 14"},
    {"the same read past", Each(Injections(4), NoFix(14, 14)), "12345 12345 12345 12345",
     "-1 record without position kept", "", ReadSpan::PastLostFixes},
    // How many channels there are.
    {"single channel", Injections(5, 1), "1 1 1 1 1"},
    {"single channel, constant current", test::Firings(5, 1), "1 1 1 1 1"},
    {"one record", Injections(1, 1), "1", "-no border between firings is sure"},
    {"two records", Injections(1, 2), "12"},
    {"ten records of one firing", Injections(1, 10), "123456789X"},
    {"eleven channels", Injections(1, 11), "123456789X", "!channel 11 of each firing is not stored"},
    {"twelve channels", Injections(2, 12), "123456789X 123456789X", "!channels 11 to 12 of each firing are not stored"},
    {"two firings", Injections(2, 5), "12345 12345"},
    {"answer in force", Each(Injections(4), NoChannels), "~123 123 123 123 123 123 12", "-read with 3 a firing", "3"},
    {"answer that is the usual length", Lost(Each(Injections(4), NoChannels), {8}), "~12345 - 12345 12345",
     "!1 left without reading", "5"},
    {"no border: the run of equal latitudes", Each(Each(Injections(2), SetCurrent), Moored, NoChannels), "~123456789X",
     "-10 records share the first position"}};

TEST(FiringTable, FindTheirReadings) {
  for (const FiringCase& row : Cases) {
    SCOPED_TRACE(row.what);
    const test::TempFolder folder;
    ReadOptions options;
    options.span = row.span;
    options.channels = [&row](std::int32_t) { return row.answer; };
    const FileRead read = LeggiFile(folder.write("file.bin", test::SyscalFile(row.records)), options);
    const bool kept = row.readings.front() != '~', fault = row.says.starts_with('!');
    EXPECT_EQ((kept ? "" : "~") + Readings(read), row.readings);
    EXPECT_EQ(read.summary.firings, read.measurements.size());
    EXPECT_EQ(read.findings.anyFault(), fault);
    const auto says = [&](const Finding& f) {
      return (f.severity == Severity::Fault) == fault && f.reason.find(row.says.substr(1)) != std::string::npos;
    };
    const auto& said = read.findings.entries();
    EXPECT_TRUE(row.says.empty() || std::any_of(said.begin(), said.end(), says)) << test::Told(read.findings);
    for (const Misura& m : read.measurements) {
      const bool nothing = m.SenzaFix && m.Lat == 0 && m.Val180 == 0 && m.NumFile == 0;
      EXPECT_TRUE(nothing || !Vuota(m)) << "an empty firing keeps something of its records";
      for (std::size_t c = 1; kept && c <= MaxChannels; ++c) {
        const float hundredths = std::round((m.Rho[c] - std::floor(m.Rho[c])) * 100.0F);
        EXPECT_EQ(static_cast<std::size_t>(hundredths), HaLettura(m, c) ? c : 0) << m.Rho[c];
      }
    }
  }
}

bool Same(const Misura& a, const Misura& b) {
  return a.letture == b.letture && a.Rho == b.Rho && a.CanaleA == b.CanaleA && a.Elettrodi == b.Elettrodi &&
         a.Lat == b.Lat && a.Lon == b.Lon && a.Val180 == b.Val180 && a.Val12 == b.Val12 && a.Tempo == b.Tempo;
}

// One record cut out of the sample, anywhere, spoils its own firing and no other.
TEST(LostRecords, OfTheSampleSpoilTheirOwnFiringAlone) {
  const std::string whole = test::Slurp(std::string(CORVAN_SAMPLES) + "/lagoon_1.bin");
  const test::TempFolder folder;
  ReadOptions options;
  options.span = ReadSpan::PastLostFixes;
  const auto before = LeggiFile(folder.write("whole.bin", whole), options).measurements;
  ASSERT_EQ(before.size(), 218U);
  for (std::size_t i = 1; i <= 30; ++i) {
    const std::size_t k = 41 + 619 * i % 2140;  // behind the leading records, over the whole file
    std::string cut = whole;
    cut.erase(1029 + (k - 1) * 304, 304);
    const FileRead read = LeggiFile(folder.write("cut.bin", cut), options);
    ASSERT_EQ(read.measurements.size(), before.size()) << k;
    const std::size_t firing = (k - 21) / 10;
    for (std::size_t g = 0; g < before.size(); ++g) {
      EXPECT_EQ(Same(read.measurements[g], before[g]), g != firing) << "record " << k << ", firing " << g + 1;
    }
    EXPECT_EQ(read.measurements[firing].letture, AllReadings & ~BitDi((k - 1) % 10 + 1)) << k;
    EXPECT_TRUE(read.findings.anyFault()) << k;
  }
}

/// Both ways of reading a file of more records than its beginning shows.
void ReadBothWays(const Records& records, std::size_t firings, std::size_t channels, ReadSpan span) {
  const test::TempFolder folder;
  const auto path = folder.write("long.bin", test::SyscalFile(records, 1, 280));
  ReadOptions options;
  options.span = span;
  const FileRead kept = LeggiFile(path, options);
  std::vector<Misura> handed;
  const FileReport walked = PercorriFile(path, options, [&handed](const Misura& m) { handed.push_back(m); });
  ASSERT_EQ(kept.measurements.size(), firings);
  ASSERT_EQ(handed.size(), firings);
  EXPECT_EQ(kept.summary.channels, static_cast<std::int32_t>(channels));
  EXPECT_EQ(kept.findings.entries(), walked.findings.entries());
  for (std::size_t g = 0; g < firings; ++g) ASSERT_TRUE(Same(kept.measurements[g], handed[g])) << g;
  EXPECT_EQ(kept.measurements.back().Rho[channels], records.back().rho);
}

TEST(LongFiles, AreReadAlikeWhetherTheirBeginningSpeaksForThemOrNot) {
  Records regular = Injections(1000, 10);
  ReadBothWays(regular, 1000, 10, ReadSpan::ToFirstLostFix);
  // The first 5,000 records are of five channels, the 20,000 behind them of ten.
  Records other = Injections(1000, 5);
  for (RecordValues v : Injections(2000, 10)) {
    v.current += 0.5F;
    other.push_back(v);
  }
  ReadBothWays(other, 1000 + 2000, 10, ReadSpan::PastLostFixes);
}

// A run that is too long to be held is cut as it comes; memory does not grow with it.
TEST(LongFiles, WithOneBorderAreCutAsTheyCome) {
  Records records = Each(Injections(1200, 10), Moored, NoChannels);
  for (std::size_t k = 0; k < records.size(); ++k) records[k].current = k < 5000 ? 1.0F : 2.0F;
  const test::TempFolder folder;
  std::vector<Misura> handed;
  const FileReport report = PercorriFile(folder.write("long.bin", test::SyscalFile(records, 1, 280)), {},
                                         [&handed](const Misura& m) { handed.push_back(m); });
  ASSERT_EQ(handed.size(), 2U);
  EXPECT_EQ(report.summary.channels, 7000) << "the larger of two runs";
  EXPECT_TRUE(Vuota(handed[0])) << "5,000 records are short of 7,000, and none tells its channel";
  EXPECT_EQ(handed[1].letture, AllReadings);
  EXPECT_EQ(handed[1].Rho[10], records[5009].rho);
}

// Every third firing holds its second record eight times: among 13,000 records some repeat across two blocks of a walk.
TEST(LongFiles, DropRepeatedRecordsAcrossBlocks) {
  Records records;
  for (const RecordValues& v : Injections(3000, 2)) {
    const bool third = static_cast<int>(v.rho) % 3 == 0 && v.channel == 2;
    records.insert(records.end(), third ? 8 : 1, v);
  }
  const test::TempFolder folder;
  const FileRead read = LeggiFile(folder.write("long.bin", test::SyscalFile(records)), {});
  ASSERT_EQ(read.measurements.size(), 3000U);
  for (const Misura& m : read.measurements) ASSERT_EQ(m.letture, BitDi(1) | BitDi(2));
  ASSERT_EQ(read.findings.entries().size(), 1U);
  EXPECT_NE(read.findings.entries()[0].reason.find("7000 records equal to the one before dropped"), std::string::npos);
}

}  // namespace
}  // namespace corvan

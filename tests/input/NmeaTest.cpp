// NMEA 0183 logs: which sentences make fixes, whose they are, which day it is, which depth belongs to which fix.
#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "base/OleDate.h"
#include "input/NmeaDepths.h"
#include "input/TrackFile.h"
#include "TrackTexts.h"

namespace corvan {
namespace {

using namespace std::string_literals;
using test::Sentence;
using test::TimesAndDepths;
using test::Told;

std::string Gga(const std::string& time, const std::string& talker = "GP", const std::string& quality = "1") {
  return Sentence(talker + "GGA," + time + ",4524.5,N,01218.5,E," + quality + ",08,1.0,0,M,,M,,");
}
std::string Rmc(const std::string& time, const std::string& date = "150626", const std::string& talker = "GP",
                const std::string& status = "A") {
  return Sentence(talker + "RMC," + time + "," + status + ",4524.5,N,01218.5,E,1,2," + date + ",,");
}
std::string Void(const std::string& time) { return Gga(time, "GP", "0"); }
std::string Zda(const std::string& time, const std::string& date, const std::string& talker = "GP") {
  return Sentence(talker + "ZDA," + time + "," + date + ",,");
}
std::string Dpt(const std::string& depth) { return Sentence("SDDPT," + depth + ",0,"); }

struct LogCase {
  const char* what;
  std::string log;
  std::string fixes, told = {};
  std::optional<DateTime> firstDay = std::nullopt;
};

const std::string Day = Zda("070000", "15,06,2026");  // tells the day, no position
const std::string Depth = Dpt("3.5");                 // one at the start serves only the first second

std::string NoDepths(int count) {
  const std::string n = std::to_string(count);
  return "-" + n + " of " + n + (count == 1 ? " fix has" : " fixes have") + " no depth: no sentence tells one\n";
}

std::string Voids(int count, int line) {
  return "-" + std::to_string(count) + (count == 1 ? " position sentence" : " position sentences") +
         " without a fix (" + (count == 1 ? "" : "the first in ") + "line " + std::to_string(line) + ")\n";
}

const LogCase Logs[] = {
    // Dates.
    {"the date of a sentence without fix is none", Rmc("235950", "060180", "GP", "V") + Gga("080000") + Rmc("080001"),
     "08:00:00 -, 08:00:01 -", Voids(1, 1) + NoDepths(2)},
    {"two days in one log, the second's first fix told before its date",
     Rmc("110000") + Gga("110001") + Gga("133000") + Rmc("133000", "170626") + Gga("133001"),
     "11:00:00 -, 11:00:01 -, 2026-06-17 13:30:00 -, 2026-06-17 13:30:01 -",
     "-the date changes other than at midnight 1 time (line 3)\n" + NoDepths(4)},
    {"all of a date's second, before and behind it",
     Rmc("110000") + Gga("133000.2") + Dpt("4") + Rmc("133000.2", "170626") + Gga("133000.6"),
     "11:00:00 -, 2026-06-17 13:30:00 4, 2026-06-17 13:30:01 4",
     "-the date changes other than at midnight 1 time (line 2)\n-1 of 3 fixes has no depth near enough in time\n"},
    {"midnight without a new date", Rmc("235958", "311226") + Gga("000003") + Gga("120004"),
     "2026-12-31 23:59:58 -, 2027-01-01 00:00:03 -, 2027-01-01 12:00:04 -", NoDepths(3)},
    {"a fall of twelve hours is none", Rmc("200000") + Gga("080000"), "20:00:00 -, 08:00:00 -", NoDepths(2)},
    {"before the first date, over a midnight", Gga("235958") + Gga("000003") + Rmc("000010", "010326"),
     "2026-02-28 23:59:58 -, 2026-03-01 00:00:03 -, 2026-03-01 00:00:10 -", NoDepths(3)},
    {"a day of no calendar", Rmc("080000", "310226") + Rmc("080001", "280226") + Rmc("080002", "290226"),
     "2026-02-28 08:00:00 -, 2026-02-28 08:00:01 -, 2026-02-28 08:00:02 -",
     "-2 dates that are no days of 1980 to 2100 left out (the first in line 1)\n" + NoDepths(3)},
    {"a ZDA outside 1980 to 2100",
     Zda("080000", "31,12,1979") + Zda("080000", "01,01,2101") + Gga("080000") + Rmc("080001", "311299"),
     "1999-12-31 08:00:00 -, 1999-12-31 08:00:01 -",
     "-2 dates that are no days of 1980 to 2100 left out (the first in line 1)\n" + NoDepths(2)},
    {"another talker's ZDA where its own date is there",
     Zda("080000", "01,01,2020", "II") + Gga("080000") + Gga("080001") + Zda("080001", "15,06,2026"),
     "08:00:00 -, 08:00:01 -", NoDepths(2)},
    {"another talker's ZDA where there is none", Gga("080000") + Zda("080001", "15,06,2026", "II") + Gga("080002"),
     "08:00:00 -, 08:00:02 -", NoDepths(2)},
    {"another talker's RMC never", Gga("080000") + Gga("080001") + Rmc("080001", "150626", "GN"),
     "1899-12-30 08:00:00 -, 1899-12-30 08:00:01 -",
     "!no sentence tells the date: the fixes have times but no day, and nothing can be linked by time\n-1 fix of other "
     "talkers (GN 1) left out: GP, with 2, is read\n" +
         NoDepths(2)},
    {"the day of the first fix given, void sentences and a midnight around it",
     Rmc("235900", "", "GP", "V") + Gga("235958") + Gga("000003"), "23:59:58 -, 2026-06-16 00:00:03 -",
     Voids(1, 1) + NoDepths(2), DateTime{2026, 6, 15}},
    {"the day of the first fix given though the log tells it", Rmc("080000"), "08:00:00 -",
     "-the log tells its dates: the day given for its first fix is not used\n" + NoDepths(1), DateTime{2026, 6, 20}},
    {"a receiver that counts from 0 after a restart passes no midnight",
     Rmc("150000") + Void("000001") + Void("000002") + Gga("150100"), "15:00:00 -, 15:01:00 -",
     Voids(2, 2) + NoDepths(2)},
    {"one that had no fix from before midnight until after noon does",
     Rmc("230000") + Void("235900") + Void("000100") + Void("110000") + Gga("223000"),
     "23:00:00 -, 2026-06-16 22:30:00 -", Voids(3, 2) + NoDepths(2)},
    {"a sentence from before midnight that comes late", Rmc("235958") + Gga("000000") + Gga("235959") + Gga("000001"),
     "23:59:58 -, 2026-06-16 00:00:00 -, 23:59:59 -, 2026-06-16 00:00:01 -", NoDepths(4)},
    {"the same with its date", Zda("000000", "16,06,2026") + Rmc("235959") + Gga("000001") + Gga("000002"),
     "23:59:59 -, 2026-06-16 00:00:01 -, 2026-06-16 00:00:02 -", NoDepths(3)},
    // Depths.
    {"midway between the times around it",  // at 2 s, 12 s and 22 s of fixes at 0, 4, 20 and 24 s
     Rmc("080000") + Dpt("1") + Gga("080004") + Dpt("2") + Gga("080020") + Dpt("3") + Gga("080024"),
     "08:00:00 1, 08:00:04 1, 08:00:20 3, 08:00:24 3"},
    {"of equally near ones the last before the fix in the log",  // at 1, 1 and 3 s of fixes at 0, 2 and 4 s
     Rmc("080000") + Dpt("1") + Dpt("2") + Gga("080002") + Dpt("3") + Dpt("4") + Gga("080004"),
     "08:00:00 1, 08:00:02 2, 08:00:04 4"},
    {"else the first behind it", Rmc("080000") + Dpt("1") + Dpt("2"), "08:00:00 1"},
    {"before it in the log, though a clock set back makes it later in time",  // at 3 s and 1 s of a fix at 2 s
     Rmc("080003") + Dpt("1") + Void("080003") + Gga("080002") + Void("080001") + Dpt("2") + Void("080001"),
     "08:00:03 1, 08:00:02 1", Voids(3, 3)},
    {"before the first time", Dpt("1") + Dpt("2") + Rmc("080000"), "08:00:00 2"},
    {"between sentences of one time",  // at 0 s, nearer than the one at 0.5 s
     Gga("080000") + Dpt("1") + Rmc("080000") + Dpt("2") + Gga("080001"), "08:00:00 1, 08:00:01 2"},
    {"five seconds away",  // the mean of 4 s and 6 s
     Rmc("080000") + Void("080004") + Dpt("1") + Void("080006"), "08:00:00 1", Voids(2, 2)},
    {"a millisecond more", Rmc("080000") + Void("080004.001") + Dpt("1") + Void("080006.001"), "08:00:00 -",
     Voids(2, 2) + "-1 of 1 fix has no depth near enough in time\n"},
    {"half the median spacing of 20 s", Rmc("080000") + Dpt("1") + Gga("080020") + Gga("080040"),
     "08:00:00 1, 08:00:20 1, 08:00:40 -", "-1 of 3 fixes has no depth near enough in time\n"},
    {"half the median of 12 s and 20 s is 8 s", Rmc("080000") + Dpt("1") + Gga("080012") + Dpt("2") + Gga("080032"),
     "08:00:00 1, 08:00:12 1, 08:00:32 -", "-1 of 3 fixes has no depth near enough in time\n"},
    {"over midnight", Rmc("235959") + Dpt("1") + Gga("000001") + Dpt("2"), "23:59:59 1, 2026-06-16 00:00:01 2"},
    {"DPT before all others, from any talker, its offset with its sign",
     Sentence("SDDBT,,f,7,M,,F") + Sentence("SDDBS,,f,8,M,,F") + Sentence("IIDPT,4.0,+0.3") + Rmc("080000") +
         Sentence("IIDPT,4.0,-0.25") + Gga("080001") + Sentence("SDDPT,5,,") + Gga("080002") + Dpt("") +
         Sentence("SDDBT,,f,9,M,,F"),
     "08:00:00 4.3, 08:00:01 3.75, 08:00:02 5",
     "-1 DPT offset is negative: a depth below the keel (line 5)\n-3 depths of other sentences not used: DPT serves "
     "the whole log\n"},
    {"DBS where no DPT has a depth",
     Dpt("") + Sentence("SDDBT,,f,7,M,,F") + Sentence("SDDBS,,f,0,M,,F") + Rmc("080000"), "08:00:00 0",
     "-1 depth of other sentences not used: DBS serves the whole log\n"},
    {"DBT where nothing else is there", Sentence("SDDBT,22.9,f,7,M,3.8,F") + Rmc("080000"), "08:00:00 7"},
    {"a kind whose checksums are all wrong",
     "$GPRMC,080000,A,4524.5,N,01218.5,E,1,2,150626,,*57\n" + Sentence("SDDBS,,f,3.0,M,,F") +
         "$GPRMC,080001,A,4524.5,N,01218.5,E,1,2,150626,,*57\n" + Sentence("SDDBS,,f,3.1,M,,F"),
     "08:00:00 3, 08:00:01 3.1", "!every RMC sentence has a wrong checksum: they are taken\n"},
    {"an offset or depth that is no number",
     Sentence("SDDPT,4,x,") + Dpt("4e1") + Sentence("SDDPT,-,0") + Rmc("080000"), "08:00:00 -",
     "!3 DPT sentences that cannot be read left out (the first in line 1)\n" + NoDepths(1)},
    // Talkers.
    {"the one with the most fixes, not the most sentences",
     Rmc("080000") + Gga("080000") + Rmc("080000") + Rmc("080001", "150626", "GN") + Gga("080002", "GN"),
     "08:00:01 -, 08:00:02 -", "-1 fix of other talkers (GP 1) left out: GN, with 2, is read\n" + NoDepths(2)},
    {"the first heard of equals, void sentences heard too",
     Gga("075959", "GN", "0") + Rmc("080000") + Rmc("080005", "150626", "GN"), "08:00:05 -",
     Voids(1, 1) + "-1 fix of other talkers (GP 1) left out: GN, with 1, is read\n" + NoDepths(1)},
    {"another talker's clock moves no depth and no midnight",
     Rmc("235959") + Gga("100000", "GN") + Dpt("1") + Gga("100000", "GN") + Gga("000001"),
     "23:59:59 1, 2026-06-16 00:00:01 1", "-1 fix of other talkers (GN 1) left out: GP, with 2, is read\n"},
    {"a maker's own sentences are none",
     Sentence("PGRMC,A,218.8,100,6378137.000,298.257223563,0,0,0,A,3,1,2,4,30") + Rmc("080000"), "08:00:00 -",
     NoDepths(1)}};

TEST(NmeaLogs, GiveTheseFixes) {
  for (const LogCase& c : Logs) {
    SCOPED_TRACE(c.what);
    TrackOptions options;
    if (c.firstDay) options.firstDay = AGiorni(*c.firstDay);
    const TrackRead read = LeggiFileNav(c.log, options);
    EXPECT_EQ(TimesAndDepths(read), c.fixes);
    EXPECT_EQ(Told(read.findings), c.told);
  }
}

TEST(Nmea, TakesOnlySentencesThatClaimAFix) {
  const std::pair<const char*, std::vector<const char*>> cases[] = {
      {"",
       {"GPGGA,080000,4524.5,N,01218.5,E,1,08", "GPGGA,080000,4524.5,N,01218.5,E,8,08",
        "GPRMC,080000,A,4524.5,N,01218.5,E,1,2,150626,,", "GPGLL,4524.5,N,01218.5,E,080000,A",
        "GPGLL,4524.5,N,01218.5,E,080000,A,D"}},
      {"-1 position sentence without a fix (line 2)\n",
       {"GPGGA,080000,4524.5,N,01218.5,E,0,08", "GPGGA,080000,4524.5,N,01218.5,E,,08",
        "GPRMC,080000,V,4524.5,N,01218.5,E,1,2,150626,,", "GPRMC,080000,,4524.5,N,01218.5,E,1,2,150626,,",
        "GPGLL,4524.5,N,01218.5,E,080000,A,N", "GPGLL,4524.5,N,01218.5,E,080000,V,A", "GPGLL,4524.5,N,01218.5,E"}},
      {"-1 position sentence claims a fix without latitude or longitude: left out (line 2)\n",
       {"GPGLL,0000.0,N,01218.5,E,080000,A", "GPGLL,4524.5,N,00000.0,E,080000,A", "GPGLL,,N,01218.5,E,080000,A"}},
      {"!1 GLL sentence that cannot be read left out (line 2)\n",
       {"GPGLL,4560.5,N,01218.5,E,080000,A", "GPGLL,9000.5,N,01218.5,E,080000,A", "GPGLL,4524.5,E,01218.5,E,080000,A",
        "GPGLL,4524.5,N,01218.5,E,240000,A"}}};
  for (const auto& [told, bodies] : cases) {
    for (const char* body : bodies) {
      const TrackRead read = LeggiFileNav(Day + Sentence(body) + Depth, {});
      EXPECT_EQ(read.fixes.size(), *told == '\0' ? 1U : 0U) << body;
      EXPECT_EQ(Told(read.findings), told) << body;
    }
  }
}

TEST(Nmea, KeepsPositionsAndTimesToTheirLastDigit) {
  const std::string log = Day + Sentence("GPGGA,080000.1236,4524.51234,S,01218.7512,W,1") +
                          Sentence("GPGLL,4524.5,S,01218.75,W,080000.1236,A") + Dpt("2");
  const TrackRead read = LeggiFileNav(log, {AngleFormat::DMMSS, {}});
  ASSERT_EQ(read.fixes.size(), 1U) << "the same time again makes no second fix";
  const auto& place = std::get<Geographic>(read.fixes(1).sorgente);
  EXPECT_DOUBLE_EQ(place.latitude, -45.408539);         // 45 + 24.51234 / 60
  EXPECT_DOUBLE_EQ(place.longitude, -12.31252);         // 12 + 18.7512 / 60
  EXPECT_NEAR(read.fixes(1).GeoA, -452430.7404, 1e-8);  // 0.51234 * 60 = 30.7404
  EXPECT_NEAR(read.fixes(1).GeoB, -121845.072, 1e-8);
  const double day = AGiorni({2026, 6, 15});
  EXPECT_NEAR((read.fixes(1).DataOra - day) * 86400.0, 28800.124, 2e-6) << "to the millisecond";
  EXPECT_FALSE(read.undated);
  EXPECT_EQ(read.lines, 4U);
  EXPECT_EQ(read.kind, TrackKind::Nmea);
}

TEST(Nmea, SaysThatNobodyToldTheDate) {
  const std::string log = Gga("080000") + Depth;
  EXPECT_TRUE(LeggiFileNav(log, {}).undated);
  EXPECT_FALSE(LeggiFileNav(log, {AngleFormat::DMM_MMM, AGiorni({2026, 6, 15})}).undated);
  EXPECT_FALSE(LeggiFileNav(Depth, {}).undated) << "without a fix there is nothing to date";
}

TEST(Nmea, PassesOverTheDirtOfRealLogs) {
  const std::string gga = "GPGGA,080000,4524.5,N,01218.5,E,1,08,1.0";
  const std::string log = "NavLog 3.1 started\r\n15.06.26 08:00:00 " + Zda("075959", "15,06,2026") + "** " +
                          Sentence(gga) + Sentence("SDDPT,,") + "$GPGGA,080001,4524.5,N,01218.5,E,1,08,1.0*00\r\n" +
                          "$GPG\0GA,080002,4524.5,N,01218.5,E,1,08,1.0\r\n\0\0\x80\xFF$$$\r\n"s +
                          "$GPGGA,080003,45x4.5,N,01218.5,E,1,08,1.0\r$GPGGA,0800\r\n" +  // a lone CR ends a line too
                          "$GPGGA,0801" + Gga("080004") +                                 // a line cut short
                          "$PXYZ,1*11" + Gga("080005") + "$GPGSV,3,1*7";
  const TrackRead read = LeggiFileNav(log, {});
  EXPECT_EQ(TimesAndDepths(read), "08:00:00 -, 08:00:02 -, 08:00:04 -, 08:00:05 -");
  EXPECT_EQ(Told(read.findings),
            "!2 GGA sentences with a wrong checksum left out (the first in line 5)\n!1 GGA sentence that cannot be "
            "read left out (line 8)\n-1 position sentence without a fix (line 9)\n" +
                NoDepths(4));
  EXPECT_EQ(read.lines, 12U);
}

TEST(Nmea, ReadsASentenceWhereverNulBytesStandInIt) {
  const auto dirty = [](std::string sentence, const char* behind) {
    return sentence.insert(sentence.find(behind) + std::string(behind).size(), 2, '\0');
  };
  const std::string rmc = Rmc("080000"), gga = Gga("080001");
  const TrackRead read = LeggiFileNav(dirty(rmc, ",A") + dirty(gga, "*") + dirty(Gga("080002"), ",452") +
                                          dirty(Gga("080003"), "$G") + dirty(Gga("080004"), "E,1"),
                                      {});
  EXPECT_EQ(TimesAndDepths(read), "08:00:00 -, 08:00:01 -, 08:00:02 -, 08:00:03 -, 08:00:04 -");
  EXPECT_EQ(Told(read.findings), NoDepths(5));

  EXPECT_EQ(GenereDaContenuto(dirty(rmc, "$GPR")), TrackKind::Nmea) << "also in the only address";
  std::string wide = "\xFF\xFE";
  for (const char c : rmc + gga) wide += {c, '\0'};
  EXPECT_EQ(GenereDaContenuto(wide), TrackKind::Nmea) << "two bytes a letter";
  EXPECT_EQ(LeggiFileNav(wide, {}).fixes.size(), 2U);
}

/// The nearest depth, looked for among all of them.
std::optional<double> PlainDepth(const std::vector<TimedDepth>& depths, std::int64_t time, std::size_t place) {
  constexpr std::int64_t reach = 6;
  std::int64_t nearest = reach;
  for (const TimedDepth& d : depths) nearest = std::min(nearest, std::abs(d.time - time));
  const TimedDepth *last = nullptr, *first = nullptr;  // before the place in the log, behind it
  for (const TimedDepth& d : depths) {
    if (std::abs(d.time - time) != nearest) continue;
    if (d.place <= place) {
      if (last == nullptr || d.place > last->place || d.time <= last->time) last = &d;
    } else if (first == nullptr || (d.place == first->place && d.time < first->time)) {
      first = &d;
    }
  }
  if (last == nullptr) last = first;
  return last == nullptr ? std::nullopt : std::optional(last->metres);
}

TEST(NmeaDepths, AreThoseOfASearchThroughAllOfThemWhateverTheirOrder) {
  std::mt19937 random(17);
  for (unsigned round = 0; round < 400; ++round) {
    std::vector<TimedDepth> depths;
    std::int64_t time = 0;
    for (std::size_t k = 0; k < random() % 40; ++k) {
      time = round % 2 == 0 ? static_cast<std::int64_t>(random() % 60) : time + random() % 3;
      depths.push_back({time, k / 2, static_cast<double>(k)});
    }
    DepthsByTime index(depths);
    for (unsigned k = 0; k < 60; ++k) {  // rising as a rule
      const std::int64_t moment = random() % 4 == 0 ? random() % 60 : k;
      const std::size_t place = random() % 25;
      ASSERT_EQ(index.vicino(moment, place, 6), PlainDepth(depths, moment, place)) << round << " " << k;
    }
  }
}

}  // namespace
}  // namespace corvan

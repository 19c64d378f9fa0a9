// External tracks in their four forms, clean and dirty.
#include "input/TrackFile.h"

#include <gtest/gtest.h>

#include "base/OleDate.h"
#include "input/NmeaLog.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using namespace std::string_literals;

struct Reading {
  test::ScriptedAnswers dialogs;
  GeoGeo geo{dialogs};
  Reading() { geo.UTMzone(33); }

  static bool says(const TrackRead& read, const std::string& words) {
    for (const Finding& finding : read.findings.entries()) {
      if (finding.reason.find(words) != std::string::npos) return true;
    }
    return false;
  }
};

/// A sentence with its checksum.
std::string Sentence(const std::string& body) {
  unsigned sum = 0;
  for (const char c : body) sum ^= static_cast<unsigned char>(c);
  const char* digits = "0123456789ABCDEF";
  return "$" + body + "*" + digits[sum >> 4U] + digits[sum & 15U];
}

TEST(ReaderChoice, GoesByTheLastFourCharactersOfTheName) {
  const std::string nmea = Sentence("GPZDA,1,1,1,2026,,") + "\n";
  EXPECT_EQ(GenereTraccia("a.csv", ""), TrackKind::Csv);
  EXPECT_EQ(GenereTraccia("a.CSV", ""), TrackKind::SixColumns) << "capitals are another ending";
  EXPECT_EQ(GenereTraccia("a.sav", ""), TrackKind::Sav);
  EXPECT_EQ(GenereTraccia("a.nav", nmea), TrackKind::Nmea);
  EXPECT_EQ(GenereTraccia("a.nav", "15/06/2026 08:00 1 4524 1218 3"), TrackKind::SixColumns);
  EXPECT_EQ(GenereTraccia("a.txt", nmea), TrackKind::SixColumns);
  EXPECT_EQ(GenereTraccia("csv", ""), TrackKind::SixColumns);
}

TEST(Csv, SkipsItsHeaderAndBlankLines) {
  Reading r;
  const std::string file =
      "h;e;a;d\r\n1;x;15/06/2026;08:00:00;;;;4.5;;288685.52;5030933.45\r\n\r\n2;x;15/06/2026;08:00:03;;;;5;;288688.52;"
      "5030937.45;\r\n";
  TrackRead read = LeggiFileCSV(file, r.geo);
  ASSERT_EQ(read.fixes.size(), 2U);
  EXPECT_EQ(read.fixes(1).Prof, 4.5);
  EXPECT_EQ(read.fixes(2).X, 288688.52);
  // 45.4 N 12.3 E by cs2cs; so far from the central meridian latitudes come out up to 5.4 m, 0.003 minutes, short.
  EXPECT_NEAR(read.fixes(1).GeoA, 4524.0, 0.0035);
  EXPECT_NEAR(read.fixes(1).GeoB, 1218.0, 0.001);
  EXPECT_NEAR(read.fixes(2).DataOra, AGiorni({2026, 6, 15, 8, 0, 3}), 1e-9);
  EXPECT_EQ(CalcolaProgressiva(read.fixes), 5.0);
  EXPECT_EQ(read.fixes(2).Progressiva, 5.0);
  EXPECT_TRUE(LeggiFileCSV("header\r\n", r.geo).fixes.empty());
}

TEST(Csv, EndsAtADateThatCannotBeRead) {
  Reading r;
  const std::string good = "1;x;15/06/2026;08:00:00;;;;4;;288685;5030933\n";
  const TrackRead read = LeggiFileCSV("h\n" + good + "2;x;soon;08:00;;;;4;;1;2\n" + good + good, r.geo);
  EXPECT_EQ(read.fixes.size(), 1U);
  EXPECT_TRUE(Reading::says(read, "line 3: \"soon 08:00\" is no date and time"));
  EXPECT_TRUE(Reading::says(read, "3 lines from there on left out"));
  EXPECT_TRUE(Reading::says(LeggiFileCSV("h\n1,15/06/2026,08:00,4\n", r.geo), "line 2")) << "commas separate nothing";
}

TEST(SixColumns, AreCutByTheSeparatorOfTheirLine) {
  Reading r;
  const TrackRead read = LeggiGPS6Col(
      "\xEF\xBB\xBF"
      "15/06/2026 08:00:00 7 4524.5 1218.5 3.25\r2026-06-15;08:00:05;-2;4524.6;1218.6;4\n"
      "15.6.26\t08:00:07\t40000\t4524.6\t1218.6\t5\r\n",
      r.geo);
  ASSERT_EQ(read.fixes.size(), 3U);
  EXPECT_EQ(read.fixes(1).GeoA, 4524.5);
  EXPECT_EQ(read.fixes(1).Riserva, 7U);
  EXPECT_EQ(read.fixes(2).Riserva, 0xFFFEU) << "two bytes";
  EXPECT_EQ(read.fixes(3).Prof, 5);
  EXPECT_GT(read.fixes(2).Y, read.fixes(1).Y);
}

TEST(SixColumns, LeaveOutPositionsThatCannotBeUsed) {
  Reading r;
  const TrackRead read = LeggiGPS6Col(
      "15/06/2026 08:00:00 1 4524.5 1218.5 3\n15/06/2026 08:00:01 1 1e300 1218.5 3\n15/06/2026 08:00:02 1 4524.5 "
      "1218.6 "
      "4\n",
      r.geo);
  EXPECT_EQ(read.fixes.size(), 2U);
  EXPECT_TRUE(Reading::says(read, "1 lines without a usable position"));
}

TEST(Sav, AsksForBezierPointsFromFourFixesOn) {
  Reading r;
  std::string file;
  const auto line = [](int k) {
    return "15/06/2026 08:00:0" + std::to_string(k) + " 1 4524." + std::to_string(k) + " 1218.5 " + std::to_string(k) +
           "\n";
  };
  for (int k = 0; k < 3; ++k) file += line(k);
  EXPECT_EQ(LeggiFileSav(file, r.geo, r.dialogs).fixes.size(), 3U);
  EXPECT_TRUE(r.dialogs.questions.empty());
  for (int k = 3; k < 8; ++k) file += line(k);
  EXPECT_EQ(LeggiFileSav(file, r.geo, r.dialogs).fixes.size(), 8U) << "unanswered";
  EXPECT_EQ(r.dialogs.questions.at(0).prompt, "N Bezier Points");
  EXPECT_EQ(r.dialogs.questions.at(0).title, "Set the interpolation");
  r.dialogs.answers["N Bezier Points"] = {"7"};
  const TrackRead read = LeggiFileSav(file, r.geo, r.dialogs);
  // Runs 1 to 4 and 4 to 7 with seven points each, the shared one once, and fix 8.
  ASSERT_EQ(read.fixes.size(), 14U);
  for (std::size_t k = 1; k <= 13; ++k) {
    const double place = 0.5 * static_cast<double>(k - 1);
    EXPECT_NEAR(read.fixes(k).Prof, place, 1e-9) << k;
    EXPECT_NEAR((read.fixes(k).DataOra - read.fixes(1).DataOra) * 86400, place, 1e-4) << k;
    EXPECT_NEAR(read.fixes(k).GeoA, 4524.0 + 0.1 * place, 1e-9) << "equal steps on a straight line, " << k;
  }
  EXPECT_EQ(read.fixes(14).Prof, 7);
}

TEST(Nmea, MakesOneFixOfTheSentencesOfOneTime) {
  Reading r;
  const std::string log =
      Sentence("SDDPT,4.0,0.5,") + "\r\n" + Sentence("GPGGA,235958.00,4524.5,N,01218.5,E,1,08,1.0,0,M,,M,,") + "\r\n" +
      Sentence("GPRMC,235958.00,A,4524.5,N,01218.5,E,1,2,150626,,") + "\r\n" +
      Sentence("GPGLL,4524.6,S,01218.6,W,000001,A") + "\n" + Sentence("SDDBT,,f,7.25,M,,F") + "\r" +
      "$GPGGA,000005.5,4524.7,N,01218.7,E,2,08,1.0\r\n" + Sentence("GPGGA,000013,4524.8,N,01218.8,E,1,08,1.0") + "\n" +
      Sentence("GPGGA,000014,4524.8,N,01218.8,E,0,08,1.0") + "\n" +
      Sentence("GPRMC,000015,V,4524.8,N,01218.8,E,1,2,160626,,") + "\n";
  const TrackRead read = LeggiFileNav(log, r.geo);
  ASSERT_EQ(read.fixes.size(), 4U);
  const double first = AGiorni({2026, 6, 15, 23, 59, 58});
  const double seconds[] = {0, 3, 7.5, 15};
  for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR((read.fixes(k + 1).DataOra - first) * 86400, seconds[k], 1e-4) << k;
  EXPECT_EQ(read.fixes(1).Prof, 4.5) << "with the transducer's offset";
  EXPECT_EQ(read.fixes(1).GeoA, 4524.5);
  EXPECT_EQ(read.fixes(2).GeoA, -4524.6);
  EXPECT_EQ(read.fixes(2).GeoB, -1218.6);
  EXPECT_EQ(read.fixes(2).Prof, 4.5);
  EXPECT_EQ(read.fixes(3).Prof, 7.25) << "received 4.5 s before";
  EXPECT_EQ(read.fixes(4).Prof, 0) << "too old";
  EXPECT_TRUE(Reading::says(read, "2 position sentences without a fix"));
  EXPECT_EQ(read.lines, 9U);
}

TEST(Nmea, PassesOverTheDirtOfRealLogs) {
  Reading r;
  const std::string gga = "GPGGA,080000,4524.5,N,01218.5,E,1,08,1.0";
  const std::string log = "NavLog 3.1 started\r\n15.06.26 08:00:00 " + Sentence("GPZDA,075959,15,06,2026,,") +
                          "\r\n** " + Sentence(gga) + "\r\n" + Sentence("SDDPT,,") +
                          "\r\n$GPGGA,080001,4524.5,N,01218.5,E,1,08,1.0*00\r\n" +
                          "$GPG\0GA,080002,4524.5,N,01218.5,E,1,08,1.0\r\n\0\0\x80\xFF$$$\r\n"s +
                          "$GPGGA,080003,45x4.5,N,01218.5,E,1,08,1.0\r\n$GPGGA,0800\r\n$PXYZ,1*11\r\n$GPGSV,3,1*7";
  const TrackRead read = LeggiFileNav(log, r.geo);
  ASSERT_EQ(read.fixes.size(), 2U);
  EXPECT_NEAR(read.fixes(2).DataOra, AGiorni({2026, 6, 15, 8, 0, 2}), 1e-9) << "with a NUL byte inside";
  EXPECT_TRUE(Reading::says(read, "1 GGA sentences with a wrong checksum left out"));
  EXPECT_TRUE(Reading::says(read, "1 GGA sentences that cannot be read"));
  EXPECT_FALSE(Reading::says(read, "DPT")) << "an empty depth says nothing";
  EXPECT_TRUE(SembraNmea(log));
  EXPECT_FALSE(SembraNmea("15/06/2026 08:00:00 1 4524 1218 $3"));
}

TEST(Nmea, TakesAKindWhoseChecksumsAreAllWrong) {
  Reading r;
  std::string log;
  for (int k = 0; k < 5; ++k) {
    log += "$GPRMC,08000" + std::to_string(k) + ",A,4524.5,N,01218.5,E,1,2,150626,,*57\n";
    log += Sentence("SDDBS,,f,3.5,M,,F") + "\n";
  }
  const TrackRead read = LeggiFileNav(log, r.geo);
  EXPECT_EQ(read.fixes.size(), 5U);
  EXPECT_EQ(read.fixes(5).Prof, 3.5);
  EXPECT_TRUE(Reading::says(read, "every RMC sentence has a wrong checksum: they are taken"));
}

TEST(Nmea, WithoutADateSaysSo) {
  Reading r;
  const TrackRead read = LeggiFileNav(Sentence("GPGGA,080000,4524.5,N,01218.5,E,1,08,1.0"), r.geo);
  ASSERT_EQ(read.fixes.size(), 1U);
  EXPECT_NEAR(read.fixes(1).DataOra, 8.0 / 24, 1e-12);
  EXPECT_TRUE(Reading::says(read, "no sentence tells the date"));
}

}  // namespace
}  // namespace corvan

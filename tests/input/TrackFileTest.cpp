// External tracks as text: which kind a file is, what each line gives and what is said of it.
#include "input/TrackFile.h"

#include <gtest/gtest.h>

#include <map>

#include "base/OleDate.h"
#include "geo/AngleText.h"
#include "input/TrackSteps.h"
#include "TrackTexts.h"

namespace corvan {
namespace {

using test::TimesAndDepths;
using test::Told;

constexpr AngleFormat Dmm = AngleFormat::DMM_MMM;
constexpr TrackKind Table = TrackKind::Csv, Six = TrackKind::SixColumns;

TEST(TrackKinds, AreToldByContentWhateverTheEnding) {
  const char* six = "15/06/2026 08:00 1 4524 1218 3\n";
  const char* table = "n;line;date;time\n1;x;15/06/2026;08:00:00;;;;4;;288685;5030933\n";
  const char* log = "started\n1\n2\n** $GPZDA,1,1,1,2026,,\n";
  const char* later = "31/02/2026 08:00 1 4524 1218 3\n1;x;15/06/2026;08:00\n15/06/2026 08:00 1\n";
  const char* unknown = "$GPGSV,3,1,11\n$PGRMC,A,1\n$GPGGA\n";
  const char* timeless = "15/06/2026;;15/06/2026;08:00\n";  // a date without a time decides nothing
  const char* dates = "date;time\n2026-06-15;8:00;1;4524;1218;3\n";
  const std::map<TrackKind, std::vector<std::pair<const char*, const char*>>> cases{
      {TrackKind::Nmea, {{"a.NAV", log}, {"a.log", log}, {"a.csv", log}}},
      {TrackKind::Sav, {{"a.sav", log}}},
      {Six,
       {{"a.SAV", six},
        {"sav", six},
        {"a.csv", six},
        {"a.nav", dates},
        {"a.CSV", "header only\n"},
        {"a.nav", ""},
        {"a.txt", unknown}}},
      {Table, {{"a.txt", table}, {"a.nav", table}, {"a.txt", later}, {"a.txt", timeless}, {"a.csv", "header only\n"}}}};
  for (const auto& [kind, files] : cases) {
    for (const auto& [name, content] : files) EXPECT_EQ(GenereTraccia(name, content), kind) << name << '\n' << content;
  }
  EXPECT_FALSE(GenereDaContenuto("header only\n12.5 08:00\n").has_value());
  const std::string late = std::string(100'000, 'x') + "\n$IIDPT,4,0\n";
  EXPECT_EQ(GenereDaContenuto(late), TrackKind::Nmea) << "any line";
}

struct TextCase {
  const char* what;
  TrackKind kind;
  std::string content;
  std::string fixes, told = {};
  std::size_t lines = 0;
};

/// A table's line after its header's.
std::string Row(const std::string& second, const std::string& depth, const std::string& easting = "288685.5",
                const std::string& northing = "5030933.25") {
  return "1;x;15/06/2026;08:00:" + second + ";;;;" + depth + ";;" + easting + ";" + northing + "\r\n";
}

const TextCase Texts[] = {
    {"blank lines make no fix, a depth of 0 is one", Table, Row("00", "4.5") + "\r\n  \r\n" + Row("03", "0"),
     "08:00:00 4.5, 08:00:03 0", "", 5},
    {"no position", Table,
     Row("00", "1", "0", "5030933") + Row("01", "2", "288685", "") + Row("02", "3", "288685", "0.00") + Row("03", "4"),
     "08:00:03 4", "-3 lines without a position left out (the first in line 2)\n"},
    {"no depth", Table, Row("00", "") + Row("01", "--") + Row("02", "n/a") + Row("03", "4"),
     "08:00:00 -, 08:00:01 -, 08:00:02 -, 08:00:03 4",
     "!2 depths are no numbers (the first in line 3): their fixes have none\n-3 of 4 fixes have no depth\n"},
    {"decimal commas and tails", Table, Row("00", "4,5") + Row("01", "4m", "288685,75", "5030933.25"),
     "08:00:00 4, 08:00:01 4",
     "!3 values are not numbers from end to end, the first in line 2, field 8: \"4,5\" read as 4\n"},
    {"a position that is a word", Table, Row("00", "4", "east"), "",
     "!1 value is not a number from end to end in line 2, field 10: \"east\" read as 0\n-1 line without a position "
     "left out (line 2)\n"},
    {"a date that is none ends the track before its position is looked at", Table,
     Row("00", "4") + "2;x;soon;08:00;;;;4;;0;0\n\n" + Row("02", "4"), "08:00:00 4",
     "!line 3: \"soon 08:00\" is no date and time\n!2 lines from line 3 on left out\n"},
    {"a number too large ends it", Table, Row("00", "4") + Row("01", "1e999") + Row("02", "4"), "08:00:00 4",
     "!line 3: number too large: 1e999\n!2 lines from line 3 on left out\n"},
    {"a position on no grid", Table, Row("00", "4", "1e300"), "",
     "!1 line with a position on no grid left out (line 2)\n"},
    {"commas separate nothing", Table, "1,15/06/2026,08:00,4\n", "",
     "!line 2: \" \" is no date and time\n!1 line from line 2 on left out\n"},
    {"50 m/s and a little more, by whole seconds and one at least", Table,
     Row("00", "1", "288600") + Row("01", "1", "288650") + Row("01.4", "1", "288700") + Row("04", "1", "288850") +
         Row("04", "1", "288900.5") + Row("03", "1", "289000"),
     "08:00:00 1, 08:00:01 1, 08:00:01 1, 08:00:04 1, 08:00:04 1, 08:00:03 1",
     "!2 steps of over 50 m/s, the first in line 6 (51 m in 1 s): every fix is kept\n"},
    {"latitudes and longitudes instead of metres", Table,
     Row("00", "1", "1218.5", "4524.5") + Row("01", "1", "1218.5", "8999"), "08:00:00 1, 08:00:01 1",
     "!every northing is below 9000 m and every easting below 18000 m: they look like degrees and minutes (ddmm), a "
     "table holds UTM metres\n!a step of over 50 m/s in line 3 (4475 m in 1 s): every fix is kept\n"},
    {"any line end and any separator, line by line", Six,
     "\xEF\xBB\xBF"
     "15/06/2026 08:00:00 7 4524.5 1218.5 3.25\r2026-06-15;08:00:05;2;4524.5;1218.5;4\n\r\n"
     "15.6.26\t08:00:07\t1\t4524.5\t1218.5\t\r",
     "08:00:00 3.25, 08:00:05 4, 08:00:07 -", "-1 of 3 fixes has no depth\n", 4},
    {"no position", Six,
     "15/06/2026 08:00:00 1 0 1218.5 3\n15/06/2026;08:00:01;1;4524.5;;3\n"
     "15/06/2026 08:00:02 1 4524.5 0000.0 3\n15/06/2026 08:00:03 1\n",
     "", "-4 lines without a position left out (the first in line 1)\n"},
    {"beyond the poles and the date line", Six,
     "15/06/2026 08:00:00 1 9000 18000 3\n15/06/2026 08:00:00 1 9000.1 1218.5 3\n"
     "15/06/2026 08:00:02 1 4524.5 -18000.1 3\n15/06/2026 08:00:02 1 9000 -18000 3\n",
     "08:00:00 3, 08:00:02 3",
     "!2 lines with a latitude over 90 or a longitude over 180 degrees left out (the first in line 2)\n"},
    {"degrees, minutes and seconds", Six, "15/06/2026 08:00:00 1 452430 121830 3\n", "",
     "!1 line with a latitude over 90 or a longitude over 180 degrees left out (line 1): the numbers look like "
     "degrees, minutes and seconds (ddmmss)\n"},
    {"metres", Six, "15/06/2026 08:00:00 1 5030933 288685 3\n", "",
     "!1 line with a latitude over 90 or a longitude over 180 degrees left out (line 1): the numbers look like UTM "
     "metres, six columns hold angles\n"},
    {"decimal degrees", Six, "15/06/2026 08:00:00 1 45.408 12.308 3\n", "08:00:00 3",
     "!every latitude is below 91 and every longitude below 181: the numbers look like decimal degrees (dd)\n"},
    {"texts that are no numbers, in positions, depths and elsewhere", Six,
     "15/06/2026 08:00:00 x 4524.5 1218.5 3\n15/06/2026;08:00:01;70000;4524.5;1218,5;3\n"
     "15/06/2026 08:00:02 1 4524.5N 1218.5 3,5\n15/06/2026;08:00:03;1;45\xC2\xB0 24.5';1218.5;3\n",
     "08:00:00 3, 08:00:01 3, 08:00:02 3, 08:00:03 3",
     "!3 values are not numbers from end to end, the first in line 2, field 5: \"1218,5\" read as 1218.5\n-2 values of "
     "field 3 no 16-bit number (the first in line 1)\n"},
    {"one mistyped digit",
     Six,  // a degree of latitude, by cs2cs 3751.419 m and 111101.305 m on the grid, and back
     "15/06/2026 08:00:00 1 4524.5 1218.5 3\n15/06/2026 08:00:02 1 4624.5 1218.5 3\n"
     "15/06/2026 08:00:04 1 4524.5 1218.5 3\n",
     "08:00:00 3, 08:00:02 3, 08:00:04 3",
     "!2 steps of over 50 m/s, the first in line 2 (111165 m in 2 s): every fix is kept\n"},
    {"across 180 degrees", Six,  // 0.02 minutes of longitude on the equator's neighbour: 37 m
     "15/06/2026 08:00:00 1 0001 17959.99 3\n15/06/2026 08:00:01 1 0001 -17959.99 3\n", "08:00:00 3, 08:00:01 3"},
    {"a header is no date", Six, "date time n lat lon depth\n15/06/2026 08:00:00 1 4524.5 1218.5 3\n", "",
     "!line 1: \"date time\" is no date and time\n!2 lines from line 1 on left out\n"}};

TEST(TextTracks, GiveTheseFixes) {
  for (const TextCase& c : Texts) {
    SCOPED_TRACE(c.what);
    const TrackRead read = LeggiTraccia(c.kind, (c.kind == Table ? "h;e;a;d\r\n" : "") + c.content, {Dmm, {}});
    EXPECT_EQ(TimesAndDepths(read), c.fixes);
    EXPECT_EQ(Told(read.findings), c.told);
    EXPECT_TRUE(c.lines == 0 || read.lines == c.lines) << read.lines;
  }
}

TEST(Tables, KeepTheirNumbersOnAGridOfNoZone) {
  const TrackRead read = LeggiFileCSV("h\n" + Row("00", "4"), {});
  ASSERT_EQ(read.fixes.size(), 1U);
  EXPECT_EQ(std::get<Grid>(read.fixes(1).sorgente), (Grid{288685.5, 5030933.25, 0, Hemisphere::North}));
  EXPECT_EQ(read.kind, TrackKind::Csv);
}

TEST(Tables, SayThatTheHeaderLooksLikeAFix) {
  EXPECT_EQ(Told(LeggiFileCSV(Row("00", "4") + Row("01", "4"), {}).findings),
            "!line 1, left out as the header, holds a date and time\n");
}

TEST(Columns, KeepTheirAnglesAsRead) {
  struct Case {
    AngleFormat layout;
    const char* latitude;
    double read, degrees;
  };
  const Case cases[] = {{Dmm, "-4524.5", -4524.5, -45.40833333333333},
                        {Dmm, "4530", 4530, 45.5},
                        {Dmm, "4524,75", 4524.75, 45.4125},
                        {Dmm, "45\26030'", 4530, 45.5},
                        {AngleFormat::DMMSS, "452430.5", 452430.5, 45.40847222222222},
                        {AngleFormat::D_DDDD, "45.125", 45.125, 45.125}};
  for (const Case& c : cases) {
    const std::string line = "15/06/2026;08:00;-2;" + std::string(c.latitude) + ";" + "12.5;3";
    const TrackRead read = LeggiTraccia(TrackKind::SixColumns, line, {c.layout, {}});
    ASSERT_EQ(read.fixes.size(), 1U) << c.latitude;
    EXPECT_DOUBLE_EQ(std::get<Geographic>(read.fixes(1).sorgente).latitude, c.degrees) << c.latitude;
    EXPECT_DOUBLE_EQ(read.fixes(1).GeoA, c.read) << c.latitude;
    EXPECT_EQ(read.fixes(1).GeoB, 12.5);
    EXPECT_EQ(read.fixes(1).Riserva, 0xFFFEU) << "two bytes";
  }
}

PuntoGPSEst At(const PositionSource& source, double seconds, std::optional<double> depth) {
  PuntoGPSEst fix;
  fix.sorgente = source;
  fix.DataOra = 46188.0 + seconds / 86400.0;
  fix.haProf = depth.has_value();
  fix.Prof = depth.value_or(0.0);
  return fix;
}

TEST(Resampling, PutsPointsOnTheCurveOfEachFour) {
  Array1<PuntoGPSEst> fixes;
  const double longitudes[] = {12, 12.5, 13, 13.5, 14, 14.5, 15, 16};
  for (int k = 0; k < 8; ++k) {
    const double latitude = k == 1 || k == 2 ? 45.0 + 0.4 : 45.0;  // the first run is bent, the second straight
    const std::optional<double> depth = k == 4 ? std::nullopt : std::optional(1.0 * k);
    fixes.append(At(Geographic{latitude, longitudes[k]}, 3.0 * k, depth));
  }
  const Array1<PuntoGPSEst> points = Ricampiona(fixes, 7, Dmm);
  ASSERT_EQ(points.size(), 14U) << "seven and seven but for the shared one, and the eighth fix";
  for (std::size_t k = 1; k <= 13; ++k) {
    const double place = 0.5 * static_cast<double>(k - 1), t = place / 3.0;  // in fixes; along the first run's curve
    const auto& where = std::get<Geographic>(points(k).sorgente);
    // Bernstein: 3 t (1 - t)^2 + 3 t^2 (1 - t) = 3 t (1 - t) of the two inner points' height.
    EXPECT_NEAR(where.latitude, k <= 7 ? 45.0 + 0.4 * 3.0 * t * (1.0 - t) : 45.0, 1e-12) << k;
    EXPECT_NEAR(where.longitude, 12.0 + 0.5 * place, 1e-12) << k;
    EXPECT_NEAR(GradiDaNumero(points(k).GeoA, Dmm), where.latitude, 1e-12) << k;
    EXPECT_NEAR((points(k).DataOra - 46188.0) * 86400.0, 3.0 * place, 1e-5) << k;
    const bool known = place <= 3.0 || place >= 5.0;
    EXPECT_EQ(points(k).haProf, known) << k;
    EXPECT_NEAR(points(k).Prof, known ? place : 0.0, 1e-12) << k;
  }
  EXPECT_EQ(std::get<Geographic>(points(14).sorgente).longitude, 16.0);
  EXPECT_EQ(Ricampiona(fixes, 1, Dmm).size(), 8U);
}

TEST(Resampling, OfAGridKeepsToItAndOfThreeFixesToThem) {
  Array1<PuntoGPSEst> fixes;
  for (int k = 0; k < 4; ++k) fixes.append(At(Grid{288600.0 + 9.0 * k, 5030900.0 - 3.0 * k, 33}, k, 2.0));
  const Array1<PuntoGPSEst> points = Ricampiona(fixes, 2, Dmm);
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(std::get<Grid>(points(2).sorgente), (Grid{288627.0, 5030891.0, 33, Hemisphere::North}));
  fixes.resize(3);
  EXPECT_EQ(Ricampiona(fixes, 9, Dmm).size(), 3U);
  EXPECT_EQ(LeggiTraccia(TrackKind::Sav, "15/06/2026 08:00 1 4524 1218 3", {}).kind, TrackKind::Sav);
}

TEST(TrackLength, IsMeasuredOnTheGridOfItsFirstFix) {
  Array1<PuntoGPSEst> fixes;
  EXPECT_EQ(LunghezzaTraccia(fixes), 0.0);
  for (int k = 0; k < 3; ++k) fixes.append(At(Grid{288600.0 + 3.0 * k, 5030900.0 - 4.0 * k}, k, 2.0));
  EXPECT_DOUBLE_EQ(LunghezzaTraccia(fixes), 10.0);
  Array1<PuntoGPSEst> along;  // a minute of latitude on the central meridian of zone 33: cs2cs gives 1851.588 m
  for (int k = 0; k < 2; ++k) along.append(At(Geographic{45.4 + k / 60.0, 15.0}, k, 2.0));
  EXPECT_NEAR(LunghezzaTraccia(along), 1851.588, 0.01);
}

}  // namespace
}  // namespace corvan

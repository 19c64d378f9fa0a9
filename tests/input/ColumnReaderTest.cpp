// Column texts: what names columns, which rows make a firing, and what is told of everything else.
#include "input/ColumnReader.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "base/NumberText.h"
#include "base/OleDate.h"
#include "input/ColumnLayout.h"
#include "input/InputDriver.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using test::Told;

struct Stated {
  std::string columns;
  std::optional<double> spacing;
};

FileRead Read(const std::string& content, const Stated& stated = {}, std::optional<AngleFormat> layout = std::nullopt) {
  const test::TempFolder folder;
  ReadOptions options;
  options.layout = layout;
  options.columns = [&stated] { return stated.columns; };
  options.spacing = [&stated](bool) { return stated.spacing; };
  return LeggiFile(folder.write("survey.txt", content), options);
}

std::string Number(double value) { return TestoNumero(std::round(value * 1e4) / 1e4); }

/// "1 6: 11 -2.5 16 -- 21": current electrodes, then potential ones with U/I between them, "--" without a reading; what
/// the firing repeats of its last electrode is left out.
std::string Firing(const Misura& m) {
  std::size_t last = PotentialElectrodes;
  while (last > 2 && m.Elettrodi.at(last) == m.Elettrodi.at(last - 1)) --last;
  std::string text = Number(m.Val60) + " " + Number(m.Val64) + ": " + Number(m.Elettrodi[1]);
  for (std::size_t c = 1; c < last; ++c) {
    const double r = static_cast<double>(m.CanaleA.at(c)) / static_cast<double>(m.Val180);
    text += " " + (HaLettura(m, c) ? Number(r) : "--") + " " + Number(m.Elettrodi.at(c + 1));
    EXPECT_EQ(m.CanaleB.at(c), -m.CanaleA.at(c));
  }
  EXPECT_EQ(m.Val184, -m.Val180);
  EXPECT_TRUE(m.CavoProprio);
  return text;
}

std::string Firings(const FileRead& read) {
  std::string list;
  for (const Misura& m : read.measurements) list += (list.empty() ? "" : " | ") + Firing(m);
  return list;
}

const std::string Header = "a;b;m;n;u;i;x;y;depth\n";
const std::string Place = ";288685.5;5030933.25;4.5\n";
const std::string Row1 = "1;6;11;16;-500;2000" + Place, Row2 = "1;6;16;21;-125;2000" + Place;
const std::string Both = "1 6: 11 -0.25 16 -0.0625 21";

struct RowCase {
  const char* what;
  std::string content, firings, told;
};

const RowCase Rows[] = {
    {"rows that chain are a firing", Header + Row1 + Row2, Both, ""},
    {"rows that do not, or of another A or B, stand alone",
     Header + Row1 + "1;6;17;21;-125;2000" + Place + "1;7;21;25;100;2000" + Place + "2;7;25;30;100;2000" + Place,
     "1 6: 11 -0.25 16 | 1 6: 17 -0.0625 21 | 1 7: 21 0.05 25 | 2 7: 25 0.05 30",
     "-4 of 4 firings are rows of their own\n"},
    {"another position, current or name of a line begins a firing",
     "a;b;m;n;u;i;x;y;depth;line\n1;6;11;16;-500;2000;288685.5;5030933.25;4;L1\n"
     "1;6;16;21;-500;2000;288685.5;5030933.5;4;L1\n1;6;21;26;-500;1000;288685.5;5030933.5;4;L1\n"
     "1;6;26;31;-500;1000;288685.5;5030933.5;4;L2\n1;6;31;36;-500;1000;288685.5;5030933.5;4;L2\n",
     "1 6: 11 -0.25 16 | 1 6: 16 -0.25 21 | 1 6: 21 -0.5 26 | 1 6: 26 -0.5 31 -0.5 36",
     "-3 of 4 firings are rows of their own\n"},
    {"blank lines, comments and the same header again are no rows",
     "% by hand\n\n" + Header + Row1 + "\n# calm\n! wind\n" + Header + "  \r\n" + Row2 + "\n\n", Both,
     "-5 lines, blank, a comment or a repeated header, passed over\n"},
    {"a header in a comment, quotes, a byte-order mark, CR alone",
     "\xEF\xBB\xBF# \"A\",B,M,N,\"U [V]\",I(A),Easting (m),Northing (m),Water Depth [ft]\r"
     "1,6,11,16,\"-0.5\",2,288685.5,5030933.25,10\r\r1,6,16,21,-0.125,2,288685.5,5030933.25,10\r",
     Both, "-1 line, blank, a comment or a repeated header, passed over\n"},
    {"blanks part units from names, rows may be parted by tabs",
     "A [m]  B [m]  M [m]  N [m]  U [mV]  I [mA]  UTM-E  UTM_N  depth\n"
     " 1  6 11 16   -500 2000 288685.5 5030933.25 4\n1\t6\t16\t21\t-125\t2000\t288685.5\t5030933.25\t4\n",
     Both, ""},
    {"units in a line of their own",
     "c1;c2;p1;p2;u;i;x;y;depth\nm;m;m;m;V;A;m;m;m\n1;6;11;16;-.5;2" + Place + "1;6;16;21;-.125;2" + Place, Both, ""},
    {"a line of words", Header + Row1 + "end;of;line;one;;;;;\n" + Row2, Both,
     "!1 line without any number passed over (line 3)\n"},
    {"values too few and too many",
     Header + Row1 + "1;6;16;21;-125\n" + "1;6;16;21;-125;2000;1;2;3;4\n" + "1,0;6,0;16;21;1;1;1;1;1;1;1\n" + Row2,
     Both, "!3 rows left out: more or fewer values than the 9 columns (the first in line 3), with 5\n"},
    {"empty fields behind the last column", Header + Row1.substr(0, Row1.size() - 1) + ";;\n" + Row2, Both, ""},
    {"an electrode that is no number", Header + Row1 + "1;B6;16;21;-125;2000" + Place + Row2, Both,
     "!1 row left out: no number for each of the four electrodes (line 3)\n"},
    {"a reading that is none keeps its channel",
     Header + Row1 + "1;6;16;21;nan;2000" + Place + "1;6;21;26;-80;2000" + Place, "1 6: 11 -0.25 16 -- 21 -0.04 26",
     "!1 row without a reading: the channel stays without one (line 3)\n"},
    {"decimal commas and tails are read as far as they are numbers",
     Header + Row1 + "1;6;16;21,9;-125;2000" + Place + "1;6;21m;26;-80;2000" + Place,
     "1 6: 11 -0.25 16 -0.0625 21 -0.04 26",
     "!2 values are not numbers from end to end, the first in line 3, field 4: \"21,9\" read as 21\n"},
    {"another separator", Header + Row1 + "1 6 16 21 -125 2000 288685.5 5030933.25 4.5\n", Both,
     "-1 row with another separator (line 3)\n"},
    {"a number too large ends the reading", Header + Row1 + "1;6;16;1e99;-125;2000" + Place + Row2 + "\n" + Row2,
     "1 6: 11 -0.25 16",
     "!line 3: field 4, \"1e99\" is too large: reading ended there, 3 lines from there on not read\n"
     "-1 of 1 firing is a row of its own\n"},
    {"a header with other columns holds from there on",
     Header + Row1 + Row2 + "x y depth a b m n r\n288685.5 5030933.25 4.5 1 6 11 16 -3.5\n",
     Both + " | 1 6: 11 -3.5 16",
     "-1 header with other columns, read from there on (line 4)\n-1 firing without a measured current: it stands as "
     "1000 "
     "mA, and the potential follows\n-1 of 2 firings is a row of its own\n"},
    {"a header further down that is not whole ends the reading", Header + Row1 + Row2 + "a b m n x y\n" + Row1, Both,
     "!line 4: another header, no column for a reading (r, or u and i, or rhoa): reading ended there, 2 lines from "
     "there "
     "on not read\n"},
    {"text and numbers before the header", "Survey of the lagoon\n3 lines\n" + Header + Row1 + Row2, Both,
     "!1 line of numbers before the header not read (line 2)\n-1 line of text before the rows passed over\n"},
    {"columns that are not read",
     "id;a;b;m;n;u;i;x;y;depth;r;err\n7;" + Row1.substr(0, Row1.size() - 1) + ";1;2\n8;" +
         Row2.substr(0, Row2.size() - 1) + ";1;2\n",
     Both, "-columns not used: id, err\n"},
    {"no depths",
     "a;b;m;n;u;i;x;y;depth\n1;6;11;16;-500;2000;288685.5;5030933.25;\n1;6;16;21;-125;2000;288685.5;"
     "5030933.25;deep\n",
     Both, "!1 row with a depth that is no number: 0 is taken (line 3)\n-1 row without a depth: 0 is taken\n"},
    {"no position", Header + "1;6;11;16;-500;2000;;5030933.25;4\n1;6;16;21;-125;2000;0;5030933.25;4\n" + Row1,
     Both + " | 1 6: 11 -0.25 16",
     "-2 rows without a position (the first in line 2)\n-1 of 2 firings is a row of its own\n"},
    {"a position that is a word", Header + "1;6;11;16;-500;2000;east;5030933.25;4\n1;6;16;21;-125;2000;;5030933.25;4\n",
     Both,
     "!1 value is not a number from end to end in line 2, field 7: \"east\" read as 0\n!none of the 2 rows has a "
     "position\n"},
    {"over 50 m/s",
     "a b m n u i x y depth date time\n1 6 11 16 -500 2000 288685.5 5030933.25 4 2026-06-15 08:00:00\n"
     "1 6 11 16 -500 2000 288685.5 5031133.25 4 2026-06-15 08:00:03\n",
     "1 6: 11 -0.25 16 | 1 6: 11 -0.25 16",
     "!a step of over 50 m/s in line 3 (200 m in 3 s): every firing is kept\n-2 of 2 firings are rows of their own\n"},
    {"electrodes that give no factor", Header + Row1 + "1;6;16;16;-500;2000" + Place, "1 6: 11 -0.25 16",
     "-1 row whose electrodes give a geometric factor of 0, and no resistivity (line 3)\n"},
};

TEST(ColumnText, MakesFiringsOfRowsAndTellsWhatItDoesNotTake) {
  for (const RowCase& c : Rows) {
    const FileRead read = Read(c.content);
    EXPECT_EQ(Firings(read), c.firings) << c.what;
    EXPECT_EQ(Told(read.findings), c.told) << c.what;
    EXPECT_EQ(read.summary.format, "columns") << c.what;
    EXPECT_EQ(read.summary.firings, read.measurements.size()) << c.what;
  }
}

/// Everything that a firing holds; by hand: 4.5 ft are 1.3716 m, 10:00 two hours ahead of UTC is 08:00, K of 1 6 11 16
/// is 6.2832 / (1/10 - 1/15 - 1/5 + 1/10) = -94.248 m, that of 1 6 16 21 6.2832 / (1/15 - 1/20 - 1/10 + 1/15) =
/// -376.992 m.
TEST(ColumnText, FillsAFiringFromItsColumns) {
  const FileRead read = Read(
      "time;depth (ft);lat;lon;a;b;m;n;r (mohm);i\n2026-06-15T10:00:00+02:00;4.5;45.5;-12.25;1;6;11;16;-250;50\n"
      "2026-06-15T10:00:01+02:00;4.5;45.5;-12.25;1;6;16;21;-100;50\n",
      {}, AngleFormat::DMM_MMM);
  ASSERT_EQ(read.measurements.size(), 1U);
  const Misura& m = read.measurements[0];
  EXPECT_EQ(std::tuple(m.Val60, m.Val64, m.NumFile, m.letture), std::tuple(1.0F, 6.0F, 1, BitDi(1) | BitDi(2)));
  EXPECT_EQ(std::vector(m.Elettrodi.begin() + 1, m.Elettrodi.end()),
            (std::vector<float>{11, 16, 21, 21, 21, 21, 21, 21, 21, 21, 21}));
  EXPECT_FLOAT_EQ(m.Val12, 1.3716F);
  EXPECT_EQ(TestoDataOra(DaGiorni(m.Tempo)), "2026-06-15 08:00:00");
  EXPECT_DOUBLE_EQ(m.Lat, 4530.0);
  EXPECT_DOUBLE_EQ(m.Lon, -1215.0);
  EXPECT_EQ(m.sorgente, PositionSource(Geographic{45.5, -12.25}));
  EXPECT_EQ(std::tuple(m.Val180, m.CanaleA[1], m.CanaleA[2], m.CanaleA[3]), std::tuple(50.0F, -12.5F, -5.0F, 0.0F));
  EXPECT_NEAR(m.Rho[1], 23.562, 1e-4);
  EXPECT_NEAR(m.Rho[2], 37.6992, 1e-4);
  EXPECT_EQ(m.Rho[3], 0.0F);
  EXPECT_TRUE(read.summary.timed());
  EXPECT_EQ(read.summary.channels, 2);
  EXPECT_EQ(read.summary.records, 3U);
  EXPECT_EQ(Told(read.findings),
            "-its columns are decimal degrees; the coordinate format (ddmm) is that of other files\n");
}

struct ReadingCase {
  const char *header, *row;
  float current, potential;
  std::string told;
};

// By hand with K = -94.248 m: 23.562 / -94.248 = -0.25 ohm.
TEST(ColumnText, TakesAReadingFromWhateverStandsThere) {
  const std::string nominal = "-1 firing without a measured current: it stands as 1000 mA, and the potential follows\n";
  const ReadingCase cases[] = {{"r", "-0.25", 1000, -250, nominal},
                               {"rhoa", "23.562", 1000, -250, nominal},
                               {"Rho_a [Ohm.m]", "23.562", 1000, -250, nominal},
                               {"u [uV];i [mA]", "-12500;50", 50, -12.5F, ""},
                               {"i;rhoa", "50;23.562", 50, -12.5F, ""},
                               {"V/I [\xCE\xA9];rhoa", "-0.25;23.4", 1000, -250, nominal},
                               {"r;rhoa", "-0.25;23.2", 1000, -250,
                                "-1 row with an apparent resistivity that differs by over 1 % from what the resistance "
                                "gives, which is taken (line "
                                "2): 23.562 ohm m by the resistance, 23.2 as it stands\n" +
                                    nominal},
                               {"u;i;r", "-12.5;0;-0.25", 1000, -250, nominal},  // a current of 0 is none
                               {"u;r", "7;-0.25", 1000, -250, "-columns not used: u\n" + nominal}};
  for (const ReadingCase& c : cases) {
    const FileRead read =
        Read(std::string("a;b;m;n;x;y;depth;") + c.header + "\n1;6;11;16;288685.5;5030933.25;4;" + c.row + "\n");
    ASSERT_EQ(read.measurements.size(), 1U) << c.header << Told(read.findings);
    const Misura& m = read.measurements[0];
    EXPECT_FLOAT_EQ(m.Val180, c.current) << c.header;
    EXPECT_FLOAT_EQ(m.CanaleA[1], c.potential) << c.header;
    EXPECT_NEAR(m.Rho[1], 23.562, 1e-4) << c.header;
    std::string told = Told(read.findings);
    EXPECT_EQ(told, c.told + "-1 of 1 firing is a row of its own\n") << c.header;
  }
  const FileRead none = Read("a;b;m;n;x;y;depth;rhoa\n1;6;16;16;288685.5;5030933.25;4;20\n");  // K is 0
  ASSERT_EQ(none.measurements.size(), 1U);
  EXPECT_TRUE(Vuota(none.measurements[0]));
  EXPECT_EQ(
      Told(none.findings),
      "!1 row without a reading: the channel stays without one (line 2)\n-1 row whose electrodes give a geometric "
      "factor of 0, and no resistivity (line 2)\n-1 of 1 firing is a row of its own\n");
}

TEST(ColumnText, BeginsAnotherFiringBehindTenChannels) {
  std::string content = Header;
  for (int c = 0; c < 12; ++c) {
    content += "1;6;" + std::to_string(11 + 5 * c) + ";" + std::to_string(16 + 5 * c) + ";-500;2000" + Place;
  }
  const FileRead read = Read(content);
  ASSERT_EQ(read.measurements.size(), 2U);
  EXPECT_EQ(read.measurements[0].letture, AllReadings);
  EXPECT_EQ(read.measurements[0].Elettrodi[11], 61.0F);
  EXPECT_EQ(Firing(read.measurements[1]), "1 6: 61 -0.25 66 -0.25 71");
  EXPECT_EQ(read.summary.channels, 10);
}

TEST(ColumnText, NumbersTheRunsOfANameOfALine) {
  const auto lines = [](const std::string& names) {
    std::string content = "a b m n r x y line\n", numbers;
    for (const char name : names) content += std::string("1 6 11 16 -1 288685 5030933 ") + name + "\n";
    for (const Misura& m : Read(content).measurements) numbers += std::to_string(m.Linea);
    return numbers;
  };
  EXPECT_EQ(lines("AABBAC"), "112234");
  EXPECT_EQ(Read("a b m n r x y\n1 6 11 16 -1 288685 5030933\n").measurements.at(0).Linea, 0);
}

TEST(ColumnText, MultipliesNumbersOfElectrodesWithTheSpacing) {
  const std::string named = "a;b;m;n;u;i;x;y;depth\n1;2;3;4;-500;2000" + Place + "1;2;4;5;-125;2000" + Place;
  const std::string lengths =
      "a[m];b[m];m[m];n[m];u;i;x;y;depth\n1;2;3;4;-500;2000" + Place + "1;2;4;5;-125;2000" + Place;
  const std::string units =
      "a;b;m;n;u;i;x;y;depth\nm;m;m;m;mV;mA;m;m;m\n1;2;3;4;-500;2000" + Place + "1;2;4;5;-125;2000" + Place;
  const std::string spaced = "5 10: 15 -0.25 20 -0.0625 25", plain = "1 2: 3 -0.25 4 -0.0625 5";
  EXPECT_EQ(Firings(Read(named, {"", 5.0})), spaced);
  EXPECT_EQ(Told(Read(named, {"", 5.0}).findings), "");
  EXPECT_EQ(Firings(Read(named)), plain);
  EXPECT_EQ(Told(Read(named).findings), "-electrodes look like numbers: they are taken as places, 1 m apart\n");
  EXPECT_EQ(Firings(Read(lengths, {"", 5.0})), plain);
  EXPECT_EQ(Told(Read(lengths, {"", 5.0}).findings),
            "-the spacing that was stated is not used: the electrodes' units are lengths\n");
  EXPECT_EQ(Firings(Read(units)), plain);
  EXPECT_EQ(Told(Read(units).findings), "");
}

const char* const Typical = "1.0 6.0 11.0 16.0 -0.240570 11100.655150 1883925.176660\n";

TEST(ColumnText, WithoutAHeaderIsReadByColumnsThatSomebodyStates) {
  const FileRead read = Read(Typical, {"A, b; M n  r  x y", {}});
  ASSERT_EQ(read.measurements.size(), 1U);
  EXPECT_EQ(Firings(read), "1 6: 11 -0.2406 16");
  EXPECT_EQ(read.measurements[0].sorgente, PositionSource(Grid{11100.65515, 1883925.17666}));
  EXPECT_EQ(
      Told(read.findings),
      "-no column of depths: they are 0\n-1 firing without a measured current: it stands as 1000 mA, and the "
      "potential follows\n-eastings up to 11100.6552 and northings up to 1883925.1767 lie on no UTM zone (line 1): on "
      "a local grid distances hold, latitudes and longitudes mean nothing\n-1 of 1 firing is a row of its own\n");
  EXPECT_EQ(Told(Read(Typical).findings),
            "!no header names the columns and nobody has stated them (--columns): nothing is read\n");
  EXPECT_EQ(
      Told(Read(Typical, {"a b m n r x", {}}).findings),
      "!columns as stated, no column for a position (latitude and longitude, or easting and northing): nothing is "
      "read\n");
  const std::string part = "a b m n reading easting northing\n" + std::string(Typical);
  EXPECT_EQ(Firings(Read(part, {"a b m n r x y", {}})), "1 6: 11 -0.2406 16") << "what was stated counts";
  EXPECT_EQ(Told(Read(part + Typical, {"a b m n r x y", {}}).findings).substr(0, 50),
            "-1 line of text before the rows passed over\n-no co");
  EXPECT_EQ(Firings(Read("- , 1 2\n" + std::string(Typical), {"- b m n - x y", {}})), "");
  const FileRead header = Read(Header + Row1 + Row2, {"b a m n u i x y depth", {}});
  EXPECT_EQ(Firings(header), Both) << "the header counts";
}

TEST(ColumnText, RefusesHeadersThatDoNotNameEachColumnOnce) {
  const std::vector<std::array<const char*, 2>> cases{
      {"a b m n x y", "no column for a reading (r, or u and i, or rhoa)"},
      {"a b m n u x y", "no column for a reading (r, or u and i, or rhoa)"},
      {"a b m n r lat northing", "no column for a position (latitude and longitude, or easting and northing)"},
      {"a b m n r x easting y", "columns \"x\" and \"easting\" both hold the easting"},
      {"C1 a b m n rhoa lat lon", "columns \"C1\" and \"a\" both hold the a"},
      {"a b m n r[V] lat lon", "unit \"V\" of column \"r\" is not one of ohm, ohms, v/a, mv/ma, mohm, milliohm, kohm"},
      {"a b m n r lat lon depth(fathoms)",
       "unit \"fathoms\" of column \"depth\" is not one of m, metre, metres, meter, "
       "meters, cm, km, ft, feet"}};
  for (const auto& [header, problem] : cases) {
    EXPECT_EQ(LeggiTestata(header).problem, problem);
    EXPECT_EQ(LeggiColonne(header).problem, problem);
    const FileRead read = Read(std::string(header) + "\n1 6 11 16 1 2 3 4\n");
    EXPECT_EQ(Told(read.findings), "!line 1, " + std::string(problem) + ": nothing is read\n");
    EXPECT_EQ(read.summary.format, "");
  }
  EXPECT_EQ(LeggiColonne("a b m n r lat lon foo").problem, "\"foo\" is no name of a column");
  EXPECT_EQ(LeggiColonne("b m n r lat lon").problem, "no column for a");
  const ColumnNames both = LeggiTestata("a,b,m,n,r,x,y,lat,lon");
  EXPECT_EQ(both.problem, "");
  EXPECT_TRUE(both.layout.geografica());
  EXPECT_EQ(both.unused, (std::vector<std::string>{"easting", "northing"}));
}

TEST(ColumnText, TellsPositionsThatAreNotWhatTheirColumnsSay) {
  const auto told = [](const std::string& names, const std::string& place) {
    return Told(Read("a;b;m;n;u;i;depth;" + names + "\n1;6;11;16;-500;2000;1;" + place + "\n1;6;16;21;-500;2000;1;" +
                     place + "\n")
                    .findings);
  };
  EXPECT_EQ(told("lat;lon", "4524.5;1218.5"),
            "!1 of 1 position has a latitude over 90 or a longitude over 180, the first in line 2: they are read as "
            "decimal degrees\n-its columns are decimal degrees; the coordinate format (utm) is that of other files\n");
  EXPECT_EQ(
      told("x;y", "12.3;45.4"),
      "!eastings up to 12.3 and northings up to 45.4 look like decimal degrees: such columns are named longitude and "
      "latitude\n");
  EXPECT_EQ(
      told("x;y", "250;120"),
      "-eastings up to 250.0 and northings up to 120.0 lie on no UTM zone (line 2): on a local grid distances hold, "
      "latitudes and longitudes mean nothing\n");
  EXPECT_EQ(told("x;y", "288685;5030933"), "");
}

TEST(ColumnText, IsKnownByItsFirstLines) {
  const std::string table = "1;x;15/06/2026;08:00:00;;;;4;;288685;5030933\n";
  const std::vector<std::pair<std::string, ColumnStart>> cases{
      {"notes\n\nA,B,M,N,Rho,Lat,Lon\n", ColumnStart::Named},
      {"#a b m n r x y\n", ColumnStart::Named},
      {"a b m n r x\n", ColumnStart::Partial},
      {Typical, ColumnStart::Numbers},
      {"title\n1,0;6,0;11;16;1;2;3\n", ColumnStart::Numbers},
      {"1 2 3 4 5 6\n", ColumnStart::None},
      {table, ColumnStart::None},
      {"15/06/2026 08:00 1 4524 1218 3 4 5\n", ColumnStart::None},
      {"N.\tAx\tBx\tMx\tNx\tAy\ti\tv\tRho\tq\tm\tUTMx\tUTMy\r\n", ColumnStart::None},
      {"n,file,time,lat,lon,utm_x,utm_y,distance,depth,c1,c2,e1,e2,i_a,va1,rho1\n1,1,2,3,4,5,6,7,8\n",
       ColumnStart::Numbers},
      {std::string("a b m n r x y\n\0", 15), ColumnStart::None},
      {"", ColumnStart::None}};
  for (const auto& [beginning, start] : cases) EXPECT_EQ(InizioColonne(beginning), start) << beginning;
}

/// Blocks of a file are borders of nothing.
TEST(ColumnText, IsReadAlikeInBlocksOfAnySize) {
  const test::TempFolder folder;
  std::string content = Header;
  for (int k = 0; k < 300; ++k) {
    content += "1;6;11;16;-500;" + std::to_string(1000 + k) + Place + (k % 7 == 0 ? "\r\n" : "");
  }
  const auto path = folder.write("long.txt", content);
  const auto read = [&](std::size_t block) {
    std::vector<float> currents;
    const auto keep = [&currents](const Misura& m) { currents.push_back(m.Val180); };
    ReadOptions options;
    options.layout = std::nullopt;
    const FileReport report = LeggiFileColonne(path, "", options, keep, block);
    return std::tuple(currents, Told(report.findings), report.summary.records);
  };
  const auto whole = read(std::size_t{1} << 20);
  EXPECT_EQ(std::get<0>(whole).size(), 300U);
  EXPECT_EQ(std::get<2>(whole), 344U);
  for (const std::size_t block : {64U, 100U, 777U}) EXPECT_EQ(read(block), whole) << block;
}

}  // namespace
}  // namespace corvan

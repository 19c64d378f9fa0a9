// Positions that stay true, in whichever order survey, track, link and zone come.
#include <gtest/gtest.h>

#include <cmath>

#include "base/NumberText.h"
#include "SessionFixture.h"

namespace corvan {
namespace {

using test::Firings;
using test::RecordValues;
using test::SyscalFile;

constexpr double Second = 1.0 / 86400;
constexpr double Start = 46188.25;  // 15/06/2026 06:00

/// Ten firings of two channels about 45.4 N 12.3 E (zone 33), ten seconds apart.
std::vector<RecordValues> Line() {
  auto records = Firings(10, 2);
  for (std::size_t k = 0; k < records.size(); ++k) {
    records[k].time = Start + 10 * Second * static_cast<double>(k / 2);
    records[k].current = 1000 + static_cast<float>(k / 2);
  }
  return records;
}

/// A table of positions of so many fixes, ten seconds apart, 7 m east and 3 m north of each other.
std::string Table(std::size_t fixes, double east = 288652.25, double north = 5030933.5) {
  std::string text = "n;x;date;time;a;b;c;depth;d;east;north\r\n";
  for (std::size_t k = 0; k < fixes; ++k) {
    const auto n = static_cast<double>(k);
    text += "1;x;15/06/2026;06:0" + std::to_string(k / 6) + ":" + std::to_string(k % 6) + "0;;;;" +
            TestoNumero(2.5 + n) + ";;" + TestoNumero(east + 7 * n) + ";" + TestoNumero(north + 3 * n) + "\r\n";
  }
  return text;
}

struct Fixture : test::SessionFixture {
  std::filesystem::path line(const std::vector<RecordValues>& records, const char* name = "line.bin") const {
    return folder.write(name, SyscalFile(records));
  }
  void track(const std::string& content) { session.leggiTraccia(folder.write("track.csv", content)); }
  void zone(const char* answer) {
    dialogs.answers[Question::UtmZone] = {answer};
    press("SetUtmZone_Click");
  }
  const PuntoGPSEst& fix(std::size_t k) const { return session.survey.dati().tracciaEst.PuntiGPSEst(k); }
  bool says(const std::string& words) const {
    for (const Finding& finding : session.findings().entries()) {
      if (finding.reason.find(words) != std::string::npos) return true;
    }
    return false;
  }
};

TEST(TableTracks, LieOnTheGridOfTheSurveyWhicheverCameFirst) {
  for (const bool trackFirst : {true, false}) {
    Fixture f;
    if (trackFirst) f.track(Table(10));
    f.read({f.line(Line())});
    if (!trackFirst) f.track(Table(10));
    f.session.collegaPerTempo(0);
    EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 33);
    EXPECT_EQ(f.m(1).UTMx, 288652.25) << trackFirst;
    EXPECT_EQ(f.m(10).UTMy, 5030933.5 + 27) << trackFirst;
    EXPECT_EQ(f.m(4).Val12, 5.5F);
    EXPECT_FALSE(f.faulty());
  }
}

TEST(TableTracks, StandWithUtmFilesWhoseZoneIsStatedLater) {
  Fixture f;
  auto records = Line();
  for (std::size_t k = 0; k < records.size(); ++k) {
    records[k].north = 5030933.5F + static_cast<float>(k / 2);
    records[k].east = 288650.0F;
  }
  f.session.survey.FrameFileIn.LatLonCmbx = CoordinateEntry::UTM;
  f.read({f.line(records)});
  EXPECT_TRUE(f.says("zone 32 is assumed"));
  f.track(Table(10));
  f.zone("33");
  EXPECT_FALSE(f.says("is assumed")) << "once it is stated";
  f.session.collegaPerTempo(0);
  EXPECT_EQ(f.m(1).UTMx, 288652.25);
  EXPECT_NEAR(f.m(1).Lon, 1217.97, 0.05);
  f.zone("34");
  EXPECT_EQ(f.m(1).UTMx, 288652.25) << "what was read without a zone keeps its numbers";
  EXPECT_NEAR(f.m(1).Lon, 1817.97, 0.05);
  EXPECT_FALSE(f.faulty());
}

// To another zone and back nothing may have moved, and the survey never stands in two zones.
TEST(Zones, ChangeForTrackAndLinkedMeasurementsAlikeAndComeBackToTheBit) {
  Fixture f;
  auto records = Line();
  for (std::size_t k = 16; k < 20; ++k) records[k].time = std::nan("");  // 9 and 10 keep their own positions
  f.read({f.line(records)});
  f.track(Table(8));
  f.session.collegaPerTempo(0);
  const double length = f.session.survey.dati().traccia.Lunghezza;
  std::vector<double> before;
  for (std::size_t k = 1; k <= 10; ++k) before.insert(before.end(), {f.m(k).UTMx, f.m(k).UTMy, f.m(k).Lat, f.m(k).Lon});
  const double trackX = f.fix(3).X;
  f.zone("32");
  EXPECT_NEAR(f.m(1).UTMx, 758239.38, 6);  // cs2cs
  EXPECT_NEAR(f.fix(1).X, 758239.38, 6);
  EXPECT_NEAR(f.session.survey.dati().traccia.Lunghezza, length, 0.02 * length + 12)
      << "metres of the way back, not 940 km";
  f.zone("33");
  std::vector<double> after;
  for (std::size_t k = 1; k <= 10; ++k) after.insert(after.end(), {f.m(k).UTMx, f.m(k).UTMy, f.m(k).Lat, f.m(k).Lon});
  EXPECT_EQ(after, before);
  EXPECT_EQ(f.fix(3).X, trackX);
}

// What was interpolated between a linked position and another lies where the table of the survey says, in every output.
TEST(Interpolated, BesideLinkedPositionsAreWrittenWhereTheyStand) {
  Fixture f;
  auto records = Line();
  for (const std::size_t k : {8U, 9U, 10U, 11U}) records[k].north = records[k].east = 0;  // 5 and 6
  for (std::size_t k = 8; k < 20; ++k) records[k].time = std::nan("");
  f.session.survey.FrameFileIn.pastGaps = true;
  f.session.survey.FrameFileIn.filter = BadGps::Interpolate;
  f.read({f.line(records)});
  f.track(Table(4));
  f.session.collegaPerTempo(0);
  const double x = f.m(5).UTMx, y = f.m(5).UTMy;
  EXPECT_NEAR(x, f.m(4).UTMx + (f.m(7).UTMx - f.m(4).UTMx) / 3, 1e-6);
  f.session.exporter.FrameFileOut.TxtChk = true;
  f.session.selection.scegli(1);
  f.session.selection.scegli(10);
  f.session.salvaEstratto(f.session.exporter.FrameFileOut);
  EXPECT_EQ(f.m(5).UTMx, x);
  EXPECT_EQ(f.m(5).UTMy, y);
  const std::string line = test::CrLfLines(f.output(".txt")).at(41);
  EXPECT_NE(line.find(FormattaNumero(static_cast<double>(static_cast<float>(x)), "#########.0#")), std::string::npos)
      << line;
}

TEST(Hemispheres, AreThoseOfTheFirstPositionAsReadWhateverIsLinked) {
  Fixture f;
  auto records = Line();
  for (std::size_t k = 0; k < records.size(); ++k) {
    records[k].north = -0.05F + 0.01F * static_cast<float>(k / 2);  // from 0.05 minutes south over the equator
    if (k / 2 == 5) records[k].north = 0.004F;
  }
  f.read({f.line(records)});
  EXPECT_NEAR(f.m(10).UTMy, 1e7 + 74, 1) << "0.04 minutes north on the southern grid";
  f.track(Table(3, 288652.25, 9999950));  // covers the southern ones only
  f.dialogs.answers[Question::Connection] = {"1", "3"};
  f.session.track.chiediConnessione(1);
  f.session.track.chiediConnessione(3);
  f.session.collegaPerPosizione();
  EXPECT_EQ(f.m(1).UTMy, 9999950);
  EXPECT_NEAR(f.m(10).UTMy, 1e7 + 74, 1) << "the rest did not jump to the other grid";
}

TEST(TracksWithoutDepths, LeaveTheSurveysDepths) {
  Fixture f;
  f.read({f.line(Line())});
  std::string table = Table(10);
  for (std::size_t at = table.find(";;;;"); at != std::string::npos; at = table.find(";;;;", at + 1)) {
    const std::size_t depth = at + 4, end = table.find(';', depth);
    table.replace(depth, end - depth, " ");
  }
  f.track(table);
  f.session.collegaPerTempo(0);
  EXPECT_EQ(f.m(5).Val12, 4);
  EXPECT_EQ(f.m(5).UTMx, 288652.25 + 28);
  EXPECT_TRUE(f.says("10 measurements lie at fixes without a depth"));
  EXPECT_FALSE(f.faulty());
}

TEST(EmptyTracks, DiscardAllAndSaySo) {
  Fixture f;
  f.read({f.line(Line())});
  f.track("header\r\n");
  f.session.collegaPerTempo(0);
  EXPECT_EQ(f.session.survey.fixes().discarded, 10U);
  EXPECT_TRUE(f.faulty());
}

// Ten measurements: nine lines and what stands behind the last line end are enough, whatever ends the lines.
TEST(ShortTracks, AreAskedAboutByTheirLines) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    for (const std::size_t lines : {8U, 9U}) {
      Fixture f;
      f.read({f.line(Line())});
      std::string text;
      for (std::size_t k = 0; k < lines; ++k) text += "15/06/2026 06:00:0" + std::to_string(k) + " 1 4524 1218 3" + end;
      f.session.leggiTraccia(f.folder.write("track.gps", text));
      EXPECT_EQ(f.dialogs.messages.size(), lines == 8 ? 1U : 0U) << lines;
    }
  }
}

TEST(FarTracks, AreToldOnLoadingAndBeforeALink) {
  Fixture f;
  f.track(Table(10, 288652.25, 5130933.5));
  EXPECT_FALSE(f.faulty()) << "there is no survey yet";
  f.read({f.line(Line())});
  f.session.collegaPerTempo(0);
  EXPECT_TRUE(f.says("100 km from the survey"));
}

// Longitude 180 lies in zone 60, for what is told and what is computed.
TEST(Zones, EndAtTheDateLine) {
  Fixture f;
  auto records = Line();
  for (RecordValues& r : records) r.east = 18000;
  f.read({f.line(records)});
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 60);
  EXPECT_NEAR(f.m(1).UTMx, 734793, 40);  // cs2cs: 734793.6 E at 45.4 N
}

TEST(Angles, BeyondAllTurnsAreRefused) {
  Fixture f;
  f.readFirings(2);
  for (const char* text : {"1e308", "1e400", "-1e7"}) {
    f.press("Thetatxt_KeyPress", text);
    EXPECT_NEAR(f.session.view.state().AngoloVista, 1.5707963, 1e-6) << text;
    EXPECT_TRUE(f.faulty());
  }
}

TEST(OneMeasurement, IsPainted) {
  Fixture f;
  f.readFirings(1);
  EXPECT_EQ(f.session.view.state().Lato, 10.0F);
  EXPECT_EQ(f.session.survey.dati().traccia.AltezzaCella, 5) << "the electrode spacing";
}

}  // namespace
}  // namespace corvan

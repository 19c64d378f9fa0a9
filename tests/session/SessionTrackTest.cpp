// External tracks: reading, connecting, linking.
#include "SessionFixture.h"

#include <cmath>
#include <utility>

namespace corvan {
namespace {

using Fixture = test::SessionFixture;
using test::Samples;

struct TrackFixture : Fixture {
  TrackFixture() { readSample(); }
  void load(const char* ending) { session.leggiTraccia(Samples / (std::string("lagoon_track.") + ending)); }
};

/// How far a measurement lies from the leg of the track at its time, m.
double DistanceToTrack(const Survey& survey, std::size_t k) {
  const Misura& m = survey.Misure(k);
  const auto& fixes = survey.tracciaEst.PuntiGPSEst;
  std::size_t j = 1;
  while (j + 2 < fixes.size() && fixes(j + 1).DataOra < m.Tempo) ++j;
  const double dx = fixes(j + 1).X - fixes(j).X, dy = fixes(j + 1).Y - fixes(j).Y;
  return std::abs((m.UTMx - fixes(j).X) * dy - (m.UTMy - fixes(j).Y) * dx) / std::hypot(dx, dy);
}

TEST(ExternalTracks, GiveTheMeasurementsTheirPlaceInEveryForm) {
  for (const char* ending : {"csv", "nav", "sav", "gps"}) {
    TrackFixture f;
    const std::size_t notes = f.session.findings().entries().size();
    std::vector<std::pair<double, double>> before;
    for (std::size_t k = 1; k <= 438; ++k) before.emplace_back(f.m(k).UTMx, f.m(k).UTMy);
    f.load(ending);
    EXPECT_TRUE(f.session.view.state().layers.MostraGPS2) << ending;
    EXPECT_EQ(f.session.view.picture().scene().gps.size(), 795U) << ending;
    f.session.collegaPerTempo(0);
    EXPECT_FALSE(f.session.view.state().layers.MostraGPS2) << "the link hides the track";
    ASSERT_TRUE(f.session.track.timeLink());
    EXPECT_EQ(f.session.track.timeLink()->exact + f.session.track.timeLink()->between, 438U);
    // The antenna stands 2 m east and 1 m north of the instrument's; on the grid of zone 33 that arm is turned by the
    // convergence of 1.92 degrees at 12.3 E. The instrument's latitudes are rounded to 0.9 m as singles.
    const double east = 2.0 * std::cos(0.0335) + 1.0 * std::sin(0.0335);
    const double north = -2.0 * std::sin(0.0335) + 1.0 * std::cos(0.0335);
    double sumEast = 0, sumNorth = 0;
    std::size_t compared = 0;
    for (std::size_t k = 1; k <= 438; ++k) {
      EXPECT_LT(DistanceToTrack(f.session.survey.dati(), k), 1e-6) << ending << " " << k;
      if (before[k - 1].first == 0.0) continue;
      sumEast += f.m(k).UTMx - before[k - 1].first;
      sumNorth += f.m(k).UTMy - before[k - 1].second;
      ++compared;
    }
    EXPECT_EQ(compared, 433U);
    EXPECT_NEAR(sumEast / 433, east, 0.03) << ending;
    EXPECT_NEAR(sumNorth / 433, north, 0.06) << ending;
    EXPECT_TRUE(f.m(61).sorgente.index() == 2) << "measurements without a fix of their own have one now";
    EXPECT_NE(f.m(61).UTMx, 0.0);
    EXPECT_EQ(f.session.survey.fixes().bad, 0U);
    const double x = f.m(200).UTMx;
    f.session.collegaPerTempo(0);
    EXPECT_EQ(f.m(200).UTMx, x) << "linking again moves nothing";
    EXPECT_EQ(f.session.findings().entries().size(), notes) << ending;
  }
}

TEST(ExternalTracks, OfAnotherDayAreTold) {
  TrackFixture f;
  f.load("nav");
  f.session.collegaPerTempo(3 * 86400.0);
  EXPECT_EQ(f.session.track.timeLink()->outside, 438U);
  EXPECT_TRUE(f.faulty());
  EXPECT_NE(f.session.findings().entries().back().reason.find("by up to 3 days"), std::string::npos)
      << f.session.findings().entries().back().reason;
}

TEST(ExternalTracks, WithoutADayAreNotLinkedByTime) {
  TrackFixture f;
  const double before = f.m(5).UTMx;
  f.session.leggiTraccia(f.folder.write("today.log", "$GPGGA,080000,4524.5,N,01218.5,E,1,08\r\n"));
  f.session.collegaPerTempo(0);
  EXPECT_EQ(f.m(5).UTMx, before) << "all measurements on the last fix would be worse than none";
  EXPECT_FALSE(f.session.track.timeLink());
  EXPECT_TRUE(f.session.view.state().layers.MostraGPS2);
  EXPECT_EQ(f.session.findings().entries().back().reason, "no fix of the track has a date: nothing is linked by time");
}

TEST(ExternalTracks, ThatHoldNothingDiscardEveryMeasurement) {
  TrackFixture f;
  for (const bool byTime : {true, false}) {
    byTime ? f.session.collegaPerTempo(0) : f.session.collegaPerPosizione();
    EXPECT_EQ(f.session.findings().entries().back().reason, "no external track is loaded: nothing is linked");
  }
  EXPECT_FALSE(f.session.track.timeLink()) << "nothing was ever loaded";
  f.session.leggiTraccia(f.folder.write("empty.csv", "header\n"));
  f.session.collegaPerTempo(0);
  EXPECT_TRUE(f.m(5).Scartata);
  EXPECT_FALSE(f.session.view.picture().scene().cells.columns(5).present);
}

TEST(ExternalTracks, WithTooFewLinesAskAndCancelLeavesAllAsItWas) {
  TrackFixture f;
  f.load("gps");
  const auto few = f.folder.write("few.gps", "15/06/2026 08:00:00 1 4524.5 1218.5 3\r\n");
  f.dialogs.messageAnswer = Answer::Cancel;
  f.session.leggiTraccia(few);
  EXPECT_EQ(f.session.survey.dati().tracciaEst.NumGPSEst(), 795);
  f.dialogs.messageAnswer = Answer::Ok;
  f.session.leggiTraccia(few);
  EXPECT_EQ(f.session.survey.dati().tracciaEst.NumGPSEst(), 1);
  EXPECT_EQ(f.dialogs.messages.back().prompt, "not enough GPS points");
  f.session.leggiTraccia("");
  EXPECT_EQ(f.session.survey.dati().tracciaEst.NumGPSEst(), 1);
}

TEST(ExternalTracks, FarFromTheSurveyAreTold) {
  TrackFixture f;
  f.dialogs.answers[Question::UtmZone] = {"32"};
  f.press("SetUtmZone_Click");
  f.load("csv");  // eastings of zone 33
  EXPECT_NE(f.session.findings().entries().back().reason.find("km from the survey (is the UTM zone right?)"),
            std::string::npos);
}

TEST(ExternalTracks, AreSeenWithoutASurvey) {
  Fixture f;
  f.session.leggiTraccia(Samples / "lagoon_track.nav");
  EXPECT_GT(f.session.view.state().Lato, 800.0F);
  EXPECT_LT(std::abs(f.session.view.picture().scene().gps(1).x), 1000.0F);
}

TEST(ExternalTracks, MoveWithTheZoneOfTheSurvey) {
  Fixture f;
  f.session.leggiTraccia(Samples / "lagoon_track.nav");
  f.readSample();
  const PuntoGPSEst first = f.session.survey.dati().tracciaEst.PuntiGPSEst(1);
  EXPECT_NEAR(first.X, f.m(3).UTMx, 50);
  f.dialogs.answers[Question::UtmZone] = {"32"};
  f.press("SetUtmZone_Click");
  EXPECT_NEAR(f.session.survey.dati().tracciaEst.PuntiGPSEst(1).X, f.m(3).UTMx, 50) << "in the other zone, too";
  EXPECT_GT(f.m(3).UTMx, 700000);
}

TEST(Connections, ArePickedTwiceAndClearedByTheThirdPick) {
  TrackFixture f;
  f.load("nav");
  f.session.collegaPerPosizione();
  EXPECT_EQ(f.dialogs.messages.back().prompt, "You must define two connection before link data and gps");
  f.session.track.chiediConnessione(10);
  EXPECT_EQ(f.session.track.NumCollegamenti(), 0) << "cancelled";
  EXPECT_EQ(f.dialogs.questions.back().prompt, "Connection 1 (Data <--> GPS");
  EXPECT_EQ(f.dialogs.questions.back().title, "Data n.10");
  f.dialogs.answers[Question::Connection] = {"20", "20"};
  f.session.track.chiediConnessione(10);
  f.session.track.chiediConnessione(200);
  f.session.collegaPerPosizione();
  EXPECT_EQ(f.dialogs.messages.back().prompt, "Something wrong");
  f.session.track.chiediConnessione(10);
  EXPECT_EQ(f.session.track.NumCollegamenti(), 0) << "the third pick";
  f.dialogs.answers[Question::Connection] = {"20", "9999"};
  f.session.track.chiediConnessione(10);
  f.session.track.chiediConnessione(200);
  const double outside = f.m(300).UTMx;
  f.session.collegaPerPosizione();
  const auto& fixes = f.session.survey.dati().tracciaEst.PuntiGPSEst;
  EXPECT_NEAR(f.m(10).UTMx, fixes(20).X, 1e-6);
  EXPECT_NEAR(f.m(200).UTMx, fixes(795).X, 1e-6) << "a number past the end is the last fix";
  EXPECT_EQ(f.m(300).UTMx, outside);
  EXPECT_TRUE(f.session.view.state().layers.MostraGPS2);
}

TEST(Connections, AreClearedByANewReading) {
  TrackFixture f;
  f.load("nav");
  f.dialogs.answers[Question::Connection] = {"10", "290", "10"};
  f.session.track.chiediConnessione(5);
  f.session.track.chiediConnessione(215);
  ASSERT_EQ(f.session.track.NumCollegamenti(), 2);
  f.readSample();
  f.press("SH2ndGps_Click");
  ASSERT_TRUE(f.session.view.state().layers.MostraGPS2);
  const double before = f.m(100).UTMx;
  f.session.collegaPerPosizione();
  ASSERT_EQ(f.dialogs.messages.size(), 1U);
  EXPECT_EQ(f.dialogs.messages.back().prompt, "You must define two connection before link data and gps");
  EXPECT_EQ(f.m(100).UTMx, before);
  f.session.track.chiediConnessione(7);
  EXPECT_EQ(f.dialogs.questions.back().prompt, "Connection 1 (Data <--> GPS") << "counted from the start again";
}

TEST(Fixes, ChooseTheNearestMeasurementAsAnExtreme) {
  TrackFixture f;
  f.load("nav");
  f.session.selection.scegliFix(100);  // 08:04:55, between the firings of 08:04:52 and 08:04:56
  EXPECT_EQ(f.session.selection.StatoSelezione(), 1);
  EXPECT_EQ(f.session.selection.FrameExtrema.PrimoLbl.substr(0, 11), " GPS: 100 L");
  const int first = std::stoi(f.session.selection.FrameExtrema.E1Txt);
  EXPECT_NEAR(f.m(static_cast<std::size_t>(first)).Tempo * 86400,
              f.session.survey.dati().tracciaEst.PuntiGPSEst(100).DataOra * 86400, 3.1);
  f.session.selection.scegli(5);
  EXPECT_EQ(f.session.selection.StatoSelezione(), 2);
  f.session.selection.scegliFix(50);
  EXPECT_EQ(f.session.selection.StatoSelezione(), 0);
  EXPECT_EQ(f.session.selection.FrameExtrema.E2txt, "");
}

}  // namespace
}  // namespace corvan

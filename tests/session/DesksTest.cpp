// Each desk by itself, without the others.
#include <gtest/gtest.h>

#include <algorithm>

#include "session/Exporter.h"
#include "session/PictureMouse.h"
#include "session/Selection.h"
#include "session/SurveyDesk.h"
#include "session/TrackDesk.h"
#include "session/Translations.h"
#include "session/ViewDesk.h"
#include "support/SurveyFiles.h"
#include "view3d/Pictures.h"

namespace corvan {
namespace {

struct Surroundings {
  test::TempFolder folder;
  test::ScriptedAnswers dialogs;
  Findings findings;
  History history;
  std::vector<Change> changes;
  Desk desk{dialogs, findings, history, [this](Change change) { changes.push_back(change); }};

  std::size_t told(Change change) const {
    return static_cast<std::size_t>(std::count(changes.begin(), changes.end(), change));
  }
  std::filesystem::path firings(std::size_t count) const {
    return folder.write("survey.bin", test::SyscalFile(test::Firings(count, 10)));
  }
};

TEST(Desks, TheSurveysReadsAnalysesAndTellsWhatChanged) {
  Surroundings s;
  SurveyDesk desk(s.desk);
  desk.FrameFileIn.File1 = {s.firings(4)};
  EXPECT_TRUE(desk.leggi());
  EXPECT_EQ(s.told(Change::Survey), 1U);
  EXPECT_EQ(s.told(Change::Analysis), 1U);
  EXPECT_EQ(desk.info(), "WGS 84 - UTM 33");
  const double before = desk.dati().Misure(2).UTMx;
  s.changes.clear();
  desk.impostaZona(32);
  EXPECT_NE(desk.dati().Misure(2).UTMx, before);
  EXPECT_EQ(s.told(Change::Cells), 1U);
  EXPECT_EQ(s.history.annulla(), "Set UTM Zone");
  EXPECT_EQ(desk.dati().Misure(2).UTMx, before);
}

TEST(Desks, TheTranslationsMoveDataAndDepthsApart) {
  Surroundings s;
  Settings settings;
  Translations desk(s.desk, settings);
  desk.trasla(Translation::DepthNorth, 2.5);
  desk.passo(Translation::DataEast, 0.1);
  EXPECT_EQ(settings.TraslFondoNord, 2.5F);
  EXPECT_EQ(settings.TraslDatiEst, 0.1);
  EXPECT_EQ(s.changes, (std::vector<Change>{Change::Depths, Change::Translation}));
  EXPECT_EQ(s.history.annulla() + s.history.annulla(), "TranslationTranslation");
  EXPECT_EQ(settings.TraslFondoNord, 0.0F);
  EXPECT_EQ(desk.FrameDataMove.TestTxt, "0.0");
}

// A reading of nothing but broken files is no reason to lose the survey that is there.
TEST(Desks, TheSurveysKeepsWhatItHasWhereNothingCanBeRead) {
  Surroundings s;
  SurveyDesk desk(s.desk);
  desk.FrameFileIn.File1 = {s.firings(4)};
  desk.leggi();
  desk.impostaZona(31);
  s.changes.clear();
  desk.FrameFileIn.File1 = {s.folder / "missing.bin", s.folder.write("empty.bin", "")};
  EXPECT_FALSE(desk.leggi());
  EXPECT_EQ(desk.dati().NumMisure(), 4);
  EXPECT_EQ(desk.dati().settings.ZonaUTM, 31);
  EXPECT_EQ(desk.dati().files.size(), 1U);
  EXPECT_TRUE(s.changes.empty());
  EXPECT_EQ(s.findings.entries().back().reason, "nothing could be read: the survey that was there stays");
  desk.FrameFileIn.File1.clear();
  EXPECT_TRUE(desk.leggi());
  EXPECT_EQ(desk.dati().NumMisure(), 0) << "no file at all empties it";
}

TEST(Desks, TheTracksLinksASurveyOfItsOwn) {
  Surroundings s;
  Survey survey = test::Measurements({{290000, 5030000}, {290007, 5030003}});
  survey.settings.griglia = {33, Hemisphere::North};
  survey.settings.ZonaUTM = 0;
  survey.Misure(2).Distanza = 7.6;
  std::int16_t stated = 0;
  TrackDesk desk(s.desk, survey, [&](std::int16_t zone) { stated = survey.settings.ZonaUTM = zone; });
  const auto table = s.folder.write("t.csv",
                                    "n;x;date;time;a;b;c;depth;d;east;north\n"
                                    "1;x;15/06/2026;06:00:00;;;;2.5;;290001.5;5030002.25\n"
                                    "1;x;15/06/2026;06:00:10;;;;3.5;;290009.5;5030004.25\n");
  EXPECT_FALSE(desk.leggi(table)) << "the question for the zone was cancelled";
  EXPECT_FALSE(survey.tracciaEst.loaded);
  s.dialogs.answers[Question::TrackZone] = {"33"};
  EXPECT_TRUE(desk.leggi(table));
  EXPECT_EQ(stated, 33);
  EXPECT_EQ(s.told(Change::Track), 1U);
  desk.connetti(1, 1);
  desk.connetti(2, 7);
  EXPECT_NE(s.findings.entries().back().reason.find("fix 7 is not 1 to 2: 2 is taken"), std::string::npos);
  EXPECT_TRUE(desk.collegaPerPosizione());
  EXPECT_EQ(survey.Misure(2).UTMx, 290009.5);
  desk.connetti(1, 1);
  EXPECT_EQ(desk.NumCollegamenti(), 0) << "the third pick";
}

TEST(Desks, TheSelectionTakesTypedExtremesWhateverWasChosenAndOnlyClicksCycle) {
  Surroundings s;
  const Survey survey = test::Measurements({{290000, 5030000}, {290007, 5030003}, {290015, 5030005}});
  Selection desk(s.desk, survey);
  desk.preimposta();
  EXPECT_EQ(desk.FrameExtrema.E2txt, "3");
  EXPECT_EQ(desk.StatoSelezione(), 0);
  desk.imposta(Extreme::Second, 3);
  EXPECT_EQ(desk.StatoSelezione(), 1);
  desk.scegli(2);
  EXPECT_EQ(desk.primo(), 2) << "a click chooses the extreme that is missing";
  desk.imposta(Extreme::First, 1);
  EXPECT_EQ(desk.scelte(), (std::vector<std::int32_t>{1, 3}));
  desk.imposta(Extreme::First, 4);
  EXPECT_EQ(desk.primo(), 1);
  EXPECT_EQ(s.findings.entries().back().reason, "extreme 4 is not 1 to 3");
  desk.scegli(2);
  EXPECT_EQ(desk.StatoSelezione(), 0);
  EXPECT_EQ(desk.FrameExtrema.E1Txt, "");
}

TEST(Desks, TheViewsPaintsOnceForManyCommands) {
  Surroundings s;
  const Survey survey = test::SurveyOf({{300000, 5000000}, {300010, 5000020}});
  ViewDesk desk(s.desk, survey);
  test::TestCanvas canvas(120, 90);
  desk.picture().tela(&canvas);
  desk.informa("WGS 84 - UTM 33", false);
  desk.picture().dipingi();
  ASSERT_EQ(canvas.texts.size(), 1U);
  desk.ruota(Axis::Phi, 30);
  desk.passo(Axis::Gamma, -1);
  desk.passoZoom(0.1);
  desk.picture().dipingi();
  desk.picture().dipingi();
  EXPECT_EQ(canvas.texts.size(), 2U);
  EXPECT_NEAR(desk.state().AngoloPhi, 30 * Pi / 180, 1e-12);
  EXPECT_EQ(desk.FrameView.GammaTxt, "-1.");
  desk.alterna(&Layers::MostraInfo);
  desk.picture().dipingi();
  EXPECT_EQ(canvas.texts.size(), 2U);
  desk.informa("Some Data have incorrect GPS position", true);
  EXPECT_TRUE(desk.state().layers.MostraInfo) << "a warning shows itself";
}

TEST(Desks, TheExportersAsksBeforeItReplacesAndKeepsWhatIsNotItsOwn) {
  Surroundings s;
  SurveyDesk survey(s.desk);
  survey.FrameFileIn.File1 = {s.firings(4)};
  survey.leggi();
  Exporter desk(s.desk, survey.dati(), [] { return DateTime{2026, 6, 15, 12, 0, 0}; });
  ExportRequest request{3, 2, {}, {}};
  request.output.TxtChk = request.output.BinChk = true;
  request.output.FileOutTxt = (s.folder / "out").string();
  desk.scrivi(request);
  EXPECT_EQ(desk.outputs().size(), 2U);
  EXPECT_EQ(desk.section()->from, 2);
  EXPECT_TRUE(s.dialogs.messages.empty()) << "nothing was there";
  const std::string before = test::Slurp(s.folder / "out.txt");
  s.dialogs.messageAnswer = Answer::Cancel;
  request.E1 = 1;
  desk.scrivi(request);
  ASSERT_EQ(s.dialogs.messages.size(), 1U);
  EXPECT_EQ(s.dialogs.messages[0].details, "In " + s.folder.path().string() + ":\nout.bin\nout.txt");
  EXPECT_EQ(test::Slurp(s.folder / "out.txt"), before);
  EXPECT_EQ(desk.outputs().size(), 2U);
  s.dialogs.messageAnswer = Answer::Ok;
  desk.scrivi(request);
  EXPECT_NE(test::Slurp(s.folder / "out.txt"), before);
  request.output.FileOutTxt = (s.folder / "survey").string();  // survey.bin was read, survey.txt is new
  desk.proteggi(s.folder / "survey.bin");
  desk.scrivi(request);
  EXPECT_EQ(s.dialogs.messages.size(), 2U) << "what may not be replaced is not asked for";
  EXPECT_TRUE(s.findings.anyFault());
  request.output.FileOutTxt = (s.folder / "no" / "where").string();
  EXPECT_FALSE(desk.cartella(request.output));
  EXPECT_EQ(s.findings.entries().back().file, (s.folder / "no").string());
}

}  // namespace
}  // namespace corvan

// What the view's own commands do: the caption, the map's band, heights, drags that show the curtain itself.
#include "session/Caption.h"

#include "SessionFixture.h"
#include "support/Surveys.h"
#include "support/TestCanvas.h"
#include "view3d/MapBand.h"

namespace corvan {
namespace {

using Fixture = test::SessionFixture;

// 2026-06-15 is day 46188.
Survey Timed(const std::vector<double>& times) {
  std::vector<test::Firing> firings(times.size(), {300000, 5e6});
  Survey survey = test::Measurements(firings);
  for (std::size_t i = 0; i < times.size(); ++i) survey.Misure(i + 1).Tempo = times[i];
  survey.files[0].firings = times.size();
  return survey;
}

std::string Text(const Caption& caption) { return caption.files + caption.rest; }

TEST(Captions, TellFilesTimesAndGrid) {
  Survey survey = Timed({46188.5, 0, 46188.25, 46188.75});
  EXPECT_EQ(Text(DidascaliaRilievo(survey)), "a.bin \u00B7 2026-06-15 06:00:00 to 18:00:00 \u00B7 UTM zone 33 north");
  survey.settings.griglia = {7, Hemisphere::South};
  survey.Misure(2).Tempo = 46189.0;
  const auto add = [&survey](const char* name, std::size_t firings) {
    FileSummary file;
    file.path = name;
    file.firings = firings;
    survey.files.push_back(file);
  };
  add("/data/b.bin", 1);
  add("c.bin", 1);
  add("empty.bin", 0);
  EXPECT_EQ(Text(DidascaliaRilievo(survey)),
            "a.bin, b.bin, c.bin \u00B7 2026-06-15 06:00:00 to 2026-06-16 00:00:00 \u00B7 "
            "UTM zone 7 south");
  add("d.bin", 2);
  EXPECT_EQ(Text(DidascaliaRilievo(survey)).substr(0, 23), "a.bin, b.bin and 2 more");
  EXPECT_NE(Text(DidascaliaRilievo(Timed({0, 0}))).find("no times"), std::string::npos);
  EXPECT_EQ(Text(DidascaliaRilievo(Survey{})), "");
}

TEST(Captions, TellHowTheSurveyIsLookedAt) {
  const Survey survey = Timed({46188.5});
  ViewState view;
  view.AngoloVista = InRadianti(120.25);
  view.AngoloPhi = InRadianti(-30);
  view.AngoloGamma = InRadianti(7);
  view.projection = Projection::Perspective;
  const std::string head = Text(DidascaliaRilievo(survey));
  EXPECT_EQ(Text(DidascaliaVista(survey, view, false, 1)).substr(head.size()),
            " \u00B7 \u03B8 120.3\u00B0 \u03C6 -30\u00B0 \u03B3 7\u00B0 \u00B7 perspective");
  view.projection = Projection::Orthographic;
  view.mappa.livello = 4;
  EXPECT_EQ(Text(DidascaliaVista(survey, view, true, 2.5)).substr(head.size()),
            " \u00B7 \u03B8 120.3\u00B0 \u03C6 -30\u00B0 \u03B3 7\u00B0 \u00B7 orthographic \u00B7 level 4 \u00B7 "
            "heights \u00D7 2.5");
}

TEST(MapColours, AreSwitchedAndAskedFor) {
  Fixture f;
  f.readFirings(6);
  const auto band = [&] { return f.session.view.state().mappa; };
  EXPECT_EQ(band().livello, 1) << "on at first";
  const auto ask = [&](const char* answer) {
    f.dialogs.answers[Question::MapLevel] = {answer};
    f.press("MapLevel_Click");
  };
  ask("3; 14");
  EXPECT_TRUE(band().livello == 3 && band().larghezza == 14);
  ask("5");
  EXPECT_TRUE(band().livello == 5 && band().larghezza == 14) << "the width stays";
  ask("");
  EXPECT_EQ(band().livello, 5);
  EXPECT_FALSE(f.faulty());
  for (const char* refused : {"11", "-1", "2; 201", "2; -1"}) {
    ask(refused);
    EXPECT_TRUE(band().livello == 5 && band().larghezza == 14) << refused;
    EXPECT_TRUE(f.faulty()) << refused;
  }
  f.press("MapColours_Click");
  EXPECT_EQ(band().livello, 0);
  f.press("MapColours_Click");
  EXPECT_EQ(band().livello, 5) << "the level that it had";
  f.readFirings(4);
  EXPECT_EQ(band().livello, 5) << "a reading leaves it";
  EXPECT_TRUE(f.session.findings().ultimi().empty()) << "ten channels have such a level";
  f.read({f.folder.write("few.bin", test::SyscalFile(test::Firings(6, 3)))});
  ASSERT_FALSE(f.session.findings().ultimi().empty());
  EXPECT_EQ(f.session.findings().ultimi().back().reason, "there are 3 channels: the map shows nothing of level 5");
}

TEST(Heights, AreExaggeratedInAllLayers) {
  Fixture f;
  f.readFirings(6);
  const Scene& scene = f.session.view.picture().scene();
  const float level = scene.cells.z[1], bottom = scene.outline(7).z, bed = scene.echoSounder(2).z;
  f.dialogs.answers[Question::Exaggeration] = {"2.5", "0", "1001", "", "x"};
  f.press("Exaggeration_Click");
  EXPECT_FLOAT_EQ(scene.cells.z[1], 2.5F * level);
  EXPECT_FLOAT_EQ(scene.outline(7).z, 2.5F * bottom);
  EXPECT_FLOAT_EQ(scene.echoSounder(2).z, 2.5F * bed);
  EXPECT_LT(bed, 0);
  EXPECT_FALSE(f.faulty());
  for (int refused = 0; refused < 4; ++refused) f.press("Exaggeration_Click");
  EXPECT_FLOAT_EQ(scene.cells.z[1], 2.5F * level) << "0, 1001, nothing and a word change nothing";
  EXPECT_TRUE(f.faulty());
  f.press("EpCmd_Click");
  EXPECT_FLOAT_EQ(scene.echoSounder(2).z, 2.5F * bed) << "layers built anew keep it";
}

/// Counts what is painted: whole pictures paint cells or a band, outlines none.
struct CountingCanvas : test::TestCanvas {
  using TestCanvas::TestCanvas;
  void Quadrilateri(std::span<const PixelQuad>, std::span<const DepthKey>) override { ++pictures; }
  int pictures = 0;
};

// The clock of this test goes on by what a repaint is meant to take.
TEST(LiveRotation, ShowsTheCurtainWhileItIsPaintedInTime) {
  Fixture f;
  f.readFirings(6);
  CountingCanvas canvas(300, 200);
  f.session.view.picture().tela(&canvas);
  double now = 0, repaint = 5;
  const auto clock = [&] { return now += repaint; };
  const auto drag = [&] {
    canvas.pictures = 0;
    f.session.mouse.premi({MouseButton::Left, false, false, 20, 150});
    for (const int x : {30, 40, 50}) {
      f.session.mouse.muovi({MouseButton::Left, false, false, x, 150});
      f.session.view.picture().dipingi();
    }
    const int live = canvas.pictures;
    EXPECT_FALSE(f.session.mouse.cella(150, 90)) << "nothing is picked during a drag";
    f.session.mouse.rilascia({MouseButton::Left, false, false, 50, 150});
    f.session.view.picture().dipingi();
    return live;
  };
  f.session.view.picture().dipingi();
  EXPECT_EQ(drag(), 0) << "off at first";
  f.session.view.rotazioneViva(true, clock);
  EXPECT_EQ(drag(), 3);
  repaint = 17;
  EXPECT_EQ(drag(), 1) << "the first of them was too slow";
  EXPECT_EQ(drag(), 0) << "as the last repaint was";
  repaint = 15;
  f.session.view.picture().disegna();
  f.session.view.picture().dipingi();
  EXPECT_EQ(drag(), 3);
  f.session.view.rotazioneViva(false, clock);
  EXPECT_EQ(drag(), 0);
  f.session.view.picture().tela(nullptr);
}

}  // namespace
}  // namespace corvan

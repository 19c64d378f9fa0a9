// Changes made by hand, taken back one step at a time until every output is what it was.
#include <chrono>
#include <functional>
#include <utility>

#include "SessionFixture.h"
#include "view3d/Pictures.h"

namespace corvan {
namespace {

struct Fixture : test::SessionFixture {
  test::TestCanvas canvas{640, 400};
  OutputPanel formats;

  Fixture() {
    session.survey.FrameFileIn.filter = BadGps::Interpolate;
    readSample();
    session.leggiTraccia(test::Samples / "lagoon_track.nav");
    session.view.picture().tela(&canvas);
    session.view.ruota(Axis::Theta, 130);
    session.view.mostra(&Layers::MostraProfondita, true);
    session.selection.imposta(Extreme::First, 50);
    session.selection.imposta(Extreme::Second, 90);
    formats.BinChk = formats.TxtChk = formats.EchoZChk = formats.KMLchk = formats.TruePosChk = true;
    formats.FileOutTxt = (folder / "section").string();
  }
  void answer(Question question, const char* text) { dialogs.answers[question] = {text}; }
  /// All outputs and the picture, one behind the other.
  std::vector<std::string> everything() {
    session.salvaEstratto(formats);
    session.exporter.tabella(formats.FileOutTxt);
    std::vector<std::string> all;
    for (const char* extension : {".bin", ".txt", ".ecs", ".ecst", ".kml", ".csv"}) all.push_back(output(extension));
    session.view.picture().dipingi();
    const auto& pixels = canvas.pixels();
    all.emplace_back(reinterpret_cast<const char*>(pixels.data()), pixels.size() * sizeof(pixels[0]));
    return all;
  }
  std::vector<std::pair<const char*, std::function<void()>>> changes() {
    return {{"Correct Depth", [this] { session.survey.correggiProfondita(70); }},
            {"Set Cable Configuration",
             [this] {
               answer(Question::CableConfiguration,
                      "C1 56 C2 62 E1 50 E2 44 E3 40 E4 35 E5 30 E6 25 E7 20 E8 15 E9 10 E10 5 E11 1");
               press("CableConf_Click");
             }},
            {"Set UTM Zone",
             [this] {
               answer(Question::UtmZone, "32");
               press("SetUtmZone_Click");
             }},
            {"Set Colour Scale Range",
             [this] {
               answer(Question::ColourRange, "0.5;1.25");
               press("SetRange_Click");
             }},
            {"Translation", [this] { press("TnordTxt_KeyPress", "37.5"); }},
            {"Translation", [this] { press("DTestTxt_KeyPress", "12.5"); }},
            {"Link by Time",
             [this] {
               answer(Question::ClockOffset, "3");
               press("LinkToGPST_Click");
             }},
            {"Correct Depth", [this] { session.survey.correggiProfondita(71); }},
            {"Link by Position", [this] {
               press("SH2ndGps_Click");
               session.track.connetti(40, 90);
               session.track.connetti(210, 320);
               press("LinkToGPSP_Click");
             }}};
  }
};

TEST(Undo, TakesBackAMixedRowOfChangesOneAtATimeToTheFirstByteOfEveryOutput) {
  Fixture f;
  std::vector<std::vector<std::string>> states{f.everything()};
  EXPECT_EQ(f.session.annullabile(), "");
  for (const auto& [what, change] : f.changes()) {
    change();
    EXPECT_EQ(f.session.annullabile(), what);
    states.push_back(f.everything());
    EXPECT_NE(states.back(), states[states.size() - 2]) << what << ", state " << states.size() << ", changes something";
  }
  f.press("SH2ndGps_Click");  // the link by time had hidden it
  while (states.size() > 1) {
    const std::string what = f.session.annullabile();
    f.press("Undo_Click");
    states.pop_back();
    const auto now = f.everything();
    for (std::size_t k = 0; k < now.size(); ++k) {
      EXPECT_TRUE(now[k] == states.back()[k]) << "output " << k << " after " << what << " was taken back";
    }
  }
  EXPECT_EQ(f.session.annullabile(), "");
  EXPECT_EQ(f.session.translations.FrameDataMove.TnordTxt, "0.0");
  EXPECT_FALSE(f.session.track.timeLink());
  f.press("Undo_Click");
  EXPECT_EQ(f.everything(), states.front()) << "there is nothing left";
}

TEST(Undo, KnowsNothingOfTheSurveyBefore) {
  Fixture f;
  f.session.survey.correggiProfondita(3);
  f.readFirings(5);
  EXPECT_EQ(f.session.annullabile(), "");
  f.session.survey.FrameFileIn.File1 = {f.folder / "gone.bin"};
  f.session.survey.correggiProfondita(2);
  f.session.leggi();
  EXPECT_EQ(f.session.annullabile(), "Correct Depth") << "nothing was read: the survey stays, and what was done to it";
}

// What was told of a cable or a zone holds again when the one that was typed is taken back.
TEST(Undo, TellsAgainWhatHoldsAgain) {
  Fixture f;
  auto records = test::Firings(3, 10);
  for (auto& r : records) r.north = 5030000.0F, r.east = 292000.0F;
  f.session.survey.FrameFileIn.LatLonCmbx = CoordinateEntry::UTM;
  f.read({f.folder.write("utm.bin", test::SyscalFile(records))});
  const auto assumed = [&f] {
    return std::any_of(f.session.findings().entries().begin(), f.session.findings().entries().end(),
                       [](const Finding& finding) { return finding.reason.find("is assumed") != std::string::npos; });
  };
  EXPECT_TRUE(assumed());
  f.answer(Question::UtmZone, "33");
  f.press("SetUtmZone_Click");
  EXPECT_FALSE(assumed());
  f.press("Undo_Click");
  EXPECT_TRUE(assumed());
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 32);
}

}  // namespace
}  // namespace corvan

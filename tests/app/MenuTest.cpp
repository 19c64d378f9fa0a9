// The menus by their keys, and the boxes that they open, really opened and answered.
#include <QSet>
#include <QTextBrowser>

#include "app/QtDialogs.h"
#include "Hand.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Reply;
using test::Track;
using test::Window;

TEST(Shortcuts, EachDoTheirOwnItem) {
  Window w;
  w.readPlan();
  w.window.leggiTraccia(QString::fromStdString(w.folder.write("track.csv", Track).string()));
  w.dialogs.answers = {{Question::UtmZone, {"31"}}, {Question::ColourRange, {"2;7"}}, {Question::ClockOffset, {"0"}}};
  const struct {
    const char *keys, *changes;
  } items[] = {{"F2", "SHelectrodes=0 electrodes=0 picture"},
               {"F2", "SHelectrodes=1 electrodes=1 picture"},
               {"F3", "SH2ndGps=0 track=0 picture"},
               {"F3", "SH2ndGps=1 track=1 picture"},
               {"F4", "SHdepth=1 depths=1 picture"},
               {"F5", "SHcolour=1 scale=1 picture"},
               {"F6", "SHNord=1 north=1 picture"},
               {"F7", "SHInfoLabel=0 info=0 picture"},
               {"F8", "FrameDataMove=1 FrameDepthMove=1 SHtranslation=1 translation=1"},
               {"Ctrl+R", "RangeData=0 SetRange=1 max=7 min=2 question=Scale (Min; Max) picture"},
               {"Ctrl+K", "question=Set String"},
               {"Ctrl+L", "SH2ndGps=0 question=Seconds to add to the instrument's clock track=0 picture"},
               {"Ctrl+2", "FrameExtrema=1"},
               {"Ctrl+O", "FrameFileIn=1"},
               {"Ctrl+S", "BinChk=1 FrameFileOut=1"},
               {"Ctrl+T", "BinChk=0 TxtChk=1"},
               {"Ctrl+E", "EchoZChk=1 TxtChk=0"},
               {"Ctrl+S", "BinChk=1 EchoZChk=0"}};
  for (const auto& item : items) EXPECT_EQ(w.changes([&] { w.key(item.keys); }), item.changes) << item.keys;
  EXPECT_EQ(w.changes([&] { w.key("Ctrl+U"); }).find("question=UTM Zone n.  zone=31") == std::string::npos, false);
  w.readPlan();
  EXPECT_EQ(w.changes([&] { w.key("Ctrl+1"); }), "FrameExtrema=1");
  EXPECT_EQ(QApplication::focusWidget(), w.get<QLineEdit>("E1Txt"));
  QSet<QString> keys;
  for (const QAction* action : w.window.findChildren<QAction*>()) {
    if (action->shortcut().isEmpty()) continue;
    EXPECT_FALSE(keys.contains(action->shortcut().toString())) << action->objectName().toStdString();
    keys.insert(action->shortcut().toString());
  }
  {
    Hand hand({{By::Enter}});
    w.choose("Info");
    EXPECT_EQ(hand.titles, std::vector<std::string>{"About Corvan"});
  }
  for (int k = 0; k < 2; ++k) {
    w.key("F1");
    QCoreApplication::processEvents();
    ASSERT_TRUE(w.get<QWidget>("ManualWindow")->isVisible());
    QTest::keyClick(w.get<QTextBrowser>("ManualText"), Qt::Key_Escape);
    EXPECT_FALSE(w.get<QWidget>("ManualWindow")->isVisible());
  }
  w.key("Ctrl+Q");
  EXPECT_FALSE(w.window.isVisible());
}

// Three fixes, one connection at each end: measurement 1 goes to fix 1, measurement 5 to fix 3.
TEST(LinkByPosition, IsItsOwnItem) {
  Window w;
  w.readPlan();
  w.window.leggiTraccia(QString::fromStdString(w.folder.write("track.csv", Track).string()));
  EXPECT_EQ(w.changes([&] { w.choose("LinkToGPSP"); }),
            "message=You must define two connection before link data and gps");
  w.dialogs.answers[Question::Connection] = {"1", "3"};
  for (const std::size_t k : {1U, 5U}) QTest::mouseClick(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(k));
  EXPECT_EQ(w.changes([&] { w.choose("LinkToGPSP"); }), "picture") << "the track stays shown";
  EXPECT_NEAR(w.session().survey.dati().Misure(1).UTMy, 5030003, 1e-6);
  EXPECT_NEAR(w.session().survey.dati().Misure(5).UTMx, 500008, 1e-6);
}

TEST(RealBoxes, GiveWhatWasTypedAndNothingWhenGivenUp) {
  constexpr const char* longer = "C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0";
  const struct {
    const char *item, *title, *prompt;
    const char* held;  ///< what stands in the box, where the box before typed it
    Reply reply;
    const char* changes;
  } cases[] = {
      {"SetRange",
       "Set Colour Scale Range",
       "Scale (Min; Max)",
       nullptr,
       {By::Enter, "2;7"},
       "RangeData=0 SetRange=1 max=7 min=2 picture"},
      {"SetRange", "Set Colour Scale Range", "Scale (Min; Max)", "2.0;7.0", {By::Escape, "1;9"}, ""},
      {"SetRange", "Set Colour Scale Range", "Scale (Min; Max)", "2.0;7.0", {By::Cancel, "1;9"}, ""},
      {"SetRange", "Set Colour Scale Range", "Scale (Min; Max)", "2.0;7.0", {By::Ok, "2.5;7"}, "min=2.5 picture"},
      {"CableConf", "Cable Configuration", "Set String", nullptr, {By::Cancel, longer}, ""},
      {"CableConf", "Cable Configuration", "Set String", nullptr, {By::Escape, longer}, ""},
      {"CableConf", "Cable Configuration", "Set String", nullptr, {By::Ok, longer}, "picture"},
      {"CableConf", "Cable Configuration", "Set String", longer, {By::Escape, nullptr}, ""},
      {"SetUtmZone", "Set Universal Trasverse Mercatore Zone", "UTM Zone n. ", "32", {By::Escape, "30"}, ""},
      {"SetUtmZone", "Set Universal Trasverse Mercatore Zone", "UTM Zone n. ", "32", {By::Cancel, "30"}, ""},
      {"SetUtmZone", "Set Universal Trasverse Mercatore Zone", "UTM Zone n. ", "32", {By::Ok, "34"}, "zone=34 picture"},
      {"SetUtmZone",
       "Set Universal Trasverse Mercatore Zone",
       "UTM Zone n. ",
       "34",
       {By::Enter, "31"},
       "zone=31 picture"}};
  QtDialogs real;
  Window w(&real);
  w.readPlan();
  w.enter("Thetatxt", "30");  // the readings are seen
  for (const auto& c : cases) {
    Hand hand({c.reply});
    EXPECT_EQ(w.changes([&] { w.choose(c.item); }), c.changes) << c.item;
    ASSERT_EQ(hand.titles, std::vector<std::string>{c.title});
    EXPECT_EQ(hand.prompts[0], c.prompt);
    if (c.held != nullptr) {
      EXPECT_EQ(hand.texts[0], c.held);
    }
  }
}

// The first current electrode of the first record stands at 55 m of the cable's grid and as far on as was typed.
TEST(RealBoxes, OfTheOffsetsReachTheFileWritten) {
  const struct {
    Reply cable, echo;
    const char *cableHeld, *echoHeld;
    float c1;
  } cases[] = {{{By::Enter, "8"}, {By::Ok, "3"}, "0", "0", 63},
               {{By::Ok, "4.5"}, {By::Cancel, "6"}, "8", "3", 59.5F},
               {{By::Escape, "9"}, {By::Enter, "2"}, "4.5", "0", 55}};
  QtDialogs real;
  Window w(&real);
  w.readPlan();
  w.key("Ctrl+S");
  {
    Hand hand({{By::Enter}});
    EXPECT_EQ(w.changes([&] { w.press("SaveOutCmd"); }), "FrameFileOut=0");
    EXPECT_EQ(hand.prompts, std::vector<std::string>{"No points selected"});
  }
  w.key("Ctrl+1");
  w.section("1", "5");
  for (const auto& c : cases) {
    w.key("Ctrl+S");
    std::filesystem::remove(w.folder / "FileOut.bin");
    Hand hand({c.cable, c.echo});
    w.press("SaveOutCmd");
    EXPECT_EQ(hand.titles, (std::vector<std::string>{"Set Cable Offset Value ", "Set EchoSounder Offset Value "}));
    EXPECT_EQ(hand.texts, (std::vector<std::string>{c.cableHeld, c.echoHeld}));
    const std::string bytes = test::Slurp(w.folder / "FileOut.bin");
    float c1 = 0;
    std::memcpy(&c1, bytes.data() + FirstRecord + campo::R16.offset, sizeof c1);
    EXPECT_EQ(c1, c.c1);
  }
}

TEST(RealBoxes, OfATrackAreAskedInTurnAndMayBeGivenUpAtEach) {
  QtDialogs real;
  Window w(&real);
  w.readPlan();
  const std::string few = w.folder.write("few.gps", "15/06/2026 06:00:00 1 4524.5 900.5 3\r\n").string();
  const Reply name{By::Ok, few.c_str()};
  const struct {
    std::vector<Reply> replies;
    const char* changes;
  } cases[] = {{{{By::Cancel}}, ""},
               {{{By::Escape}}, ""},
               {{name, {By::Cancel}}, ""},
               {{name, {By::Escape}}, ""},
               {{name, {By::Enter}}, "SH2ndGps=1 track=1"}};
  for (const auto& c : cases) {
    Hand hand(c.replies);
    const std::string changed = w.changes([&] { w.key("Ctrl+G"); });
    EXPECT_EQ(changed.substr(0, changed.find(" picture")), c.changes);
    EXPECT_EQ(hand.titles.at(0), "Select GPS file (Lat, Lon, Depth)");
    if (c.replies.size() > 1) {
      EXPECT_EQ(hand.prompts.at(1), "not enough GPS points");
    }
  }
  EXPECT_EQ(w.label("StatusFiles"), "1 file, 5 measurements, track of 1 fix");
}

}  // namespace
}  // namespace corvan

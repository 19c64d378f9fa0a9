// The real window, driven by the names of its controls.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/Corvan.h"
#include "paint/PictureFile.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

const QString Samples = CORVAN_SAMPLES;

struct Window {
  test::TempFolder folder;
  std::filesystem::path before = std::filesystem::current_path();
  test::ScriptedAnswers dialogs;
  Corvan window{dialogs};

  Window() {
    window.resize(1200, 800);
    window.show();
    QCoreApplication::processEvents();
  }
  ~Window() { std::filesystem::current_path(before); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  template <class Widget>
  Widget* get(const char* name) const {
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  void press(const char* button) const { QTest::mouseClick(get<QPushButton>(button), Qt::LeftButton); }
  void choose(const char* menuItem) const { get<QAction>(menuItem)->trigger(); }
  void enter(const char* box, const char* text) const {
    auto* edit = get<QLineEdit>(box);
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
  }
  std::string text(const char* box) const { return get<QLineEdit>(box)->text().toStdString(); }
  std::string label(const char* name) const { return get<QLabel>(name)->text().toStdString(); }
  bool shown(const char* frame) const { return get<QGroupBox>(frame)->isVisible(); }

  /// Selects files of the sample's folder in the list, in the order given.
  void select(const QStringList& names) {
    choose("LoadFiles");
    get<QListWidget>("Dir1");
    static_cast<FrameFileIn*>(get<QGroupBox>("FrameFileIn"))->apriCartella(Samples);
    auto* list = get<QListWidget>("File1");
    for (const QString& name : names) {
      for (QListWidgetItem* item : list->findItems(name, Qt::MatchExactly)) item->setSelected(true);
    }
  }
  void readSample() {
    select({"lagoon_1.bin", "lagoon_2.bin"});
    get<QCheckBox>("PastGapsChk")->setChecked(true);
    press("ConvertAsciiCmd");
    std::filesystem::current_path(folder.path());
  }
  void readFirings(std::size_t count) {
    const auto file = folder.write("survey.bin", test::SyscalFile(test::Firings(count, 10)));
    window.leggi({QString::fromStdString(file.string())});
  }
  Session& session() { return window.session(); }
  CoordPic* picture() const { return static_cast<CoordPic*>(get<QWidget>("CoordPic")); }
  /// Where the label of a measurement stands.
  QPoint place(std::int32_t measurement) {
    for (int y = 0; y < picture()->height(); ++y) {
      for (int x = 0; x < picture()->width(); ++x) {
        if (session().MisuraSotto(x, y) == measurement) return {x, y};
      }
    }
    ADD_FAILURE() << "no label for measurement " << measurement;
    return {};
  }
  void drag(Qt::MouseButton button, Qt::KeyboardModifiers keys, QPoint from, QPoint to) const {
    QTest::mousePress(picture(), button, keys, from);
    QMouseEvent move(QEvent::MouseMove, to, picture()->mapToGlobal(to), Qt::NoButton, button, keys);
    QApplication::sendEvent(picture(), &move);
    QTest::mouseRelease(picture(), button, keys, to);
  }
};

TEST(MainWindow, HasEveryControlWithItsTexts) {
  Window w;
  EXPECT_EQ(w.window.windowTitle(), "Ardevo - Corvan Data Pre-Process");
  struct Control {
    const char *name, *text, *toolTip;
  };
  const Control controls[] = {
      {"Option1", "No Filter", ""},
      {"Option2", "Skip bad GPS", ""},
      {"Option3", "Interpolate bad GPS", ""},
      {"CancCmd", "Cancel", ""},
      {"ConvertAsciiCmd", "Read File", ""},
      {"TPGChk", ".TPG", ""},
      {"KMLchk", ".KML", ""},
      {"ExtGPSChk", "Ext. GPS", "Use the External GPS coordinates "},
      {"TruePosChk", "True Position", "Correct UTM data for distance between syscal and current electrodes"},
      {"SaveOutCmd", ">> Save File Out <<", "Save selection with option "},
      {"EchoZChk", ".ECS", "Save the Echo Sounder profile .ECS (UTMx, UTMy, Depth)"},
      {"TxtChk", ".TXT", "Export section in IRIS Corvan .TXT format"},
      {"BinChk", ".BIN", "Export selection in IRIS .BIN format"},
      {"Mopt", "Map view (top view)", ""},
      {"Oopt", "Orthographic View", ""},
      {"TopViewCmd", "Reset Top View [ Zoom = 1 ]", ""},
      {"SaveCmd", "Save Current Picture", ""},
      {"LeftThetacmd", "\u2212", "Rotate "},
      {"RightGammaCmd", "+", "Rotate "}};
  for (const Control& c : controls) {
    const auto* control = w.get<QAbstractButton>(c.name);
    EXPECT_EQ(control->text(), QString::fromUtf8(c.text)) << c.name;
    if (*c.toolTip != '\0') {
      EXPECT_EQ(control->toolTip(), c.toolTip);
    }
  }
  const std::pair<const char*, const char*> boxes[] = {{"E1Txt", "Set the first extrema of the selection"},
                                                       {"E2txt", "Set the second extrema of the selection"},
                                                       {"FileOutTxt", "Set root file name without the extension"},
                                                       {"Thetatxt", "Rotation around X axes"},
                                                       {"Phitxt", "Rotation around Z axes"},
                                                       {"GammaTxt", "Rotation Around Y axes"},
                                                       {"TestTxt", "Data: East Tranlation [m]"},
                                                       {"TnordTxt", "Data: Notrh Translation [m]"},
                                                       {"DTestTxt", "Depth: East Translation [m]"},
                                                       {"DTnordTxt", "Depth: North Translation [m]"}};
  for (const auto& [name, tip] : boxes) EXPECT_EQ(w.get<QLineEdit>(name)->toolTip(), tip);
  const std::pair<const char*, const char*> items[] = {{"LoadFiles", "&Load Floating Electrodes File(s)"},
                                                       {"LoadGPS", "Load E&xternal GPS file"},
                                                       {"SaveFileOut", "Save File Out (.&BIN format)"},
                                                       {"SaveFileOutTxt", "Save File Out (.T&XT Format)"},
                                                       {"SaveEcho", "Save &EchoSounder Profile"},
                                                       {"Exit", "E&xit"},
                                                       {"LinkToGPST", "Link Data to External GPS by Time"},
                                                       {"LinkToGPSP", "Link Data to External GPS by Pos."},
                                                       {"SetUtmZone", "Set UTM Zone"},
                                                       {"CableConf", "Set Cable Configuration"},
                                                       {"SelFirst", "Select First Data"},
                                                       {"SelectLast", "Select Last Data"},
                                                       {"SHelectrodes", "Show/Hide Floating Electrodes"},
                                                       {"SH2ndGps", "Show/Hide 2nd GPS"},
                                                       {"SHdepth", "Show/Hide Depth Profile"},
                                                       {"SHcolour", "Show/Hide Colour Scale"},
                                                       {"SHNord", "Show/Hide Nord Arrow"},
                                                       {"SHInfoLabel", "Show/Hide Info Label"},
                                                       {"SHtranslation", "Show/Hide Translation Panel"},
                                                       {"SetRange", "Set Colour Scale Range"}};
  for (const auto& [name, caption] : items) EXPECT_EQ(w.get<QAction>(name)->text(), caption);
  EXPECT_TRUE(w.get<QRadioButton>("Option1")->isChecked());
  EXPECT_TRUE(w.get<QCheckBox>("GammaChk")->isChecked());
  EXPECT_FALSE(w.get<QCheckBox>("BinChk")->isChecked());
  EXPECT_FALSE(w.shown("FrameDataMove"));
  EXPECT_EQ(w.text("Thetatxt"), "90.");
}

struct FilterCase {
  const char* option;
  std::size_t discarded, interpolated;
  const char* info;
};

class Reading : public ::testing::TestWithParam<FilterCase> {};

TEST_P(Reading, TheSampleTreatsItsLostFixes) {
  Window w;
  w.choose("LoadFiles");
  EXPECT_TRUE(w.shown("FrameFileIn"));
  w.get<QRadioButton>(GetParam().option)->click();
  w.readSample();
  EXPECT_EQ(w.session().survey().NumMisure(), 438);
  EXPECT_EQ(w.session().fixes().discarded, GetParam().discarded);
  EXPECT_EQ(w.session().fixes().interpolated, GetParam().interpolated);
  EXPECT_EQ(w.session().InfoLbl.Caption, GetParam().info);
  EXPECT_FALSE(w.shown("FrameFileIn")) << "hidden after reading";
  EXPECT_TRUE(w.get<QRadioButton>(GetParam().option)->isChecked()) << "the choice stays";
  EXPECT_EQ(w.text("E2txt"), "438");
  EXPECT_EQ(w.label("StatusFiles"), "2 files, 438 measurements");
  w.choose("LoadFiles");
  EXPECT_EQ(w.label("Donelbl"), "Read  438 meas.");
}

INSTANTIATE_TEST_SUITE_P(Filters, Reading,
                         ::testing::Values(FilterCase{"Option1", 0, 0, "Some Data have incorrect GPS position"},
                                           FilterCase{"Option2", 5, 0, "WGS 84 - UTM 33"},
                                           FilterCase{"Option3", 0, 5, "WGS 84 - UTM 33"}));

TEST(FileList, IsReadInItsOrderWhateverTheOrderOfTheClicks) {
  Window w;
  w.select({"lagoon_2.bin", "lagoon_1.bin"});
  w.press("ConvertAsciiCmd");
  ASSERT_EQ(w.session().survey().files.size(), 2U);
  EXPECT_EQ(w.session().survey().files[0].path.filename(), "lagoon_1.bin");
}

TEST(FileList, ReadsOnDoubleClickAndNothingWithoutASelection) {
  Window w;
  w.select({});
  w.press("ConvertAsciiCmd");
  EXPECT_EQ(w.session().FrameFileIn.Donelbl, "Read  0 meas.");
  EXPECT_EQ(w.label("StatusFiles"), "No survey");
  w.select({"lagoon_2.bin"});
  auto* list = w.get<QListWidget>("File1");
  QListWidgetItem* item = list->findItems("lagoon_2.bin", Qt::MatchExactly).at(0);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
  EXPECT_EQ(w.session().survey().files.size(), 1U);
}

TEST(FileList, IsOfTheFolderChosenInTheListOfFolders) {
  Window w;
  std::filesystem::create_directory(w.folder / "inner");
  w.folder.write("inner/line.bin", "x");
  auto* frame = static_cast<FrameFileIn*>(w.get<QGroupBox>("FrameFileIn"));
  frame->apriCartella(QString::fromStdString(w.folder.path().string()));
  auto* folders = w.get<QListWidget>("Dir1");
  emit folders->itemActivated(folders->item(folders->count() - 1));
  EXPECT_EQ(w.get<QListWidget>("File1")->count(), 1);
  EXPECT_EQ(std::filesystem::current_path().filename(), "inner") << "outputs go beside the data";
  w.choose("LoadFiles");
  w.press("CancCmd");
  EXPECT_FALSE(w.shown("FrameFileIn"));
}

TEST(DroppedFiles, AreReadAsIfSelected) {
  Window w;
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(Samples + "/lagoon_2.bin"), QUrl::fromLocalFile(Samples + "/lagoon_1.bin")});
  QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &drop);
  ASSERT_EQ(w.session().survey().files.size(), 2U);
  EXPECT_EQ(w.session().survey().files[0].path.filename(), "lagoon_1.bin");
}

TEST(Extremes, ArePickedByClickAndByEnterAndClearedByTheThirdClick) {
  Window w;
  w.readFirings(12);
  w.choose("SelFirst");
  EXPECT_TRUE(w.shown("FrameExtrema"));
  EXPECT_EQ(w.label("PrimoLbl"), "Extreme 1");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(3));
  EXPECT_EQ(w.text("E1Txt"), "3");
  EXPECT_EQ(w.label("PrimoLbl").substr(0, 15), "File.survey.bin");
  w.enter("E2txt", "9");
  EXPECT_EQ(w.session().StatoSelezione(), 2);
  EXPECT_EQ(w.text("E2txt"), "9");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  EXPECT_EQ(w.session().StatoSelezione(), 0);
  EXPECT_EQ(w.text("E1Txt"), "");
  EXPECT_EQ(w.label("SecondoLbl"), "");
  w.enter("E1Txt", "77");
  EXPECT_EQ(w.session().StatoSelezione(), 0) << "no such measurement";
}

TEST(Cable, IsShownWhileTheRightButtonIsHeld) {
  Window w;
  w.readFirings(12);
  const QPoint at = w.place(6);
  const QImage before = w.picture()->picture().copy();
  QTest::mousePress(w.picture(), Qt::RightButton, {}, at);
  EXPECT_EQ(w.session().scene().cable.size(), 13U);
  EXPECT_NE(w.picture()->picture(), before);
  QTest::mouseRelease(w.picture(), Qt::RightButton, {}, at);
  EXPECT_EQ(w.session().scene().cable.size(), 0U);
  EXPECT_EQ(w.picture()->picture(), before);
  EXPECT_EQ(w.session().view().ZoomFattore, 1.0F);
}

TEST(Translations, MoveTheDataAndTheDepthWithTheQuirkOfItsBox) {
  Window w;
  w.readFirings(5);
  w.choose("SHtranslation");
  EXPECT_TRUE(w.shown("FrameDataMove"));
  EXPECT_TRUE(w.shown("FrameDepthMove"));
  w.press("EpCmd");
  w.press("EpCmd");
  w.press("NmCmd");
  EXPECT_EQ(w.text("TestTxt"), "0.2");
  EXPECT_EQ(w.text("TnordTxt"), "-0.1");
  w.enter("TestTxt", "12.5");
  EXPECT_EQ(w.session().survey().settings.TraslDatiEst, 12.5);
  w.press("DEpCmd");
  EXPECT_EQ(w.text("DTnordTxt"), "0.1") << "the east step shows in the north box";
  EXPECT_EQ(w.text("DTestTxt"), "0.0");
  w.enter("DTestTxt", "-3");
  EXPECT_EQ(w.session().survey().settings.TraslFondoEst, -3.0F);
  EXPECT_EQ(w.session().survey().settings.TraslFondoNord, 0.0F);
}

TEST(Menus, SwitchTheLayersAndShowTheirState) {
  Window w;
  w.readFirings(5);
  EXPECT_TRUE(w.get<QAction>("SHelectrodes")->isChecked());
  const char* names[] = {"SHelectrodes", "SHdepth", "SHcolour", "SHNord", "SHInfoLabel", "SH2ndGps"};
  for (const char* name : names) {
    const QImage before = w.picture()->picture().copy();
    const bool on = w.get<QAction>(name)->isChecked();
    w.choose(name);
    EXPECT_EQ(w.get<QAction>(name)->isChecked(), !on) << name;
    if (std::string(name) != "SH2ndGps") {
      EXPECT_NE(w.picture()->picture(), before) << name;
    }
    w.choose(name);
    EXPECT_EQ(w.picture()->picture(), before) << name;
  }
}

TEST(Drags, TurnByTwoPiAcrossThePicture) {
  Window w;
  w.readFirings(5);
  const double width = w.picture()->width(), height = w.picture()->height();
  w.drag(Qt::LeftButton, {}, {20, 500}, {120, 460});
  EXPECT_NEAR(w.session().view().AngoloVista, Pi / 2 + 40 / height * 2 * Pi, 1e-9) << "upwards increases theta";
  EXPECT_NEAR(w.session().view().AngoloPhi, 100 / width * 2 * Pi, 1e-9);
  EXPECT_EQ(w.session().view().AngoloGamma, 0);
  w.get<QCheckBox>("PhiChk")->setChecked(false);
  const double phi = w.session().view().AngoloPhi;
  w.drag(Qt::LeftButton, {}, {20, 500}, {120, 500});
  EXPECT_EQ(w.session().view().AngoloPhi, phi) << "a box that is not ticked holds its angle";
  EXPECT_FALSE(w.session().FrameView.angleLabelsVisible);
}

TEST(Drags, ZoomAHundredTimesFromTopToBottom) {
  Window w;
  w.readFirings(5);
  const double height = w.picture()->height();
  w.drag(Qt::RightButton, {}, {20, 100}, {20, 300});
  EXPECT_NEAR(w.session().view().ZoomFattore, std::pow(10.0, 400.0 / height), 1e-4);
  EXPECT_NE(w.text("Zoomtxt"), "1.");
  w.press("TopViewCmd");
  EXPECT_EQ(w.session().view().ZoomFattore, 1.0F);
}

TEST(Drags, WithControlMoveTheWindow) {
  Window w;
  w.readFirings(5);
  const ViewState before = w.session().view();
  const double width = w.picture()->width();
  w.drag(Qt::LeftButton, Qt::ControlModifier, {20, 100}, {70, 100});
  EXPECT_NEAR(w.session().view().FinestraBase.xmin, before.FinestraBase.xmin - 50 * before.Lato / width, 1e-6);
  EXPECT_EQ(w.session().view().AngoloPhi, 0);
  w.press("ResCmd");
  EXPECT_EQ(w.session().view().FinestraBase.xmin, before.FinestraBase.xmin);
}

TEST(Drags, WithShiftPlaceTheVanishingPointInPerspective) {
  Window w;
  w.readFirings(5);
  w.get<QRadioButton>("Popt")->click();
  const QImage before = w.picture()->picture().copy();
  w.drag(Qt::LeftButton, Qt::ShiftModifier, {20, 100}, {50, 200});
  const ViewState& view = w.session().view();
  const ViewWindow<float>& window = view.FinestraIniziale;
  EXPECT_NEAR(view.FugaX, window.xmin + (window.xmax - window.xmin) * 50.0 / w.picture()->width(), 1e-3);
  EXPECT_NE(w.picture()->picture(), before);
  EXPECT_EQ(view.AngoloVista, Pi / 2);
  w.get<QRadioButton>("Mopt")->click();
  EXPECT_EQ(view.projection, Projection::Orthographic);
  EXPECT_TRUE(w.get<QRadioButton>("Oopt")->isChecked());
}

TEST(Drags, PaintTheOutlineUntilTheRelease) {
  Window w;
  w.readFirings(30);
  const QImage before = w.picture()->picture().copy();
  QTest::mousePress(w.picture(), Qt::LeftButton, {}, {20, 500});
  EXPECT_NE(w.picture()->picture(), before);
  QTest::mouseRelease(w.picture(), Qt::LeftButton, {}, {20, 500});
  EXPECT_EQ(w.picture()->picture(), before) << "a click without a move changes nothing";
}

TEST(Depth, IsCorrectedOnDoubleClick) {
  Window w;
  auto firings = test::Firings(5, 10);
  for (std::size_t r = 20; r < 30; ++r) firings[r].depth = 40;
  const auto file = w.folder.write("survey.bin", test::SyscalFile(firings));
  w.window.leggi({QString::fromStdString(file.string())});
  w.choose("SHelectrodes");
  w.choose("SHdepth");
  QPoint at;
  for (int y = 0; y < w.picture()->height(); ++y) {
    for (int x = 0; x < w.picture()->width(); ++x) {
      if (w.session().Suggerimento(x, y).find(" Dpt. 40.") != std::string::npos) at = {x, y};
    }
  }
  w.dialogs.messageAnswer = Answer::Cancel;
  QTest::mouseDClick(w.picture(), Qt::LeftButton, {}, at);
  EXPECT_EQ(w.session().survey().Misure(3).Val12, 40);
  w.dialogs.messageAnswer = Answer::Ok;
  QTest::mouseDClick(w.picture(), Qt::LeftButton, {}, at);
  EXPECT_EQ(w.session().survey().Misure(3).Val12, 4);
  EXPECT_EQ(w.dialogs.messages.at(0).text, "Correct Depth Value?");
}

TEST(Questions, AreAskedWithTheirTextsAndMayBeCancelled) {
  Window w;
  w.readFirings(5);
  const std::string cable = w.session().survey().cavo.StringaCavo;
  w.choose("CableConf");
  EXPECT_EQ(w.session().survey().cavo.StringaCavo, cable) << "cancelled";
  w.choose("SetUtmZone");
  EXPECT_EQ(w.session().survey().settings.ZonaUTM, 32) << "cancelling sets the zone of the start";
  w.choose("SetRange");
  ASSERT_EQ(w.dialogs.questions.size(), 3U);
  EXPECT_EQ(w.dialogs.questions[0].title, "Cable Configuration");
  EXPECT_EQ(w.dialogs.questions[1].title, "Set Universal Trasverse Mercatore Zone");
  EXPECT_EQ(w.dialogs.questions[2].prompt, "Scale (Min; Max)");
  w.dialogs.answers = {{"Scale (Min; Max)", {"2;7"}}, {"UTM Zone n. ", {"34"}}};
  w.choose("SetRange");
  w.choose("SetUtmZone");
  EXPECT_EQ(w.session().colours().ScalaMax, 7.0F);
  EXPECT_EQ(w.session().InfoLbl.Caption, "WGS 84 - UTM 34");
}

TEST(Saving, WritesTheFilesOfTheCommandLine) {
  Window w;
  w.get<QRadioButton>("Option3")->click();
  w.readSample();
  w.enter("E1Txt", "40");
  w.enter("E2txt", "180");
  w.choose("SaveFileOut");
  EXPECT_TRUE(w.shown("FrameFileOut"));
  EXPECT_TRUE(w.get<QCheckBox>("BinChk")->isChecked());
  for (const char* box : {"TxtChk", "EchoZChk", "KMLchk", "TruePosChk"}) w.get<QCheckBox>(box)->setChecked(true);
  w.get<QLineEdit>("FileOutTxt")->setText("window");
  w.dialogs.answers = {{"Distance of the first floating Electrode from Syscal", {"8"}},
                       {"Distance of EchoSounder from Syscal", {"1"}},
                       {"Add vertical offset [m]", {"0"}}};
  w.press("SaveOutCmd");
  EXPECT_FALSE(w.shown("FrameFileOut"));
  EXPECT_NE(w.label("StatusNote").find((w.folder / "window.bin").string()), std::string::npos) << w.label("StatusNote");

  const std::string command = std::string("cd '") + w.folder.path().string() + "' && '" CORVAN_CLI "' process '" +
                              CORVAN_SAMPLES
                              "/lagoon_1.bin' '" CORVAN_SAMPLES
                              "/lagoon_2.bin' --past-gaps "
                              "--bad-gps interpolate --from 40 --to 180 --true-position --cable-offset 8 "
                              "--echo-offset 1 --kml-offset 0 --format bin,txt,ecs,kml --out cli >log 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0);
  for (const char* extension : {".bin", ".txt", ".ecs", ".ecst", ".kml"}) {
    std::string ours = test::Slurp(w.folder / (std::string("window") + extension));
    std::string theirs = test::Slurp(w.folder / (std::string("cli") + extension));
    ASSERT_GT(ours.size(), 1000U) << extension;
    if (std::string(extension) == ".bin") {  // date and time of writing
      ours.replace(20, 19, "");
      theirs.replace(20, 19, "");
    }
    EXPECT_TRUE(ours == theirs) << extension;
  }
}

TEST(Saving, WithoutASelectionSaysSo) {
  Window w;
  w.choose("SaveEcho");
  EXPECT_TRUE(w.get<QCheckBox>("EchoZChk")->isChecked());
  EXPECT_FALSE(w.get<QCheckBox>("BinChk")->isChecked());
  w.press("SaveOutCmd");
  ASSERT_EQ(w.dialogs.messages.size(), 1U);
  EXPECT_EQ(w.dialogs.messages[0].text, "No points selected");
}

TEST(Pictures, OfWindowAndCommandLineAreTheSamePixels) {
  Window w;
  w.readSample();
  w.choose("SHcolour");
  w.choose("SHNord");
  w.enter("Thetatxt", "135");
  w.enter("Phitxt", "-30");
  const QImage& picture = w.picture()->picture();
  const std::string size = std::to_string(picture.width()) + "x" + std::to_string(picture.height());
  const std::string command = std::string("cd '") + w.folder.path().string() + "' && '" CORVAN_CLI "' process '" +
                              CORVAN_SAMPLES "/lagoon_1.bin' '" CORVAN_SAMPLES
                                             "/lagoon_2.bin' --past-gaps "
                                             "--theta 135 --phi -30 --layers electrodes,scale,north --size " +
                              size + " --picture cli.bmp >log 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0);
  w.press("SaveCmd");
  EXPECT_TRUE(test::Slurp(w.folder / "img0.bmp") == test::Slurp(w.folder / "cli.bmp"));
}

TEST(ExternalTrack, IsShownConnectedAndLinked) {
  Window w;
  w.readSample();
  w.window.leggiTraccia(Samples + "/lagoon_track.nav");
  EXPECT_TRUE(w.get<QAction>("SH2ndGps")->isChecked());
  EXPECT_EQ(w.label("StatusFiles"), "2 files, 438 measurements, track of 795 fixes");
  w.choose("LinkToGPSP");
  EXPECT_EQ(w.dialogs.messages.at(0).text, "You must define two connection before link data and gps");
  w.dialogs.answers = {{"Connection 1 (Data <--> GPS", {"10"}}, {"Connection 2 (Data <--> GPS", {"290"}}};
  const std::int32_t picked[] = {5, 215};
  for (const std::int32_t measurement : picked) {
    QTest::mouseClick(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(measurement));
  }
  EXPECT_EQ(w.session().NumCollegamenti(), 2);
  w.choose("LinkToGPSP");
  EXPECT_NEAR(w.session().survey().Misure(5).UTMx, w.session().survey().tracciaEst.PuntiGPSEst(10).X, 1e-6);
  w.choose("LinkToGPST");
  EXPECT_FALSE(w.get<QAction>("SH2ndGps")->isChecked());
  EXPECT_EQ(w.session().fixes().bad, 0U);
}

TEST(ViewPanel, ShowsItselfNearTheEdgeWhenNotKeptOpen) {
  Window w;
  w.readFirings(5);
  const auto point = [&](int fromRight) {
    const QPoint at(w.picture()->width() - fromRight, 300);
    QMouseEvent move(QEvent::MouseMove, at, w.picture()->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w.picture(), &move);
    QCoreApplication::processEvents();
  };
  w.get<QCheckBox>("ViewPin")->setChecked(false);
  point(400);
  EXPECT_FALSE(w.shown("FrameView"));
  point(5);
  EXPECT_TRUE(w.shown("FrameView"));
  point(400);
  w.choose("SHtranslation");
  EXPECT_FALSE(w.shown("FrameView"));
  EXPECT_TRUE(w.shown("FrameDataMove")) << "the panels below it have a switch of their own";
  w.choose("SHtranslation");
  point(5);
  w.get<QCheckBox>("ViewPin")->setChecked(true);
  point(400);
  EXPECT_TRUE(w.shown("FrameView"));
}

TEST(OneMeasurement, AndNoneLeaveEveryCommandHarmless) {
  for (const std::size_t count : {std::size_t{0}, std::size_t{1}}) {
    Window w;
    if (count > 0) w.readFirings(count);
    for (const QAction* action : w.window.findChildren<QAction*>()) {
      if (action->objectName() == "Exit" || action->objectName() == "LoadGPS" || action->objectName() == "Info" ||
          action->menu() != nullptr)
        continue;
      if (!action->objectName().isEmpty() && !action->objectName().startsWith("qt_"))
        const_cast<QAction*>(action)->trigger();
    }
    for (QAbstractButton* button : w.window.findChildren<QAbstractButton*>()) {
      const QString name = button->objectName();
      if (!name.isEmpty() && name != "SaveCmd" && !name.startsWith("qt_")) button->click();
    }
    w.drag(Qt::LeftButton, {}, {20, 500}, {120, 460});
    w.drag(Qt::RightButton, {}, {20, 500}, {120, 460});
    w.enter("E1Txt", "1");
    EXPECT_FALSE(w.picture()->picture().isNull());
  }
}

TEST(Layouts, ClipNothingFromTheSmallestWindowUpwards) {
  Window w;
  for (const char* item : {"LoadFiles", "SHtranslation"}) w.choose(item);
  for (const QSize size : {QSize(1024, 680), QSize(1600, 1000)}) {
    w.window.resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(w.window.size(), size);
    for (const QWidget* widget : w.window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
      const QRect inside = widget->parentWidget()->rect();
      EXPECT_TRUE(inside.contains(widget->geometry())) << widget->objectName().toStdString();
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      if (button != nullptr && !button->text().isEmpty()) {
        EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()))
            << widget->objectName().toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace corvan

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

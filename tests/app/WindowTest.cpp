// The real window, driven by the names of its controls.
#include <QToolButton>

#include "Window.h"

namespace corvan {
namespace {

using test::Samples;
using test::Window;

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
      {"ErtChk", ".OHM", "Unified data file for inversion toolkits: electrodes and readings"},
      {"Res2dinvChk", ".DAT", "RES2DINV data file in the layout of the general array"},
      {"BottomChk", "_BOTTOM.CSV", "The bottom along the section, for the layer of water of an inversion"},
      {"GpkgChk", ".GPKG", "GeoPackage with measurements, lines, section and readings, coloured by resistivity"},
      {"GeojsonChk", ".GEOJSON", "Measurements, lines and section for web maps"},
      {"VtuChk", ".VTU", "The section as a curtain of cells for 3D viewers"},
      {"Ert3DChk", "OHM on map", "Electrodes of the .OHM by easting and northing instead of along the section"},
      {"ExtGPSChk", "Ext. GPS", "Use the External GPS coordinates "},
      {"TruePosChk", "True Position", "Correct UTM data for distance between syscal and current electrodes"},
      {"SaveOutCmd", ">> Save File Out <<", "Save selection with option "},
      {"EchoZChk", ".ECS", "Save the Echo Sounder profile .ECS (UTMx, UTMy, Depth)"},
      {"TxtChk", ".TXT", "Export section in IRIS Corvan .TXT format"},
      {"BinChk", ".BIN", "Export selection in IRIS .BIN format"},
      {"Mopt", "Map view (top view)", ""},
      {"Oopt", "Orthographic View", ""},
      {"TopViewCmd", "Reset Top View [ Zoom = 1 ]", ""},
      {"Popt", "Perspective View", "Shift and the left button set the vanishing point"},
      {"ResCmd", "\u2500", "Rese to central view"},
      {"SaveCmd", "Save Current Picture", ""},
      {"ThetaChk", "\u03B8", ""},
      {"PhiChk", "\u03C6", ""},
      {"GammaChk", "\u03B3", ""}};
  for (const Control& c : controls) {
    const auto* control = w.get<QAbstractButton>(c.name);
    EXPECT_EQ(control->text(), QString::fromUtf8(c.text)) << c.name;
    if (*c.toolTip != '\0') {
      EXPECT_EQ(control->toolTip(), c.toolTip);
    }
  }
  for (const char* name :
       {"LeftThetacmd", "LeftPhicmd", "LeftGammaCmd", "MinZoomcmd", "EmCmd", "NmCmd", "DEmCmd", "DNmCmd"}) {
    EXPECT_EQ(w.get<QPushButton>(name)->text(), "\u2212") << name;
  }
  for (const char* name :
       {"RightThetacmd", "RightPhicmd", "RightGammaCmd", "MaxZoomcmd", "EpCmd", "NpCmd", "DEpCmd", "DNpCmd"}) {
    EXPECT_EQ(w.get<QPushButton>(name)->text(), "+") << name;
  }
  const std::pair<const char*, const char*> panels[] = {
      {"FrameFileIn", "File In"}, {"FrameFileOut", "File Out"},          {"FrameExtrema", "Extrema"},
      {"FrameView", "View"},      {"FrameDataMove", "Data Translation"}, {"FrameDepthMove", "Depth Translation"}};
  for (const auto& [name, title] : panels) EXPECT_EQ(w.get<QGroupBox>(name)->title(), title);
  const std::pair<const char*, const char*> menus[] = {
      {"File", "&File"}, {"Operation", "Operation"}, {"Image", "Image"}};
  for (const auto& [name, title] : menus) EXPECT_EQ(w.get<QMenu>(name)->title(), title);
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
                                                       {"SetRange", "Set Colour Scale Range"},
                                                       {"Info", "Info"}};
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
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 438);
  EXPECT_EQ(w.session().survey.fixes().discarded, GetParam().discarded);
  EXPECT_EQ(w.session().survey.fixes().interpolated, GetParam().interpolated);
  EXPECT_EQ(w.session().view.info(), GetParam().info);
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

TEST(FileList, ReadsOnDoubleClickAndNothingWithoutASelection) {
  Window w;
  w.select({});
  w.press("ConvertAsciiCmd");
  EXPECT_EQ(w.session().survey.FrameFileIn.Donelbl, "Read  0 meas.");
  EXPECT_EQ(w.label("StatusFiles"), "No survey");
  w.select({"lagoon_2.bin"});
  auto* list = w.get<QListWidget>("File1");
  QListWidgetItem* item = list->findItems("lagoon_2.bin", Qt::MatchExactly).at(0);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
  EXPECT_EQ(w.session().survey.dati().files.size(), 1U);
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
  ASSERT_EQ(w.session().survey.dati().files.size(), 2U);
  EXPECT_EQ(w.session().survey.dati().files[0].path.filename(), "lagoon_1.bin");
}

TEST(ExternalTrack, IsShownConnectedAndLinked) {
  Window w;
  w.readSample();
  w.window.leggiTraccia(Samples + "/lagoon_track.nav");
  EXPECT_TRUE(w.get<QAction>("SH2ndGps")->isChecked());
  EXPECT_EQ(w.label("StatusFiles"), "2 files, 438 measurements, track of 795 fixes");
  w.choose("LinkToGPSP");
  EXPECT_EQ(w.dialogs.messages.at(0).prompt, "You must define two connection before link data and gps");
  w.dialogs.answers[Question::Connection] = {"10", "290"};
  const std::size_t picked[] = {5, 215};
  for (const std::size_t measurement : picked) {
    QTest::mouseClick(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(measurement));
  }
  EXPECT_EQ(w.session().track.NumCollegamenti(), 2);
  w.choose("LinkToGPSP");
  EXPECT_NEAR(w.session().survey.dati().Misure(5).UTMx, w.session().survey.dati().tracciaEst.PuntiGPSEst(10).X, 1e-6);
  w.dialogs.answers[Question::ClockOffset] = {"0"};
  w.choose("LinkToGPST");
  EXPECT_FALSE(w.get<QAction>("SH2ndGps")->isChecked());
  EXPECT_EQ(w.session().survey.fixes().bad, 0U);
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
  w.tick("ViewPin");
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
  w.tick("ViewPin");
  point(400);
  EXPECT_TRUE(w.shown("FrameView"));
}

TEST(OneMeasurement, AndNoneLeaveEveryCommandHarmless) {
  for (const std::size_t count : {std::size_t{0}, std::size_t{1}}) {
    Window w;
    if (count > 0) w.readFirings(count);
    for (const QAction* action : w.window.findChildren<QAction*>()) {
      if (action->objectName() == "Exit" || action->objectName() == "LoadGPS" || action->objectName() == "Info" ||
          action->objectName() == "SavePictureAs" || action->objectName() == "OpenProject" ||
          action->objectName() == "SaveProject" || action->menu() != nullptr)
        continue;
      if (!action->objectName().isEmpty() && !action->objectName().startsWith("qt_"))
        const_cast<QAction*>(action)->trigger();
    }
    for (QAbstractButton* button : w.window.findChildren<QAbstractButton*>()) {
      const QString name = button->objectName();
      const auto* tool = qobject_cast<const QToolButton*>(button);
      if (tool != nullptr && tool->menu() != nullptr) continue;  // a menu waits for a hand
      if (!name.isEmpty() && name != "SaveCmd" && name != "FolderCmd" && !name.startsWith("qt_")) button->click();
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

// The panels under the keyboard alone, on small windows, and what is dropped onto the window.
#include <algorithm>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>

#include "app/Remembered.h"
#include "Window.h"

namespace corvan {
namespace {

using test::Samples;
using test::Window;

std::string Focused() {
  return QApplication::focusWidget() == nullptr ? "" : QApplication::focusWidget()->objectName().toStdString();
}

/// Types as a hand does: into whatever has the focus.
void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
void Press(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(QApplication::focusWidget(), key, keys); }

TEST(Keyboard, ChoosesExtremesWithoutAHandOnTheMouse) {
  Window w;
  w.readFirings(60);
  w.key("Ctrl+1");
  EXPECT_EQ(Focused(), "E1Txt");
  Type("40");
  Press(Qt::Key_Return);
  EXPECT_EQ(w.session().selection.primo(), 40) << "the preset 1 was selected and is gone";
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "E2txt");
  Press(Qt::Key_Tab);
  EXPECT_EQ(w.session().selection.secondo(), std::nullopt) << "left as it was, it chooses nothing";
  w.get<QLineEdit>("E2txt")->setFocus(Qt::TabFocusReason);
  Type("55");
  Press(Qt::Key_Tab);
  EXPECT_EQ(w.session().selection.secondo(), 55) << "left with Tab it counts";
  w.enter("E1Txt", "12");
  EXPECT_EQ(w.session().selection.primo(), 12) << "whatever was chosen before";
  EXPECT_EQ(w.session().selection.secondo(), 55);
}

TEST(Keyboard, SavesUnderATypedName) {
  Window w;
  w.readPlan();
  w.section("1", "4");
  w.key("Ctrl+T");
  EXPECT_EQ(Focused(), "FileOutTxt");
  Type("north");
  Press(Qt::Key_Return);
  EXPECT_TRUE(std::filesystem::exists(w.folder / "north.txt"));
  EXPECT_FALSE(w.shown("FrameFileOut"));
  EXPECT_EQ(Focused(), "CoordPic") << "not whichever control comes next";
}

// Five firings 2.5 m apart on a straight line with a cable whose head is electrode 12: channel 1 of the last one, 10 m
// on, tells the smoothing by nothing and the shape by its first current electrode.
TEST(Keyboard, LaysTheCableAlongTheTrack) {
  Window w;
  w.readPlan();
  w.section("1", "5");
  w.key("Ctrl+T");
  EXPECT_FALSE(w.get<QLineEdit>("SmoothTxt")->isEnabled()) << "the straight cable asks for none";
  w.get<QComboBox>("CableCmbx")->setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  EXPECT_EQ(w.session().exporter.FrameFileOut.cable, CableShape::AlongTrack);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "SmoothTxt");
  Type("-3");
  Press(Qt::Key_Return);
  EXPECT_FALSE(std::filesystem::exists(w.folder / "FileOut.txt")) << "refused";
  EXPECT_NE(w.label("StatusNote").find("smoothing of the track \"-3\" is not 0 to 1000"), std::string::npos)
      << w.label("StatusNote");
  w.key("Ctrl+T");
  w.enter("SmoothTxt", "1.5");
  const Survey& survey = w.session().survey.dati();
  const float head = *std::max_element(survey.cavo.PosCavo.begin() + 1, survey.cavo.PosCavo.end());
  const std::string text = test::Slurp(w.folder / "FileOut.txt");
  const std::string last = text.substr(text.find("\r\n 41 ") + 2);
  EXPECT_EQ(std::stod(last.substr(last.find('\t'))), 10.0 - static_cast<double>(head - survey.cavo.PosCavo[12]))
      << last;
  w.key("Ctrl+T");
  EXPECT_EQ(w.text("SmoothTxt"), "1.5") << "kept for the next section";
}

TEST(Keyboard, ReadsFilesFromTheListAndAddsOthers) {
  Window w;
  static_cast<FrameFileIn*>(w.get<QGroupBox>("FrameFileIn"))->apriCartella(Samples);
  w.key("Ctrl+O");
  EXPECT_EQ(Focused(), "File1");
  Press(Qt::Key_Home);
  Press(Qt::Key_Return);
  ASSERT_EQ(w.session().survey.dati().files.size(), 1U);
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 218) << "lagoon_1.bin up to its last fix but two firings";
  w.key("Ctrl+O");
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  w.press("AddCmd");
  ASSERT_EQ(w.session().survey.dati().files.size(), 2U);
  EXPECT_EQ(w.session().survey.dati().files[1].path.filename(), "lagoon_2.bin");
  EXPECT_EQ(w.session().survey.dati().Misure(1).NumFile, 1);
  w.key("Ctrl+Shift+R");
  EXPECT_EQ(w.session().survey.dati().files.size(), 1U) << "the selected one alone";
}

TEST(Keyboard, TakesChangesBack) {
  Window w;
  w.readPlan();
  EXPECT_FALSE(w.get<QAction>("Undo")->isEnabled());
  w.key("F8");
  EXPECT_EQ(w.changes([&] { w.press("EpCmd"); }), "TestTxt=0.1 dataEast=0.1 picture");
  EXPECT_EQ(w.get<QAction>("Undo")->text().toStdString(), "&Undo Translation");
  EXPECT_EQ(w.changes([&] { w.key("Ctrl+Z"); }), "TestTxt=0.0 dataEast=0 picture");
  EXPECT_FALSE(w.get<QAction>("Undo")->isEnabled());
}

TEST(Panels, CloseByEscapeWhereTheFocusIsAndByTheirMark) {
  Window w;
  w.readPlan();
  const struct {
    const char *key, *panel, *inside;
  } panels[] = {{"Ctrl+O", "FrameFileIn", "File1"},  {"Ctrl+S", "FrameFileOut", "FileOutTxt"},
                {"Ctrl+1", "FrameExtrema", "E1Txt"}, {"Ctrl+Y", "FrameQuality", "RhoMinTxt"},
                {"F8", "FrameDataMove", "TestTxt"},  {"F8", "FrameDepthMove", "DTestTxt"}};
  for (const auto& p : panels) {
    w.key(p.key);
    EXPECT_TRUE(w.shown(p.panel)) << p.panel;
    w.get<QWidget>(p.inside)->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(w.shown(p.panel)) << p.panel;
    w.key(p.key);
    auto* mark = w.get<QToolButton>((std::string(p.panel) + "_Close").c_str());
    ASSERT_TRUE(mark->isVisible());
    QTest::mouseClick(mark, Qt::LeftButton);
    EXPECT_FALSE(w.shown(p.panel)) << p.panel;
  }
  w.key("Ctrl+S");
  w.key("Ctrl+1");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(w.shown("FrameFileOut")) << "only the panel that has the focus";
}

/// Names of controls that a panel cuts off: beyond its edge, or with a text wider than themselves.
std::string Cut(const QWidget* column) {
  std::string cut;
  for (const auto* panel : column->findChildren<QGroupBox*>()) {
    for (const auto* child : panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!child->isVisibleTo(panel)) continue;
      const auto* label = qobject_cast<const QLabel*>(child);
      const auto* button = qobject_cast<const QAbstractButton*>(child);
      const QString text = label != nullptr && !label->wordWrap() ? label->text()
                           : button != nullptr                    ? button->text()
                                                                  : "";
      const bool narrow = child->width() < child->fontMetrics().horizontalAdvance(text);
      if (narrow || !panel->rect().contains(child->geometry())) cut += child->objectName().toStdString() + " ";
    }
  }
  return cut;
}

TEST(Panels, AreNeverCutAndScrollWhereTheyDoNotFit) {
  for (const QSize size : {QSize(1024, 680), QSize(700, 460), QSize(1920, 1080)}) {
    Window w;
    w.window.resize(size);
    w.readPlan();
    for (const char* key : {"Ctrl+O", "Ctrl+S", "Ctrl+1", "Ctrl+Y", "F8"}) w.key(key);
    QCoreApplication::processEvents();
    EXPECT_EQ(w.window.size(), size) << "the panels ask for no more";
    for (const char* name : {"LeftColumn", "RightColumn"}) {
      auto* column = w.get<QScrollArea>(name);
      EXPECT_EQ(Cut(column->widget()), "") << name << " at " << size.width();
      EXPECT_EQ(column->viewport()->width(), column->widget()->width()) << "nothing hides at the side";
      for (const auto* panel : column->widget()->findChildren<QGroupBox*>()) {
        EXPECT_GE(panel->height(), panel->minimumSizeHint().height()) << panel->objectName().toStdString();
      }
    }
    auto* left = w.get<QScrollArea>("LeftColumn");
    if (size.height() < 700) {
      EXPECT_GT(left->verticalScrollBar()->maximum(), 0) << size.height();
    }
    w.get<QLineEdit>("E2txt")->setFocus();
    QCoreApplication::processEvents();
    const QRect seen(w.get<QLineEdit>("E2txt")->mapTo(left->viewport(), QPoint(0, 0)), QSize(20, 20));
    EXPECT_TRUE(left->viewport()->rect().contains(seen)) << "what takes the focus is brought into sight";
  }
}

TEST(ToolBar, DoesWhatItsMenuItemsDoAndTellsTheirKeys) {
  Window w;
  auto* bar = w.get<QToolBar>("ToolBar");
  w.readPlan();
  w.session().view.esagera(0.1);  // the whole curtain fits at zoom 1
  const auto press = [&](const char* item) {
    auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(w.get<QAction>(item)));
    ASSERT_NE(button, nullptr) << item;
    EXPECT_FALSE(button->icon().isNull()) << item;
    const QString key = w.get<QAction>(item)->shortcut().toString(QKeySequence::NativeText);
    EXPECT_TRUE(key.isEmpty() || button->toolTip().endsWith("(" + key + ")")) << item;
    EXPECT_GT(button->toolTip().size(), 8) << item;
    QTest::mouseClick(button, Qt::LeftButton);
  };
  EXPECT_EQ(w.changes([&] { press("LoadFiles"); }), "FrameFileIn=1");
  EXPECT_EQ(w.changes([&] { press("SaveFileOut"); }), "BinChk=1 FrameFileOut=1");
  EXPECT_EQ(w.changes([&] { press("SelFirst"); }), "FrameExtrema=1");
  for (int k = 0; k < 3; ++k) QCoreApplication::processEvents();  // the panels find their places
  EXPECT_EQ(w.changes([&] { press("ObliqueView"); }), "Phitxt=25. Thetatxt=120. phi=25 theta=120 picture");
  w.press("MaxZoomcmd");
  EXPECT_EQ(w.changes([&] { press("FrameSurvey"); }), "Zoomtxt=1. zoom=1 picture");
  EXPECT_EQ(w.changes([&] { press("MapView"); }), "Thetatxt=90. theta=90 picture");
  EXPECT_EQ(w.changes([&] { press("LinkToGPST"); }), "question=Seconds to add to the instrument's clock");
  w.choose("ShowToolBar");
  EXPECT_FALSE(bar->isVisible());
  w.window.close();
  EXPECT_FALSE(Remembered().barraMostrata());
  Remembered().ricordaBarraMostrata(true);
}

TEST(ToolTips, TellWhatEveryButtonOfAPanelDoes) {
  Window w;
  w.window.show();
  for (const auto* panel : w.window.findChildren<QGroupBox*>()) {
    for (const auto* button : panel->findChildren<QAbstractButton*>()) {
      if (qobject_cast<const QPushButton*>(button) == nullptr) continue;
      EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
  }
  EXPECT_EQ(w.get<QPushButton>("MaxZoomcmd")->toolTip(), "Show more");
  EXPECT_EQ(w.get<QPushButton>("MinZoomcmd")->toolTip(), "Show less");
}

void Drop(Window& w, const QStringList& names) {
  QMimeData data;
  QList<QUrl> urls;
  for (const QString& name : names) urls << QUrl::fromLocalFile(name);
  data.setUrls(urls);
  QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &drop);
}

TEST(Dropped, FoldersAreOpenedAndTracksAreLoadedBehindTheirSurvey) {
  Window w;
  Drop(w, {Samples});
  EXPECT_TRUE(w.shown("FrameFileIn"));
  EXPECT_EQ(w.get<QListWidget>("File1")->item(0)->text().toStdString(), "lagoon_1.bin");
  Drop(w, {Samples + "/lagoon_track.nav", Samples + "/lagoon_1.txt", Samples + "/lagoon_track.gps"});
  const Survey& survey = w.session().survey.dati();
  EXPECT_EQ(survey.files.size(), 1U);
  EXPECT_EQ(survey.tracciaEst.NumGPSEst(), 795);
  EXPECT_EQ(w.session().findings().entries().back().file, "lagoon_track.gps") << "there is one track at a time";
  EXPECT_TRUE(w.session().findings().anyFault());
}

TEST(Dropped, ColumnTextsAreNoTracksThoughTheirRowsBeginWithADate) {
  Window w;
  const auto rows =
      w.folder.write("rows.txt", "date time a b m n r x y\n2026-06-15 08:00:00 1 6 11 16 -1 288685 5030933\n");
  Drop(w, {QString::fromStdString(rows.string())});
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 1);
  EXPECT_FALSE(w.session().survey.dati().tracciaEst.loaded);
}

TEST(Reading, ThatGivesNothingLeavesWhatWasThere) {
  Window w;
  w.readPlan();
  w.enter("E1Txt", "2");
  w.window.leggi({QString::fromStdString((w.folder / "gone.bin").string())});
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 5);
  EXPECT_EQ(w.session().selection.primo(), 2);
  EXPECT_TRUE(w.session().findings().anyFault());
}

}  // namespace
}  // namespace corvan

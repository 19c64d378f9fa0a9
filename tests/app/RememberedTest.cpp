// What is kept between two starts, and what a damaged memory does.
#include <gtest/gtest.h>

#include <filesystem>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>
#include <QScreen>
#include <QTest>
#include <QToolBar>

#include "app/RecentMenu.h"
#include "app/Remembered.h"
#include "Window.h"

namespace corvan {
namespace {

/// A memory with nothing in it at first. The program of these tests keeps its settings in a folder of its own.
struct Memory : ::testing::Test {
  Memory() { settings.clear(); }

  QSettings settings{QSettings::defaultFormat(), QSettings::UserScope, "Ardevo", "Corvan"};
  test::TempFolder folder;

  QString file(const char* name) const { return QString::fromStdString(folder.write(name, "x").string()); }
  QString path() const { return QString::fromStdString(folder.path().string()); }
  /// The file that a text editor would be used on.
  QString stored() {
    settings.sync();
    return QString::fromStdString(test::Slurp(settings.fileName().toStdString()));
  }
  void edit(const char* text) {
    settings.sync();
    QDir().mkpath(QFileInfo(settings.fileName()).absolutePath());
    QFile file(settings.fileName());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
    file.close();
    settings.sync();
  }
};

/// The layers in the order of their keys, and whether the projection is the perspective.
std::string Shown(const ViewPreferences& view) {
  std::string shown;
  for (const LayerEntry& layer : LayerTable) shown += view.layers.*layer.flag ? '1' : '0';
  return shown + (view.perspective ? " 1" : " 0");
}

TEST_F(Memory, KeepsEachValueForTheNextStart) {
  EXPECT_EQ(Remembered().cartella(), "");
  EXPECT_TRUE(Remembered().vistaFissata());
  EXPECT_TRUE(Remembered().barraMostrata());
  EXPECT_EQ(Shown(Remembered().vista()), "10000111110 0");
  const ViewPreferences liked{{false, true, true, true, true, false, true, false, true, false, true}, true};
  {
    Remembered now;
    now.ricordaCartella(path());
    now.ricordaVistaFissata(false);
    now.ricordaBarraMostrata(false);
    now.ricordaVista(liked);
  }
  EXPECT_EQ(Remembered().cartella(), path());
  EXPECT_FALSE(Remembered().vistaFissata());
  EXPECT_FALSE(Remembered().barraMostrata());
  EXPECT_EQ(Shown(Remembered().vista()), "01111010101 1");
  for (const LayerEntry& layer : LayerTable) {  // one at a time: no two share a key
    ViewPreferences one = liked;
    one.layers.*layer.flag = !(one.layers.*layer.flag);
    Remembered().ricordaVista(one);
    EXPECT_EQ(Shown(Remembered().vista()), Shown(one));
  }
  std::filesystem::remove_all(folder.path());
  EXPECT_EQ(Remembered().cartella(), "") << "a folder that is gone";
  EXPECT_TRUE(stored().contains("[view]")) << "in the file that is damaged below";
}

TEST_F(Memory, OfDamagedValuesFallsBackToTheUsualOnes) {
  edit(
      "[General]\nfolder=relative/folder\n"
      "[view]\npinned=7\nSHelectrodes=maybe\nSHcolour=maybe\nSHNord=12 px\nSH2ndGps=@Invalid()\nprojection=3\n"
      "[window]\ntoolBar=12 px\ngeometry=none\nstate=@ByteArray(\\0\\0\\0\\xff)\n"
      "[recent]\nsize=many\n1\\files=/a\n");
  EXPECT_EQ(Remembered().cartella(), "");
  EXPECT_TRUE(Remembered().vistaFissata());
  EXPECT_TRUE(Remembered().barraMostrata());
  EXPECT_EQ(Shown(Remembered().vista()), "10000111110 0");
  EXPECT_TRUE(Remembered().recenti().empty());
  QMainWindow window;
  Remembered().ripristinaFinestra(window, {700, 500});
  EXPECT_EQ(window.size(), QSize(700, 500));
  edit("[recent]\nsize=2000000000\n1\\files=relative.bin\n2\\files=/b.bin, /c.bin\n3\\files=/b.bin, /c.bin\n");
  EXPECT_EQ(Remembered().recenti(), std::vector<QStringList>{QStringList({"/b.bin", "/c.bin"})});
}

TEST_F(Memory, PutsAWindowBackWhereItWas) {
  QMainWindow before;
  before.setObjectName("Corvan");
  QToolBar bar;
  bar.setObjectName("Bar");
  before.addToolBar(Qt::LeftToolBarArea, &bar);
  before.setGeometry(40, 60, 410, 320);
  before.show();
  Remembered().ricordaFinestra(before);
  QMainWindow after;
  after.setObjectName("Corvan");
  QToolBar same;
  same.setObjectName("Bar");
  after.addToolBar(Qt::TopToolBarArea, &same);
  Remembered().ripristinaFinestra(after, {700, 500});
  EXPECT_EQ(after.geometry(), QRect(40, 60, 410, 320));
  EXPECT_EQ(after.toolBarArea(&same), Qt::LeftToolBarArea);
}

TEST_F(Memory, BringsAWindowBackOntoTheScreen) {
  const QRect screen = QApplication::primaryScreen()->availableGeometry();
  const QPoint places[] = {
      {50000, 50000}, {-9000, 10}, {screen.right() - 20, 100}, {100, screen.bottom() - 2}, {100, -600}};
  for (const QPoint place : places) {
    QMainWindow away;
    away.resize(400, 300);
    away.show();
    away.move(place);
    ASSERT_EQ(away.pos(), place);
    Remembered().ricordaFinestra(away);
    QMainWindow window;
    Remembered().ripristinaFinestra(window, {500, 400});
    window.show();
    const QRect title(window.frameGeometry().topLeft(), QSize(window.width(), 16));
    EXPECT_GE((title & screen).width(), 120) << place.x() << ' ' << place.y();
    EXPECT_GE((title & screen).height(), 8) << place.x() << ' ' << place.y();
  }
  QMainWindow large;
  Remembered().dimenticaFinestra();
  Remembered().ripristinaFinestra(large, {50000, 50000});
  EXPECT_TRUE(screen.contains(large.geometry())) << "no larger than the screen";
}

TEST_F(Memory, ListsTheLastTenSurveysNewestFirst) {
  Remembered memory;
  for (int k = 1; k <= 12; ++k) memory.ricordaLettura({QStringLiteral("/s/%1.bin").arg(k), "/s/common.bin"});
  memory.ricordaLettura({});
  memory.ricordaLettura({"/s/5.bin", "/s/common.bin"});
  QStringList first;
  for (const QStringList& survey : Remembered().recenti()) first << survey.front().mid(3).chopped(4);
  EXPECT_EQ(first.join(' '), "5 12 11 10 9 8 7 6 4 3");
  memory.ricordaLettura({"/s/common.bin", "/s/5.bin"});
  EXPECT_EQ(Remembered().recenti().at(0), QStringList({"/s/common.bin", "/s/5.bin"}))
      << "another order, another survey";
  EXPECT_EQ(Remembered().recenti().at(1), QStringList({"/s/5.bin", "/s/common.bin"}));
  memory.ricordaLettura({"/s/5.bin"});
  EXPECT_EQ(Remembered().recenti().at(0), QStringList{"/s/5.bin"});
  memory.dimenticaRecenti();
  EXPECT_TRUE(Remembered().recenti().empty());
  EXPECT_FALSE(stored().contains("bin"));
}

TEST_F(Memory, OffersTheSurveysInAMenu) {
  Remembered memory;
  memory.ricordaLettura({file("a.bin"), file("b.bin"), file("c.bin")});
  memory.ricordaLettura({file("R&D.bin")});
  memory.ricordaLettura({path() + "/gone.bin"});
  memory.ricordaLettura({file("left.bin"), path() + "/lost.bin"});
  QStringList read;
  RecentMenu menu(memory, [&](const QStringList& files) { read = files; });
  EXPECT_EQ(menu.title(), "Open &Recent");
  const auto open = [&] {
    menu.popup({10, 10});
    QCoreApplication::processEvents();
    QStringList shown;
    for (const QAction* action : menu.actions()) {
      if (!action->isSeparator()) shown << (action->isEnabled() ? "" : "-") + action->text();
    }
    return shown.join('|');
  };
  EXPECT_EQ(open(),
            "left.bin and 1 more (1 missing)|-gone.bin (no longer there)|R&&D.bin|a.bin and 2 more|&Clear list");
  EXPECT_TRUE(menu.actions().at(3)->toolTip().contains(path()));
  EXPECT_TRUE(menu.toolTipsVisible());
  QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(3)).center());
  EXPECT_EQ(read, QStringList({path() + "/a.bin", path() + "/b.bin", path() + "/c.bin"}));
  read.clear();
  open();
  QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(1)).center());
  EXPECT_TRUE(read.isEmpty()) << "it is gone";
  menu.hide();
  open();
  QTest::keyClick(&menu, Qt::Key_C);
  EXPECT_EQ(open(), "-No survey read yet|-&Clear list");
  EXPECT_TRUE(Remembered().recenti().empty());
  menu.hide();
  const QString name = QString(100, 'n') + ".bin";
  memory.ricordaLettura({file(qPrintable(name))});
  open();
  EXPECT_LT(menu.actions().at(0)->text().size(), 80) << "cut in the middle";
  EXPECT_TRUE(menu.actions().at(0)->toolTip().contains(name)) << "and told whole";
  menu.hide();
}

TEST_F(Memory, OfTheWindowHoldsFromOneStartToTheNext) {
  {
    test::Window w;
    w.tick("ViewPin", false);
    w.readFirings(2);
    w.select({"lagoon_1.bin", "lagoon_2.bin"});
    w.press("ConvertAsciiCmd");
    w.key("F2");
    w.key("F5");
    w.tick("Popt");
    w.window.setGeometry(30, 50, 1100, 700);
    w.window.close();
  }
  EXPECT_EQ(Remembered().recenti().size(), 2U);
  EXPECT_EQ(Remembered().cartella(), QFileInfo(test::Samples).absoluteFilePath());
  test::Window w;
  std::filesystem::current_path(QDir::homePath().toStdString());  // as a desktop starts programs
  w.window.ripristina({1024, 680});
  EXPECT_EQ(w.window.geometry(), QRect(30, 50, 1100, 700));
  EXPECT_FALSE(w.get<QCheckBox>("ViewPin")->isChecked());
  EXPECT_EQ(w.get<QListWidget>("File1")->findItems("lagoon_1.bin", Qt::MatchExactly).size(), 1);
  EXPECT_EQ(w.label("StatusFiles"), "No survey") << "nothing of a reading";
  auto* recent = w.get<QMenu>("OpenRecent");
  recent->popup({10, 10});
  EXPECT_EQ(recent->actions().at(0)->text(), "lagoon_1.bin and 1 more");
  recent->hide();
  recent->actions().at(0)->trigger();
  EXPECT_EQ(w.label("StatusFiles").substr(0, 8), "2 files,");
  EXPECT_FALSE(w.get<QAction>("SHelectrodes")->isChecked()) << "also after a reading";
  EXPECT_TRUE(w.get<QAction>("SHcolour")->isChecked());
  EXPECT_TRUE(w.get<QRadioButton>("Popt")->isChecked());
  w.key("F5");
  w.key("F7");
  recent->actions().at(0)->trigger();
  EXPECT_FALSE(w.get<QAction>("SHcolour")->isChecked()) << "as it was last";
  EXPECT_TRUE(w.get<QAction>("SHInfoLabel")->isChecked()) << "what a reading has to say is never hidden";
  std::filesystem::current_path(w.folder.path());
  w.window.ripristina({1024, 680});
  EXPECT_EQ(QDir::currentPath().toStdString(), w.folder.path().string()) << "a start from a folder of surveys means it";
}

TEST(FileInPanel, IsClosedAndReadInTheOrderShown) {
  test::Window w;
  w.select({"lagoon_1.bin", "lagoon_2.bin"});
  QTest::mouseClick(w.get<QToolButton>("FrameFileIn_Close"), Qt::LeftButton);
  EXPECT_FALSE(w.shown("FrameFileIn"));
  w.choose("LoadFiles");
  QTest::keyClick(w.get<QListWidget>("File1"), Qt::Key_Escape);
  EXPECT_FALSE(w.shown("FrameFileIn"));
  w.choose("LoadFiles");
  auto* list = w.get<QListWidget>("File1");
  list->clearSelection();
  list->setCurrentItem(list->findItems("lagoon_2.bin", Qt::MatchExactly).at(0));
  while (list->currentRow() > 0) QTest::keyClick(list, Qt::Key_Up, Qt::AltModifier);
  list->findItems("lagoon_1.bin", Qt::MatchExactly).at(0)->setSelected(true);
  QTest::keyClick(list, Qt::Key_Return);
  ASSERT_EQ(w.session().survey.dati().files.size(), 2U);
  EXPECT_EQ(w.session().survey.dati().files[0].path.filename(), "lagoon_2.bin");
}

}  // namespace
}  // namespace corvan

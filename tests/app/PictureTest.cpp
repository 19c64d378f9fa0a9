// What the window's picture tells, switched and asked for by hand, and that it is the command line's, byte for byte.
#include <QProcess>
#include <QSettings>

#include "Hand.h"
#include "view3d/MapBand.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Window;

QImage Seen(const Window& w) { return w.picture()->picture().copy(); }

TEST(MapMenu, SwitchesTheColoursOfTheMap) {
  Window w;
  w.readPlan();
  const QImage coloured = Seen(w);
  auto* item = w.get<QAction>("MapColours");
  EXPECT_TRUE(item->isChecked()) << "on at first";
  w.key("Ctrl+Shift+C");
  EXPECT_FALSE(item->isChecked());
  EXPECT_NE(Seen(w), coloured);
  w.key("Ctrl+Shift+C");
  EXPECT_TRUE(item->isChecked());
  EXPECT_EQ(Seen(w), coloured);
}

TEST(MapMenu, AsksForLevelWidthAndHeights) {
  Window w;
  w.readPlan();
  w.dialogs.answers[Question::MapLevel] = {"4;21"};
  w.key("Ctrl+Shift+L");
  EXPECT_EQ(w.session().view.state().mappa.livello, 4);
  EXPECT_EQ(LarghezzaBanda(w.session().view.state()), 21);
  w.enter("Thetatxt", "150");
  const QImage flat = Seen(w);
  w.dialogs.answers[Question::Exaggeration] = {"3"};
  w.key("Ctrl+Shift+X");
  EXPECT_NE(Seen(w), flat);
  w.dialogs.answers[Question::Exaggeration] = {"1"};
  w.key("Ctrl+Shift+X");
  EXPECT_EQ(Seen(w), flat);
}

TEST(PictureLayers, HaveTheirKeys) {
  Window w;
  w.readPlan();
  w.enter("Thetatxt", "90");
  for (const char* key : {"Shift+F2", "Shift+F3", "Shift+F5"}) {
    const QImage before = Seen(w);
    w.key(key);
    EXPECT_NE(Seen(w), before) << key;
    w.key(key);
    EXPECT_EQ(Seen(w), before) << key;
  }
  w.key("Ctrl+Shift+O");  // the axis stands where the curtain is seen
  const QImage before = Seen(w);
  w.key("Shift+F4");
  EXPECT_NE(Seen(w), before);
}

// The picture that leaves the window has the bytes of the one that the command line writes of the same view.
TEST(PictureFile, IsThatOfTheCommandLine) {
  Window w;
  w.readSample();
  w.key("F5");
  w.key("F6");
  w.enter("Thetatxt", "125");
  w.enter("Phitxt", "-20");
  w.enter("Zoomtxt", "0.75");
  w.dialogs.answers[Question::Exaggeration] = {"2"};
  w.key("Ctrl+Shift+X");
  const QSize size = Seen(w).size();
  const QString folder = QString::fromStdString(w.folder.path().string());
  {
    Hand hand({{By::Ok, "window.png"}});
    w.choose("SavePictureAs");
  }
  w.press("SaveCmd");
  const QStringList files{QString(CORVAN_SAMPLES) + "/lagoon_1.bin", QString(CORVAN_SAMPLES) + "/lagoon_2.bin"};
  const auto line = [&](const QString& name, const QStringList& more) {
    QProcess program;
    program.setWorkingDirectory(folder);
    program.start(CORVAN_CLI, QStringList{"process"} + files +
                                  QStringList{"--past-gaps", "--out", "o", "--picture", name, "--theta", "125",
                                              "--phi=-20", "--zoom", "0.75", "--exaggeration", "2", "--layers",
                                              "electrodes,scale,north,names,grid,axis", "--size",
                                              QString("%1x%2").arg(size.width()).arg(size.height())} +
                                  more);
    EXPECT_TRUE(program.waitForFinished(30000));
  };
  line("line.png", {});
  line("line.bmp", {"--no-caption"});
  const std::string window = test::Slurp(w.folder / "window.png");
  EXPECT_FALSE(window.empty());
  EXPECT_TRUE(window == test::Slurp(w.folder / "line.png"));
  EXPECT_TRUE(test::Slurp(w.folder / "img0.bmp") == test::Slurp(w.folder / "line.bmp"));
}

TEST(LiveRotation, ShowsTheCurtainDuringADragAndIsRemembered) {
  QSettings(QSettings::defaultFormat(), QSettings::UserScope, "Ardevo", "Corvan").clear();
  const auto cells = [](Window& w) {
    w.enter("Thetatxt", "150");
    w.enter("Zoomtxt", "0.5");
    QTest::mousePress(w.picture(), Qt::LeftButton, {}, {20, 300});
    w.point({60, 300}, Qt::LeftButton);
    const QImage shown = Seen(w);
    QTest::mouseRelease(w.picture(), Qt::LeftButton, {}, {60, 300});
    int coloured = 0;  // the outline alone is green on white
    for (int y = 0; y < shown.height(); y += 2) {
      for (int x = 0; x < shown.width(); x += 2) {
        const QColor c(shown.pixel(x, y));
        coloured += c.hsvSaturation() > 100 && c != QColor(0x008000) ? 1 : 0;
      }
    }
    return coloured;
  };
  {
    Window w;
    w.window.ripristina({1200, 800});
    w.readPlan();
    EXPECT_FALSE(w.get<QAction>("LiveRotation")->isChecked()) << "off at first";
    EXPECT_EQ(cells(w), 0);
    // A clock that stands still: every repaint is in time.
    w.choose("LiveRotation");
    w.session().view.rotazioneViva(true, [] { return 0.0; });
    EXPECT_GT(cells(w), 100);
    w.window.close();
  }
  Window again;
  again.window.ripristina({1200, 800});
  EXPECT_TRUE(again.get<QAction>("LiveRotation")->isChecked());
  EXPECT_TRUE(again.session().view.picture().viva());
  QSettings(QSettings::defaultFormat(), QSettings::UserScope, "Ardevo", "Corvan").clear();
}

}  // namespace
}  // namespace corvan

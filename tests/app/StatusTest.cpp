// The status bar's places: what they hold, that none moves another, and that no text makes the window grow.
#include "app/PickedLines.h"
#include "app/StatusText.h"
#include "base/NumberText.h"
#include "geo/Utm.h"
#include "Hand.h"
#include "Window.h"

namespace corvan {
namespace {

using test::Window;

constexpr const char* Places[] = {"StatusFiles",   "StatusZone",  "StatusNote", "StatusPlace",
                                  "StatusDegrees", "StatusPoint", "StatusCell", "StatusSection"};

std::vector<QRect> Geometry(const Window& w) {
  QCoreApplication::processEvents();
  std::vector<QRect> all;
  for (const char* name : Places) all.push_back(w.get<QLabel>(name)->geometry());
  return all;
}

void Leave(const Window& w) {
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(w.picture(), &leave);
}

TEST(StatusBar, TellsZoneAndHemisphereFromTheFirstSurveyOrTrackOn) {
  Window w;
  EXPECT_EQ(w.label("StatusZone"), "");
  w.window.leggiTraccia(QString::fromStdString(
      w.folder
          .write("one.csv",
                 "N;L;D;T;Lat;Lon;S;Depth;Q;East;North\r\n1;a;15/06/2026;06:00:00;45;9;9;3;1;500000;5030003\r\n")
          .string()));
  EXPECT_EQ(w.label("StatusZone"), "UTM 32 N");
  EXPECT_EQ(w.label("StatusFiles"), "No survey, track of 1 fix");
  w.readSample();
  EXPECT_EQ(w.label("StatusZone"), "UTM 33 N");
  w.dialogs.answers[Question::UtmZone] = {"31"};
  w.choose("SetUtmZone");
  EXPECT_EQ(w.label("StatusZone"), "UTM 31 N");
  w.session().survey.FrameFileIn.south = true;
  w.readPlan();
  EXPECT_EQ(w.label("StatusZone"), "UTM 32 S");
  EXPECT_EQ(w.label("StatusFiles"), "1 file, 5 measurements, track of 1 fix");
}

// Firings lie 2.5 m apart along the track; the third of the file with a hole is left out, and the track runs on.
TEST(StatusBar, TellsTheSectionByItsKeptPointsAndItsLength) {
  Window w;
  w.readPlan();
  w.key("Ctrl+1");
  const struct {
    const char *first, *second, *text;
  } cases[] = {{"2", "4", "2 to 4: 3 points, 5.0 m"},
               {"5", "1", "5 to 1: 5 points, 10.0 m"},
               {"3", "3", "3 to 3: 1 point, 0.0 m"}};
  EXPECT_EQ(w.label("StatusSection"), "");
  w.enter("E1Txt", "2");
  EXPECT_EQ(w.label("StatusSection"), "2 to \u2026");
  for (const auto& c : cases) {
    w.enter("E1Txt", c.first);
    w.enter("E2txt", c.second);
    EXPECT_EQ(w.label("StatusSection"), c.text);
  }
  auto records = test::Firings(6, 10);
  for (std::size_t r = 0; r < records.size(); ++r) {
    records[r].east = 500000.0F + 300.0F * static_cast<float>(r / 10);
    records[r].north = r / 10 == 2 ? 0.0F : 5030000.0F;
  }
  w.key("Ctrl+O");
  w.tick("Option2");
  w.tick("PastGapsChk", true);
  w.window.leggi({QString::fromStdString(w.folder.write("hole.bin", test::SyscalFile(records)).string())});
  EXPECT_EQ(w.label("StatusSection"), "") << "of another survey";
  w.key("Ctrl+1");
  w.section("1", "5");
  EXPECT_EQ(w.label("StatusSection"), "1 to 5: 4 points, 1200 m");
}

// Firing 3 of 12 stands at 45\u00B024.023438' N 12\u00B018.046875' E; a pixel of the picture is a third of a metre
// wide.
TEST(StatusBar, TellsThePlaceUnderThePointerUntilItLeaves) {
  Window w;
  w.readFirings(12);
  const QPoint third = w.place(3);
  w.point(third);
  const QStringList words = QString::fromStdString(w.label("StatusDegrees")).split(' ', Qt::SkipEmptyParts);
  ASSERT_EQ(words.size(), 4) << w.label("StatusDegrees");
  EXPECT_NEAR(words[0].chopped(1).toDouble(), 45.400391, 1e-5);
  EXPECT_NEAR(words[2].chopped(1).toDouble(), 12.300781, 1.5e-5);
  EXPECT_EQ(words[1] + words[3], "NE");
  EXPECT_EQ(w.label("StatusPoint"), "measurement 3");
  w.key("F2");
  EXPECT_EQ(w.label("StatusPoint"), "") << "the pointer rests, the labels are gone";
  EXPECT_NE(w.label("StatusPlace"), "");
  Leave(w);
  for (const char* name : {"StatusPlace", "StatusDegrees", "StatusPoint", "StatusCell"})
    EXPECT_EQ(w.label(name), "") << name;
  w.key("F2");
  EXPECT_EQ(w.label("StatusPlace"), "") << "nothing comes back without the pointer";
}

// Places up to the edges of their zones, where the series back alone is metres off. A hundred-thousandth of a degree
// is a metre.
TEST(StatusBar, CoordinatesAreThoseOfTheMeasurementThere) {
  const struct {
    Geographic place;
    GridZone grid;
    const char* text;
  } cases[] = {{{45.5, 12.0}, {32, Hemisphere::North}, "45.50000\u00B0 N  12.00000\u00B0 E"},
               {{45.5, 6.0}, {32, Hemisphere::North}, "45.50000\u00B0 N  6.00000\u00B0 E"},
               {{-33.25, 151.125}, {56, Hemisphere::South}, "33.25000\u00B0 S  151.12500\u00B0 E"},
               {{-0.5, -70.75}, {19, Hemisphere::South}, "0.50000\u00B0 S  70.75000\u00B0 W"},
               {{70.125, -3.5}, {30, Hemisphere::North}, "70.12500\u00B0 N  3.50000\u00B0 W"}};
  for (const auto& c : cases) {
    const auto grid = VersoUTM(c.place, c.grid);
    ASSERT_TRUE(grid);
    EXPECT_EQ(TestoCoordinate(*grid).toStdString(), c.text);
  }
  EXPECT_EQ(TestoCella({7, 3, 12.345F, false}).toStdString(), "level 3, 12.35 Ohm m");
  EXPECT_EQ(TestoCella({7, 10, -0.5F, true}).toStdString(), "level 10, -0.5 Ohm m, excluded");
}

// Seen from the side the ten levels of the middle measurement hang one below the other.
TEST(StatusBar, TellsLevelAndResistivityOfTheCellUnderThePointer) {
  Window w;
  w.readPlan();
  w.enter("Thetatxt", "180");
  w.enter("Zoomtxt", "6");
  QCoreApplication::processEvents();
  std::vector<std::string> seen;
  for (int y = 0; y < w.picture()->height(); ++y) {
    w.point({w.picture()->width() / 2, y});
    const std::string cell = w.label("StatusCell");
    if (!cell.empty() && (seen.empty() || seen.back() != cell)) seen.push_back(cell);
  }
  ASSERT_EQ(seen.size(), 10U);
  const Misura& middle = w.session().survey.dati().Misure(3);
  for (std::size_t level = 1; level <= 10; ++level) {
    EXPECT_EQ(seen[level - 1], "level " + std::to_string(level) + ", " +
                                   FormattaNumero(static_cast<double>(middle.Rho[level]), "0.0#") + " Ohm m");
  }
}

TEST(StatusBar, NothingMovesAndNoTextMakesItGrow) {
  Window w;
  for (const QSize size : {QSize(1024, 680), QSize(1400, 900)}) {
    w.window.resize(size);
    const std::vector<QRect> before = Geometry(w);
    const QRect bar = w.get<QWidget>("StatusNote")->parentWidget()->geometry();
    for (std::size_t k = 0; k < std::size(Places); ++k) {
      EXPECT_TRUE(QRect(QPoint(), bar.size()).contains(before[k])) << Places[k];
      for (std::size_t j = 0; j < k; ++j) EXPECT_FALSE(before[k].intersects(before[j])) << Places[k] << Places[j];
    }
    w.readSample();
    EXPECT_EQ(Geometry(w), before) << "read";
    w.window.leggiTraccia(test::Samples + "/lagoon_track.nav");
    for (const int x : {60, 200, 400}) {
      w.point({x, 300});
      EXPECT_EQ(Geometry(w), before) << x;
    }
    const std::string name = std::string(200, 'x').append("\n<b>y.bin");
    w.window.leggi({QString::fromStdString((w.folder / name).string())});
    EXPECT_EQ(Geometry(w), before) << "a long message";
    EXPECT_EQ(w.window.size(), size);
    auto* note = static_cast<ElidedLabel*>(w.get<QLabel>("StatusNote"));
    EXPECT_LT(note->visto().size(), 210);
    EXPECT_EQ(note->visto().right(12), QString::fromUtf8("\u2026 and 1 more"));
    EXPECT_NE(note->toolTip().indexOf(QString(200, 'x') + "\n&lt;b&gt;y.bin: No such file"), -1)
        << "whole, and no markup";
    EXPECT_EQ(note->text().indexOf('\n'), -1);
  }
}

TEST(PickedExtremes, AreReadOverThePictureAndStandInNoSavedOne) {
  Window w;
  w.readPlan();
  auto* lines = w.get<QLabel>("PickedLines");
  EXPECT_FALSE(lines->isVisible());
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(2));
  EXPECT_EQ(lines->text().toStdString(), "1: measurement 2, plan.bin, 15/06/2026 06:00:04");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  EXPECT_EQ(lines->text().section('\n', 1).toStdString(), "2: measurement 5, plan.bin, 15/06/2026 06:00:16");
  EXPECT_TRUE(lines->isVisible());
  EXPECT_FALSE(w.shown("FrameExtrema")) << "no panel is needed";
  EXPECT_TRUE(w.picture()->rect().contains(lines->geometry()));
  EXPECT_EQ(w.window.childAt(lines->mapTo(&w.window, lines->rect().center())), w.picture()) << "the mouse goes through";
  w.press("SaveCmd");
  EXPECT_EQ(QImage("img0.bmp").convertToFormat(QImage::Format_RGB32),
            w.picture()->picture().convertToFormat(QImage::Format_RGB32));
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(3));
  EXPECT_FALSE(lines->isVisible()) << "the third click clears both";
}

}  // namespace
}  // namespace corvan

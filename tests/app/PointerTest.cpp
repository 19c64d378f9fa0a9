// What the pointer tells: tool tips and status bar at places computed by hand. Also run on a screen of doubled scale.
#include <QHelpEvent>
#include <QToolTip>

#include "Window.h"

namespace corvan {
namespace {

using test::Window;

/// The tool tip that opens at a place of the picture.
std::string Tip(const Window& w, QPoint at) {
  for (QWidget* tip : QApplication::topLevelWidgets()) {
    if (tip->objectName() == "qtooltip_label") tip->hide();  // at once
  }
  QHelpEvent help(QEvent::ToolTip, at, w.picture()->mapToGlobal(at));
  QApplication::sendEvent(w.picture(), &help);
  return QToolTip::isVisible() ? QToolTip::text().toStdString() : "";
}

std::string Point(const Window& w, QPoint at) {
  w.point(at);
  return w.label("StatusPoint");
}

TEST(Pointer, FindsThePictureAtTheScreensOwnResolution) {
  Window w;
  const double scale = std::max(1.0, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble());
  EXPECT_EQ(w.picture()->devicePixelRatioF(), scale);
  EXPECT_EQ(w.picture()->picture().width(), w.picture()->width() * scale);
  EXPECT_NEAR(w.picture()->picture().height(), w.picture()->height() * scale, 0.99);
}

// Firing 3 of 12 lies 73.03 m west and 48.24 m south of the middle, 50.01 m along the track (Krueger series).
TEST(Pointer, TellsTheMeasurementBelowIt) {
  Window w;
  w.readFirings(12);
  const QPoint third = w.pixel(-73.031, -48.235);
  const std::string start = "File.survey.bin Data. 15/06/2026 06:00:00 Lg.1218.046875 Lt.4524.023438";
  EXPECT_EQ(Tip(w, third), start + " D.Prog. 50.0");
  EXPECT_EQ(Point(w, third), "measurement 3");
  EXPECT_EQ(Tip(w, w.pixel(0, 60)), "") << "water";
  EXPECT_EQ(Point(w, w.pixel(0, 60)), "");
}

// The survey's middle is 500004 E 5030003 N; a pixel is a hundredth of the track's length wide.
TEST(Pointer, TellsThePlaceOnTheWater) {
  Window w;
  w.readPlan();
  const QPoint places[] = {{0, 0}, {3, -2}, {-3, 2}};
  for (const QPoint place : places) {
    w.point(w.pixel(place.x(), place.y()));
    double east = 0, north = 0;
    const QStringList words = QString::fromStdString(w.label("StatusPlace")).split(' ', Qt::SkipEmptyParts);
    ASSERT_EQ(words.size(), 4) << w.label("StatusPlace");
    east = words[1].toDouble(), north = words[3].toDouble();
    EXPECT_NEAR(east, 500004 + place.x(), 0.08);
    EXPECT_NEAR(north, 5030003 + place.y(), 0.08);
  }
  w.tick("Popt");
  w.point(w.pixel(0, 0));
  EXPECT_EQ(w.label("StatusPlace"), "");
}

TEST(Pointer, TellsBottomAndTrackWhileTheyAreShown) {
  Window w;
  w.readPlan();
  w.window.leggiTraccia(QString::fromStdString(
      w.folder
          .write("track.csv",
                 "N;Line;Date;Time;Lat;Lon;Sats;Depth;Quality;East;North\r\n"
                 "1;a;15/06/2026;06:00:00;45.4;9.0;9;3;1;500000;5030003\r\n2;a;15/06/2026;06:00:08;45.4;9.0;9;6;1;"
                 "500003;5030007\r\n3;a;15/06/2026;06:00:16;45.4;9.0;9;8.5;1;500000;5029999\r\n")
          .string()));
  w.key("F4");
  w.key("F8");
  w.enter("DTestTxt", "1");
  w.enter("DTnordTxt", "-2");
  QCoreApplication::processEvents();
  const QPoint fourth = w.pixel(2, 1.5), bottom = w.pixel(3, -0.5), fix = w.pixel(-4, -4), second = w.pixel(-1, 4);
  const std::string boat = Tip(w, fourth), deep = Tip(w, bottom), found = Tip(w, fix);
  EXPECT_EQ(boat.substr(0, 47), "File.plan.bin Data. 15/06/2026 06:00:12 Lg.900.");
  EXPECT_EQ(boat.substr(boat.find(" D.")), " D.Prog. 7.5");
  EXPECT_EQ(deep.substr(0, 47), "File.plan.bin Data. 15/06/2026 06:00:12 Lg.900.");
  EXPECT_EQ(deep.substr(deep.find(" Dp")), " Dpt. 7.");
  EXPECT_EQ(found.substr(0, 13), " GPS: 3 Lg.90");
  EXPECT_EQ(found.substr(found.find(" Lt.")), " Lt.4525.41 D.Prog. 13.5 Depth: 8.5");
  // A click on fix 2, 500003 E 5030007 N, chooses measurement 4, 3.9 m away; 3 is 4.1 m and 5 is 5.1 m away.
  EXPECT_EQ(w.changes([&] { QTest::mouseClick(w.picture(), Qt::LeftButton, {}, second); }),
            "E1Txt=4 PrimoLbl=Prog. 5.0 Depth: 6. picture");
  for (const auto& [keys, at] : {std::pair("F2", fourth), std::pair("F3", fix), std::pair("F4", bottom)}) {
    w.key(keys);
    EXPECT_EQ(Tip(w, at), "") << keys;
    w.key(keys);
    EXPECT_NE(Tip(w, at), "") << keys;
  }
  w.key("F2");
  EXPECT_EQ(Point(w, fourth), "");
  EXPECT_EQ(w.changes([&] { QTest::mouseClick(w.picture(), Qt::LeftButton, {}, fourth); }), "") << "takes no press";
  QTest::mousePress(w.picture(), Qt::RightButton, {}, fourth);
  EXPECT_EQ(w.session().mouse.dragging(), Dragging::Zoom) << "no cable of a hidden measurement";
  QTest::mouseRelease(w.picture(), Qt::RightButton, {}, fourth);
  w.key("F3");
  EXPECT_EQ(w.changes([&] { QTest::mouseClick(w.picture(), Qt::LeftButton, {}, second); }), "");
  w.key("F4");
  EXPECT_EQ(w.changes([&] { w.doubleClick(bottom); }), "") << "nothing is asked";
}

TEST(Pointer, DragsShowTheirReadOutsAndTheVanishingPoint) {
  Window w;
  const double scale = w.picture()->devicePixelRatioF();
  const auto drawn = [&](const QRect& where) {  // dots that stand over the picture
    const QImage shown = w.picture()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage below = w.picture()->picture().convertToFormat(QImage::Format_RGB32);
    int dots = 0;
    for (int y = static_cast<int>(where.top() * scale); y < where.bottom() * scale; ++y) {
      for (int x = static_cast<int>(where.left() * scale); x < where.right() * scale; ++x) {
        dots += shown.pixel(x, y) != below.pixel(x, y) ? 1 : 0;
      }
    }
    return dots;
  };
  const QRect all = w.picture()->rect(), middle(all.center() - QPoint(150, 30), QSize(300, 60));
  const QRect corner(all.right() - 120, 2, 110, 60);
  EXPECT_GT(drawn(middle), 0) << "the hint, before anything is read";
  EXPECT_EQ(drawn(corner), 0);
  w.readPlan();
  EXPECT_EQ(drawn(middle) + drawn(corner), 0);
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
    QTest::mousePress(w.picture(), button, {}, {20, 400});
    w.point({21, 401}, button);
    EXPECT_GT(drawn(corner), 0);
    QTest::mouseRelease(w.picture(), button, {}, {21, 401});
    EXPECT_EQ(drawn(corner), 0);
  }
  w.tick("Popt");
  QTest::mousePress(w.picture(), Qt::LeftButton, Qt::ShiftModifier, {50, 300});
  w.point({60, 200}, Qt::LeftButton, Qt::ShiftModifier);
  const QImage shown = w.picture()->grab().toImage();
  const auto red = [&](int x, int y) { return shown.pixelColor(QPoint(x, y) * scale) == QColor(0xC00000); };
  EXPECT_TRUE(red(60, 30) && red(300, 200)) << "the lines cross where the pointer is";
  EXPECT_FALSE(red(50, 30) || red(300, 300));
  QTest::mouseRelease(w.picture(), Qt::LeftButton, Qt::ShiftModifier, {60, 200});
  const ViewState& view = w.session().view.state();
  const ViewWindow<float>& first = view.FinestraIniziale;
  EXPECT_NEAR(view.marker.FugaX, first.xmin + (first.xmax - first.xmin) * 60.0 / w.picture()->width(), 0.02);
}

}  // namespace
}  // namespace corvan

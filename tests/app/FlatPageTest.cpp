// The page of the flat section under real mouse and keys. Also run on a screen of doubled scale.
#include <QHelpEvent>
#include <QToolTip>

#include "FlatPage.h"

namespace corvan {
namespace {

using test::First;
using test::Flat;
using test::Last;
using test::Window;

TEST(FlatPage, ShowsByItsKeyAndPaintsOnlyWhileShown) {
  Window w;
  w.readPlan();
  auto* pic = w.get<QWidget>("SectionPic");
  EXPECT_FALSE(pic->isVisible());
  EXPECT_EQ(w.session().section.tela(), nullptr);
  for (const bool shown : {true, false, true, false}) {
    w.key("F9");
    EXPECT_EQ(pic->isVisible(), shown);
    EXPECT_EQ(w.picture()->isVisible(), !shown);
    EXPECT_EQ(w.get<QAction>("ShowSection")->isChecked(), shown);
    EXPECT_EQ(QApplication::focusWidget(), shown ? pic : w.picture());
    EXPECT_EQ(w.get<QWidget>("StatusReading")->isVisible(), shown);
    EXPECT_EQ(w.get<QWidget>("StatusPlace")->isVisible(), !shown);
  }
  w.window.resize(1000, 700);
  w.readFirings(7);
  QCoreApplication::processEvents();
  EXPECT_EQ(w.session().section.disposta().blocks.at(0).lastLine, 0U);
  EXPECT_NEAR(w.session().section.disposta().whole.to, Last, 1e-3) << "not painted while it is hidden";
  w.key("F9");
  QCoreApplication::processEvents();
  // Seven firings 1/64 m to the east and 1/128 m to the north of each other: 6.5 steps of 0.01747 m.
  EXPECT_NEAR(w.session().section.disposta().whole.to, 0.1136, 1e-3) << "nor stale when it is shown";
  const QSize size = static_cast<SectionPic*>(pic)->picture().size();
  EXPECT_EQ(size.width(), static_cast<int>(pic->width() * pic->devicePixelRatioF()));
  EXPECT_EQ(size.height(), static_cast<int>(pic->height() * pic->devicePixelRatioF()));
}

TEST(FlatPage, ChoosesTheSameExtremesAsThePicture) {
  Flat w;
  EXPECT_NEAR(w.layout().whole.from, First, 1e-3);
  EXPECT_NEAR(w.layout().whole.to, Last, 1e-3);
  w.choose("SelFirst");  // the panel takes room: places are asked for anew
  QCoreApplication::processEvents();
  w.choose("CurveDepth");
  QCoreApplication::processEvents();
  const auto curve = [&] {
    const PixelArea& plot = w.block().curves.at(0).plot;
    return w.logical(w.column(4.6), (plot.top + plot.bottom) / 2.0);
  };
  w.click(w.cell(2, 1));
  EXPECT_EQ(w.picked(), "2-");
  w.click(w.cell(4, 10));
  EXPECT_EQ(w.picked(), "2-4");
  w.click(w.cell(1, 3));
  EXPECT_EQ(w.picked(), "-") << "the third clears";
  w.click(w.air(8.6));
  EXPECT_EQ(w.picked(), "4-") << "nearest on the track";
  w.click(curve());
  EXPECT_EQ(w.picked(), "4-3");
  w.click(w.empty());
  EXPECT_EQ(w.picked(), "4-3") << "empty";
  EXPECT_EQ(w.session().findings().commands().back().name, "Select Data");
  w.key("F9");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "and clears from the other page";
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  w.key("F9");
  QCoreApplication::processEvents();
  EXPECT_EQ(w.picked(), "5-");
}

TEST(FlatPage, ChoosesAStretchByADragAlongTheAxis) {
  const struct {
    double from, to;
    const char* picked;
  } cases[] = {{2.4, 7.6, "2-4"}, {7.6, 2.4, "2-4"}, {-25, 3, "1-2"}, {4, 60, "3-5"}};
  for (const auto& c : cases) {
    for (const bool below : {false, true}) {
      Flat w;
      const auto at = [&](double metres) {
        const QPoint air = w.air(metres);
        return below ? QPoint(air.x(), w.logical(0, w.block().plot.bottom + 3).y()) : air;
      };
      w.draw(at(c.from), at(c.to));
      EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "not before the release";
      w.drop(at(c.to));
      EXPECT_EQ(w.layout().window, w.layout().whole) << "nothing is moved";
      EXPECT_EQ(w.picked(), c.picked) << c.from << " " << below;
    }
  }
  Flat w;
  const QImage plain = w.pic()->grab().toImage();
  w.draw(w.air(0), w.air(8));
  EXPECT_NE(w.pic()->grab().toImage(), plain) << "the stretch is seen";
  QTest::keyClick(w.pic(), Qt::Key_Escape);
  w.drop(w.air(8));
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "given up";
  w.draw(w.air(5), w.air(5) + QPoint(3, 2));
  w.drop(w.air(5) + QPoint(3, 2));
  EXPECT_EQ(w.picked(), "3-") << "a hand that shakes clicks";
  w.draw(w.air(4.5), w.air(5.5));
  w.drop(w.air(5.5));
  EXPECT_EQ(w.picked(), "3-") << "both ends at one measurement choose nothing";
}

TEST(FlatPage, MovesAndZoomsAlongTheTrack) {
  Flat w;
  const auto window = [&] { return w.layout().window; };
  const auto near = [&](double from, double to, const char* what) {
    QCoreApplication::processEvents();
    EXPECT_NEAR(window().from, from, 0.06) << what;
    EXPECT_NEAR(window().to, to, 0.06) << what;
  };
  const double width = Last - First;
  const QPoint at = w.logical(w.column(-10), w.block().plot.top + 40);
  w.wheel(at, 2);
  near(-10 - (-10 - First) / 1.44, -10 + (Last + 10) / 1.44, "the place under the pointer stays");
  w.press(Qt::Key_Home);
  near(First, Last, "Home");
  EXPECT_FALSE(w.session().section.view().window);
  w.press(Qt::Key_Plus);
  w.press(Qt::Key_Plus);
  const double middle = (First + Last) / 2, half = width / 1.44 / 2;
  near(middle - half, middle + half, "twice +");
  w.press(Qt::Key_Right);
  near(middle - half + 0.2 * half, middle + half + 0.2 * half, "a tenth to the right");
  w.press(Qt::Key_Left, Qt::ShiftModifier);
  near(First, First + 2 * half, "half to the left, held to the beginning");
  const double wide = w.pic()->width() * 0.9;
  const double metres = 100 * w.pic()->devicePixelRatioF() / w.block().plot.width() * 2 * half;
  w.draw(w.empty(), w.empty() - QPoint(100, 0));
  near(First + metres, First + metres + 2 * half, "drawn by 100 dots");
  w.move(w.empty() - QPoint(60, 0), Qt::LeftButton);
  near(First + 0.6 * metres, First + 0.6 * metres + 2 * half, "60 from the press");
  QTest::keyClick(w.pic(), Qt::Key_Escape);
  QCoreApplication::processEvents();
  near(First, First + 2 * half, "given up");
  w.drop(w.empty());
  w.draw(w.empty() - QPoint(0, 0), w.empty() - QPoint(static_cast<int>(wide) / 20, 0));
  w.drop(w.empty() - QPoint(static_cast<int>(wide) / 20, 0));
  EXPECT_GT(window().from, First + 0.5) << "kept";
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "a drag chooses nothing";
  w.press(Qt::Key_Minus);
  w.press(Qt::Key_Minus);
  w.press(Qt::Key_Minus);
  near(First, Last, "no wider than all");
  w.wheel(at, 1);
  const auto twice = [&](QPoint place) {
    QTest::mouseDClick(w.pic(), Qt::LeftButton, {}, place);
    w.drop(place);
  };
  twice(w.empty());
  near(First, Last, "double click on empty");
  w.wheel(at, 1);
  const TrackWindow before = window();
  twice(w.cell(2, 1));
  EXPECT_EQ(window(), before) << "on a cell";
}

TEST(FlatPage, TellsWhatLiesUnderThePointer) {
  Flat w;
  const auto tip = [&](QPoint at) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == "qtooltip_label") top->hide();  // one that goes takes its time
    }
    QHelpEvent help(QEvent::ToolTip, at, w.pic()->mapToGlobal(at));
    QApplication::sendEvent(w.pic(), &help);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
  };
  // Channel 2 on electrodes 10, 15, 15 and 20 m apart: K is 6.2832 times 60, and 10 mV at 1000 mA give 3.77 Ohm m.
  const std::string head = "Measurement 3, channel 2: 3.77 Ohm\u00B7m at -5.0 m, pseudo-depth ";
  const std::string volts = "V 10.0 mV, I 1000 mA, K 377 m", boat = "boat at 500004.0 E, 5030003.0 N";
  w.move(w.cell(3, 2));
  const std::string text = w.label("StatusReading");
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(text.substr(text.find("; ")), "; " + volts + "; " + boat);
  EXPECT_EQ(w.pic()->cursor().shape(), Qt::PointingHandCursor);
  const std::string shown = tip(w.cell(3, 2));
  EXPECT_NE(shown.find(volts + "\n" + boat), std::string::npos) << shown;
  w.choose("SH2ndGps");
  EXPECT_EQ(w.label("StatusReading"), text) << "it stays with the pointer";
  for (int k = 0; k < 3; ++k) w.press(Qt::Key_Plus);
  EXPECT_NE(w.label("StatusReading"), text) << "and follows what lies there";
  w.press(Qt::Key_Home);
  EXPECT_EQ(w.label("StatusReading"), text);
  w.move(w.air(7.4));
  EXPECT_EQ(w.label("StatusReading").substr(0, 29), "Measurement 4, File.plan.bin ");
  EXPECT_EQ(w.pic()->cursor().shape(), Qt::SizeHorCursor);
  w.move({2, 2});
  EXPECT_EQ(w.label("StatusReading"), "");
  EXPECT_EQ(tip({2, 2}), "");
  w.move(w.cell(3, 2));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(w.pic(), &leave);
  EXPECT_EQ(w.label("StatusReading"), "");
  QTest::mousePress(w.pic(), Qt::LeftButton, {}, w.cell(3, 2));
  EXPECT_EQ(tip(w.cell(3, 2)), "") << "not while a button is held";
  w.drop(w.cell(3, 2));
}

}  // namespace
}  // namespace corvan

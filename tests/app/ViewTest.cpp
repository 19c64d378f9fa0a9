// What stays in its place: under the pointer, in the middle, under the panel; and the keys. Also run on a screen of
// doubled scale.
#include <QWheelEvent>

#include "Window.h"

namespace corvan {
namespace {

using test::Window;

void Wheel(const Window& w, QPoint at, int angle, int pixels = 0) {
  QWheelEvent event(at, w.picture()->mapToGlobal(at), {0, pixels}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(w.picture(), &event);
}

int Apart(QPoint a, QPoint b) { return std::max(std::abs(a.x() - b.x()), std::abs(a.y() - b.y())); }

TEST(ViewMove, KeepsThePlaceUnderThePointerAtAnyZoom) {
  for (const char* zoom : {"0.3", "1", "4"}) {
    Window w;
    w.readPlan();
    w.enter("Zoomtxt", zoom);
    for (const QPoint by : {QPoint(170, -90), QPoint(-60, 140)}) {  // the second from where the first has left it
      const QPoint first = w.pixel(2, 1), from(200, 300);
      w.drag(Qt::LeftButton, Qt::ControlModifier, from, from + by);
      EXPECT_LE(Apart(w.pixel(2, 1), first + by), 1) << zoom;
    }
  }
}

TEST(ViewWheel, ZoomsAtThePointerByAFifthANotch) {
  const struct {
    std::vector<std::pair<int, int>> turns;  ///< eighths of degrees, pixels
    double zoom;
  } cases[] = {{{{120, 0}}, 1 / 1.2},
               {{{-120, 0}}, 1.2},
               {{{360, 0}}, 1 / (1.2 * 1.2 * 1.2)},
               {{{15, 0}, {15, 0}, {15, 0}, {15, 0}, {15, 0}, {15, 0}, {15, 0}, {15, 0}}, 1 / 1.2},  // a fine wheel
               {{{120, 7}, {120, 90}}, 1 / 1.44},                                                    // it tells both
               {{{0, 20}, {0, 40}}, 1 / 1.2},                                                        // a surface
               {{{0, 0}}, 1}};
  for (const auto& c : cases) {
    Window w;
    w.readPlan();
    const QPoint at = w.pixel(3, -2);
    for (const auto& [angle, pixels] : c.turns) Wheel(w, at, angle, pixels);
    EXPECT_NEAR(w.session().view.state().ZoomFattore, c.zoom, 1e-5);
    EXPECT_LE(Apart(w.pixel(3, -2), at), 1);
    EXPECT_NEAR(std::stod(w.text("Zoomtxt")), c.zoom, 0.006);
  }
}

TEST(ViewFrame, IsTheWholeSurveyByADoubleClickOnWaterOrHome) {
  Window w;
  w.readPlan();
  const ViewWindow<float> first = w.session().view.state().Finestra;
  for (const bool key : {false, true}) {
    Wheel(w, {200, 200}, 600);
    w.drag(Qt::LeftButton, Qt::ControlModifier, {200, 300}, {400, 250});
    EXPECT_NE(w.session().view.state().Finestra.xmin, first.xmin);
    if (key) {
      QTest::keyClick(w.picture(), Qt::Key_Home);
    } else {
      w.doubleClick({30, 60});
    }
    EXPECT_EQ(w.session().view.state().Finestra.xmin, first.xmin) << key;
    EXPECT_EQ(w.session().view.state().Finestra.zmax, first.zmax) << key;
    EXPECT_EQ(w.text("Zoomtxt"), "1.");
  }
}

TEST(ViewFrame, StaysAsItIsByADoubleClickOnACell) {
  Window w;
  w.readPlan();
  w.session().view.esagera(0.1);  // the whole curtain fits at zoom 1
  w.enter("Thetatxt", "170");
  w.enter("Zoomtxt", "0.5");
  PictureMouse& mouse = w.session().mouse;
  QPoint cell;
  for (int k = 0; k < w.picture()->width() * w.picture()->height() && cell.isNull(); k += 7) {
    const QPoint at(k % w.picture()->width(), k / w.picture()->width());
    const double scale = w.picture()->devicePixelRatioF();
    const auto x = static_cast<int>(at.x() * scale), y = static_cast<int>(at.y() * scale);
    if (mouse.cella(x, y) && mouse.bersaglio(x, y).kind == TargetKind::Nothing) cell = at;
  }
  ASSERT_FALSE(cell.isNull());
  w.doubleClick(cell);
  EXPECT_EQ(w.text("Zoomtxt"), "0.5");
  w.doubleClick({30, 60});
  EXPECT_EQ(w.text("Zoomtxt"), "1.");
}

TEST(ViewMiddle, StaysWhenPanelsOpenAndClose) {
  Window w;
  w.readPlan();
  w.enter("Zoomtxt", "0.5");
  w.drag(Qt::LeftButton, Qt::ControlModifier, {200, 300}, {330, 260});
  const auto middle = [&] { return w.pixel(1, 2) - QPoint(w.picture()->width(), w.picture()->height()) / 2; };
  const QPoint before = middle();
  const int width = w.picture()->width();
  const std::pair<const char*, std::function<void()>> steps[] = {
      {"File In", [&] { w.choose("LoadFiles"); }},     {"File Out", [&] { w.choose("SaveFileOut"); }},
      {"File In closed", [&] { w.press("CancCmd"); }}, {"unpinned", [&] { w.tick("ViewPin"); }},
      {"view gone", [&] { w.point({100, 300}); }},     {"translation", [&] { w.choose("SHtranslation"); }}};
  int sizes = 0;
  for (const auto& [name, step] : steps) {
    const int old = w.picture()->width();
    step();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_LE(Apart(middle(), before), 1) << name;
    sizes += w.picture()->width() != old ? 1 : 0;
  }
  EXPECT_GE(sizes, 3) << "the picture has had other sizes than " << width;
}

TEST(ViewPanel, CoversThePictureWhileItShowsItselfForThePointer) {
  Window w;
  w.readPlan();
  w.tick("ViewPin");
  w.point({100, 300});
  QCoreApplication::processEvents();
  const QSize size = w.picture()->size();
  const QImage seen = w.picture()->picture().copy();
  w.point({w.picture()->width() - 5, 300});
  QCoreApplication::processEvents();
  auto* panel = w.get<QGroupBox>("FrameView");
  ASSERT_TRUE(panel->isVisible());
  EXPECT_EQ(w.picture()->size(), size);
  EXPECT_EQ(w.picture()->picture(), seen);
  const QRect over(panel->mapTo(&w.window, QPoint()), panel->size());
  const QRect picture(w.picture()->mapTo(&w.window, QPoint()), size);
  EXPECT_TRUE(picture.contains(over));
  EXPECT_EQ(w.window.childAt(over.center())->window(), &w.window);
  EXPECT_TRUE(panel->isAncestorOf(w.window.childAt(over.center()))) << "it lies on top";
  w.press("RightPhicmd");
  EXPECT_TRUE(panel->isVisible()) << "and serves as ever";
  EXPECT_EQ(w.text("Phitxt"), "1.");
  w.point({w.picture()->width() - panel->width() - 60, 300});
  QCoreApplication::processEvents();
  EXPECT_FALSE(panel->isVisible());
  w.point({w.picture()->width() - 5, 300});
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&w.window, &leave);
  EXPECT_FALSE(panel->isVisible()) << "the pointer has left the window";
}

TEST(ViewMarker, KeepsItsShareOfThePictureAndShowsInPerspectiveOnly) {
  Window w;
  w.readPlan();
  w.tick("Popt");
  const double scale = w.picture()->devicePixelRatioF();
  const auto lines = [&](QPoint at) {
    QCoreApplication::processEvents();
    const QImage shown = w.picture()->grab().toImage();
    const auto red = [&](QPoint p) { return shown.pixelColor(p * scale) == QColor(0xC00000); };
    return red({at.x(), 37}) && red({37, at.y()}) && !red({at.x() + 3, 37}) && !red({37, at.y() + 3});
  };
  const QPoint at(w.picture()->width() / 4, w.picture()->height() / 2);
  EXPECT_FALSE(lines(at)) << "not placed yet";
  w.drag(Qt::LeftButton, Qt::ShiftModifier, {100, 100}, at);
  EXPECT_TRUE(lines(at));
  const QImage seen = w.picture()->picture();
  EXPECT_NE(seen.pixelColor(QPoint(at.x(), 37) * scale), QColor(0xC00000)) << "no part of the picture";
  const int width = w.picture()->width();
  w.choose("LoadFiles");
  QCoreApplication::processEvents();
  ASSERT_LT(w.picture()->width(), width - 100);
  bool near = false;
  for (int dx = -1; dx <= 1; ++dx) near = near || lines({w.picture()->width() / 4 + dx, at.y()});
  EXPECT_TRUE(near) << "a quarter of the way across";
  w.press("CancCmd");
  w.tick("Oopt");
  EXPECT_FALSE(lines(at));
  w.tick("Popt");
  EXPECT_TRUE(lines(at));
}

TEST(ViewKeys, TurnZoomAndLeaveTheRestToOthers) {
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers with;
    const char* changes;
  } keys[] = {{Qt::Key_Up, {}, "Thetatxt=91. theta=91 picture"},
              {Qt::Key_Up, Qt::ShiftModifier, "Thetatxt=101. theta=101 picture"},
              {Qt::Key_Down, {}, "Thetatxt=100. theta=100 picture"},
              {Qt::Key_Right, {}, "Phitxt=1. phi=1 picture"},
              {Qt::Key_Left, Qt::ShiftModifier, "Phitxt=-9. phi=-9 picture"},
              {Qt::Key_Left, Qt::KeypadModifier, "Phitxt=-10. phi=-10 picture"},
              {Qt::Key_Plus, Qt::ShiftModifier, "Zoomtxt=0.79 zoom=0.794328 picture"},
              {Qt::Key_Minus, {}, "Zoomtxt=1. zoom=1 picture"},
              {Qt::Key_Minus, {}, "Zoomtxt=1.26 zoom=1.25893 picture"},
              {Qt::Key_Equal, {}, "Zoomtxt=1. zoom=1 picture"},
              {Qt::Key_Up, Qt::ControlModifier, ""},
              {Qt::Key_A, {}, ""},
              {Qt::Key_Escape, {}, ""}};
  Window w;
  w.readPlan();
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, {30, 60});
  ASSERT_EQ(QApplication::focusWidget(), w.picture()) << "a click gives it the keys";
  for (const auto& k : keys) {
    EXPECT_EQ(w.changes([&] { QTest::keyClick(QApplication::focusWidget(), k.key, k.with); }), k.changes) << k.key;
  }
  QTest::mousePress(w.picture(), Qt::LeftButton, {}, {30, 60});
  QTest::keyClick(w.picture(), Qt::Key_Up);
  EXPECT_EQ(w.text("Thetatxt"), "100.") << "not while the mouse turns";
  QTest::mouseRelease(w.picture(), Qt::LeftButton, {}, {30, 60});
}

// A dot of another colour in the picture's memory stays until it is painted anew.
TEST(ViewRepaints, WaitForThePaintEventHoweverManyCommandsCome) {
  Window w;
  w.readFirings(200);
  const auto memory = [&]() -> std::uint32_t& {
    const PixelBuffer picture = w.session().view.picture().tela()->picture();
    return picture.pixels[3 * picture.stride + 400];
  };
  const std::pair<const char*, std::function<void()>> commands[] = {
      {"menu", [&] { w.choose("SHcolour"), w.choose("SHelectrodes"), w.choose("SHelectrodes"); }},
      {"keys", [&] { QTest::keyClick(w.picture(), Qt::Key_Left), QTest::keyClick(w.picture(), Qt::Key_Up); }},
      {"wheel",
       [&] {
         Wheel(w, {300, 300}, 120), Wheel(w, {300, 300}, -240);
       }},
      {"a change under the moving pointer",
       [&] {
         w.press("LeftThetacmd");
         for (int k = 0; k < 20; ++k) w.point({200 + 10 * k, 300});
         w.session().mouse.cella(300, 300);
       }},
      {"a drag",
       [&] {
         QTest::mousePress(w.picture(), Qt::LeftButton, {}, {20, 500});
         for (int k = 0; k < 20; ++k) w.point({40 + k, 480}, Qt::LeftButton);
         QTest::mouseRelease(w.picture(), Qt::LeftButton, {}, {60, 480});
       }},
      {"an extreme", [&] { w.session().selection.imposta(Extreme::First, 7); }}};
  for (const auto& [name, run] : commands) {
    w.picture()->repaint();
    memory() = 0xFF123456;
    run();
    EXPECT_EQ(memory(), 0xFF123456U) << name << " painted";
    w.picture()->repaint();
    EXPECT_EQ(memory(), 0xFFFFFFFFU) << name << " was never painted";
  }
  w.choose("SelFirst");
  QCoreApplication::processEvents();
  w.picture()->repaint();
  memory() = 0xFF123456;
  for (const char* box : {"Thetatxt", "Zoomtxt", "E1Txt"}) {
    w.get<QLineEdit>(box)->setFocus();
    QTest::keyClicks(w.get<QLineEdit>(box), "12");
    w.point({420, 300});
    QCoreApplication::processEvents();
    EXPECT_EQ(memory(), 0xFF123456U) << "typing in " << box;
    w.get<QLineEdit>(box)->setModified(false);
  }
}

}  // namespace
}  // namespace corvan

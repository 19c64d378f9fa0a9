// Presses that end in ways of their own: in a box, in another window, by Escape.
#include "app/QtDialogs.h"
#include "Hand.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Window;

constexpr const char* Track =
    "N;Line;Date;Time;Lat;Lon;Sats;Depth;Quality;East;North\r\n"
    "1;a;15/06/2026;06:00:00;45.4;9.0;9;3;1;500000;5030005\r\n"
    "2;a;15/06/2026;06:00:08;45.4;9.0;9;6;1;500003;5030009\r\n"
    "3;a;15/06/2026;06:00:16;45.4;9.0;9;9;1;500008;5030007\r\n";

/// The five measurements of plan.bin and the track beside them, asked by the real boxes.
struct Linked {
  QtDialogs real;
  Window w{&real};

  Linked() {
    w.readPlan();
    w.window.leggiTraccia(QString::fromStdString(w.folder.write("track.csv", Track).string()));
    QCoreApplication::processEvents();
  }
};

TEST(ConnectionBox, LeavesThePictureReadyForTheNextPressHoweverItEnds) {
  const struct {
    By by;
    std::int32_t connections;
  } cases[] = {{By::Ok, 1}, {By::Enter, 1}, {By::Cancel, 0}, {By::Escape, 0}};
  for (const auto& c : cases) {
    Linked l;
    Window& w = l.w;
    {
      Hand hand({{c.by, "1"}});
      QTest::mousePress(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(1));
      EXPECT_EQ(hand.titles.size(), 1U);
    }
    EXPECT_EQ(w.session().track.NumCollegamenti(), c.connections);
    EXPECT_EQ(w.session().mouse.dragging(), Dragging::Nothing);
    w.drag(Qt::RightButton, {}, {20, 300}, {20, 200});
    EXPECT_LT(w.session().view.state().ZoomFattore, 1.0F) << "at once, though no release came";
    w.press("TopViewCmd");
    QCoreApplication::processEvents();
    {
      Hand hand({{By::Ok, "3"}});
      QTest::mousePress(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(5));
    }
    QTest::mouseRelease(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(5));  // a late one does nothing
    EXPECT_EQ(w.session().track.NumCollegamenti(), c.connections + 1) << "two connections are two picks";
    w.drag(Qt::LeftButton, {}, {20, 500}, {120, 500});
    EXPECT_NE(w.session().view.state().AngoloPhi, 0);
  }
}

TEST(DepthBox, OfADoubleClickLeavesThePictureReady) {
  Linked l;
  Window& w = l.w;
  w.key("F4");
  QCoreApplication::processEvents();
  {
    Hand hand({{By::Ok}});
    w.doubleClick(w.place(3));
  }
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "a double click on a depth point picks no extreme";
  w.drag(Qt::LeftButton, {}, {20, 500}, {120, 500});
  EXPECT_NE(w.session().view.state().AngoloPhi, 0);
}

/// Ways in which a press loses its release.
TEST(Drags, EndWhenTheMouseIsTakenAway) {
  Linked l;
  Window& w = l.w;
  QWidget other;
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"another window",
       [&] {
         other.show();
         other.activateWindow();
         QCoreApplication::processEvents();
       }},
      {"a box",
       [&] {
         Hand hand({{By::Escape}});
         w.choose("SetRange");
       }},
      {"focus", [&] { w.get<QLineEdit>("Thetatxt")->setFocus(); }},
      {"release elsewhere",
       [&] {
         w.point({400, 420});
       }},
      {"another size", [&] {
         w.choose("LoadFiles");
         QCoreApplication::processEvents();
       }}};
  const struct {
    Qt::MouseButton button;
    Qt::KeyboardModifiers keys;
    bool label;
  } presses[] = {{Qt::LeftButton, {}, false},
                 {Qt::RightButton, {}, false},
                 {Qt::LeftButton, Qt::ControlModifier, false},
                 {Qt::LeftButton, {}, true},
                 {Qt::RightButton, {}, true}};
  for (const auto& [name, take] : ways) {
    for (const auto& press : presses) {
      w.window.activateWindow();
      w.press("TopViewCmd");
      w.press("CancCmd");
      QCoreApplication::processEvents();
      const QPoint at = press.label ? w.place(4) : QPoint(300, 420);
      QTest::mousePress(w.picture(), press.button, press.keys, at);
      EXPECT_NE(w.session().mouse.dragging(), Dragging::Nothing) << name;
      w.point(at + QPoint(2, 3), press.button, press.keys);
      take();
      EXPECT_EQ(w.session().mouse.dragging(), Dragging::Nothing) << name;
      EXPECT_EQ(w.session().view.picture().scene().cable.size(), 0U) << name;
      EXPECT_NE(w.picture()->cursor().shape(), Qt::SizeAllCursor) << name;
      const ViewState before = w.session().view.state();
      w.point({500, 450}, press.button, press.keys);
      QTest::mouseRelease(w.picture(), press.button, press.keys, at);
      EXPECT_EQ(w.session().view.state().AngoloPhi, before.AngoloPhi) << name;
      EXPECT_EQ(w.session().view.state().ZoomFattore, before.ZoomFattore) << name;
      EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << name << ": nothing is picked";
    }
  }
  other.close();
  w.window.activateWindow();
  w.press("CancCmd");
  QCoreApplication::processEvents();
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(2));
  EXPECT_EQ(w.session().selection.primo(), 2);
}

TEST(Drags, AreGivenUpByEscapeWithTheViewOfThePress) {
  Window w;
  w.readPlan();
  w.enter("Thetatxt", "130.");
  w.tick("Popt");
  w.drag(Qt::LeftButton, Qt::ShiftModifier, {100, 120}, {200, 250});
  QCoreApplication::processEvents();
  const auto before = w.state();
  const ViewState view = w.session().view.state();
  const QImage seen = w.picture()->picture().copy();
  const std::pair<Qt::MouseButton, Qt::KeyboardModifiers> presses[] = {{Qt::LeftButton, {}},
                                                                       {Qt::RightButton, {}},
                                                                       {Qt::LeftButton, Qt::ControlModifier},
                                                                       {Qt::LeftButton, Qt::ShiftModifier}};
  for (const auto& [button, keys] : presses) {
    QTest::mousePress(w.picture(), button, keys, {60, 500});
    w.point({120, 430}, button, keys);
    w.point({150, 400}, button, keys);
    EXPECT_NE(w.session().mouse.dragging(), Dragging::Nothing);
    QTest::keyClick(w.picture(), Qt::Key_Escape);
    EXPECT_EQ(w.session().mouse.dragging(), Dragging::Nothing);
    QTest::mouseRelease(w.picture(), button, keys, {150, 400});
    EXPECT_EQ(w.state(), before);
    EXPECT_EQ(w.session().view.state().FinestraBase.xmin, view.FinestraBase.xmin);
    EXPECT_EQ(w.session().view.state().marker.FugaX, view.marker.FugaX);
    EXPECT_EQ(w.picture()->picture(), seen);
  }
}

TEST(ALabel, DraggedAwayTurnsTheViewAndIsNotPicked) {
  Window w;
  w.readPlan();
  const QPoint at = w.place(3);
  w.drag(Qt::LeftButton, {}, at, at + QPoint(4, 3));
  EXPECT_EQ(w.session().selection.primo(), 3) << "a hand shakes";
  EXPECT_EQ(w.session().view.state().AngoloPhi, 0);
  w.drag(Qt::LeftButton, {}, at, at + QPoint(100, 0));
  EXPECT_EQ(w.session().selection.secondo(), std::nullopt);
  EXPECT_NEAR(w.session().view.state().AngoloPhi, 2 * Pi * 100 / w.picture()->width(), 0.02) << "from the press on";
}

}  // namespace
}  // namespace corvan

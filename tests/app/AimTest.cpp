// What a click would hit, and how the picture shows it. Also run on a screen of doubled scale.
#include <QClipboard>
#include <QHelpEvent>
#include <QToolTip>

#include "Hand.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Window;

/// Dots within 12 logical pixels of a place where the window shows something else than the picture.
int Marked(const Window& w, QPoint at) {
  const double scale = w.picture()->devicePixelRatioF();
  const QImage shown = w.picture()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QImage below = w.picture()->picture().convertToFormat(QImage::Format_RGB32);
  const int reach = static_cast<int>(12 * scale);
  const QPoint middle = at * scale;
  int dots = 0;
  for (int dy = -reach; dy <= reach; ++dy) {
    for (int dx = -reach; dx <= reach; ++dx) {
      const QPoint p = middle + QPoint(dx, dy);
      if (shown.rect().contains(p) && shown.pixel(p) != below.pixel(p)) ++dots;
    }
  }
  return dots;
}

/// A saved picture is what was seen but for the small line at its foot.
bool OnlyExplains(const QImage& saved, const QImage& seen) {
  const int foot = std::max(20, seen.height() / 35), rest = seen.height() - foot;
  const auto part = [&](const QImage& image, int top, int rows) { return image.copy(0, top, image.width(), rows); };
  return saved.size() == seen.size() && part(saved, 0, rest) == part(seen, 0, rest) &&
         part(saved, rest, foot) != part(seen, rest, foot);
}

TEST(Aim, IsTheNearestLabelWithinTenPixelsAndShows) {
  Window w;
  w.readPlan();
  const QPoint at = w.place(3);
  const double scale = w.picture()->devicePixelRatioF();
  const struct {
    QPoint by;
    bool hit;
  } cases[] = {{{0, 0}, true},   {{8, 0}, true},   {{-8, 0}, true}, {{0, -8}, true}, {{6, 6}, true},
               {{12, 0}, false}, {{0, 12}, false}, {{9, 9}, false}, {{0, 0}, true}};
  for (const auto& c : cases) {
    w.point(at + c.by);
    EXPECT_EQ(w.picture()->cursor().shape(), c.hit ? Qt::PointingHandCursor : Qt::CrossCursor) << c.by.x();
    EXPECT_EQ(Marked(w, at) > 60 * scale * scale, c.hit) << c.by.x() << " " << c.by.y();
    const QPoint pixel = (at + c.by) * scale;
    const Target target = w.session().mouse.bersaglio(pixel.x(), pixel.y());
    EXPECT_EQ(target.index, c.hit ? 3 : 0);
  }
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(w.picture(), &leave);
  EXPECT_EQ(Marked(w, at), 0) << "the pointer has gone";
}

// At a hundredth of the zoom's size the five measurements lie within 60 pixels.
TEST(Aim, TakesTheNearestOfSeveral) {
  Window w;
  w.readPlan();
  w.enter("Zoomtxt", "6");
  for (const std::size_t k : {1U, 2U, 3U, 4U, 5U}) {
    const QPoint at = w.place(k);
    QTest::mouseClick(w.picture(), Qt::LeftButton, {}, at + (w.place(k == 5 ? 4 : k + 1) - at) / 4);
    EXPECT_EQ(w.session().selection.primo(), static_cast<std::int32_t>(k));
    QTest::mouseClick(w.picture(), Qt::LeftButton, {}, at);
    QTest::mouseClick(w.picture(), Qt::LeftButton, {}, at);
  }
}

TEST(Aim, FollowsThePictureUnderAPointerAtRest) {
  Window w;
  w.readPlan();
  const QPoint at = w.place(1);
  w.point(at);
  EXPECT_EQ(w.picture()->cursor().shape(), Qt::PointingHandCursor);
  w.key("F2");
  QCoreApplication::processEvents();
  EXPECT_EQ(w.picture()->cursor().shape(), Qt::CrossCursor) << "the electrodes are hidden";
  EXPECT_EQ(Marked(w, at), 0);
  w.key("F2");
  QCoreApplication::processEvents();
  EXPECT_GT(Marked(w, at), 0);
}

// From above each depth point lies under its measurement: equally near, the depth point wins.
TEST(Aim, PrefersADepthPointThatLiesOnTop) {
  Window w;
  w.readPlan();
  const double scale = w.picture()->devicePixelRatioF();
  const auto kind = [&](QPoint at) {
    return w.session().mouse.bersaglio(static_cast<int>(at.x() * scale), static_cast<int>(at.y() * scale)).kind;
  };
  const QPoint at = w.place(3);
  EXPECT_EQ(kind(at), TargetKind::Measurement);
  w.key("F4");
  EXPECT_EQ(kind(at), TargetKind::Depth);
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, at);
  w.doubleClick(at);
  ASSERT_EQ(w.dialogs.messages.size(), 1U);
  EXPECT_EQ(w.dialogs.messages[0].prompt, "Correct Depth Value?");
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0);
}

TEST(ToolTips, NeverOpenWhileAButtonIsHeld) {
  Window w;
  w.readPlan();
  const QPoint at = w.place(3);
  const auto tip = [&] {
    QHelpEvent help(QEvent::ToolTip, at, w.picture()->mapToGlobal(at));
    QApplication::sendEvent(w.picture(), &help);
    bool open = false;
    for (const QWidget* top : QApplication::topLevelWidgets()) {
      open = open || (top->objectName() == "qtooltip_label" && top->isVisible());
    }
    return open;
  };
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
    EXPECT_TRUE(tip());
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == "qtooltip_label") top->hide();
    }
    QTest::mousePress(w.picture(), button, {}, at);
    EXPECT_FALSE(tip());
    QTest::mouseRelease(w.picture(), button, Qt::ShiftModifier, at);
  }
}

TEST(Pictures, AreSavedAndCopiedWithoutTheMarksOfThePointer) {
  Window w;
  w.readPlan();
  w.point(w.place(3));
  EXPECT_GT(Marked(w, w.place(3)), 0);
  const QImage seen = w.picture()->picture().copy();
  w.press("SaveCmd");
  EXPECT_EQ(QImage(QString::fromStdString((w.folder / "img0.bmp").string())).convertToFormat(QImage::Format_RGB32),
            seen);
  w.picture()->setFocus();
  QTest::keySequence(w.picture(), QKeySequence::Copy);
  const QImage copied = QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
  EXPECT_TRUE(OnlyExplains(copied, seen));
  w.press("RightPhicmd");
  EXPECT_NE(w.picture()->picture(), seen);
  EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), copied) << "it stays";
  auto* box = w.get<QLineEdit>("Thetatxt");
  box->setFocus();
  box->selectAll();
  QTest::keySequence(box, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), box->text()) << "a box copies its own text";
}

TEST(Pictures, AreSavedUnderANameOfTheUsersChoice) {
  Window w;
  w.readPlan();
  std::filesystem::create_directory(w.folder / "pictures");
  const std::string first = (w.folder / "pictures" / "first").string(), second = (w.folder / "second.bmp").string();
  const std::string original =
      w.folder.write("track.bmp", "15/06/2026 06:00:00 1 4524.5 900.5 3\r\n15/06/2026 06:00:09 1 4524.6 900.6 4\r\n")
          .string();
  w.window.leggiTraccia(QString::fromStdString(original));
  w.key("F3");
  const std::string wrong = (w.folder / "plan.jpg").string();
  const auto file = [&](const char* name) { return QImage(QString::fromStdString((w.folder / name).string())); };
  const QImage seen = w.picture()->picture().copy();
  const auto save = [&](std::vector<test::Reply> replies) {
    Hand hand(std::move(replies));
    w.choose("SavePictureAs");
    return hand.texts.empty() ? std::string() : hand.texts[0];
  };
  EXPECT_EQ(save({{By::Escape}}), "plan.png") << "the name of the survey's first file";
  EXPECT_EQ(w.session().exporter.outputs().size(), 0U);
  save({{By::Ok, first.c_str()}});
  EXPECT_TRUE(OnlyExplains(file("pictures/first.png").convertToFormat(QImage::Format_RGB32), seen));
  EXPECT_EQ(w.session().exporter.outputs().size(), 1U);
  save({{By::Ok, "again.png"}});
  EXPECT_FALSE(file("pictures/again.png").isNull()) << "the folder used last";
  save({{By::Ok, second.c_str()}});
  EXPECT_EQ(test::Slurp(second).substr(0, 2), "BM");
  w.press("RightPhicmd");
  save({{By::Ok, second.c_str()}, {By::Cancel}, {By::Escape}});
  EXPECT_TRUE(OnlyExplains(file("second.bmp").convertToFormat(QImage::Format_RGB32), seen)) << "not replaced";
  save({{By::Ok, second.c_str()}, {By::Ok}});
  EXPECT_FALSE(OnlyExplains(file("second.bmp").convertToFormat(QImage::Format_RGB32), seen)) << "asked and replaced";
  const std::string bytes = test::Slurp(original);
  EXPECT_FALSE(w.session().findings().anyFault());
  for (const std::string& name : {original, wrong}) {
    const std::size_t before = w.session().findings().entries().size();
    std::filesystem::exists(name) ? save({{By::Ok, name.c_str()}, {By::Ok}}) : save({{By::Ok, name.c_str()}});
    EXPECT_EQ(w.session().findings().entries().size(), before + 1) << name;
  }
  EXPECT_EQ(test::Slurp(original), bytes);
  EXPECT_FALSE(std::filesystem::exists(wrong));
}

}  // namespace
}  // namespace corvan

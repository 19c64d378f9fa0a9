// Icons, the close mark of panels and the about form, as they are seen on light and on dark ground.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSet>
#include <QStyleOptionGroupBox>
#include <QTest>
#include <QVBoxLayout>

#include "app/AboutBox.h"
#include "app/Frame.h"
#include "app/Icons.h"
#include "Contrast.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

/// The lowest contrast to a ground among the pixels that are fully painted, or 0 without any.
double Seen(const QImage& image, const QColor& ground) {
  double lowest = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      if (pixel.alpha() < 250) continue;
      const double contrast = test::Contrast(pixel, ground);
      if (lowest == 0 || contrast < lowest) lowest = contrast;
    }
  }
  return lowest;
}

TEST(Icons, AreSeenOnBothGroundsAtBothDensities) {
  const char* const names[] = {"open", "read",    "track", "link",    "section",       "save",
                               "map",  "oblique", "frame", "chevron", "chevron_right", "close"};
  QSet<QByteArray> different;
  for (const char* name : names) {
    const QIcon icon = Icona(name);
    ASSERT_FALSE(icon.isNull()) << name;
    for (const bool dark : {false, true}) {
      const test::Ground ground(dark);
      for (const double ratio : {1.0, 2.0}) {
        const QImage image = icon.pixmap(QSize(24, 24), ratio).toImage().convertToFormat(QImage::Format_ARGB32);
        EXPECT_EQ(image.width(), 24 * ratio) << name;
        EXPECT_EQ(image.devicePixelRatio(), ratio) << name;
        EXPECT_GE(Seen(image, QColor(dark ? 0x2b2b2b : 0xf0f0f0)), 3) << name << dark;
        different.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
      }
    }
    EXPECT_TRUE(QDir(":/app/icons/light").exists(QString(name) + "@2x.png")) << "dense screens need one of their own";
  }
  EXPECT_EQ(different.size(), 12 * 4) << "each its own, on each ground";
  EXPECT_TRUE(Icona("nothing").isNull());
}

/// A panel with a box in it, that counts how often it was closed.
struct Panel : Frame {
  using Frame::rendiChiudibile;
  explicit Panel(Session& session) : Frame(session, "FrameTest", "A panel with a title", [] {}) {
    (new QVBoxLayout(this))->addWidget(box = new QLineEdit);
  }
  void mostra() override {}
  void chiudi() override { ++closed; }
  QLineEdit* box;
  int closed = 0;
};

TEST(ClosableFrame, ClosesByItsMarkAndByEscapeInside) {
  test::ScriptedAnswers answers;
  Session session(answers, [] { return DateTime{}; });
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* panel = new Panel(session);
  auto* outside = new QLineEdit;
  layout->addWidget(panel);
  layout->addWidget(outside);
  window.show();
  QTest::keyClick(panel->box, Qt::Key_Escape);
  EXPECT_EQ(panel->closed, 0) << "not one that may be closed";
  EXPECT_EQ(window.findChild<QToolButton*>("FrameTest_Close"), nullptr);
  panel->rendiChiudibile();
  panel->rendiChiudibile();
  QCoreApplication::processEvents();
  const auto marks = window.findChildren<QToolButton*>("FrameTest_Close");
  ASSERT_EQ(marks.size(), 1);
  EXPECT_EQ(marks[0]->toolTip(), "Close (Esc)");
  EXPECT_TRUE(marks[0]->isVisibleTo(panel));
  QTest::mouseClick(marks[0], Qt::LeftButton);
  EXPECT_EQ(panel->closed, 1);
  QTest::keyClick(panel->box, Qt::Key_Escape);
  EXPECT_EQ(panel->closed, 2);
  QTest::keyClick(panel->box, Qt::Key_A);
  QTest::keyClick(outside, Qt::Key_Escape);
  EXPECT_EQ(panel->closed, 2);
}

TEST(ClosableFrame, ShowsItsMarkBesideTheTitleAndAboveTheControls) {
  test::ScriptedAnswers answers;
  Session session(answers, [] { return DateTime{}; });
  Panel panel(session);
  panel.rendiChiudibile();
  for (const int points : {9, 16}) {
    QFont font = panel.font();
    font.setPointSize(points);
    panel.setFont(font);
    panel.resize(panel.minimumSizeHint().expandedTo({QFontMetrics(font).horizontalAdvance(panel.title()) + 48, 0}));
    panel.show();
    QCoreApplication::processEvents();
    const QRect mark = panel.findChild<QToolButton*>("FrameTest_Close")->geometry();
    EXPECT_TRUE(panel.rect().contains(mark)) << points;
    EXPECT_GE(mark.width(), 16);
    EXPECT_EQ(mark.right(), panel.rect().right());
    EXPECT_FALSE(mark.intersects(panel.box->geometry())) << points;
    QStyleOptionGroupBox option;
    option.initFrom(&panel);
    option.text = panel.title();
    option.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxFrame;
    const QRect title = panel.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &panel);
    EXPECT_FALSE(mark.intersects(title)) << points;
  }
  for (const bool dark : {false, true}) {
    const test::Ground ground(dark);
    QCoreApplication::processEvents();
    auto* mark = panel.findChild<QToolButton*>("FrameTest_Close");
    const QImage seen = mark->grab().toImage();
    double best = 1;
    for (int i = 0; i < seen.width(); ++i) {
      best = std::max(best, test::Contrast(seen.pixelColor(i, seen.height() / 2), panel.palette().window().color()));
    }
    EXPECT_GE(best, 3) << dark;
  }
}

TEST(AboutBox, TellsOfTheMachineAndCopiesIt) {
  AboutBox about(nullptr);
  about.show();
  auto* figures = about.findChild<QPlainTextEdit*>("AboutFigures");
  const QString told = figures->toPlainText();
  const QString wanted[] = {"Corvan: " CORVAN_VERSION,
                            "Compiler: ",
                            QString("Qt: ") + qVersion(),
                            QSysInfo::prettyProductName(),
                            QSysInfo::currentCpuArchitecture(),
                            "Processors: ",
                            "Screen: 800 x 800 points, device pixel ratio "};
  for (const QString& figure : wanted) EXPECT_TRUE(told.contains(figure)) << figure.toStdString() << told.toStdString();
  QTest::keyClicks(figures, "x");
  EXPECT_EQ(figures->toPlainText(), told) << "not to be changed";
  QTest::keyClick(figures, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(figures->textCursor().selectedText().size(), told.size()) << "but to be selected";
  QApplication::clipboard()->clear();
  QTest::mouseClick(about.findChild<QPushButton*>("AboutCopy"), Qt::LeftButton);
  EXPECT_EQ(QApplication::clipboard()->text(), told);
  EXPECT_TRUE(about.isVisible());
  QTest::keyClick(&about, Qt::Key_Return);
  EXPECT_FALSE(about.isVisible()) << "OK is the button of Enter";
}

}  // namespace
}  // namespace corvan

// The bar of long work, with its real window.
#include <QProgressDialog>
#include <QTimer>

#include "app/WindowDialogs.h"
#include "Window.h"

namespace corvan {
namespace {

const QProgressDialog* Bar(const QWidget& window) { return window.findChild<QProgressDialog*>("Progress"); }

TEST(Progress, ShowsABarThatGivesTheWorkUp) {
  test::ScriptedAnswers inner;
  QWidget window;
  window.show();
  WindowDialogs dialogs(inner, window, 0);
  EXPECT_TRUE(dialogs.Avanzamento({ProgressStep::Work::Reading, "line_2.bin", 1, 4, 0.5}));
  ASSERT_NE(Bar(window), nullptr);
  EXPECT_TRUE(Bar(window)->isVisible());
  EXPECT_EQ(Bar(window)->labelText().toStdString(), "Reading line_2.bin (2 of 4)");
  EXPECT_EQ(Bar(window)->value(), 375) << "one and a half of four";
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  EXPECT_TRUE(dialogs.Avanzamento({ProgressStep::Work::Writing, "out.kml", 3, 4, 0}));
  EXPECT_EQ(Bar(window)->labelText().toStdString(), "Writing out.kml (4 of 4)");
  auto* cancel = Bar(window)->findChild<QPushButton*>();
  QTimer::singleShot(0, cancel, [cancel] { QTest::mouseClick(cancel, Qt::LeftButton); });
  EXPECT_FALSE(dialogs.Avanzamento({ProgressStep::Work::Writing, "out.kml", 3, 4, 0}));
  EXPECT_TRUE(dialogs.Avanzamento({}));
  EXPECT_EQ(Bar(window), nullptr);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(Progress, OfShortWorkIsAWaitingCursorOnlyAndAQuestionIsNeverBehindIt) {
  test::ScriptedAnswers inner;
  QWidget window;
  {
    WindowDialogs dialogs(inner, window, 1'000'000);
    EXPECT_TRUE(dialogs.Avanzamento({ProgressStep::Work::Reading, "a.bin", 0, 1, 0}));
    EXPECT_EQ(Bar(window), nullptr);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    dialogs.MsgBox({Question::FewFixes});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(dialogs.Avanzamento({ProgressStep::Work::Reading, "a.bin", 0, 1, 0}));
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "nor when the window goes";
}

TEST(Progress, TakesTheWindowsInputWhileFilesAreRead) {
  test::Window w;
  w.readFirings(5);
  bool pressed = false;
  QTimer::singleShot(0, [&] {  // a key that comes while firings are read
    pressed = true;
    QTest::keyClick(&w.window, Qt::Key_F6);
  });
  const auto file = w.folder.write("long.bin", test::SyscalFile(test::Firings(9000, 10)));
  w.window.leggi({QString::fromStdString(file.string())});
  QCoreApplication::processEvents();
  EXPECT_TRUE(pressed);
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 9000);
}

}  // namespace
}  // namespace corvan

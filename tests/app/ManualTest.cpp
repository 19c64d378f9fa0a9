// The manual: its window, its headings, its pictures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QDesktopServices>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include "app/ManualWindow.h"
#include "Contrast.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

struct Manual {
  ManualWindow window;

  Manual() : window(nullptr) { open(); }
  explicit Manual(const std::filesystem::path& file) : window(nullptr, QString::fromStdString(file.string())) {
    open();
  }
  void open() {
    window.apri();
    QTest::qWait(80);  // the pictures are measured once the window rests
  }
  ManualText* text() const { return static_cast<ManualText*>(window.findChild<QTextBrowser*>("ManualText")); }
  QListWidget* headings() const { return window.findChild<QListWidget*>("ManualHeadings"); }
  QLineEdit* find() const { return window.findChild<QLineEdit*>("ManualFind"); }
  std::string told() const { return window.findChild<QLabel*>("ManualTold")->text().toStdString(); }
  std::string top() const { return text()->cursorForPosition(QPoint(30, 12)).block().text().toStdString(); }
  std::string selected() const { return text()->textCursor().selectedText().toStdString(); }
  int at() const { return text()->textCursor().selectionStart(); }
};

TEST(Manual, IsWholeAndJumpsToItsHeadings) {
  const Manual m;
  QFile file(CORVAN_SAMPLES "/../docs/manual.md");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  QStringList wanted;
  for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
    if (line.startsWith('#')) wanted << line.section(' ', 1);
  }
  QStringList shown;
  for (int row = 0; row < m.headings()->count(); ++row) shown << m.headings()->item(row)->text().trimmed();
  EXPECT_EQ(shown, wanted);
  ASSERT_GE(shown.size(), 4);
  QTest::mouseClick(m.headings()->viewport(), Qt::LeftButton, {},
                    m.headings()->visualItemRect(m.headings()->item(2)).center());
  EXPECT_EQ(m.top(), wanted[2].toStdString());
  m.text()->verticalScrollBar()->setValue(0);
  QTest::mouseClick(m.headings()->viewport(), Qt::LeftButton, {},
                    m.headings()->visualItemRect(m.headings()->item(2)).center());
  EXPECT_EQ(m.top(), wanted[2].toStdString()) << "the same again";
  QTest::keyClick(m.headings(), Qt::Key_Down);
  EXPECT_EQ(m.top(), wanted[3].toStdString());
}

TEST(Manual, ShowsEveryPictureAsWideAsTheWindowLets) {
  Manual m;
  for (const int width : {700, 1200, 2200}) {
    m.window.resize(width, 700);
    QTest::qWait(120);
    int pictures = 0;
    for (QTextBlock block = m.text()->document()->begin(); block.isValid(); block = block.next()) {
      for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextImageFormat format = piece.fragment().charFormat().toImageFormat();
        if (!format.isValid()) continue;
        ++pictures;
        const auto shown = m.text()->document()->resource(QTextDocument::ImageResource, format.name()).value<QImage>();
        const QImage made(":/manual/" + format.name());
        ASSERT_FALSE(made.isNull()) << format.name().toStdString();
        const double room = m.text()->viewport()->width() - 2 * m.text()->document()->documentMargin();
        EXPECT_NEAR(shown.deviceIndependentSize().width(), std::min<double>(made.width(), room), 1.5) << width;
        EXPECT_NEAR(shown.width() * made.height(), shown.height() * made.width(), made.width()) << "its shape";
      }
    }
    EXPECT_GE(pictures, 4);
    EXPECT_FALSE(m.text()->horizontalScrollBar()->isVisible()) << width;
  }
}

TEST(Manual, KeepsItsPlaceWhenItsWidthChanges) {
  Manual m;
  QTest::mouseClick(m.headings()->viewport(), Qt::LeftButton, {},
                    m.headings()->visualItemRect(m.headings()->item(3)).center());
  const std::string place = m.top();
  m.window.resize(800, 700);
  QTest::qWait(120);
  EXPECT_EQ(m.top(), place);
}

TEST(Manual, FindsOnwardsAndBackAndSaysWhenItBeginsAgain) {
  test::TempFolder folder;
  Manual m(folder.write("text.md", "# One\n\nThe cable and a CABLE.\n\n## Two\n\nNo more than a cable.\n"));
  QTest::keyClick(m.text(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), m.find());
  QTest::keyClicks(m.find(), "cable");
  EXPECT_EQ(m.selected(), "cable") << "while it is typed";
  const int first = m.at();
  std::vector<int> places;
  for (int k = 0; k < 3; ++k) {
    QTest::keyClick(m.find(), Qt::Key_Return);
    places.push_back(m.at());
  }
  EXPECT_EQ(m.selected(), "cable");
  EXPECT_GT(places[0], first);
  EXPECT_GT(places[1], places[0]);
  EXPECT_EQ(places[2], first);
  EXPECT_EQ(m.told(), "From the beginning again");
  QTest::keyClick(m.find(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(m.at(), places[1]);
  EXPECT_EQ(m.told(), "From the end again");
  QTest::keyClick(m.find(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(m.at(), places[0]);
  EXPECT_EQ(m.told(), "");
  QTest::keyClicks(m.find(), "x");
  EXPECT_EQ(m.told(), "Not found");
  EXPECT_EQ(m.at(), places[0]) << "stays where it was";
  QTest::keyClick(m.find(), Qt::Key_Escape);
  EXPECT_FALSE(m.window.isVisible());
  m.window.apri();
  EXPECT_TRUE(m.window.isVisible());
}

TEST(Manual, FollowsLinksInsideAndHandsOthersToTheDesktop) {
  test::TempFolder folder;
  std::string text = "# One\n\n[inside](#another-gps-the-track) [out](https://example.org/x) [nowhere](other.md)\n";
  for (int k = 0; k < 200; ++k) text += "\nline\n";
  Manual m(folder.write("text.md", text + "\n## Another GPS: the track\n\n" + text));
  QTextBrowser desktop;  // its slot takes an address
  QDesktopServices::setUrlHandler("https", &desktop, "setSource");
  const auto click = [&](const char* word) {
    m.text()->verticalScrollBar()->setValue(0);
    QTextCursor cursor = m.text()->document()->find(QLatin1String(word));
    cursor.setPosition(cursor.selectionStart() + 2);
    QTest::mouseClick(m.text()->viewport(), Qt::LeftButton, {}, m.text()->cursorRect(cursor).center());
  };
  click("inside");
  EXPECT_EQ(m.top(), "Another GPS: the track");
  click("out");
  EXPECT_EQ(desktop.source(), QUrl("https://example.org/x"));
  EXPECT_EQ(m.told(), "");
  click("nowhere");
  EXPECT_EQ(m.told(), "other.md is not in this manual");
  QDesktopServices::unsetUrlHandler("https");
}

TEST(Manual, CanBeReadOnLightAndOnDarkGround) {
  test::TempFolder folder;
  Manual m(folder.write("text.md", "# One\n\n[link](https://example.org) `code`\n\n| a | b |\n|---|---|\n| c | d |\n"));
  for (const bool dark : {true, false}) {
    const test::Ground ground(dark);
    QTest::qWait(20);
    const QTextCursor link = m.text()->document()->find("link");
    const QColor base = m.text()->palette().color(QPalette::Base);
    EXPECT_EQ(base.lightness() < 128, dark);
    EXPECT_GE(test::Contrast(link.charFormat().foreground().color(), base), 4.5) << dark;
    const QTextCursor code = m.text()->document()->find("code");
    EXPECT_EQ(code.charFormat().background().style(), Qt::NoBrush) << "else its text might vanish";
    EXPECT_GE(test::Contrast(m.text()->palette().color(QPalette::Text), base), 4.5);
  }
}

TEST(Manual, SaysWhenItCannotBeRead) {
  const Manual m(std::filesystem::path("/nowhere/manual.md"));
  EXPECT_TRUE(m.text()->toPlainText().contains("cannot be read")) << m.text()->toPlainText().toStdString();
}

}  // namespace
}  // namespace corvan

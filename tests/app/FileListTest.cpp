// The list of files, followed as a user sees it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTest>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include "app/FileList.h"
#include "app/NumericOrder.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

struct List {
  test::TempFolder folder;
  int readings = 0;
  FileList list{[this] { ++readings; }};

  List() = default;
  explicit List(const QStringList& files) {
    for (const QString& name : files) add(name);
    show();
  }
  void add(const QString& name) const { folder.write(name.toStdString(), "x"); }
  void show() {
    list.resize(240, 300);
    list.show();
    list.apri(path());
    QCoreApplication::processEvents();
  }
  QString path() const { return QString::fromStdString(folder.path().string()); }
  QString shown() const {
    QStringList names;
    for (int row = 0; row < list.count(); ++row) names << list.item(row)->text();
    return names.join(' ');
  }
  QString chosen() const {
    QStringList names;
    for (const QString& file : list.scelti()) {
      EXPECT_TRUE(file.startsWith(path() + '/')) << file.toStdString();
      names << file.mid(path().size() + 1);
    }
    return names.join(' ');
  }
  bool becomes(const QString& names) const {
    return QTest::qWaitFor([&] { return shown() == names; }, 5000);
  }
  QPoint at(int row) const { return list.visualItemRect(list.item(row)).center(); }
  void click(int row, Qt::KeyboardModifiers keys = {}) const {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, at(row));
  }
  /// Takes a row with the mouse, and lets it go above another one; behind the last for their number.
  void drag(int row, int above) const {
    carry(row, above);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, target(above));
  }
  void carry(int row, int above) const {
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, at(row));
    const QPoint start = at(row) + QPoint(2 * QApplication::startDragDistance(), 0);
    for (const QPoint to : {start, 2 * start - at(row), target(above)}) {
      QMouseEvent move(QEvent::MouseMove, to, list.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
      QApplication::sendEvent(list.viewport(), &move);
    }
  }
  QPoint target(int above) const {
    return above < list.count() ? list.visualItemRect(list.item(above)).topLeft() + QPoint(30, 1)
                                : list.visualItemRect(list.item(above - 1)).bottomLeft() + QPoint(30, 10);
  }
};

struct Pair {
  const char *first, *second;
};

TEST(NumericOrder, CountsAsPeopleDo) {
  const Pair pairs[] = {{"line_2.bin", "line_10.bin"},
                        {"line_9", "line_10"},
                        {"Line_2", "line_10"},    // letters without case
                        {"a", "B"},               // not by their codes
                        {"line_002", "line_10"},  // leading zeros do not count
                        {"line_09", "line_10"},
                        {"line_01", "line_1"},  // a tie: plainly
                        {"LINE_1", "line_1"},
                        {"line_1", "line_01_b"},  // equal numbers, then the end first
                        {"line_0", "line_00a"},
                        {"a1b2", "a1b10"},  // every run of digits
                        {"a2b9", "a10b1"},
                        {"18446744073709551616", "18446744073709551617"},  // numbers of any length
                        {"99999999999999999999", "100000000000000000000"},
                        {"line", "line1"},
                        {"1.bin", "a.bin"},
                        {"line-1", "line1"}};  // "-" stands before digits
  for (const auto& [first, second] : pairs) {
    EXPECT_TRUE(PrimaPerNumero(first, second)) << first << " before " << second;
    EXPECT_FALSE(PrimaPerNumero(second, first)) << second << " not before " << first;
    EXPECT_FALSE(PrimaPerNumero(first, first));
  }
}

TEST(FileList, FollowsTheFolderInNumericOrder) {
  List l({"line_10.bin", "line_2.bin", "Line_1.bin", ".hidden"});
  std::filesystem::create_directory(l.folder / "line_3.bin");  // a folder is no file
  EXPECT_EQ(l.shown().toStdString(), "Line_1.bin line_2.bin line_10.bin");
  l.click(1);
  l.click(2, Qt::ControlModifier);
  l.add("line_4.bin");
  l.add("line_0.bin");
  EXPECT_TRUE(l.becomes("line_0.bin Line_1.bin line_2.bin line_4.bin line_10.bin")) << l.shown().toStdString();
  EXPECT_EQ(l.chosen().toStdString(), "line_2.bin line_10.bin") << "the new ones are not among them";
  std::filesystem::remove(l.folder / "line_2.bin");
  EXPECT_TRUE(l.becomes("line_0.bin Line_1.bin line_4.bin line_10.bin")) << l.shown().toStdString();
  EXPECT_EQ(l.chosen().toStdString(), "line_10.bin");
  l.list.apri(l.path());
  EXPECT_EQ(l.chosen().toStdString(), "line_10.bin") << "opened anew";
  l.list.apri(QString::fromStdString((l.folder / "line_3.bin").string()));
  EXPECT_EQ(l.shown().toStdString(), "");
}

TEST(FileList, GathersManyChangesAndIsNotPutOffByThem) {
  List l;
  l.show();
  int inserts = 0;
  QObject::connect(l.list.model(), &QAbstractItemModel::rowsInserted, [&] { ++inserts; });
  for (int k = 0; k < 30; ++k) {
    l.add(QStringLiteral("f%1").arg(k));
    QTest::qWait(20);
  }
  EXPECT_GT(inserts, 1) << "shown while files still come";
  QTest::qWait(400);
  EXPECT_EQ(l.list.count(), 30);
}

TEST(FileList, IsReadInTheOrderDragged) {
  List l({"a1", "a2", "a3", "a4"});
  l.drag(3, 1);
  EXPECT_EQ(l.shown().toStdString(), "a1 a4 a2 a3");
  l.drag(0, 4);
  EXPECT_EQ(l.shown().toStdString(), "a4 a2 a3 a1");
  l.click(1);
  l.click(0, Qt::ControlModifier);
  l.click(3, Qt::ControlModifier);
  EXPECT_EQ(l.chosen().toStdString(), "a4 a2 a1") << "as shown, not as clicked";
  l.add("a2b");
  l.add("a0");
  l.add("a9");
  EXPECT_TRUE(l.becomes("a0 a4 a9 a2 a2b a3 a1")) << "each behind the one it follows: " << l.shown().toStdString();
  EXPECT_EQ(l.chosen().toStdString(), "a4 a2 a1");
  l.drag(2, 7);
  l.click(4);
  l.click(6, Qt::ControlModifier);
  EXPECT_EQ(l.shown().toStdString(), "a0 a4 a2 a2b a3 a1 a9");
  l.drag(4, 1);
  EXPECT_EQ(l.shown().toStdString(), "a0 a3 a9 a4 a2 a2b a1") << "both of them";
  EXPECT_EQ(l.chosen().toStdString(), "a3 a9");
  QTest::keyClick(&l.list, Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(l.shown().toStdString(), "a3 a9 a0 a4 a2 a2b a1");
  for (int k = 0; k < 2; ++k) QTest::keyClick(&l.list, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(l.shown().toStdString(), "a0 a4 a3 a9 a2 a2b a1");
  l.carry(2, 0);
  l.add("a5");
  QTest::qWait(300);
  EXPECT_EQ(l.list.count(), 7) << "nothing moves under the hand";
  QTest::keyClick(&l.list, Qt::Key_Escape);
  QTest::mouseRelease(l.list.viewport(), Qt::LeftButton, {}, l.at(0));
  EXPECT_TRUE(l.becomes("a0 a4 a5 a3 a9 a2 a2b a1")) << "given up: " << l.shown().toStdString();
}

TEST(FileList, ReadsOnEnterAndDoubleClickWhatIsSelected) {
  List l({"a1", "a2"});
  QTest::keyClick(&l.list, Qt::Key_Return);
  EXPECT_EQ(l.readings, 1) << "the row that the keys stand on";
  l.click(1);
  QTest::keyClick(&l.list, Qt::Key_Return);
  QTest::keyClick(&l.list, Qt::Key_Enter);
  EXPECT_EQ(l.readings, 3);
  l.click(0);
  QTest::mouseDClick(l.list.viewport(), Qt::LeftButton, {}, l.at(0));
  EXPECT_EQ(l.readings, 4);
  QTest::mouseClick(l.list.viewport(), Qt::LeftButton, {}, QPoint(60, 250));
  QTest::mouseDClick(l.list.viewport(), Qt::LeftButton, {}, QPoint(60, 250));
  EXPECT_EQ(l.readings, 4) << "below the last row";
}

TEST(FileList, CutsLongNamesInTheMiddleAndTellsThemWhole) {
  List l;
  const std::string name = "a_" + std::string(120, 'm') + "<b>_2026.bin";
  std::filesystem::last_write_time(l.folder.write(name, std::string(2048, 'x')),
                                   std::filesystem::file_time_type::clock::now());
  l.show();
  EXPECT_EQ(l.list.item(0)->text().toStdString(), name);
  EXPECT_EQ(l.list.textElideMode(), Qt::ElideMiddle);
  EXPECT_LE(l.list.visualItemRect(l.list.item(0)).width(), l.list.viewport()->width()) << "else nothing is cut";
  const QString tip = l.list.item(0)->toolTip();
  EXPECT_TRUE(tip.contains(QString::fromStdString(name).toHtmlEscaped())) << tip.toStdString();
  EXPECT_TRUE(tip.contains("2048")) << tip.toStdString();
  EXPECT_TRUE(tip.contains(QDate::currentDate().toString("yyyy-MM-dd"))) << tip.toStdString();
  l.folder.write(name, "x");
  EXPECT_TRUE(l.list.item(0)->toolTip().contains("(1\u00A0byte)")) << "as it is now";
}

/// The one row of a list that says why there are no others.
void ExpectFault(const List& l, const char* reason) {
  ASSERT_EQ(l.list.count(), 1);
  EXPECT_EQ(l.shown().toStdString(), std::string("This folder cannot be listed: ") + reason);
  EXPECT_EQ(l.list.item(0)->flags(), Qt::NoItemFlags);
  EXPECT_EQ(l.chosen().toStdString(), "");
}

TEST(FileList, SaysWhyAFolderCannotBeListedAndComesBackWithIt) {
  List l({"a1", "a2", "a3"});
  l.drag(2, 0);
  l.click(1);
  const std::filesystem::path away = l.folder.path().string() + "_away";
  std::filesystem::rename(l.folder.path(), away);
  EXPECT_TRUE(l.becomes("This folder cannot be listed: No such file or directory"));
  ExpectFault(l, "No such file or directory");
  QTest::mouseDClick(l.list.viewport(), Qt::LeftButton, {}, l.at(0));
  EXPECT_EQ(l.readings, 0);
  EXPECT_GT(l.list.visualItemRect(l.list.item(0)).height(), l.list.fontMetrics().height() * 3 / 2) << "wrapped";
  std::filesystem::rename(away, l.folder.path());
  EXPECT_TRUE(l.becomes("a3 a1 a2")) << l.shown().toStdString();
  EXPECT_EQ(l.chosen().toStdString(), "a1");
  l.add("a4");
  EXPECT_TRUE(l.becomes("a3 a4 a1 a2")) << "followed again: " << l.shown().toStdString();
  l.list.apri(QString::fromStdString(l.folder.write("a5", "").string()));
  ExpectFault(l, "Not a directory");
}

#ifdef Q_OS_UNIX
TEST(FileList, SaysThatAFolderMayNotBeRead) {
  List l({"a1"});
  std::filesystem::permissions(l.folder.path(), std::filesystem::perms::none);
  const uid_t user = geteuid();
  const bool dropped = user != 0 || seteuid(65534) == 0;  // nothing is forbidden to the superuser
  l.list.aggiorna();
  EXPECT_EQ(seteuid(user), 0);
  std::filesystem::permissions(l.folder.path(), std::filesystem::perms::owner_all);
  ASSERT_TRUE(dropped);
  ExpectFault(l, "Permission denied");
  EXPECT_TRUE(l.becomes("a1")) << "tried again";
}
#endif

TEST(FileList, LeavesFilesThatAreDroppedToTheWindow) {
  struct Window : QWidget {
    int entered = 0;
    void dragEnterEvent(QDragEnterEvent* event) override {
      ++entered;
      event->accept();
    }
  } window;
  window.setAcceptDrops(true);
  List l({"a1"});
  l.list.setParent(&window);
  window.show();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(l.path() + "/a1")});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(l.list.viewport(), &enter);
  EXPECT_EQ(window.entered, 1);
  l.list.setParent(nullptr);
}

}  // namespace
}  // namespace corvan

// The table of the survey: what it shows, its order, and what is chosen in it.
#include <cmath>
#include <limits>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QTableView>
#include <QTimer>

#include "Window.h"

namespace corvan {
namespace {

using test::Window;

struct Table : Window {
  Table() { window.resize(1100, 700); }

  QTableView* table() const { return get<QTableView>("TablePage"); }
  void open() {
    if (!table()->isVisible()) key("F11");
    QCoreApplication::processEvents();
  }
  int column(const char* title) const {
    for (int k = 0; k < table()->model()->columnCount(); ++k) {
      if (table()->model()->headerData(k, Qt::Horizontal).toString() == QString::fromUtf8(title)) return k;
    }
    ADD_FAILURE() << title;
    return 0;
  }
  QString at(int row, int column, int role = Qt::DisplayRole) const {
    return table()->model()->index(row, column).data(role).toString();
  }
  std::string at(int row, const char* title, int role = Qt::DisplayRole) const {
    return at(row, column(title), role).toStdString();
  }
  /// The numbers of the measurements from the uppermost row down.
  std::string order() const {
    QStringList numbers;
    for (int row = 0; row < table()->model()->rowCount(); ++row) numbers << at(row, 0);
    return numbers.join(' ').toStdString();
  }
  void clickHeader(const char* title) const {
    QHeaderView* header = table()->horizontalHeader();
    const int section = column(title);
    table()->scrollTo(table()->model()->index(0, section));
    QCoreApplication::processEvents();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(section) + header->sectionSize(section) / 2, 5});
  }
  QPoint place(int row) const { return table()->visualRect(table()->model()->index(row, 0)).center(); }
  void click(int row, Qt::KeyboardModifiers keys = {}) const {
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, keys, place(row));
  }
  void doubleClick(int row) const {
    click(row);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, place(row));
    QTest::mouseRelease(table()->viewport(), Qt::LeftButton, {}, place(row));
    QTest::qWait(1);
  }
  void press(int keyCode, Qt::KeyboardModifiers keys = {}) const { QTest::keyClick(table(), Qt::Key(keyCode), keys); }
  std::string picks() {
    const Selection& s = session().selection;
    const auto text = [](const std::optional<std::int32_t>& n) { return n ? std::to_string(*n) : std::string("-"); };
    return text(s.primo()) + " " + text(s.secondo());
  }
  bool marked(int row) const {
    const QModelIndex index = table()->model()->index(row, 5);
    const bool ground = index.data(Qt::BackgroundRole).isValid();
    EXPECT_EQ(ground, index.data(Qt::FontRole).value<QFont>().bold());
    return ground;
  }
  /// Firings of one channel with these depths, and potentials where there are any.
  void readDepths(const std::vector<float>& depths, const std::vector<float>& potentials = {}) {
    auto records = test::Firings(depths.size(), 1);
    for (std::size_t k = 0; k < records.size(); ++k) {
      records[k].depth = depths[k];
      if (!potentials.empty()) records[k].potential = potentials[k];
    }
    window.leggi({QString::fromStdString(folder.write("depths.bin", test::SyscalFile(records)).string())});
    QCoreApplication::processEvents();
  }
  /// Every field against the .csv that is written now. @return the first that differs
  std::string against() {
    session().exporter.tabella((folder / "now").string());
    const QStringList lines = QString::fromStdString(test::Slurp(folder / "now.csv")).split('\n', Qt::SkipEmptyParts);
    if (lines.size() != table()->model()->rowCount() + 1) return "rows";
    const int time = column("time");
    for (int row = 0; row + 1 < lines.size(); ++row) {
      const QStringList fields = lines.at(at(row, 0).toInt()).split(',');
      for (int k = 0; k < fields.size(); ++k) {
        const QString shown = at(row, k, k == time ? Qt::ToolTipRole : Qt::DisplayRole);
        if (shown != fields.at(k)) return (QString::number(row) + ":" + QString::number(k) + " " + shown).toStdString();
      }
    }
    return "";
  }
};

TEST(Tables, ShowTheSurveyWithUnitsAsTheCsvWritesIt) {
  Table t;
  EXPECT_EQ(t.table()->model()->rowCount(), 0);
  t.readPlan();
  t.open();
  EXPECT_EQ(t.table()->model()->rowCount(), 5);
  EXPECT_EQ(t.table()->model()->columnCount(), 59);
  EXPECT_EQ(t.at(1, "time"), "2026-06-15 06:00:04");
  EXPECT_EQ(t.at(0, "time", Qt::ToolTipRole), "46188.25");
  EXPECT_EQ(t.at(2, "utm_x [m]"), "500004");
  EXPECT_EQ(t.at(4, "depth [m]"), "8");
  EXPECT_EQ(t.at(3, "rho1 [Ohm\u00B7m]"), "0.94248");
  EXPECT_EQ(t.at(3, "discarded"), "0");
  EXPECT_EQ(t.against(), "");
}

// As words 100 would stand before 9.
TEST(Tables, AreSortedAsNumbersByClicksOnTheHeader) {
  Table t;
  const float none = std::numeric_limits<float>::quiet_NaN();
  t.readDepths({9, 10, 100, 9, 2}, {10, none, -30, 20, 5});
  t.open();
  EXPECT_EQ(t.order(), "1 2 3 4 5");
  const std::pair<const char*, const char*> clicks[] = {
      {"depth [m]", "5 1 4 2 3"}, {"depth [m]", "3 2 1 4 5"}, {"depth [m]", "1 2 3 4 5"}, {"depth [m]", "5 1 4 2 3"},
      {"va1 [mV]", "3 5 1 4 2"},  {"va1 [mV]", "4 1 5 3 2"},  {"n", "1 2 3 4 5"},         {"n", "5 4 3 2 1"}};
  for (const auto& [title, order] : clicks) {
    t.clickHeader(title);
    EXPECT_EQ(t.order(), order) << title;
  }
}

TEST(Tables, PutEmptyFieldsLastInBothDirections) {
  Table t;
  auto records = test::Firings(2, 1);
  const auto old = t.folder.write("old.bin", test::SyscalFile(records, 1, 280));
  for (auto& r : records) r.time += 1;
  records[1].time += 1;
  const auto timed = t.folder.write("new.bin", test::SyscalFile(records));
  t.window.leggi({QString::fromStdString(old.string()), QString::fromStdString(timed.string())});
  t.open();
  EXPECT_EQ(t.at(0, "time"), "");
  for (const char* order : {"3 4 1 2", "4 3 1 2", "1 2 3 4"}) {
    t.clickHeader("time");
    EXPECT_EQ(t.order(), order);
  }
}

TEST(Tables, KeepWhatIsSelectedWithItsMeasurement) {
  Table t;
  t.readDepths({9, 10, 100, 9, 2});
  t.open();
  t.click(1);
  t.click(4, Qt::ControlModifier);
  t.clickHeader("depth [m]");
  EXPECT_EQ(t.order(), "5 1 4 2 3");
  std::string chosen;
  for (const QModelIndex& index : t.table()->selectionModel()->selectedRows())
    chosen += t.at(index.row(), 0).toStdString();
  std::sort(chosen.begin(), chosen.end());
  EXPECT_EQ(chosen, "25");
  EXPECT_EQ(t.at(t.table()->currentIndex().row(), 0), "5");
}

TEST(Tables, PickAsAClickInThePictureDoes) {
  Table t;
  t.readDepths({9, 10, 100, 9, 2});
  t.open();
  t.clickHeader("depth [m]");
  t.doubleClick(0);
  EXPECT_EQ(t.picks(), "5 -");
  t.press(Qt::Key_Down);
  t.press(Qt::Key_Down);
  t.press(Qt::Key_Return);
  EXPECT_EQ(t.picks(), "5 4");
  EXPECT_EQ(t.text("E1Txt") + " " + t.text("E2txt"), "5 4");
  EXPECT_TRUE(t.marked(0) && t.marked(2) && !t.marked(1) && !t.marked(3) && !t.marked(4));
  t.press(Qt::Key_Enter);
  EXPECT_EQ(t.picks(), "- -") << "the third clears";
  EXPECT_FALSE(t.marked(0) || t.marked(2));
}

TEST(Tables, ShowWhatIsPickedElsewhereAlsoIfItWasHidden) {
  Table t;
  t.readFirings(600);
  t.open();
  const auto seen = [&t](int row) {
    return t.table()->viewport()->rect().contains(t.table()->visualRect(t.table()->model()->index(row, 0)).center());
  };
  EXPECT_FALSE(seen(499));
  t.key("Ctrl+1");
  t.enter("E1Txt", "500");
  EXPECT_TRUE(seen(499) && t.marked(499));
  t.key("F11");
  EXPECT_FALSE(t.table()->isVisible());
  t.enter("E2txt", "20");
  t.key("F11");
  EXPECT_TRUE(seen(19) && t.marked(19));
  t.clickHeader("n");
  t.clickHeader("n");
  t.enter("E2txt", "100");
  EXPECT_TRUE(seen(500) && t.marked(500)) << "in the order shown";
  t.press(Qt::Key_Home, Qt::ControlModifier);
  QCoreApplication::processEvents();
  t.window.repaint();
  EXPECT_TRUE(seen(0)) << "a table that is scrolled away stays there";
}

TEST(Tables, ChooseASectionFromTheirRowsByKeysAlone) {
  Table t;
  t.readDepths({9, 10, 100, 9, 2});
  t.key("F11");
  EXPECT_EQ(QApplication::focusWidget(), t.table());
  EXPECT_TRUE(t.get<QAction>("ShowTable")->isChecked());
  t.press(Qt::Key_Down);
  t.press(Qt::Key_Down, Qt::ShiftModifier);
  t.press(Qt::Key_Down, Qt::ShiftModifier);
  t.press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(t.picks(), "2 4");
  t.clickHeader("depth [m]");  // 5 1 4 2 3
  t.press(Qt::Key_Home, Qt::ControlModifier);
  t.press(Qt::Key_Down, Qt::ShiftModifier);
  t.press(Qt::Key_Down, Qt::ShiftModifier);
  t.press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(t.picks(), "1 5") << "from the lowest to the highest number";
  t.press(Qt::Key_A, Qt::ControlModifier);
  t.press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(t.picks(), "1 5");
  EXPECT_TRUE(t.session().findings().ultimi().empty());
  t.key("F11");
  EXPECT_EQ(QApplication::focusWidget(), t.picture());
  EXPECT_FALSE(t.get<QAction>("ShowTable")->isChecked());
  EXPECT_TRUE(t.picture()->isVisible());
}

TEST(Tables, CopyTheirRowsInTheOrderShown) {
  Table t;
  t.readDepths({9, 10, 100.25F, 9, 2});
  t.open();
  t.clickHeader("depth [m]");
  t.clickHeader("depth [m]");  // 3 2 1 4 5
  QGuiApplication::clipboard()->clear();
  t.press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "") << "no row";
  t.click(2);
  t.click(0, Qt::ControlModifier);
  t.press(Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 4);
  EXPECT_EQ(lines.at(3), "");
  EXPECT_EQ(lines.at(0).section('\t', 0, 5), "n\tfile\ttime\tlat\tlon\tutm_x [m]");
  EXPECT_EQ(lines.at(0).section('\t', 56, 58), "rho10 [Ohm\u00B7m]\tdiscarded\tinterpolated");
  EXPECT_EQ(lines.at(1).section('\t', 0, 2), "3\t1\t2026-06-15 06:00:00");
  EXPECT_EQ(lines.at(1).section('\t', 11, 11), "100.25");
  EXPECT_EQ(lines.at(2).section('\t', 0, 0), "1");
  for (int k = 0; k < 3; ++k) EXPECT_EQ(lines.at(k).count('\t'), 58);
}

TEST(Tables, HaveAMenuForHandsWithoutAMouse) {
  Table t;
  t.readDepths({9, 10, 100, 9, 2});
  t.open();
  t.click(1);
  t.table()->setCurrentIndex(t.table()->model()->index(1, t.column("depth [m]")));
  const auto choose = [&t](Qt::Key letter) {
    QTimer::singleShot(0, &t.window, [letter] {
      QWidget* menu = QApplication::activePopupWidget();
      ASSERT_NE(menu, nullptr);
      QTest::keyClick(menu, letter);
    });
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {20, 20}, t.table()->mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(t.table()->viewport(), &asked);
  };
  const std::pair<Qt::Key, const char*> letters[] = {
      {Qt::Key_D, "3 2 1 4 5"}, {Qt::Key_U, "5 1 4 2 3"}, {Qt::Key_O, "1 2 3 4 5"}};
  for (const auto& [letter, order] : letters) {
    choose(letter);
    EXPECT_EQ(t.order(), order);
  }
  choose(Qt::Key_P);
  EXPECT_EQ(t.picks(), "2 -");
  choose(Qt::Key_S);
  EXPECT_EQ(t.picks(), "2 2");
  QGuiApplication::clipboard()->clear();
  choose(Qt::Key_C);
  EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 2);
}

TEST(Tables, AreNeverStale) {
  Table t;
  t.open();
  t.readPlan();
  t.window.leggiTraccia(QString::fromStdString(t.folder.write("track.csv", test::Track).string()));
  const std::string twice = "C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0";
  for (const char* sorted : {"", "utm_y [m]"}) {
    if (*sorted != '\0') t.clickHeader(sorted);
    std::vector<std::pair<std::string, std::string>> states;
    const auto state = [&t] {
      std::string all;
      for (int row = 0; row < 5; ++row) {
        for (const char* title : {"utm_x [m]", "lon", "depth [m]", "rho3 [Ohm\u00B7m]"}) all += t.at(row, title) + " ";
      }
      return std::pair(t.order(), all);
    };
    states.push_back(state());
    t.dialogs.answers = {
        {Question::UtmZone, {"31"}}, {Question::ClockOffset, {"0"}}, {Question::CableConfiguration, {twice}}};
    for (const char* item : {"CableConf", "LinkToGPST", "SetUtmZone"}) {
      t.choose(item);
      EXPECT_EQ(t.against(), "") << item;
      for (int row = 1; row < 5 && *sorted != '\0'; ++row) {
        EXPECT_LE(std::stod(t.at(row - 1, sorted)), std::stod(t.at(row, sorted))) << item;
      }
      states.push_back(state());
      EXPECT_NE(states.back(), states[states.size() - 2]) << item;
    }
    while (states.size() > 1) {
      t.choose("Undo");
      states.pop_back();
      EXPECT_EQ(state(), states.back()) << "taken back";
      EXPECT_EQ(t.against(), "");
    }
  }
  t.readDepths({1, 2, 3, 4, 7, 6, 5});
  EXPECT_EQ(t.table()->model()->rowCount(), 7);
  EXPECT_EQ(t.against(), "");
  t.window.leggi({QString::fromStdString(t.folder.write("empty.txt", "nothing").string())});
  EXPECT_EQ(t.against(), "");
}

}  // namespace
}  // namespace corvan

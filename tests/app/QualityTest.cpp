// The panel "Quality", and readings excluded by mouse and keys.
#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>
#include <QTimer>

#include "FlatPage.h"

namespace corvan {
namespace {

using test::Flat;
using test::Window;

std::string Excluded(Window& w) {
  std::string text;
  const Survey& survey = w.session().survey.dati();
  for (std::size_t k = 1; k <= survey.Misure.size(); ++k) {
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if (HaLettura(survey.Misure(k), c) && !InUso(survey.Misure(k), c))
        text += std::to_string(k) + "." + std::to_string(c) + " ";
    }
  }
  return text;
}

std::string Label(Window& w) { return w.get<QLabel>("QualityLbl")->text().toStdString(); }

TEST(QualityPanel, SetsEachLimitFromTheKeyboard) {
  Window w;
  w.readPlan();
  w.key("Ctrl+Y");
  EXPECT_TRUE(w.shown("FrameQuality"));
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "MinCurrentTxt");
  EXPECT_EQ(Label(w), "Every reading is taken");
  const QualityLimits& limits = w.session().survey.qualita().limiti();
  const auto type = [](const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  };
  type("1.5");
  EXPECT_EQ(limits.corrente, 1.5);
  type("0.25");
  EXPECT_EQ(limits.potenziale, 0.25);
  type("7");
  EXPECT_EQ(limits.deviazione, 7.0);
  type("-2000");
  EXPECT_EQ(limits.rhoMin, -2000.0);
  type("3000");
  EXPECT_EQ(limits.rhoMax, 3000.0);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "DespikeChk");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(limits.picchi, (Despike{4, 15}));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  type("6.5");
  type("9");
  EXPECT_EQ(limits.picchi, (Despike{6.5, 9}));
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "NegativeChk");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(limits.negative);
  w.get<QLineEdit>("RhoMaxTxt")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(limits.rhoMax.has_value()) << "an empty box is no limit";
  w.key("Ctrl+Z");
  EXPECT_EQ(limits.rhoMax, 3000.0);
  EXPECT_EQ(w.text("RhoMaxTxt"), "3000") << "and stands in its box again";
  w.enter("MinCurrentTxt", "many");
  EXPECT_EQ(limits.corrente, 0.0) << "read as 0, which is told";
  EXPECT_TRUE(w.session().findings().ultimi().size() > 0);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(w.shown("FrameQuality"));
}

TEST(QualityPanel, CountsWhatIsExcludedAlsoInTheStatusBar) {
  Window w;
  w.readPlan();
  w.choose("Quality");
  w.enter("MinCurrentTxt", "100000");
  EXPECT_EQ(Label(w), "50 of 50 readings excluded, 0 decided by hand");
  EXPECT_EQ(w.label("StatusFiles"), "1 file, 5 measurements, 50 readings excluded");
  EXPECT_TRUE(w.session().findings().anyFault()) << "nothing is left";
  w.enter("MinCurrentTxt", "");
  EXPECT_EQ(Label(w), "Every reading is taken");
}

TEST(FlatPage, ExcludesAReadingByCtrlAndClick) {
  Flat w;
  const auto click = [&](QPoint at, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(w.pic(), Qt::LeftButton, keys, at);
    QCoreApplication::processEvents();
  };
  click(w.cell(2, 3), Qt::ControlModifier);
  EXPECT_EQ(Excluded(w), "2.3 ");
  EXPECT_EQ(w.picked(), "-") << "no extreme";
  click(w.cell(4, 10), Qt::ControlModifier);
  EXPECT_EQ(Excluded(w), "2.3 4.10 ");
  EXPECT_EQ(w.window.findChild<QAction*>("Undo")->text().toStdString(), "&Undo Exclude Reading");
  EXPECT_EQ(w.fresh(), w.pic()->picture()) << "and is seen";
  click(w.empty(), Qt::ControlModifier);
  click(w.air(5), Qt::ControlModifier);
  EXPECT_EQ(Excluded(w), "2.3 4.10 ") << "beside the readings it does nothing";
  click(w.cell(2, 3), Qt::ControlModifier);
  EXPECT_EQ(Excluded(w), "4.10 ");
  w.key("Ctrl+Z");
  w.key("Ctrl+Z");
  EXPECT_EQ(Excluded(w), "2.3 ");
  click(w.cell(2, 3), {});
  EXPECT_EQ(w.picked(), "2-") << "a plain click chooses, also an excluded one";
  EXPECT_EQ(Excluded(w), "2.3 ");
}

TEST(FlatPage, ExcludesAReadingFromItsMenu) {
  Flat w;
  std::string caption;
  const auto choose = [&](QPoint at, Qt::Key letter) {
    QTimer::singleShot(0, [&, letter] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      caption = menu->actions().front()->text().toStdString();
      QTest::keyClick(menu, letter);
      if (QApplication::activePopupWidget() != nullptr) QTest::keyClick(menu, Qt::Key_Escape);
    });
    QContextMenuEvent asked(QContextMenuEvent::Mouse, at, w.pic()->mapToGlobal(at));
    QApplication::sendEvent(w.pic(), &asked);
    QCoreApplication::processEvents();
  };
  choose(w.cell(3, 4), Qt::Key_E);
  EXPECT_EQ(caption, "&Exclude Reading: Measurement 3, Channel 4");
  EXPECT_EQ(Excluded(w), "3.4 ");
  choose(w.cell(3, 4), Qt::Key_I);
  EXPECT_EQ(caption, "&Include Reading: Measurement 3, Channel 4");
  EXPECT_EQ(Excluded(w), "");
  choose(w.cell(5, 1), Qt::Key_P);
  EXPECT_EQ(w.picked(), "5-");
  choose(w.empty(), Qt::Key_E);
  EXPECT_EQ(Excluded(w), "") << "there is none";
}

TEST(Tables, ExcludeTheReadingOfTheirCurrentFieldByDelete) {
  Window w;
  w.readPlan();
  w.key("F11");
  auto* table = w.get<QTableView>("TablePage");
  const auto at = [&](int row, const char* title) {
    for (int k = 0; k < table->model()->columnCount(); ++k) {
      if (table->model()->headerData(k, Qt::Horizontal).toString().startsWith(title))
        return table->model()->index(row, k);
    }
    return QModelIndex();
  };
  EXPECT_FALSE(at(0, "excluded1").isValid());
  const std::pair<const char*, const char*> columns[] = {{"rho4", "2.4 "}, {"va7", "2.4 2.7 "}, {"vb7", "2.4 "},
                                                         {"e7", "2.4 "},   {"i_a", "2.4 "},     {"excluded4", ""}};
  for (const auto& [title, excluded] : columns) {
    ASSERT_TRUE(at(1, title).isValid()) << title;
    table->setCurrentIndex(at(1, title));
    QTest::keyClick(table, Qt::Key_Delete);
    EXPECT_EQ(Excluded(w), excluded) << title;
    if (*excluded != '\0') {
      EXPECT_EQ(at(1, "excluded4").data().toString(), "1");
      EXPECT_GT(table->columnWidth(at(1, "excluded10").column()), 40) << "as wide as its title";
    }
  }
  EXPECT_FALSE(at(1, "excluded4").isValid()) << "nothing is judged any more";
}

}  // namespace
}  // namespace corvan

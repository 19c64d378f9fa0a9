// The real window with scripted answers, and hands to drive it.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/Corvan.h"
#include "paint/PictureFile.h"
#include "support/SurveyFiles.h"

namespace corvan::test {

inline const QString Samples = CORVAN_SAMPLES;

struct Window {
  TempFolder folder;
  std::filesystem::path before = std::filesystem::current_path();
  ScriptedAnswers dialogs;
  Corvan window{dialogs};

  Window() {
    window.resize(1200, 800);
    window.show();
    QCoreApplication::processEvents();
  }
  ~Window() { std::filesystem::current_path(before); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  template <class Widget>
  Widget* get(const char* name) const {
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  void press(const char* button) const { QTest::mouseClick(get<QPushButton>(button), Qt::LeftButton); }
  void choose(const char* menuItem) const { get<QAction>(menuItem)->trigger(); }
  void enter(const char* box, const char* text) const {
    auto* edit = get<QLineEdit>(box);
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
  }
  std::string text(const char* box) const { return get<QLineEdit>(box)->text().toStdString(); }
  std::string label(const char* name) const { return get<QLabel>(name)->text().toStdString(); }
  bool shown(const char* frame) const { return get<QGroupBox>(frame)->isVisible(); }

  /// Selects files of the sample's folder in the list, in the order given.
  void select(const QStringList& names) const {
    choose("LoadFiles");
    get<QListWidget>("Dir1");
    static_cast<FrameFileIn*>(get<QGroupBox>("FrameFileIn"))->apriCartella(Samples);
    auto* list = get<QListWidget>("File1");
    for (const QString& name : names) {
      for (QListWidgetItem* item : list->findItems(name, Qt::MatchExactly)) item->setSelected(true);
    }
  }
  void readSample() {
    select({"lagoon_1.bin", "lagoon_2.bin"});
    get<QCheckBox>("PastGapsChk")->setChecked(true);
    press("ConvertAsciiCmd");
    std::filesystem::current_path(folder.path());
  }
  void readFirings(std::size_t count) {
    const auto file = folder.write("survey.bin", SyscalFile(Firings(count, 10)));
    window.leggi({QString::fromStdString(file.string())});
  }
  Session& session() { return window.session(); }
  CoordPic* picture() const { return static_cast<CoordPic*>(get<QWidget>("CoordPic")); }
  /// Where the label of a measurement stands.
  QPoint place(std::int32_t measurement) {
    for (int y = 0; y < picture()->height(); ++y) {
      for (int x = 0; x < picture()->width(); ++x) {
        if (session().MisuraSotto(x, y) == measurement) return {x, y};
      }
    }
    ADD_FAILURE() << "no label for measurement " << measurement;
    return {};
  }
  void drag(Qt::MouseButton button, Qt::KeyboardModifiers keys, QPoint from, QPoint to) const {
    QTest::mousePress(picture(), button, keys, from);
    QMouseEvent move(QEvent::MouseMove, to, picture()->mapToGlobal(to), Qt::NoButton, button, keys);
    QApplication::sendEvent(picture(), &move);
    QTest::mouseRelease(picture(), button, keys, to);
  }
};

}  // namespace corvan::test

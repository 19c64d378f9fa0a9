// The real window with scripted answers, and hands to drive it.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
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

/// A table of three fixes beside the plan of Window::readPlan.
inline constexpr const char* Track =
    "N;Line;Date;Time;Lat;Lon;Sats;Depth;Quality;East;North\r\n"
    "1;a;15/06/2026;06:00:00;45.4;9.0;9;3;1;500000;5030003\r\n"
    "2;a;15/06/2026;06:00:08;45.4;9.0;9;6;1;500003;5030007\r\n"
    "3;a;15/06/2026;06:00:16;45.4;9.0;9;9;1;500008;5030003\r\n";

struct Window {
  TempFolder folder;
  std::filesystem::path before = std::filesystem::current_path();
  ScriptedAnswers dialogs;
  Corvan window;

  Window() : Window(nullptr) {}
  /// @param real asks instead of the script
  explicit Window(Dialogs* real) : window(real != nullptr ? *real : dialogs) {
    window.resize(1200, 800);
    window.show();
    window.activateWindow();
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
  /// Clicks a tick box or an option where its mark stands.
  void tick(const char* name) const {
    auto* box = get<QAbstractButton>(name);
    QTest::mouseClick(box, Qt::LeftButton, {}, {box->height() / 2, box->height() / 2});
  }
  void tick(const char* name, bool on) const {
    if (get<QAbstractButton>(name)->isChecked() != on) tick(name);
    EXPECT_EQ(get<QAbstractButton>(name)->isChecked(), on) << name;
  }
  void key(const char* keys) {
    window.activateWindow();  // nobody does it behind a box that has closed
    QCoreApplication::processEvents();
    QTest::keySequence(&window, QKeySequence(keys));
  }
  void choose(const char* menuItem) const { get<QAction>(menuItem)->trigger(); }
  void enter(const char* box, const char* text) const {
    auto* edit = get<QLineEdit>(box);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
  }
  /// Types both ends of the section.
  void section(const char* first, const char* last) const {
    enter("E1Txt", first);
    enter("E2txt", last);
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
  /// Five firings 4 s and 2.5 m apart on the grid of zone 32, from 500000 E 5030000 N by 2 m to the east and 1.5 m to
  /// the north each; the first is 4 m deep, each next one 1 m deeper.
  std::filesystem::path plan() const {
    auto records = Firings(5, 10);
    for (std::size_t r = 0; r < records.size(); ++r) {
      const auto k = static_cast<float>(r / 10);
      records[r].east = 500000.0F + 2.0F * k;
      records[r].north = 5030000.0F + 1.5F * k;
      records[r].depth = 4.0F + k;
      records[r].time = 46188.25 + 4.0 * static_cast<double>(k) / 86400.0;
    }
    return folder.write("plan.bin", SyscalFile(records));
  }
  void readPlan() {
    chooseFormat(Qt::Key_End);
    window.leggi({QString::fromStdString(plan().string())});
    std::filesystem::current_path(folder.path());
    QCoreApplication::processEvents();
  }
  /// Chooses in the list of coordinate formats from the first entry on.
  void chooseFormat(Qt::Key key, int times = 1) const {
    auto* list = get<QComboBox>("LatLonCmbx");
    QTest::keyClick(list, Qt::Key_Home);
    for (int k = 0; k < times; ++k) QTest::keyClick(list, key);
  }
  Session& session() { return window.session(); }
  CoordPic* picture() const { return static_cast<CoordPic*>(get<QWidget>("CoordPic")); }
  /// Where a place on the water is seen from above. @param east,north m from the middle of the survey
  QPoint pixel(double east, double north) {
    const ViewWindow<float>& seen = session().view.state().Finestra;
    const double x = (east - seen.xmin) / (static_cast<double>(seen.xmax) - seen.xmin) * picture()->width();
    const double y = (-north - seen.zmin) / (static_cast<double>(seen.zmax) - seen.zmin) * picture()->height();
    return {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))};
  }
  /// Where a measurement is seen from above.
  QPoint place(std::size_t measurement) {
    const Survey& survey = session().survey.dati();
    const Misura& m = survey.Misure(measurement);
    return pixel(m.UTMx - survey.traccia.CentroX, m.UTMy - survey.traccia.CentroY);
  }
  void point(QPoint at, Qt::MouseButton held = Qt::NoButton, Qt::KeyboardModifiers keys = {}) const {
    QMouseEvent move(QEvent::MouseMove, at, picture()->mapToGlobal(at), Qt::NoButton, held, keys);
    QApplication::sendEvent(picture(), &move);
  }
  /// The second press of a double click, and its release.
  void doubleClick(QPoint at) const {
    QTest::mouseDClick(picture(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(picture(), Qt::LeftButton, {}, at);
  }
  void drag(Qt::MouseButton button, Qt::KeyboardModifiers keys, QPoint from, QPoint to) const {
    QTest::mousePress(picture(), button, keys, from);
    point(to, button, keys);
    QTest::mouseRelease(picture(), button, keys, to);
  }

  /// Everything that a control may change, by name.
  std::map<std::string, std::string> state() {
    std::map<std::string, std::string> all;
    const auto put = [&all](const QString& name, const QString& value) {
      if (!name.isEmpty() && !name.startsWith("qt_")) all[name.toStdString()] = value.toStdString();
    };
    const auto number = [&put](const char* name, double value) { put(name, QString::number(value, 'g', 6)); };
    for (const auto* box : window.findChildren<QLineEdit*>()) put(box->objectName(), box->text());
    for (const auto* panel : window.findChildren<QGroupBox*>()) {
      put(panel->objectName(), QString::number(panel->isVisible()));
    }
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
      if (button->isCheckable()) put(button->objectName(), QString::number(button->isChecked()));
    }
    for (const auto* action : window.findChildren<QAction*>()) {
      if (action->isCheckable()) put(action->objectName(), QString::number(action->isChecked()));
    }
    for (const char* name : {"PrimoLbl", "SecondoLbl"}) put(name, get<QLabel>(name)->text().section(" D.", -1));
    const ViewState& view = session().view.state();
    number("theta", InGradi(view.AngoloVista));
    number("phi", InGradi(view.AngoloPhi));
    number("gamma", InGradi(view.AngoloGamma));
    number("zoom", view.ZoomFattore);
    put("perspective", QString::number(view.projection == Projection::Perspective));
    const std::pair<const char*, bool> layers[] = {{"electrodes", view.layers.MostraElettrodi},
                                                   {"track", view.layers.MostraGPS2},
                                                   {"depths", view.layers.MostraProfondita},
                                                   {"scale", view.layers.MostraScalaColori},
                                                   {"north", view.layers.MostraNord},
                                                   {"info", session().view.state().layers.MostraInfo},
                                                   {"translation", view.layers.MostraTraslazione}};
    for (const auto& [name, shown] : layers) put(name, QString::number(shown));
    const Settings& settings = session().survey.dati().settings;
    number("dataEast", settings.TraslDatiEst);
    number("dataNorth", settings.TraslDatiNord);
    number("depthEast", settings.TraslFondoEst);
    number("depthNorth", settings.TraslFondoNord);
    number("zone", settings.ZonaUTM);
    number("palette", static_cast<int>(session().survey.colours().palette));
    number("min", session().survey.colours().range.ScalaMin);
    number("max", session().survey.colours().range.ScalaMax);
    put("outputs", QString::number(session().exporter.outputs().size()));
    if (!dialogs.questions.empty()) put("question", QString::fromStdString(dialogs.questions.back().prompt));
    if (!dialogs.messages.empty()) put("message", QString::fromStdString(dialogs.messages.back().prompt));
    return all;
  }
  /// What an action changes: "name=value" of each, and "picture" where it was painted anew at the same size.
  std::string changes(const std::function<void()>& action) {
    const auto before = state();
    const QImage seen = picture()->picture().copy();
    action();
    QCoreApplication::processEvents();
    std::string found;
    for (const auto& [name, value] : state()) {
      const auto old = before.find(name);
      if (old == before.end() || old->second != value) found += (found.empty() ? "" : " ") + name + "=" + value;
    }
    const QImage& now = picture()->picture();
    if (now.size() == seen.size() && now != seen) found += found.empty() ? "picture" : " picture";
    return found;
  }
};

}  // namespace corvan::test

// Times the window: until it is on screen, until a survey is read and painted, a step of a drag, and each change that
// can be taken back.
#include <algorithm>
#include <functional>
#include <iostream>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTableView>
#include <QWindow>
#include <utility>

#include "app/Corvan.h"
#include "base/File.h"
#include "BigSurvey.h"
#include "paint/ImageCanvas.h"
#include "session/Controls.h"

namespace corvan {
namespace {

void Move(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button) {
  QMouseEvent event(type, at, widget->mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

class Timer {
 public:
  Timer() { timer_.start(); }
  double milliseconds() const { return static_cast<double>(timer_.nsecsElapsed()) / 1e6; }

 private:
  QElapsedTimer timer_;
};

void Print(const char* what, double milliseconds, double goal) {
  std::cout << what << ": " << milliseconds << " ms (under " << goal << ")\n";
}

/// Reads a survey of so many firings. @return milliseconds until it is seen
double Read(Corvan& window, std::size_t firings) {
  const std::filesystem::path file = bench::Folder() / "window.bin";
  bench::MakeSyscalFile(file, firings, 304);
  const Timer timer;
  window.leggi({QString::fromStdString(file.string())});
  window.repaint();
  return timer.milliseconds();
}

/// What caption, axes, legend and all other texts add to a picture of two measurements, ms.
double Texts(Corvan& window) {
  ViewDesk& view = window.session().view;
  QImage image = CreaImmagine(1360, 820);
  ImageCanvas canvas(image);
  const auto painted = [&](bool shown) {
    for (const LayerEntry& layer : LayerTable) {
      if (layer.flag != &Layers::MostraElettrodi) view.mostra(layer.flag, shown);
    }
    constexpr int times = 50;
    const Timer timer;
    for (int i = 0; i < times; ++i) view.picture().dipingiSu(canvas, shown ? view.didascalia() : Caption());
    return timer.milliseconds() / times;
  };
  const double bare = painted(false);
  return painted(true) - bare;
}

/// Milliseconds of a step of a drag, and of the whole picture after it.
std::pair<double, double> Drag(QWidget* picture) {
  constexpr int steps = 100;
  Move(picture, QEvent::MouseButtonPress, {20, 500}, Qt::LeftButton);
  const Timer step;
  for (int i = 0; i < steps; ++i) {
    Move(picture, QEvent::MouseMove, {20 + i, 500 - i}, Qt::NoButton);
    picture->repaint();
  }
  const double each = step.milliseconds() / steps;
  const Timer release;
  Move(picture, QEvent::MouseButtonRelease, {20 + steps, 500 - steps}, Qt::LeftButton);
  picture->repaint();
  return {each, release.milliseconds()};
}

void Hover(QWidget* picture, QPoint at) {
  QMouseEvent event(QEvent::MouseMove, at, picture->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(picture, &event);
}

/// What a move of the free pointer costs at most, ms: over a painted picture, and right after a turn of it.
struct Pointing {
  double over = 0, after = 0, cell = 0;
};
Pointing Point(Corvan& window, QWidget* picture) {
  Pointing slowest;
  for (const char* theta : {"90", "130", "180"}) {
    EseguiControllo(window.session(), "Thetatxt_KeyPress", theta);
    const Timer first;
    Hover(picture, {picture->width() / 2, picture->height() / 2});
    slowest.after = std::max(slowest.after, first.milliseconds());
    picture->repaint();
    constexpr int steps = 60;
    for (int i = 0; i < steps; ++i) {
      const QPoint at(i * picture->width() / steps, picture->height() * (i % 7 + 1) / 9);
      const Timer move;
      Hover(picture, at);
      slowest.over = std::max(slowest.over, move.milliseconds());
      const Timer cell;
      window.session().mouse.cella(at.x(), at.y());
      slowest.cell = std::max(slowest.cell, cell.milliseconds());
    }
  }
  return slowest;
}

/// The slowest of six kinds of changes and of taking them back, each with its picture, ms.
std::pair<double, double> Changes(Corvan& window) {
  Session& session = window.session();
  const std::filesystem::path track = bench::Folder() / "window.nav";
  FileWriter log(track);
  log.write(
      "$GPRMC,060000,A,4524.5,N,01218.5,E,4.0,90.0,150626,,\r\n"
      "$GPRMC,070000,A,4524.5,N,01219.5,E,4.0,90.0,150626,,\r\n");
  log.close();
  session.leggiTraccia(track);
  const std::function<void()> changes[] = {
      [&] { session.survey.correggiProfondita(5); },
      [&] {
        session.survey.impostaCavo("C1 56 C2 62 E1 50 E2 44 E3 40 E4 35 E5 30 E6 25 E7 20 E8 15 E9 10 E10 5 E11 1");
      },
      [&] { session.survey.impostaZona(32); },
      [&] {
        session.survey.colori().impostaIntervallo({1, 2});
      },
      [&] { session.translations.trasla(Translation::DataNorth, 37.5); },
      [&] { session.collegaPerTempo(3); }};
  auto* picture = window.findChild<QWidget*>("CoordPic");
  double slowest = 0, slowestBack = 0;
  for (const auto& change : changes) {
    const Timer timer;
    change();
    picture->repaint();
    slowest = std::max(slowest, timer.milliseconds());
  }
  while (!session.annullabile().empty()) {
    const Timer timer;
    EseguiControllo(session, "Undo_Click");
    picture->repaint();
    slowestBack = std::max(slowestBack, timer.milliseconds());
  }
  return {slowest, slowestBack};
}

/// Times of the table, ms: the slowest order by any column, the same with all rows selected, and of 200 pages down.
struct Tabling {
  double order = 0, selected = 0, page = 0;
};
Tabling Table(Corvan& window) {
  auto* show = window.findChild<QAction*>("ShowTable");
  auto* table = window.findChild<QTableView*>("TablePage");
  show->trigger();
  QApplication::processEvents();
  Tabling slowest;
  const auto order = [&](double& most) {
    for (const int column : {0, 2, 5, 9, 11, 47, 58}) {
      for (const Qt::SortOrder direction : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        const Timer timer;
        table->sortByColumn(column, direction);
        table->viewport()->repaint();
        most = std::max(most, timer.milliseconds());
      }
    }
  };
  order(slowest.order);
  table->selectAll();
  order(slowest.selected);
  table->clearSelection();
  for (int k = 0; k < 200; ++k) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
    const Timer timer;
    QApplication::sendEvent(table, &down);
    table->viewport()->repaint();
    slowest.page = std::max(slowest.page, timer.milliseconds());
  }
  table->sortByColumn(-1, Qt::AscendingOrder);
  show->trigger();
  return slowest;
}

}  // namespace
}  // namespace corvan

int main(int argc, char** argv) {
  using namespace corvan;
  bench::Silent dialogs;
  const Timer start;
  const QApplication application(argc, argv);
  Corvan window(dialogs);
  window.resize(1360, 820);
  window.show();
  while (!window.windowHandle()->isExposed()) QApplication::processEvents();
  window.repaint();
  Print("start to screen", start.milliseconds(), 500);
  auto* picture = window.findChild<QWidget*>("CoordPic");
  Read(window, 2);
  Print("all texts of a picture", Texts(window), 1);
  Read(window, 1'000);
  window.findChild<QAction*>("ObliqueView")->trigger();
  window.findChild<QAction*>("LiveRotation")->trigger();
  Print("step of a live drag of 10,000 cells", Drag(picture).first, 16);
  window.findChild<QAction*>("LiveRotation")->trigger();
  for (const std::size_t firings : {std::size_t{10'000}, std::size_t{100'000}}) {
    const bool many = firings > 10'000;
    std::cout << firings << " firings\n";
    Print("  read to picture", Read(window, firings), many ? 10000 : 1000);
    const auto [step, release] = Drag(picture);
    Print("  step of a drag", step, many ? 200 : 16);
    Print("  repaint at release", release, 200);
    const Pointing pointing = Point(window, picture);
    Print("  slowest move of the pointer", pointing.over, many ? 200 : 16);
    Print("  slowest move right after a command", pointing.after, many ? 200 : 16);
    Print("  slowest cell under the pointer, straight", pointing.cell, 10);
    window.session().view.proietta(Projection::Perspective);
    Print("  slowest cell under the pointer, perspective", Point(window, picture).cell, 10);
    window.session().view.proietta(Projection::Orthographic);
    window.session().view.daSopra(0);
    const auto [change, back] = Changes(window);
    Print("  slowest change", change, 200);
    Print("  slowest change taken back", back, 200);
    const Tabling tabling = Table(window);
    Print("  slowest order of the table", tabling.order, 150);
    Print("  the same with all rows selected", tabling.selected, 300);
    Print("  slowest page of the table", tabling.page, 33);
  }
  return 0;
}

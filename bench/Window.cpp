// Times the window: until it is on screen, until a file of 10,000 firings is read and painted, and a step of a drag.
#include <iostream>
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QWindow>

#include "app/Corvan.h"
#include "BigSurvey.h"

namespace {

void Move(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button) {
  QMouseEvent event(type, at, widget->mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

void Print(const char* what, double milliseconds, double goal) {
  std::cout << what << ": " << milliseconds << " ms (under " << goal << ")\n";
}

}  // namespace

int main(int argc, char** argv) {
  using namespace corvan;
  bench::Silent dialogs;
  QElapsedTimer timer;
  timer.start();
  const QApplication application(argc, argv);
  Corvan window(dialogs);
  window.resize(1360, 820);
  window.show();
  while (!window.windowHandle()->isExposed()) QApplication::processEvents();
  window.repaint();
  Print("start to screen", static_cast<double>(timer.nsecsElapsed()) / 1e6, 500);

  const std::filesystem::path file = bench::Folder() / "window.bin";
  bench::MakeSyscalFile(file, 10'000, 304);
  timer.restart();
  window.leggi({QString::fromStdString(file.string())});
  window.repaint();
  Print("read 10,000 firings to picture", static_cast<double>(timer.nsecsElapsed()) / 1e6, 1000);

  auto* picture = window.findChild<QWidget*>("CoordPic");
  constexpr int steps = 100;
  Move(picture, QEvent::MouseButtonPress, {20, 500}, Qt::LeftButton);
  timer.restart();
  for (int i = 0; i < steps; ++i) {
    Move(picture, QEvent::MouseMove, {20 + i, 500 - i}, Qt::NoButton);
    picture->repaint();
  }
  Print("step of a drag", static_cast<double>(timer.nsecsElapsed()) / 1e6 / steps, 16);
  timer.restart();
  Move(picture, QEvent::MouseButtonRelease, {20 + steps, 500 - steps}, Qt::LeftButton);
  picture->repaint();
  Print("repaint at release", static_cast<double>(timer.nsecsElapsed()) / 1e6, 100);
  return 0;
}

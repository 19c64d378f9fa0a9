// Linked to the start of the real program: once its window waits for the user, says what it shows and ends it.
#include <cstdio>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "app/Corvan.h"

namespace {

void Racconta(const QWidget& window) {
  const auto label = [&](const char* name) { return window.findChild<QLabel*>(name)->text().toStdString(); };
  std::puts((window.isVisible() ? window.windowTitle() : "hidden").toStdString().c_str());
  std::puts(label("StatusFiles").c_str());
  std::puts(label("StatusNote").c_str());
  for (const char* typed : {"1", "4"}) {
    auto* box = window.findChild<QLineEdit*>(*typed == '1' ? "E1Txt" : "E2txt");
    box->selectAll();
    QTest::keyClicks(box, typed);
    QTest::keyClick(box, Qt::Key_Return);
  }
  for (const char* name : {"PrimoLbl", "SecondoLbl"}) std::puts(label(name).substr(0, 10).c_str());
}

void Aspetta() {
  QTimer::singleShot(5, [] {
    if (QThread::currentThread()->loopLevel() == 0) return Aspetta();  // still reading
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "Corvan") Racconta(*window);
    }
    QApplication::quit();
  });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Aspetta)

// corvan: the window.
#include <QApplication>
#include <QFileInfo>
#include <QScreen>

#include "app/Corvan.h"
#include "app/QtDialogs.h"
#include "base/Interruption.h"

int main(int argc, char** argv) {
  corvan::PulisciAlleInterruzioni();
  QApplication application(argc, argv);
  QApplication::setApplicationName("Corvan");
  QApplication::setApplicationVersion(CORVAN_VERSION);
  QApplication::setDesktopFileName("corvan");
  corvan::QtDialogs dialogs;
  corvan::Corvan window(dialogs);
  constexpr int titleBar = 40;  // not part of what is sized here
  const QSize room = window.screen()->availableSize() - QSize(0, titleBar);
  window.resize(QSize(1360, 820).boundedTo(room));
  window.show();
  QStringList files;
  for (const QString& argument : QApplication::arguments().mid(1)) {
    if (QFileInfo(argument).isFile()) files << QFileInfo(argument).absoluteFilePath();
  }
  window.leggi(files);
  return QApplication::exec();
}

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
  // Names of files that are not there, too: the reading tells of them.
  for (const QString& name : QApplication::arguments().mid(1)) files << QFileInfo(name).absoluteFilePath();
  window.leggi(files);
  return QApplication::exec();
}

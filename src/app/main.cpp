// corvan: the window.
#include <QApplication>
#include <QFileInfo>

#include "app/Corvan.h"
#include "app/QtDialogs.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Corvan");
  QApplication::setApplicationVersion(CORVAN_VERSION);
  QApplication::setDesktopFileName("corvan");
  corvan::QtDialogs dialogs;
  corvan::Corvan window(dialogs);
  window.resize(1360, 820);
  window.show();
  QStringList files;
  for (const QString& argument : QApplication::arguments().mid(1)) {
    if (QFileInfo(argument).isFile()) files << QFileInfo(argument).absoluteFilePath();
  }
  window.leggi(files);
  return QApplication::exec();
}

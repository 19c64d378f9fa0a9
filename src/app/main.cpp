// corvan: the window.
#include <iostream>
#include <QApplication>
#include <QFileInfo>
#include <QIcon>

#include "app/Corvan.h"
#include "app/QtDialogs.h"
#include "app/StartOptions.h"
#include "base/Interruption.h"
#include "base/Terminal.h"

int main(int argc, char** argv) {
  corvan::PulisciAlleInterruzioni();
  corvan::PreparaFlussi();
  const corvan::StartAnswer answer = corvan::RispostaIniziale(corvan::Argomenti(argc, argv));
  if (answer.ends) {
    std::cerr << answer.error;
    std::cout << answer.out << std::flush;
    return std::cout ? answer.status : 1;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName("Corvan");
  QApplication::setApplicationVersion(CORVAN_VERSION);
  QApplication::setDesktopFileName("corvan");
  QApplication::setWindowIcon(QIcon(":/app/corvan.png"));
  corvan::QtDialogs dialogs;
  corvan::Corvan window(dialogs);
  window.ripristina(QSize(1360, 820));
  window.show();
  QStringList files;
  // Names of files that are not there, too: the reading tells of them.
  for (const QString& name : corvan::FileNominati(QApplication::arguments().mid(1)))
    files << QFileInfo(name).absoluteFilePath();
  window.leggi(files);
  return QApplication::exec();
}

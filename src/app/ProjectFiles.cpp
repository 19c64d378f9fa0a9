#include "app/ProjectFiles.h"

#include <filesystem>
#include <QDir>
#include <QFileInfo>

namespace corvan {
namespace {

constexpr const char* Kinds = "Corvan project (*.corvan)";

std::filesystem::path Percorso(const QString& file) { return file.toStdU16String(); }

}  // namespace

void ProjectFiles::salva() {
  dialog_.DialogTitle = "Save Project";
  dialog_.Filter = Kinds;
  dialog_.IDir = file_.isEmpty() ? QDir::currentPath() : QFileInfo(file_).absolutePath();
  const auto& files = session_.survey.dati().files;
  const QString survey =
      files.empty() ? QString("survey") : QString::fromStdU16String(files.front().path.stem().u16string());
  dialog_.FileName = file_.isEmpty() ? survey + ".corvan" : QFileInfo(file_).fileName();
  if (!dialog_.FSave()) return;
  file_ = dialog_.FileName;
  session_.findings().comincia("Save Project");
  session_.salvaProgetto(Percorso(file_), session_.progetto());
}

bool ProjectFiles::apri() {
  dialog_.DialogTitle = "Open Project";
  dialog_.Filter = QString(Kinds) + ";;All Files (*)";
  dialog_.IDir = file_.isEmpty() ? QDir::currentPath() : QFileInfo(file_).absolutePath();
  dialog_.FileName.clear();
  return dialog_.FOpen() && apri(dialog_.FileName);
}

bool ProjectFiles::apri(const QString& file) {
  session_.findings().comincia("Open Project");
  if (!session_.apriProgetto(Percorso(file))) return false;
  file_ = file;
  return true;
}

}  // namespace corvan

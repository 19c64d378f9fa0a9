#include "app/PictureFiles.h"

#include <filesystem>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include "paint/PictureFile.h"

namespace corvan {

void PictureFiles::copia() { QGuiApplication::clipboard()->setImage(shown_()); }

QString PictureFiles::nome() const {
  const auto& files = session_.survey.dati().files;
  if (files.empty()) return "picture";
  return QFileInfo(QString::fromStdU16String(files.front().path.u16string())).completeBaseName();
}

void PictureFiles::salva() {
  dialog_.DialogTitle = "Save Picture As";
  dialog_.Filter = "PNG picture (*.png);;Windows bitmap (*.bmp)";
  dialog_.IDir = folder_.isEmpty() ? QDir::currentPath() : folder_;
  dialog_.FileName = nome() + (dialog_.FilterN == 2 ? ".bmp" : ".png");
  if (!dialog_.FSave()) return;
  folder_ = dialog_.FRoot();
  const std::filesystem::path file(dialog_.FileName.toStdU16String());
  session_.findings().comincia("Save Picture As");
  if (!NomeImmagine(file.string())) {
    session_.findings().fault("SalvaImmagine", "not written: the name of a picture ends in .png or .bmp",
                              file.string());
    return;
  }
  session_.exporter.immagine(file, [&] { return ComponiImmagine(shown_(), file.string()); });
}

}  // namespace corvan

#include "app/SaveOpen.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace corvan {

SaveOpen::SaveOpen() : IDir(QCoreApplication::applicationDirPath()) {}

bool SaveOpen::FOpen() {
  return prendi(QFileDialog::getOpenFileNames(QApplication::activeWindow(), DialogTitle, IDir, Filter));
}

bool SaveOpen::FSave() {
  const QString name = QFileDialog::getSaveFileName(QApplication::activeWindow(), DialogTitle, IDir, Filter);
  return prendi(name.isEmpty() ? QStringList() : QStringList(name));
}

bool SaveOpen::prendi(const QStringList& chosen) {
  if (chosen.isEmpty()) return false;
  root_ = QDir::toNativeSeparators(QFileInfo(chosen.front()).absolutePath());
  if (!root_.endsWith(QDir::separator())) root_ += QDir::separator();
  titles_.clear();
  for (const QString& name : chosen) titles_ << QFileInfo(name).fileName();
  FileTitle = titles_.front();
  FileName = root_ + FileTitle;
  return true;
}

QStringList SaveOpen::GetFileNames() const {
  QStringList names;
  for (const QString& title : titles_) names << root_ + title;
  return names;
}

}  // namespace corvan

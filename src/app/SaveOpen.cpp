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
  QFileDialog dialog(QApplication::activeWindow(), DialogTitle, IDir);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  const QStringList filters = Filter.split(";;");
  dialog.setNameFilters(filters);
  // A name typed without an ending gets that of the chosen kind before the dialog looks whether it is there.
  const auto ending = [&dialog](const QString& filter) {
    dialog.setDefaultSuffix(filter.section("*.", -1).section(')', 0, 0).remove('*'));
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, ending);
  const QString chosen = filters.value(FilterN - 1, filters.front());
  dialog.selectNameFilter(chosen);
  ending(chosen);
  if (!FileName.isEmpty()) dialog.selectFile(FileName);
  if (dialog.exec() != QDialog::Accepted) return false;
  FilterN = static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1;
  return prendi(dialog.selectedFiles());
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

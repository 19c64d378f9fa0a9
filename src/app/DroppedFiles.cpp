#include "app/DroppedFiles.h"

#include <algorithm>
#include <filesystem>
#include <QFileInfo>
#include <QUrl>

#include "app/NumericOrder.h"
#include "base/Errors.h"
#include "base/File.h"
#include "input/ColumnReader.h"
#include "input/InputDriver.h"
#include "input/TrackFile.h"

namespace corvan {
namespace {

constexpr std::size_t Beginning = std::size_t{1} << 20;

/// A track by its content. What cannot be looked into is left to the reading, which tells why.
bool Traccia(const QString& file) {
  try {
    const FileBytes bytes = LeggiInizio(std::filesystem::path(file.toStdU16String()), Beginning);
    const ColumnStart columns = InizioColonne(bytes.text());
    if (columns == ColumnStart::Named || columns == ColumnStart::Partial) return false;  // rows may begin with a date
    return !TestataDiTesto(bytes.text()) && GenereDaContenuto(bytes.text()).has_value();
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

DroppedFiles Lasciati(const QMimeData& data) {
  DroppedFiles dropped;
  for (const QUrl& url : data.urls()) {
    const QFileInfo info(url.toLocalFile());
    if (!url.isLocalFile()) continue;
    if (info.isDir()) {
      if (dropped.folder.isEmpty()) dropped.folder = info.absoluteFilePath();
    } else if (info.isFile()) {
      (Traccia(info.filePath()) ? dropped.tracks : dropped.surveys) << info.absoluteFilePath();
    }
  }
  std::ranges::sort(dropped.surveys, PrimaPerNumero);
  return dropped;
}

}  // namespace corvan

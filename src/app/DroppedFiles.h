// What was dropped onto the window.
#pragma once

#include <QMimeData>
#include <QStringList>

namespace corvan {

struct DroppedFiles {
  QStringList surveys;  ///< files to read, in numeric order
  QStringList tracks;   ///< external tracks, told by their content
  QString folder;       ///< the first folder; empty for none

  bool empty() const { return surveys.isEmpty() && tracks.isEmpty() && folder.isEmpty(); }
};

DroppedFiles Lasciati(const QMimeData& data);

}  // namespace corvan

// "Save Project" and "Open Project".
#pragma once

#include <QString>

#include "app/SaveOpen.h"
#include "session/Session.h"

namespace corvan {

class ProjectFiles {
 public:
  explicit ProjectFiles(Session& session) : session_(session) {}

  /// A file that the window reads as a project, by its ending.
  static bool progetto(const QString& file) { return file.endsWith(".corvan", Qt::CaseInsensitive); }

  void salva();
  /// @return false when nothing was opened
  bool apri();
  bool apri(const QString& file);

 private:
  Session& session_;
  SaveOpen dialog_;
  QString file_;  ///< saved or opened last
};

}  // namespace corvan

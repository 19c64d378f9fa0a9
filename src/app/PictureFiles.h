// What leaves the window as a picture: the clipboard and files of the user's choice.
#pragma once

#include <functional>
#include <QImage>
#include <utility>

#include "app/SaveOpen.h"
#include "session/Session.h"

namespace corvan {

class PictureFiles {
 public:
  /// @param shown gives the picture of the page that is shown, with the small line that explains it
  PictureFiles(Session& session, std::function<QImage()> shown) : session_(session), shown_(std::move(shown)) {}

  /// "Copy Picture": what is to be seen, without marks of the pointer, and the small line that explains it.
  void copia();
  /// "Save Picture As…": the same as a PNG or BMP file. Proposed are the name of the survey's first file and the folder
  /// used last; the dialog asks before it replaces, and what was read is never replaced.
  void salva();

 private:
  QString nome() const;

  Session& session_;
  std::function<QImage()> shown_;
  SaveOpen dialog_;
  QString folder_;  ///< the folder used last
};

}  // namespace corvan

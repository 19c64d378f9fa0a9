// The chosen extremes, told in a corner over the picture; pictures that are saved do not hold them.
#pragma once

#include <QLabel>

#include "session/Session.h"

namespace corvan {

class PickedLines : public QLabel {
 public:
  /// @param picture over which the lines stand; it keeps the mouse
  PickedLines(const Session& session, QWidget* picture);
  void mostra();

 private:
  const Session& session_;
};

}  // namespace corvan

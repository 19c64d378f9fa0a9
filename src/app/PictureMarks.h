// What stands over the picture and is no part of it: hints, read-outs, the perspective marker, what the pointer is on.
#pragma once

#include <QPainter>
#include <QRect>

#include "session/Session.h"

namespace corvan {

/// Draws over a widget that shows the picture. Nothing of it is saved or copied with the picture.
class PictureMarks {
 public:
  PictureMarks(const Session& session, const QWidget& widget) : session_(session), widget_(widget) {}

  /// @param pointed the label that a click would hit
  void dipingi(QPainter& painter, const Pointed& pointed) const;
  /// Where the mark of a label stands, logical pixels.
  QRect posto(const Pointed& pointed) const;

 private:
  void disegnaSuggerimento(QPainter& painter) const;
  void disegnaLetture(QPainter& painter) const;
  void disegnaMarcatore(QPainter& painter) const;
  void disegnaMira(QPainter& painter, const Pointed& pointed) const;
  void disegnaCornice(QPainter& painter) const;
  QPointF punto(const PuntoPixel& pixel) const;

  const Session& session_;
  const QWidget& widget_;
};

}  // namespace corvan

#include "app/PictureMarks.h"

#include <array>
#include <QPalette>
#include <QWidget>
#include <string>

#include "app/Frame.h"

namespace corvan {
namespace {

constexpr double MarkRadius = 7.0;  // logical pixels

}  // namespace

void PictureMarks::dipingi(QPainter& painter, const Pointed& pointed) const {
  const Survey& survey = session_.survey.dati();
  if (survey.Misure.empty() && !survey.tracciaEst.loaded) disegnaSuggerimento(painter);
  disegnaLetture(painter);
  disegnaMarcatore(painter);
  if (pointed.target.kind != TargetKind::Nothing) disegnaMira(painter, pointed);
  disegnaCornice(painter);
}

/// The middle of a pixel of the picture.
QPointF PictureMarks::punto(const PuntoPixel& pixel) const {
  const double scale = widget_.devicePixelRatioF();
  return {(pixel.X + 0.5) / scale, (pixel.Y + 0.5) / scale};
}

/// What to do first, while there is nothing to see.
void PictureMarks::disegnaSuggerimento(QPainter& painter) const {
  painter.setPen(QColor(0x606060));
  const QFont plain = painter.font();
  QFont font = plain;
  font.setPointSizeF(font.pointSizeF() * 1.2);
  painter.setFont(font);
  painter.drawText(widget_.rect(), Qt::AlignCenter,
                   "Drop survey files here,\nor choose them with File \u2192 Load Floating Electrodes File(s)");
  painter.setFont(plain);
}

/// The angles or the zoom during a drag, in the upper right corner.
void PictureMarks::disegnaLetture(QPainter& painter) const {
  const ViewPanel& view = session_.view.FrameView;
  QStringList lines;
  if (view.angleLabelsVisible) {
    for (const std::string& text : {view.thetalbl, view.philbl, view.gammalbl}) lines << QString::fromStdString(text);
  }
  if (view.ZoomlblVisible) lines << QString::fromStdString(view.Zoomlbl);
  if (lines.isEmpty()) return;
  const QRect room = widget_.rect().adjusted(0, Unit, -2 * Unit, 0);
  constexpr int corner = Qt::AlignRight | Qt::AlignTop;
  const QRect text = painter.boundingRect(room, corner, lines.join('\n'));
  painter.fillRect(text.adjusted(-4, 0, 4, 0), Qt::white);  // the outline may run below it
  painter.setPen(QColor(0x202020));
  painter.drawText(room, corner, lines.join('\n'));
}

/// Two lines that cross where the user has put the vanishing point, while the perspective is on.
void PictureMarks::disegnaMarcatore(QPainter& painter) const {
  const ViewState& view = session_.view.state();
  if (view.projection != Projection::Perspective || !view.marker.posto) return;
  const double scale = widget_.devicePixelRatioF();
  const QPointF at = QPointF(4.0 * view.marker.MarcatoreX - view.AreaPixel.right,
                             4.0 * view.marker.MarcatoreY - view.AreaPixel.bottom) /
                     scale;
  painter.setPen(QColor(0xC00000));
  painter.drawLine(QPointF(at.x(), 0), QPointF(at.x(), widget_.height()));
  painter.drawLine(QPointF(0, at.y()), QPointF(widget_.width(), at.y()));
}

QRect PictureMarks::posto(const Pointed& pointed) const {
  const QPointF at = punto(pointed.at), half(MarkRadius + 2, MarkRadius + 2);
  return QRectF(at - half, at + half).toAlignedRect();
}

/// A ring about the label that a click would hit.
void PictureMarks::disegnaMira(QPainter& painter, const Pointed& pointed) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  for (const QPen& pen : {QPen(Qt::white, 4), QPen(QColor(0xC00000), 2)}) {
    painter.setPen(pen);
    painter.drawEllipse(punto(pointed.at), MarkRadius - 1, MarkRadius - 1);
  }
  painter.restore();
}

/// The picture's edge, in the colour of what is chosen while the keys go to it.
void PictureMarks::disegnaCornice(QPainter& painter) const {
  painter.setPen(widget_.hasFocus() ? widget_.palette().color(QPalette::Highlight) : QColor(0xB0B0B0));
  painter.drawRect(widget_.rect().adjusted(0, 0, -1, -1));
}

}  // namespace corvan

#include "app/CoordPic.h"

#include <cmath>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "app/Frame.h"

namespace corvan {
namespace {

constexpr double Reach = 10.0;  // logical pixels from a label within which it is hit

}  // namespace

CoordPic::CoordPic(Session& session, std::function<void()> changed, std::function<void(const PuntoPixel&)> pointed)
    : session_(session), changed_(std::move(changed)), pointed_(std::move(pointed)) {
  setObjectName("CoordPic");
  setMinimumSize(320, 240);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMouseTracking(true);
  setCursor(Qt::CrossCursor);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

PuntoPixel CoordPic::pixel(const QPointF& place) const {
  const double scale = devicePixelRatioF();
  return {static_cast<std::int32_t>(place.x() * scale), static_cast<std::int32_t>(place.y() * scale)};
}

MouseEvent CoordPic::evento(const QMouseEvent& event, Qt::MouseButton button) const {
  const PuntoPixel at = pixel(event.position());
  return {button == Qt::LeftButton ? MouseButton::Left : MouseButton::Right,
          event.modifiers().testFlag(Qt::ShiftModifier), event.modifiers().testFlag(Qt::ControlModifier), at.X, at.Y};
}

void CoordPic::resizeEvent(QResizeEvent*) {
  session_.view.picture().tela(nullptr);
  const PuntoPixel size = pixel(QPointF(width(), height()));
  image_ = CreaImmagine(std::max(size.X, 1), std::max(size.Y, 1));
  canvas_ = std::make_unique<ImageCanvas>(image_);
  session_.view.picture().tela(canvas_.get());
  session_.mouse.portata(static_cast<std::int32_t>(std::lround(Reach * devicePixelRatioF())));
}

void CoordPic::paintEvent(QPaintEvent*) {
  session_.view.picture().dipingi();
  QPainter painter(this);
  painter.drawImage(rect(), image_);
  const Survey& survey = session_.survey.dati();
  if (survey.Misure.empty() && !survey.tracciaEst.loaded) disegnaSuggerimento(painter);
  disegnaLetture(painter);
  if (session_.mouse.dragging() == Dragging::Marker) disegnaMarcatore(painter);
  painter.setPen(QColor(0xB0B0B0));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

/// What to do first, while there is nothing to see.
void CoordPic::disegnaSuggerimento(QPainter& painter) const {
  painter.setPen(QColor(0x606060));
  QFont font = painter.font();
  font.setPointSizeF(font.pointSizeF() * 1.2);
  painter.setFont(font);
  painter.drawText(rect(), Qt::AlignCenter,
                   "Drop survey files here,\nor choose them with File \u2192 Load Floating Electrodes File(s)");
}

/// The angles or the zoom during a drag, in the upper right corner.
void CoordPic::disegnaLetture(QPainter& painter) const {
  const ViewPanel& view = session_.view.FrameView;
  QStringList lines;
  if (view.angleLabelsVisible) {
    for (const std::string& text : {view.thetalbl, view.philbl, view.gammalbl}) lines << QString::fromStdString(text);
  }
  if (view.ZoomlblVisible) lines << QString::fromStdString(view.Zoomlbl);
  if (lines.isEmpty()) return;
  painter.setPen(QColor(0x202020));
  painter.drawText(rect().adjusted(0, Unit, -2 * Unit, 0), Qt::AlignRight | Qt::AlignTop, lines.join('\n'));
}

void CoordPic::disegnaMarcatore(QPainter& painter) const {
  painter.setPen(QColor(0xC00000));
  painter.drawLine(pointer_.x(), 0, pointer_.x(), height());
  painter.drawLine(0, pointer_.y(), width(), pointer_.y());
}

void CoordPic::mousePressEvent(QMouseEvent* event) {
  if (held_ != Qt::NoButton || (event->button() != Qt::LeftButton && event->button() != Qt::RightButton)) return;
  held_ = event->button();
  pointer_ = event->position().toPoint();
  const PictureRequest asked = session_.mouse.premi(evento(*event, held_));
  if (session_.mouse.dragging() == Dragging::Nothing) {
    // A box that opens now takes the release away: the press ends here.
    held_ = Qt::NoButton;
    esegui(asked);
    return;
  }
  if (session_.mouse.dragging() == Dragging::Move) setCursor(Qt::SizeAllCursor);
  update();
}

void CoordPic::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position().toPoint();
  if (held_ != Qt::NoButton) {
    session_.mouse.muovi(evento(*event, held_));
    update();
  }
  pointed_(pixel(event->position()));
}

void CoordPic::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != held_) return;
  const MouseEvent released = evento(*event, held_);
  held_ = Qt::NoButton;
  setCursor(Qt::CrossCursor);
  esegui(session_.mouse.rilascia(released));
}

void CoordPic::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  esegui(session_.mouse.doppio(evento(*event, Qt::LeftButton)));
}

/// What the mouse asked for, as a command of its own.
void CoordPic::esegui(const PictureRequest& asked) {
  if (asked.act != PictureAct::Nothing) session_.esegui(asked);
  changed_();
}

bool CoordPic::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const PuntoPixel at = pixel(help->pos());
    const std::string text = session_.mouse.suggerimento(at.X, at.Y);
    if (text.empty()) {
      QToolTip::hideText();
    } else {
      QToolTip::showText(help->globalPos(), QString::fromStdString(text).toHtmlEscaped(), this);
    }
    return true;
  }
  return QWidget::event(event);
}

}  // namespace corvan

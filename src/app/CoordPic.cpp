#include "app/CoordPic.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "app/Wheel.h"

namespace corvan {
namespace {

constexpr double Reach = 10.0;  // logical pixels from a label within which it is hit

}  // namespace

CoordPic::CoordPic(Session& session, std::function<void()> changed, std::function<void(const PuntoPixel&)> pointed)
    : PictureWidget("CoordPic", {320, 240}),
      session_(session),
      changed_(std::move(changed)),
      pointed_(std::move(pointed)),
      marks_(session, *this) {
  setCursor(Qt::CrossCursor);
}

MouseEvent CoordPic::evento(const QMouseEvent& event, Qt::MouseButton button) const {
  const PuntoPixel at = pixel(event.position());
  return {button == Qt::LeftButton ? MouseButton::Left : MouseButton::Right,
          event.modifiers().testFlag(Qt::ShiftModifier), event.modifiers().testFlag(Qt::ControlModifier), at.X, at.Y};
}

void CoordPic::resizeEvent(QResizeEvent* event) {
  PictureWidget::resizeEvent(event);
  session_.mouse.portata(lunghezza(Reach), lunghezza(QApplication::startDragDistance()));
}

QImage CoordPic::spiegata() {
  return copia([this](Canvas& canvas) { session_.view.picture().dipingiSu(canvas, session_.view.didascalia()); });
}

void CoordPic::paintEvent(QPaintEvent*) {
  session_.view.picture().dipingi();
  mira();  // other labels may lie under a pointer at rest
  QPainter painter(this);
  painter.drawImage(rect(), image_);
  marks_.dipingi(painter, aim_);
}

void CoordPic::mousePressEvent(QMouseEvent* event) {
  if (held_ != Qt::NoButton || (event->button() != Qt::LeftButton && event->button() != Qt::RightButton)) return;
  QToolTip::hideText();
  held_ = event->button();
  const PictureRequest asked = session_.mouse.premi(evento(*event, held_));
  if (session_.mouse.dragging() == Dragging::Nothing) {
    // A box that opens now takes the release away: the press ends here.
    held_ = Qt::NoButton;
    esegui(asked);
    return;
  }
  pointer_.reset();
  mira();
  if (session_.mouse.dragging() == Dragging::Move) setCursor(Qt::SizeAllCursor);
  update();
}

void CoordPic::mouseMoveEvent(QMouseEvent* event) {
  if (held_ != Qt::NoButton && !event->buttons().testFlag(held_)) lascia();  // the release went elsewhere
  const PuntoPixel at = pixel(event->position());
  if (held_ != Qt::NoButton) {
    session_.mouse.muovi(evento(*event, held_));
    update();
  } else {
    pointer_ = event->buttons() == Qt::NoButton ? std::optional(at) : std::nullopt;
    mira();
  }
  pointed_(at);
}

void CoordPic::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != held_) return;
  const MouseEvent released = evento(*event, held_);
  held_ = Qt::NoButton;
  setCursor(Qt::CrossCursor);
  esegui(session_.mouse.rilascia(released));
  pointer_ = pixel(event->position());
  mira();
}

/// The second press of a double click; what is no double click of ours is a press like any other.
void CoordPic::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier) return mousePressEvent(event);
  if (held_ == Qt::NoButton) esegui(session_.mouse.doppio(evento(*event, Qt::LeftButton)));
}

void CoordPic::wheelEvent(QWheelEvent* event) {
  const double notches = Scatti(*event);
  if (notches == 0.0) return event->ignore();
  const PuntoPixel at = pixel(event->position());
  if (held_ == Qt::NoButton) pointer_ = at;
  session_.mouse.rotella(at.X, at.Y, notches);
  changed_();
  pointed_(at);
  event->accept();
}

/// @return false for a key that is none of the picture's
bool CoordPic::tasto(int key, bool shift) {
  constexpr double zoomStep = 0.1;  // decades, as the buttons of the panel
  const double degrees = shift ? 10.0 : 1.0;
  ViewDesk& view = session_.view;
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
      view.passo(Axis::Theta, key == Qt::Key_Up ? degrees : -degrees);
      return true;
    case Qt::Key_Right:
    case Qt::Key_Left:
      view.passo(Axis::Phi, key == Qt::Key_Right ? degrees : -degrees);
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      view.passoZoom(-zoomStep);
      return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      view.passoZoom(zoomStep);
      return true;
    case Qt::Key_Home:
      view.inquadra();
      return true;
    default:
      return false;
  }
}

void CoordPic::keyPressEvent(QKeyEvent* event) {
  const bool other = event->modifiers().testFlag(Qt::ControlModifier) || event->modifiers().testFlag(Qt::AltModifier);
  if (held_ != Qt::NoButton) {
    if (event->key() != Qt::Key_Escape) return;
    session_.mouse.rinuncia();
    lascia();
  } else if (other || !tasto(event->key(), event->modifiers().testFlag(Qt::ShiftModifier))) {
    PictureWidget::keyPressEvent(event);
  } else {
    changed_();
  }
}

void CoordPic::leaveEvent(QEvent*) {
  pointer_.reset();
  mira();
}

/// The press is over without a release: something else has taken the mouse.
void CoordPic::lascia() {
  if (held_ == Qt::NoButton) return;
  held_ = Qt::NoButton;
  session_.mouse.lascia();
  setCursor(Qt::CrossCursor);
  changed_();
}

/// Shows which label a click would hit.
void CoordPic::mira() {
  const Pointed now = pointer_ ? session_.mouse.puntato(pointer_->X, pointer_->Y) : Pointed{};
  if (now == aim_) return;
  for (const Pointed& mark : {aim_, now}) {
    if (mark.target.kind != TargetKind::Nothing) update(marks_.posto(mark));
  }
  aim_ = now;
  if (held_ == Qt::NoButton) {
    setCursor(now.target.kind == TargetKind::Nothing ? Qt::CrossCursor : Qt::PointingHandCursor);
  }
}

/// What the mouse asked for, as a command of its own.
void CoordPic::esegui(const PictureRequest& asked) {
  if (asked.act != PictureAct::Nothing) session_.esegui(asked);
  changed_();
}

void CoordPic::suggerisci(const QHelpEvent& help) {
  if (held_ != Qt::NoButton || QApplication::mouseButtons() != Qt::NoButton) return;
  const PuntoPixel at = pixel(help.pos());
  const std::string text = session_.mouse.suggerimento(at.X, at.Y);
  if (text.empty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help.globalPos(), QString::fromStdString(text).toHtmlEscaped(), this);
  }
}

}  // namespace corvan

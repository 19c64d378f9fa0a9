#include "app/SectionPic.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <utility>

#include "app/Wheel.h"
#include "session/Caption.h"

namespace corvan {
namespace {

constexpr QColor PickColour(0xC0, 0x00, 0x20);

/// The block that shows a measurement; nullptr for none.
const SectionBlock* BloccoDi(const SectionModel& model, const SectionLayout& layout, std::int32_t measurement) {
  const std::size_t line = model.line[static_cast<std::size_t>(measurement) - 1];
  const auto shows = [line](const SectionBlock& b) { return line >= b.firstLine && line <= b.lastLine; };
  const auto found = std::find_if(layout.blocks.begin(), layout.blocks.end(), shows);
  return found == layout.blocks.end() ? nullptr : &*found;
}

}  // namespace

SectionPic::SectionPic(Session& session, std::function<void()> changed, std::function<void(const QPoint&)> pointed,
                       std::function<void(const std::string&)> told)
    : PictureWidget("SectionPic", {320, 200}),
      session_(session),
      changed_(std::move(changed)),
      pointed_(std::move(pointed)),
      told_(std::move(told)) {}

void SectionPic::resizeEvent(QResizeEvent* event) {
  PictureWidget::resizeEvent(event);
  session_.sectionMouse.portata(lunghezza(QApplication::startDragDistance()));
}

QImage SectionPic::spiegata() {
  return copia(
      [this](Canvas& canvas) { session_.section.dipingiCopia(canvas, DidascaliaRilievo(session_.survey.dati())); });
}

void SectionPic::paintEvent(QPaintEvent*) {
  const std::size_t known = session_.findings().entries().size();
  session_.section.dipingi();
  if (session_.findings().entries().size() != known) QTimer::singleShot(0, this, [this] { changed_(); });
  mira();  // something else may lie under a pointer at rest
  QPainter painter(this);
  painter.drawImage(rect(), image_);
  segna(painter);
}

/// The stretch that a drag would choose, and where the boat was at the measurement that a click would.
void SectionPic::segna(QPainter& painter) const {
  const SectionLayout& layout = session_.section.disposta();
  const SectionModel& model = session_.section.modello();
  const double scale = devicePixelRatioF();
  const auto column = [&](const SectionBlock& block, std::int32_t k) {
    const double along = layout.colonna(block, model.distance[static_cast<std::size_t>(k) - 1]);
    return (block.plot.left + std::clamp(along, 0.0, block.plot.width())) / scale;
  };
  const auto stretch = session_.sectionMouse.tratto();
  const std::optional<std::int32_t> shown = stretch ? std::optional(stretch->first) : aim_;
  const SectionBlock* block = shown ? BloccoDi(model, layout, *shown) : nullptr;
  if (block == nullptr) return;
  const double top = block->air.top / scale, bottom = block->plot.bottom / scale;
  if (stretch) {
    const double left = column(*block, stretch->first), right = column(*block, stretch->second);
    const QRectF band(left, top, right - left, bottom - top);
    painter.fillRect(band, QColor(PickColour.red(), PickColour.green(), PickColour.blue(), 56));
    painter.setPen(PickColour);
    for (const double x : {left, right}) painter.drawLine(QPointF(x, top), QPointF(x, bottom));
    return;
  }
  const double x = column(*block, *shown), foot = block->air.bottom / scale, side = (foot - top) / 3;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(PickColour);
  painter.drawPolygon(QPolygonF({{x - side, foot - 1.5 * side}, {x + side, foot - 1.5 * side}, {x, foot}}));
}

void SectionPic::mousePressEvent(QMouseEvent* event) {
  if (held_ || event->button() != Qt::LeftButton) return;
  QToolTip::hideText();
  held_ = true;
  session_.section.dipingi();
  const bool toggles = event->modifiers().testFlag(Qt::ControlModifier);
  session_.sectionMouse.premi(pixel(event->position()), toggles ? SectionPress::Toggle : SectionPress::Choose);
}

void SectionPic::mouseMoveEvent(QMouseEvent* event) {
  if (held_ && !event->buttons().testFlag(Qt::LeftButton)) lascia();  // the release went elsewhere
  pointer_ = pixel(event->position());
  if (held_) {
    session_.sectionMouse.muovi(*pointer_);
    update();
  }
  mira();
  pointed_(event->position().toPoint());
}

void SectionPic::mouseReleaseEvent(QMouseEvent* event) {
  if (!held_ || event->button() != Qt::LeftButton) return;
  held_ = false;
  pointer_ = pixel(event->position());
  session_.esegui(session_.sectionMouse.rilascia(*pointer_));
  mira();
  changed_();
}

/// The second press of a double click; of another button it is a press like any other.
void SectionPic::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || held_) return;
  session_.section.dipingi();
  session_.sectionMouse.doppio(pixel(event->position()));
  changed_();
}

void SectionPic::wheelEvent(QWheelEvent* event) {
  const double notches = Scatti(*event);
  if (notches == 0.0) return event->ignore();
  session_.section.dipingi();
  session_.sectionMouse.rotella(pixel(event->position()), notches);
  changed_();
  event->accept();
}

/// @return false for a key that is none of the section's
bool SectionPic::tasto(int key, bool shift) {
  constexpr double zoom = 1.2;
  const double share = shift ? 0.5 : 0.1;  // of what is shown
  SectionMouse& mouse = session_.sectionMouse;
  session_.section.dipingi();
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      mouse.scorri(key == Qt::Key_Right ? share : -share);
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      mouse.ingrandisci(1.0 / zoom);
      return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      mouse.ingrandisci(zoom);
      return true;
    case Qt::Key_Home:
      mouse.intera();
      return true;
    default:
      return false;
  }
}

void SectionPic::keyPressEvent(QKeyEvent* event) {
  const bool other = event->modifiers().testFlag(Qt::ControlModifier) || event->modifiers().testFlag(Qt::AltModifier);
  if (held_) {
    if (event->key() != Qt::Key_Escape) return;
    session_.sectionMouse.rinuncia();
    lascia();
  } else if (other || !tasto(event->key(), event->modifiers().testFlag(Qt::ShiftModifier))) {
    PictureWidget::keyPressEvent(event);
  } else {
    changed_();
  }
}

void SectionPic::leaveEvent(QEvent*) {
  pointer_.reset();
  mira();
}

/// What can be done with the reading under the pointer.
void SectionPic::contextMenuEvent(QContextMenuEvent* event) {
  if (held_) return;
  session_.section.dipingi();
  const PuntoPixel at = pixel(event->pos());
  const std::optional<ReadingUnder> reading = session_.sectionMouse.lettura(at);
  const std::optional<std::int32_t> target = session_.sectionMouse.bersaglio(at);
  QMenu menu(this);
  menu.setObjectName("SectionMenu");
  QString name = "&Exclude Reading";
  if (reading) {
    const auto k = static_cast<std::size_t>(reading->measurement);
    const bool taken = InUso(session_.survey.dati().Misure(k), reading->channel);
    name = QStringLiteral("%1 Reading: Measurement %2, Channel %3")
               .arg(taken ? "&Exclude" : "&Include")
               .arg(reading->measurement)
               .arg(reading->channel);
  }
  QAction* toggle = menu.addAction(name, this, [this, reading] {
    session_.escludi(*reading);
    changed_();
  });
  toggle->setEnabled(reading.has_value());
  QAction* pick = menu.addAction("&Pick as Extreme", this, [this, target] {
    session_.esegui(SectionChoice{target, std::nullopt, std::nullopt});
    changed_();
  });
  pick->setEnabled(target.has_value());
  menu.addActions(actions());
  menu.exec(event->globalPos());
}

/// The press is over without a release: something else has taken the mouse.
void SectionPic::lascia() {
  if (!std::exchange(held_, false)) return;
  session_.sectionMouse.lascia();
  changed_();
}

/// Tells what lies under the pointer, and shows what a click would choose.
void SectionPic::mira() {
  const std::string under = pointer_ ? session_.sectionMouse.suggerimento(*pointer_) : std::string();
  if (under != under_) {
    told_(under);
    if (QToolTip::isVisible()) QToolTip::hideText();  // it tells of what was there before
  }
  under_ = under;
  const bool drags = session_.sectionMouse.dragging() > SectionDrag::Press;
  const std::optional<std::int32_t> aim =
      pointer_ && !drags ? session_.sectionMouse.bersaglio(*pointer_) : std::nullopt;
  if (std::exchange(aim_, aim) != aim) update();
  puntatore();
}

void SectionPic::puntatore() {
  const SectionMouse& mouse = session_.sectionMouse;
  Qt::CursorShape shape = aim_ ? Qt::PointingHandCursor : Qt::OpenHandCursor;
  if (pointer_ && mouse.suAsse(*pointer_)) shape = Qt::SizeHorCursor;
  if (mouse.dragging() == SectionDrag::Scroll) shape = Qt::ClosedHandCursor;
  if (mouse.dragging() == SectionDrag::Range) shape = Qt::SizeHorCursor;
  if (cursor().shape() != shape) setCursor(shape);
}

void SectionPic::suggerisci(const QHelpEvent& help) {
  if (held_ || QApplication::mouseButtons() != Qt::NoButton) return;
  const PuntoPixel at = pixel(help.pos());
  QString text = QString::fromStdString(session_.sectionMouse.suggerimento(at));
  if (session_.sectionMouse.lettura(at)) text.replace("; ", "\n");
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    const QString lines = "<p style='white-space:pre'>" + text.toHtmlEscaped() + "</p>";
    QToolTip::showText(help.globalPos(), lines, this);
  }
}

}  // namespace corvan

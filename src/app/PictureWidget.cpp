#include "app/PictureWidget.h"

#include <algorithm>
#include <cmath>

namespace corvan {

PictureWidget::PictureWidget(const char* name, QSize least) {
  setObjectName(name);
  setMinimumSize(least);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

PuntoPixel PictureWidget::pixel(const QPointF& place) const {
  const double scale = devicePixelRatioF();
  return {static_cast<std::int32_t>(std::floor(place.x() * scale)),
          static_cast<std::int32_t>(std::floor(place.y() * scale))};
}

std::int32_t PictureWidget::lunghezza(double logical) const {
  return static_cast<std::int32_t>(std::lround(logical * devicePixelRatioF()));
}

QImage PictureWidget::copia(const std::function<void(Canvas&)>& paint) const {
  QImage copy = CreaImmagine(image_.width(), image_.height());
  ImageCanvas canvas(copy);
  paint(canvas);
  return copy;
}

void PictureWidget::resizeEvent(QResizeEvent*) {
  lascia();
  tela(nullptr);
  const PuntoPixel size = pixel(QPointF(width(), height()));
  image_ = CreaImmagine(std::max(size.X, 1), std::max(size.Y, 1));
  canvas_ = std::make_unique<ImageCanvas>(image_);
  tela(canvas_.get());
}

bool PictureWidget::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ToolTip:
      suggerisci(*static_cast<QHelpEvent*>(event));
      return true;
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
    case QEvent::UngrabMouse:
    case QEvent::Hide:
      lascia();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

}  // namespace corvan

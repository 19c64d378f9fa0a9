// What the pages that show a picture have in common: its pixels at the screen's own resolution, and presses that end
// when something else takes the mouse.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <QHelpEvent>
#include <QImage>
#include <QWidget>

#include "paint/ImageCanvas.h"

namespace corvan {

class PictureWidget : public QWidget {
 protected:
  PictureWidget(const char* name, QSize least);

  /// The desk behind the page paints from now on on this canvas, or on none.
  virtual void tela(Canvas* canvas) = 0;
  /// The press is over without a release: something else has taken the mouse.
  virtual void lascia() = 0;
  virtual void suggerisci(const QHelpEvent& help) = 0;

  /// The pixel of the picture at a place of the widget.
  PuntoPixel pixel(const QPointF& place) const;
  /// A length of the widget in pixels of the picture.
  std::int32_t lunghezza(double logical) const;
  /// Another picture of the same size, painted aside.
  QImage copia(const std::function<void(Canvas&)>& paint) const;

  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

  QImage image_;

 private:
  std::unique_ptr<ImageCanvas> canvas_;
};

}  // namespace corvan

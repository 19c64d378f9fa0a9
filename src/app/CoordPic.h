// The picture of the survey: paints it at the screen's own resolution and hands the mouse to the session.
#pragma once

#include <functional>
#include <memory>
#include <QImage>
#include <QWidget>

#include "paint/ImageCanvas.h"
#include "session/Session.h"

namespace corvan {

class CoordPic : public QWidget {
 public:
  /// @param changed runs when the mouse has changed something
  /// @param pointed runs when the pointer has moved, with its place in picture pixels
  CoordPic(Session& session, std::function<void()> changed, std::function<void(const PuntoPixel&)> pointed);

  /// What is to be seen, painted if it was not yet.
  const QImage& picture() {
    session_.view.picture().dipingi();
    return image_;
  }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  PuntoPixel pixel(const QPointF& place) const;
  MouseEvent evento(const QMouseEvent& event, Qt::MouseButton button) const;
  void esegui(const PictureRequest& asked);
  void disegnaSuggerimento(QPainter& painter) const;
  void disegnaLetture(QPainter& painter) const;
  void disegnaMarcatore(QPainter& painter) const;

  Session& session_;
  std::function<void()> changed_;
  std::function<void(const PuntoPixel&)> pointed_;
  QImage image_;
  std::unique_ptr<ImageCanvas> canvas_;
  QPoint pointer_;
  Qt::MouseButton held_ = Qt::NoButton;
};

}  // namespace corvan

// The picture of the survey: paints it at the screen's own resolution and hands mouse and keys to the session.
#pragma once

#include <functional>
#include <optional>

#include "app/PictureMarks.h"
#include "app/PictureWidget.h"
#include "session/Session.h"

namespace corvan {

class CoordPic : public PictureWidget {
 public:
  /// @param changed runs when the mouse has changed something
  /// @param pointed runs when the pointer has moved, with its place in picture pixels
  CoordPic(Session& session, std::function<void()> changed, std::function<void(const PuntoPixel&)> pointed);

  /// What is to be seen, painted if it was not yet.
  const QImage& picture() {
    session_.view.picture().dipingi();
    return image_;
  }
  /// The same with the small line that explains it, as pictures leave the program.
  QImage spiegata();

 protected:
  void tela(Canvas* canvas) override { session_.view.picture().tela(canvas); }
  void lascia() override;
  void suggerisci(const QHelpEvent& help) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  MouseEvent evento(const QMouseEvent& event, Qt::MouseButton button) const;
  void esegui(const PictureRequest& asked);
  void mira();
  bool tasto(int key, bool shift);

  Session& session_;
  std::function<void()> changed_;
  std::function<void(const PuntoPixel&)> pointed_;
  PictureMarks marks_;
  Qt::MouseButton held_ = Qt::NoButton;
  std::optional<PuntoPixel> pointer_;  ///< where it rests on the picture with no button held
  Pointed aim_;                        ///< the label that a click there would hit
};

}  // namespace corvan

// The section laid flat: paints it at the screen's own resolution and hands mouse and keys to the session.
#pragma once

#include <functional>
#include <optional>

#include "app/PictureWidget.h"
#include "session/Session.h"

namespace corvan {

class SectionPic : public PictureWidget {
 public:
  /// @param changed runs when the mouse or a key has changed something, or the painting has something to tell
  /// @param pointed runs when the pointer has moved, with its place in this widget
  /// @param told takes what lies under the pointer, in one line; empty for nothing
  SectionPic(Session& session, std::function<void()> changed, std::function<void(const QPoint&)> pointed,
             std::function<void(const std::string&)> told);
  ~SectionPic() override { session_.section.tela(nullptr); }

  /// What is to be seen, painted if it was not yet.
  const QImage& picture() {
    session_.section.dipingi();
    return image_;
  }
  /// The same with the small line that explains it, as pictures leave the program.
  QImage spiegata();

 protected:
  void tela(Canvas* canvas) override { session_.section.tela(canvas); }
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
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void mira();
  void puntatore();
  bool tasto(int key, bool shift);
  void segna(QPainter& painter) const;

  Session& session_;
  std::function<void()> changed_;
  std::function<void(const QPoint&)> pointed_;
  std::function<void(const std::string&)> told_;
  bool held_ = false;                  ///< the left button
  std::optional<PuntoPixel> pointer_;  ///< where it is on the picture
  std::optional<std::int32_t> aim_;    ///< the measurement that a click there would choose
  std::string under_;                  ///< what was told last
};

}  // namespace corvan

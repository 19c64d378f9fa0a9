// A column of panels beside the picture, which scrolls where they do not all fit.
#pragma once

#include <initializer_list>
#include <QScrollArea>

namespace corvan {

class PanelColumn : public QScrollArea {
 public:
  /// @param width of the panels, pixels; the scroll bar takes its own beside them
  /// @param growing takes the height that is left over; none: it stays empty
  PanelColumn(const char* name, int width, std::initializer_list<QWidget*> panels, QWidget* growing);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void misura();

  int width_;
};

}  // namespace corvan

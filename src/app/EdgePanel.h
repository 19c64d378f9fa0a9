// The column of panels at the window's right edge: beside the picture, or over it while it shows itself for the
// pointer.
#pragma once

#include <QFrame>
#include <QHBoxLayout>

#include "app/PanelColumn.h"

namespace corvan {

/// Beside the picture it takes room from it; over it the picture keeps its size, since a panel that comes and goes with
/// the pointer would make the survey jump.
class EdgePanel : public QFrame {
 public:
  enum class Place { Beside, Over };

  /// @param row of the picture, which the column ends
  EdgePanel(QHBoxLayout* row, PanelColumn* column);

  void mostra(bool shown, Place place);
  /// The pointer is near the edge or over the panel. @param at in the parent's coordinates
  bool richiesto(const QPoint& at) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void disponi();

  QHBoxLayout* row_;
  PanelColumn* column_;
  bool inRow_ = false;
};

}  // namespace corvan

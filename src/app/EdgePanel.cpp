#include "app/EdgePanel.h"

#include <algorithm>
#include <QEvent>
#include <QVBoxLayout>

#include "app/Frame.h"

namespace corvan {

EdgePanel::EdgePanel(QHBoxLayout* row, PanelColumn* column) : row_(row), column_(column) {
  (new QVBoxLayout(this))->addWidget(column);
}

void EdgePanel::mostra(bool shown, Place place) {
  const bool beside = place == Place::Beside;
  if (beside && !inRow_) {
    row_->addWidget(this);
    parentWidget()->installEventFilter(this);
  } else if (!beside && inRow_) {
    row_->removeWidget(this);
  }
  inRow_ = beside;
  setAutoFillBackground(!beside);
  setFrameShape(beside ? QFrame::NoFrame : QFrame::StyledPanel);
  const int margin = beside ? 0 : Unit;
  layout()->setContentsMargins(margin, margin, margin, margin);
  setVisible(shown);
  disponi();
}

void EdgePanel::disponi() {
  if (inRow_ || parentWidget() == nullptr) return;
  const QRect room = row_->contentsRect();
  const QMargins margins = layout()->contentsMargins();
  const int needed = column_->widget()->sizeHint().height() + margins.top() + margins.bottom() + 2 * frameWidth();
  const int wide = layout()->sizeHint().width() + 2 * frameWidth();
  setGeometry(room.right() + 1 - wide, room.top(), wide, std::min(needed, room.height()));
  raise();
}

bool EdgePanel::richiesto(const QPoint& at) const {
  constexpr int near = 24;
  const bool over = isVisible() && (inRow_ ? at.x() >= x() : geometry().contains(at));
  return over || (at.x() >= parentWidget()->width() - near && at.x() < parentWidget()->width());
}

bool EdgePanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) disponi();
  return QFrame::eventFilter(watched, event);
}

}  // namespace corvan

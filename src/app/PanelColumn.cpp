#include "app/PanelColumn.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/Frame.h"

namespace corvan {

PanelColumn::PanelColumn(const char* name, int width, std::initializer_list<QWidget*> panels, QWidget* growing)
    : width_(width) {
  setObjectName(QLatin1String(name));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  auto* inside = new QWidget;
  auto* layout = new QVBoxLayout(inside);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(Unit);
  for (QWidget* panel : panels) layout->addWidget(panel, panel == growing ? 1 : 0);
  layout->addStretch(growing == nullptr ? 1 : 0);
  setWidget(inside);
  inside->installEventFilter(this);
  verticalScrollBar()->installEventFilter(this);
  misura();
  // A panel that takes the focus by a key is brought into sight.
  QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && widget()->isAncestorOf(now)) ensureWidgetVisible(now);
  });
}

bool PanelColumn::eventFilter(QObject* watched, QEvent* event) {
  const bool bar = watched == verticalScrollBar() && (event->type() == QEvent::Show || event->type() == QEvent::Hide);
  if (bar) misura();
  return QScrollArea::eventFilter(watched, event);
}

/// The panels keep their width whether the bar is shown or not.
void PanelColumn::misura() {
  const QScrollBar* bar = verticalScrollBar();
  setFixedWidth(width_ + (bar->isVisibleTo(this) ? bar->sizeHint().width() : 0));
}

}  // namespace corvan

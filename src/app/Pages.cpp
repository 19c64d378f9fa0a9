#include "app/Pages.h"

namespace corvan {

Pages::Pages(QWidget* first) {
  setObjectName("Pages");
  addWidget(first);
  connect(this, &QStackedWidget::currentChanged, this, [this] {
    for (const auto& [page, item] : items_) item->setChecked(page == currentWidget());
  });
}

void Pages::aggiungi(QWidget* page, QAction* item) {
  addWidget(page);
  items_.emplace_back(page, item);
  item->setCheckable(true);
  connect(item, &QAction::triggered, this, [this, page](bool shown) { mostra(shown ? page : widget(0)); });
}

void Pages::mostra(QWidget* page) {
  setCurrentWidget(page);
  metti();
}

}  // namespace corvan

// The pages of the window's middle: one is shown, and each but the first has a menu item that shows it and goes back.
#pragma once

#include <QAction>
#include <QStackedWidget>
#include <utility>
#include <vector>

namespace corvan {

class Pages : public QStackedWidget {
 public:
  /// @param first the page that others give way to
  explicit Pages(QWidget* first);

  /// Adds a page behind those that are there.
  /// @param item ticked while the page is shown; chosen again it shows the first one
  void aggiungi(QWidget* page, QAction* item);
  /// Puts the focus on the page that is shown.
  void metti() { currentWidget()->setFocus(); }

 private:
  void mostra(QWidget* page);

  std::vector<std::pair<QWidget*, QAction*>> items_;
};

}  // namespace corvan

// The menu of the colours: palettes, direction, logarithm and where the range comes from.
#pragma once

#include <functional>
#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <vector>

#include "session/Session.h"

namespace corvan {

class ColourMenu : public QMenu {
 public:
  /// @param changed runs when an item has done its command
  ColourMenu(Session& session, std::function<void()> changed, QWidget* parent);

  void mostra();  ///< ticks what is in force

 private:
  QAction* voce(const char* name, const QString& caption, QActionGroup* group);

  Session& session_;
  std::function<void()> changed_;
  std::vector<QAction*> palettes_;  ///< in the order of PaletteTable
  QAction* reversed_ = nullptr;
  QAction* logarithmic_ = nullptr;
  QAction* data_ = nullptr;
  QAction* percentile_ = nullptr;
  QAction* typed_ = nullptr;
};

}  // namespace corvan

// "Open Recent": the surveys read last.
#pragma once

#include <functional>
#include <QMenu>

#include "app/Remembered.h"

namespace corvan {

/// Built anew each time it opens. A survey of which files are missing says so; one that is gone cannot be chosen.
class RecentMenu : public QMenu {
 public:
  /// @param remembered must outlive the menu
  /// @param read takes the files of the survey chosen
  RecentMenu(Remembered& remembered, std::function<void(const QStringList&)> read, QWidget* parent = nullptr);

 private:
  void riempi();
  void aggiungi(const QStringList& files);

  Remembered& remembered_;
  std::function<void(const QStringList&)> read_;
};

}  // namespace corvan

// "Messages": everything that the commands of this run told, the newest command first.
#pragma once

#include <QDialog>
#include <QTableWidget>

#include "base/Findings.h"

namespace corvan {

class FindingsList : public QDialog {
 public:
  /// @param findings must outlive the list
  FindingsList(const Findings& findings, QWidget* parent);

  /// Opens the list, or brings it to the front.
  void apri();
  /// Shows what has come since; an unseen list waits until it is opened.
  void aggiorna();

 private:
  void copia() const;

  const Findings& findings_;
  QTableWidget* table_;
  std::size_t shown_ = 0, commandsShown_ = 0;
};

}  // namespace corvan

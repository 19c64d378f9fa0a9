// The small form with the program's title and version, and with what a report of a fault should tell of the machine.
#pragma once

#include <QDialog>

namespace corvan {

class AboutBox : public QDialog {
 public:
  explicit AboutBox(QWidget* parent);
};

/// Program, compiler, Qt, platform, processors and screens, one a line as "name: value".
QString DatiSistema();

}  // namespace corvan

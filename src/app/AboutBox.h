// The small form with the program's title and version.
#pragma once

#include <QDialog>

namespace corvan {

class AboutBox : public QDialog {
 public:
  explicit AboutBox(QWidget* parent);
};

}  // namespace corvan

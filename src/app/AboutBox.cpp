#include "app/AboutBox.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>

#include "app/Frame.h"

namespace corvan {

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About Corvan");
  auto* icon = new QLabel;
  icon->setPixmap(QIcon(":/app/corvan.png").pixmap(64, 64));
  auto* title = new QLabel("<b>Corvan</b>");
  auto* text = new QLabel("Pre-processing of marine electrical-resistivity surveys\n\nVersion " CORVAN_VERSION
                          "\nFree software under the MIT licence");
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(3 * Unit, 3 * Unit, 3 * Unit, 2 * Unit);
  grid->setHorizontalSpacing(3 * Unit);
  grid->setVerticalSpacing(Unit);
  grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(title, 0, 1);
  grid->addWidget(text, 1, 1);
  grid->addWidget(buttons, 2, 0, 1, 2);
}

}  // namespace corvan

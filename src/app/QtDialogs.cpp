#include "app/QtDialogs.h"

#include <QApplication>
#include <QIcon>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

namespace corvan {

Answer QtDialogs::MsgBox(const MessageRequest& request) {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(TestoDi(request.question).title);
  box.setText(QString::fromStdString(PromptDi(request)));
  box.setInformativeText(QString::fromStdString(request.details));
  box.setIconPixmap(QIcon(":/app/corvan.png").pixmap(48, 48));
  const bool choice = TestoDi(request.question).buttons == Buttons::OkCancel;
  box.setStandardButtons(choice ? QMessageBox::Ok | QMessageBox::Cancel
                                : QMessageBox::StandardButtons(QMessageBox::Ok));
  box.setDefaultButton(QMessageBox::Ok);
  box.setEscapeButton(choice ? QMessageBox::Cancel : QMessageBox::Ok);
  return box.exec() == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
}

std::optional<std::string> QtDialogs::InputBox(const InputRequest& request) {
  QInputDialog box(QApplication::activeWindow());
  box.setWindowTitle(QString::fromStdString(TitoloDi(request)));
  const std::string below = request.details.empty() ? "" : "\n" + request.details;
  box.setLabelText(QString::fromStdString(PromptDi(request) + below));
  box.setTextValue(QString::fromStdString(request.defaultAnswer));
  box.resize(420, box.sizeHint().height());
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return box.textValue().toStdString();
}

}  // namespace corvan

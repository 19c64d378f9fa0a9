#include "app/QtDialogs.h"

#include <QApplication>

#include "app/QuestionBox.h"

namespace corvan {
namespace {

/// The window that a box belongs over: a box that is open already, else the program's window, though another may be
/// active.
QWidget* Sotto() {
  if (QWidget* open = QApplication::activeModalWidget()) return open;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "Corvan" && window->isVisible()) return window;
  }
  return QApplication::activeWindow();
}

}  // namespace

Answer QtDialogs::MsgBox(const MessageRequest& request) {
  const QuestionText& text = TestoDi(request.question);
  QuestionBox box({text.title, QString::fromStdString(PromptDi(request)), QString::fromStdString(request.details)},
                  text.buttons, nullptr, Sotto());
  if (request.question == Question::ReplaceFiles) box.preferisciAnnulla();
  const bool accepted = box.exec() == QDialog::Accepted;
  return accepted || text.buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
}

std::optional<std::string> QtDialogs::InputBox(const InputRequest& request) {
  auto* answer = new QLineEdit(QString::fromStdString(request.defaultAnswer));
  QuestionBox box({QString::fromStdString(TitoloDi(request)), QString::fromStdString(PromptDi(request)),
                   QString::fromStdString(request.details)},
                  Buttons::OkCancel, answer, Sotto());
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return answer->text().toStdString();
}

}  // namespace corvan

// The box in which the program asks or tells.
#pragma once

#include <QDialog>
#include <QLineEdit>

#include "base/Question.h"

namespace corvan {

/// The given text stands first, below it what it is about. Long details scroll, so that the box fits every screen.
class QuestionBox : public QDialog {
 public:
  struct Text {
    QString title, prompt, details;
  };
  /// @param answer where one is typed; null for a box that is answered by its buttons alone
  QuestionBox(const Text& text, Buttons buttons, QLineEdit* answer, QWidget* parent);

  /// A hasty Enter shall give up.
  void preferisciAnnulla();
};

}  // namespace corvan

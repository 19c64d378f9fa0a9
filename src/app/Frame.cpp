#include "app/Frame.h"

#include <utility>

#include "session/Controls.h"

namespace corvan {

Frame::Frame(Session& session, const char* name, const QString& caption, std::function<void()> changed)
    : QGroupBox(caption), session_(session), changed_(std::move(changed)) {
  setObjectName(QLatin1String(name));
}

std::function<void()> Frame::esegui(const char* control) const {
  return [this, control] {
    EseguiControllo(session_, control);
    changed();
  };
}

void Frame::invio(const char* control, const QLineEdit* box) const {
  EseguiControllo(session_, control, box->text().toStdString());
  changed();
}

void Frame::collega(QLineEdit* box, const char* control) {
  connect(box, &QLineEdit::returnPressed, this, [this, box, control] { invio(control, box); });
}

QLineEdit* NumberBox(const char* name, const QString& toolTip) {
  QLineEdit* box = Named(new QLineEdit, name, toolTip);
  box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  box->setMinimumWidth(6 * Unit);
  return box;
}

QPushButton* StepButton(const char* name, const QString& sign, const QString& toolTip) {
  QPushButton* button = Named(new QPushButton(sign), name, toolTip);
  button->setFixedWidth(4 * Unit);
  button->setAutoRepeat(true);
  return button;
}

void SetText(QLineEdit* box, const std::string& text) {
  const QString shown = QString::fromStdString(text);
  if (box->text() != shown) box->setText(shown);
}

}  // namespace corvan

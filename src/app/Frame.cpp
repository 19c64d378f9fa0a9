#include "app/Frame.h"

#include <utility>

namespace corvan {

Frame::Frame(Session& session, const char* name, const QString& caption, std::function<void()> changed)
    : QGroupBox(caption), session_(session), changed_(std::move(changed)) {
  setObjectName(QLatin1String(name));
}

std::function<void()> Frame::esegui(void (Session::*command)()) const {
  // The session by itself: a call through a member of the captured frame is miscompiled by g++ 12 under its sanitizer.
  return [frame = this, &session = session_, command] {
    (session.*command)();
    frame->changed();
  };
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

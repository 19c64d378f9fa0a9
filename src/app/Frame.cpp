#include "app/Frame.h"

#include <algorithm>
#include <QStyleOptionGroupBox>
#include <utility>

#include "app/Icons.h"
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

void Frame::rendiChiudibile() {
  if (close_ != nullptr) return;
  close_ = new QToolButton(this);
  close_->setObjectName(objectName() + "_Close");
  close_->setToolTip("Close (Esc)");
  close_->setAccessibleName("Close " + title());
  close_->setIcon(Icona("close"));
  close_->setAutoRaise(true);
  close_->setFocusPolicy(Qt::NoFocus);  // the key has Escape
  connect(close_, &QToolButton::clicked, this, [this] { chiudi(); });
  disponiChiusura();
  close_->show();
}

/// In the strip of the title, at its right end.
void Frame::disponiChiusura() {
  if (close_ == nullptr) return;
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  const QRect title = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
  const QRect inside = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, this);
  const int side = std::max(2 * Unit, title.height());
  close_->setIconSize(QSize(side, side) * 3 / 4);
  close_->setGeometry(width() - side, std::clamp(title.center().y() - side / 2, 0, std::max(0, inside.top() - side)),
                      side, side);
}

void Frame::keyPressEvent(QKeyEvent* event) {
  if (close_ == nullptr || event->key() != Qt::Key_Escape) return QGroupBox::keyPressEvent(event);
  event->accept();
  chiudi();
}

void Frame::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  disponiChiusura();
}

void Frame::changeEvent(QEvent* event) {
  QGroupBox::changeEvent(event);
  disponiChiusura();
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

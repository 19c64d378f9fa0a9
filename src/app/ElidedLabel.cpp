#include "app/ElidedLabel.h"

#include <algorithm>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "app/Frame.h"
#include "base/Text.h"

namespace corvan {
namespace {

/// Line ends become blanks, what else would move a cursor stands as its code.
QString UnaRiga(QString text) {
  text.replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ').replace('\t', ' ');
  return QString::fromStdString(Visibile(text.toStdString()));
}

}  // namespace

QColor ColoreDi(Tone tone, const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
  switch (tone) {
    case Tone::Success:
      return dark ? QColor(0x8BD48F) : QColor(0x1B6E20);
    case Tone::Note:
      return dark ? QColor(0xFFCC66) : QColor(0x7A4B00);
    case Tone::Fault:
      return dark ? QColor(0xFF9A94) : QColor(0xA80000);
    case Tone::Plain:
      break;
  }
  return palette.color(QPalette::WindowText);
}

QString SuggerimentoDi(const QString& text) {
  constexpr qsizetype most = 1500;
  if (text.isEmpty()) return {};
  const QString shown = text.size() <= most ? text : text.left(most) + QChar(0x2026);
  return "<p style='white-space:pre-wrap'>" + shown.toHtmlEscaped() + "</p>";
}

ElidedLabel::ElidedLabel(const char* name, Qt::TextElideMode elide) : elide_(elide) {
  setObjectName(QLatin1String(name));
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::riserva(const QString& longest) {
  longest_ = longest;
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  updateGeometry();
}

/// The same for every text and weight: letters of other scripts would else make the window's lines higher.
int ElidedLabel::altezza() const {
  QFont bold = font(), light = font();
  bold.setBold(true);
  light.setBold(false);
  return std::max(QFontMetrics(bold).height(), QFontMetrics(light).height());
}

QSize ElidedLabel::sizeHint() const {
  const QMargins margins = contentsMargins();
  return {fontMetrics().horizontalAdvance(longest_) + margins.left() + margins.right() + 1, altezza()};
}

void ElidedLabel::mostra(const QString& text, const QString& tail, const QString& whole) {
  head_ = UnaRiga(text);
  tail_ = tail;
  whole_ = whole;
  if (this->text() != head_ + tail_) setText(head_ + tail_);
  aggiorna();
}

void ElidedLabel::tinta(Tone tone) {
  tone_ = tone;
  QFont bold = font();
  bold.setBold(tone == Tone::Fault);  // for those who do not tell the colours apart
  setFont(bold);
  update();
}

void ElidedLabel::alClic(std::function<void()> clicked) {
  clicked_ = std::move(clicked);
  clicked_ ? setCursor(Qt::PointingHandCursor) : unsetCursor();
}

QString ElidedLabel::visto() const {
  const int room = spazio() - fontMetrics().horizontalAdvance(tail_);
  return fontMetrics().elidedText(head_, elide_, std::max(room, 0)) + tail_;
}

void ElidedLabel::aggiorna() {
  const bool cut = visto() != text();
  setToolTip(SuggerimentoDi(!whole_.isEmpty() ? whole_ : cut ? text() : QString()));
  update();
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(ColoreDi(tone_, palette()));
  painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, visto());
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  aggiorna();
}

void ElidedLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
}

void ElidedLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (clicked_ && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) clicked_();
}

}  // namespace corvan

// A line of text that never asks for more room than it was given.
#pragma once

#include <functional>
#include <QLabel>

namespace corvan {

/// What a text is about, as its colour tells.
enum class Tone { Plain, Success, Note, Fault };

/// The colour of a tone, readable on the window's ground whether that is light or dark.
QColor ColoreDi(Tone tone, const QPalette& palette);

/// A text from outside as a tool tip: never taken for markup, broken into lines, the end of a very long one left out.
QString SuggerimentoDi(const QString& text);

/// What does not fit is elided; the whole is then the tool tip. text() gives the whole, in one line.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(const char* name, Qt::TextElideMode elide = Qt::ElideRight);

  /// Keeps the room of the longest text that is usual, whatever is shown.
  void riserva(const QString& longest);
  /// @param tail is never elided @param whole what the tool tip says; the text when it is empty
  void mostra(const QString& text, const QString& tail = {}, const QString& whole = {});
  void tinta(Tone tone);
  Tone tinta() const { return tone_; }
  /// The text as it is painted.
  QString visto() const;
  /// Runs at a click; none: the label takes no clicks.
  void alClic(std::function<void()> clicked);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, altezza()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int altezza() const;
  int spazio() const { return contentsRect().width(); }
  void aggiorna();

  Qt::TextElideMode elide_;
  QString head_, tail_, whole_, longest_;
  Tone tone_ = Tone::Plain;
  std::function<void()> clicked_;
};

}  // namespace corvan

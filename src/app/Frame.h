// What all panels of the window have in common.
#pragma once

#include <functional>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "session/Session.h"

namespace corvan {

/// The unit of all distances in the window, pixels.
inline constexpr int Unit = 8;

/// One panel: turns its controls into commands of the session, and shows what the session holds.
class Frame : public QGroupBox {
 public:
  /// @param changed runs after each command, so that the whole window shows what it did
  Frame(Session& session, const char* name, const QString& caption, std::function<void()> changed);

  /// Puts the session's state into the controls.
  virtual void mostra() = 0;
  /// Puts the focus where the user types next.
  virtual void inizia() {}
  /// What the close mark and Escape do: hides the panel. One that has a command for it calls that instead.
  virtual void chiudi() { hide(); }

 protected:
  /// Gives the panel a close mark in its upper right corner, and lets Escape close it while the focus is inside.
  void rendiChiudibile();
  Session& session() const { return session_; }
  void changed() const { changed_(); }
  /// A control's command, followed by changed(): for its signal.
  std::function<void()> esegui(const char* control) const;
  /// Runs the command of a box with the text that stands in it.
  void invio(const char* control, const QLineEdit* box) const;
  /// The same when Enter is pressed in the box.
  void collega(QLineEdit* box, const char* control);
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void disponiChiusura();

  Session& session_;
  std::function<void()> changed_;
  QToolButton* close_ = nullptr;
};

/// A control with the name that it is known by.
template <class Widget>
Widget* Named(Widget* widget, const char* name, const QString& toolTip = {}) {
  widget->setObjectName(QLatin1String(name));
  if (!toolTip.isEmpty()) widget->setToolTip(toolTip);
  return widget;
}

/// A box for a number: right-aligned, the whole of it selected when entered.
QLineEdit* NumberBox(const char* name, const QString& toolTip);

/// A small square button for one step.
QPushButton* StepButton(const char* name, const QString& sign, const QString& toolTip = {});

/// Sets a text unless it is there already, so that a cursor in the box stays where it is.
void SetText(QLineEdit* box, const std::string& text);

}  // namespace corvan

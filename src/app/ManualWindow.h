// The manual in a window of its own.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWidget>

#include "app/ManualText.h"

namespace corvan {

class ManualWindow : public QWidget {
 public:
  /// @param parent the window above which it stays, and with which it goes
  /// @param file Markdown, with its pictures beside it
  explicit ManualWindow(QWidget* parent, const QString& file = ":/manual/manual.md");

  /// Shows it, or brings it to the front.
  void apri();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Direction { Onwards, Back };

  void creaTitoli();
  void segui(const QUrl& address);
  void cerca(Direction direction);
  void cercaDaQui();

  ManualText* text_;
  QListWidget* headings_;
  QLineEdit* find_;
  QLabel* told_;
};

}  // namespace corvan

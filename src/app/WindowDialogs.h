// The questions of the window, and the progress of its long work.
#pragma once

#include <memory>
#include <QElapsedTimer>
#include <QProgressDialog>

#include "base/Dialogs.h"

namespace corvan {

/// Hands questions on to whoever asks them. Long work shows a waiting cursor at once and after a second a small window
/// with a bar and a button that gives it up; the main window is painted meanwhile, but takes no input.
class WindowDialogs : public Dialogs {
 public:
  /// @param inner asks the questions; must outlive this @param window stands behind what is shown
  /// @param patience ms that nobody minds waiting without a word
  WindowDialogs(Dialogs& inner, QWidget& window, qint64 patience = 1000)
      : inner_(inner), window_(window), patience_(patience) {}
  ~WindowDialogs() override;

  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  bool Avanzamento(const ProgressStep& step) override;

 private:
  void inizia();
  void termina();
  void mostra(const ProgressStep& step);

  Dialogs& inner_;
  QWidget& window_;
  qint64 patience_;
  bool working_ = false;
  QElapsedTimer since_;
  std::unique_ptr<QProgressDialog> bar_;
};

}  // namespace corvan

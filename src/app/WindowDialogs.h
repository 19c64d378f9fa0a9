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
  WindowDialogs(Dialogs& inner, QWidget& window) : inner_(inner), window_(window) {}
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
  bool working_ = false;
  QElapsedTimer since_;
  std::unique_ptr<QProgressDialog> bar_;
};

}  // namespace corvan

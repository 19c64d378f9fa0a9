#include "app/WindowDialogs.h"

#include <cmath>
#include <QApplication>

namespace corvan {
namespace {

constexpr int Grain = 1000;  // steps of the bar

QString Text(const ProgressStep& step) {
  return QStringLiteral("%1 %2 (%3 of %4)")
      .arg(step.work == ProgressStep::Work::Reading ? "Reading" : "Writing", QString::fromStdString(step.subject))
      .arg(step.done + 1)
      .arg(step.total);
}

}  // namespace

WindowDialogs::~WindowDialogs() { termina(); }

Answer WindowDialogs::MsgBox(const MessageRequest& request) {
  termina();  // the question is not behind the bar
  return inner_.MsgBox(request);
}

std::optional<std::string> WindowDialogs::InputBox(const InputRequest& request) {
  termina();
  return inner_.InputBox(request);
}

bool WindowDialogs::Avanzamento(const ProgressStep& step) {
  if (step.subject.empty()) {
    termina();
    return true;
  }
  if (!working_) inizia();
  if (since_.elapsed() >= patience_) mostra(step);
  // Only the bar takes input: its window is modal.
  QCoreApplication::processEvents(bar_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  return !bar_ || !bar_->wasCanceled();
}

void WindowDialogs::inizia() {
  working_ = true;
  since_.start();
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

void WindowDialogs::termina() {
  if (!working_) return;
  working_ = false;
  bar_.reset();
  QApplication::restoreOverrideCursor();
}

void WindowDialogs::mostra(const ProgressStep& step) {
  if (!bar_) {
    bar_ = std::make_unique<QProgressDialog>(&window_);
    bar_->setObjectName("Progress");
    bar_->setWindowTitle("Corvan");
    bar_->setWindowModality(Qt::ApplicationModal);
    bar_->setMinimumDuration(0);
    bar_->setAutoReset(false);
    bar_->setAutoClose(false);
    bar_->setMinimumWidth(420);
  }
  bar_->setLabelText(Text(step));
  const double share =
      (static_cast<double>(step.done) + step.share) / static_cast<double>(std::max<std::size_t>(step.total, 1));
  const bool known = step.total > 1 || step.share > 0.0;
  bar_->setRange(0, known ? Grain : 0);
  bar_->setValue(known ? static_cast<int>(std::lround(share * Grain)) : 0);
}

}  // namespace corvan

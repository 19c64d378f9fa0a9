#include "cli/Toolkit.h"

namespace corvan::cli {

Toolkit::Toolkit() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});  // hints meant for desktops
  application_.emplace(count_, arguments_.data());
}

}  // namespace corvan::cli

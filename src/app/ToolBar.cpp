#include "app/ToolBar.h"

#include <array>
#include <QAction>

#include "app/Icons.h"

namespace corvan {
namespace {

struct Button {
  const char *item, *icon, *text;
};

constexpr std::array Buttons{Button{"LoadFiles", "open", "Choose survey files"},
                             Button{"ReadSelected", "read", "Read the selected files"},
                             Button{"LoadGPS", "track", "Load an external GPS track"},
                             Button{"LinkToGPST", "link", "Link data to the track by time"},
                             Button{"SelFirst", "section", "Choose the ends of the section"},
                             Button{"SaveFileOut", "save", "Save the section"},
                             Button{"MapView", "map", "Map view"},
                             Button{"ObliqueView", "oblique", "Oblique view"},
                             Button{"FrameSurvey", "frame", "Show the whole survey"}};

/// Behind these a line parts files, track, section and view.
constexpr std::array Parted{"ReadSelected", "LinkToGPST", "SaveFileOut"};

}  // namespace

QToolBar* CreaBarra(QMainWindow& window) {
  auto* bar = new QToolBar("Tool Bar");
  bar->setObjectName("ToolBar");
  bar->setMovable(false);
  bar->setIconSize({24, 24});
  for (const Button& button : Buttons) {
    auto* action = window.findChild<QAction*>(QLatin1String(button.item));
    if (action == nullptr) continue;
    action->setIcon(Icona(button.icon));
    action->setIconVisibleInMenu(false);
    const QString key = action->shortcut().toString(QKeySequence::NativeText);
    action->setToolTip(key.isEmpty() ? QString(button.text) : QStringLiteral("%1 (%2)").arg(button.text, key));
    bar->addAction(action);
    for (const char* last : Parted) {
      if (QLatin1String(last) == QLatin1String(button.item)) bar->addSeparator();
    }
  }
  window.addToolBar(bar);
  return bar;
}

}  // namespace corvan

// The bar with what is used most.
#pragma once

#include <QMainWindow>
#include <QToolBar>

namespace corvan {

/// A bar of menu items, found by their names in `window`, each with its icon and a tool tip that tells its key.
QToolBar* CreaBarra(QMainWindow& window);

}  // namespace corvan

// The program's own icons, drawn in icons/*.svg.
#pragma once

#include <QIcon>

namespace corvan {

/// The icon of this name, as "open"; one for which there is no picture is empty. It shows itself in the colours of a
/// light or a dark window, whichever the palette makes at the time of painting.
QIcon Icona(const char* name);

}  // namespace corvan

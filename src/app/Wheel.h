// The wheel as both pictures take it.
#pragma once

#include <QWheelEvent>

namespace corvan {

/// Notches of the wheel: of a wheel that tells eighths of degrees, else of a surface that tells pixels.
inline double Scatti(const QWheelEvent& event) {
  constexpr double angleOfNotch = 120.0, pixelsOfNotch = 60.0;
  const int angle = event.angleDelta().y();
  return angle != 0 ? angle / angleOfNotch : event.pixelDelta().y() / pixelsOfNotch;
}

}  // namespace corvan

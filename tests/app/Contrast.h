// Light and dark windows, and how well one colour is seen on another.
#pragma once

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QColor>
#include <QPalette>

namespace corvan::test {

/// A dark or a light palette for the whole program while it lives.
class Ground {
 public:
  explicit Ground(bool dark) : before_(QApplication::palette()) {
    const QColor window(dark ? 0x2b2b2b : 0xf0f0f0);
    const QColor text(dark ? 0xe6e6e6 : 0x1a1a1a);
    QPalette palette(window, window);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      palette.setColor(role, text);
    }
    palette.setColor(QPalette::Base, QColor(dark ? 0x1e1e1e : 0xffffff));
    QApplication::setPalette(palette);
  }
  ~Ground() { QApplication::setPalette(before_); }
  Ground(const Ground&) = delete;
  Ground& operator=(const Ground&) = delete;

 private:
  QPalette before_;
};

/// Relative luminance of an sRGB colour (WCAG 2.1), 0 to 1.
inline double Luminance(const QColor& colour) {
  const auto linear = [](double v) { return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// Contrast ratio (WCAG 2.1), 1 to 21.
inline double Contrast(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

}  // namespace corvan::test

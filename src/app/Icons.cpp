#include "app/Icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace corvan {
namespace {

/// Chooses at each painting, so that no icon has to be set anew when the desktop changes its colours.
class PaletteIcon : public QIconEngine {
 public:
  PaletteIcon(QIcon light, QIcon dark) : light_(std::move(light)), dark_(std::move(dark)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    scelta().paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1.0);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
    return scelta().pixmap(size / scale, scale, mode, state);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return light_.availableSizes(mode, state);
  }
  bool isNull() override { return light_.isNull(); }
  QIconEngine* clone() const override { return new PaletteIcon(*this); }

 private:
  const QIcon& scelta() const {
    const QPalette palette = QGuiApplication::palette();
    const bool dark = palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
    return dark ? dark_ : light_;
  }

  QIcon light_;
  QIcon dark_;
};

QIcon Disegno(const char* ground, const char* name) {
  const QString file = QStringLiteral(":/app/icons/%1/%2").arg(QLatin1String(ground), QLatin1String(name));
  QIcon icon;
  if (QPixmap(file + ".png").isNull()) return icon;
  icon.addFile(file + ".png");
  icon.addFile(file + "@2x.png");
  return icon;
}

}  // namespace

QIcon Icona(const char* name) {
  QIcon light = Disegno("light", name);
  return light.isNull() ? light : QIcon(new PaletteIcon(std::move(light), Disegno("dark", name)));
}

}  // namespace corvan

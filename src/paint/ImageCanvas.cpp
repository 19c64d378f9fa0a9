#include "paint/ImageCanvas.h"

#include <algorithm>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QPolygon>

// A resource of a static library is not found before this has run, and the macro must stand outside any namespace.
static void CaricaRisorse() { Q_INIT_RESOURCE(fonts); }

namespace corvan {
namespace {

QString NomeCarattere() {
  CaricaRisorse();
  const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/DejaVuSans.ttf"));
  return id < 0 ? QString() : QFontDatabase::applicationFontFamilies(id).value(0);
}

QFont Carattere(std::int32_t height) {
  static const QString family = NomeCarattere();
  QFont font(family);
  font.setPixelSize(height);
  font.setHintingPreference(QFont::PreferNoHinting);  // the same shapes whatever the desktop's settings
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

QString Testo16(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

PixelBuffer Memoria(QImage& image) {
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
          static_cast<std::ptrdiff_t>(image.bytesPerLine()) / 4};
}

}  // namespace

ImageCanvas::ImageCanvas(QImage& image)
    : BufferCanvas(Memoria(image)),
      image_(image),
      font_(Carattere(AltezzaCarattere(image.height()))),
      metrics_(font_) {}

void ImageCanvas::Poligono(std::span<const PuntoPixel> corners, Colour colour) {
  QPolygon polygon;
  polygon.reserve(static_cast<qsizetype>(corners.size()));
  for (const PuntoPixel& corner : corners) polygon << QPoint(corner.X, corner.Y);
  QPainter painter(&image_);
  painter.setPen(QColor(static_cast<QRgb>(colour)));
  painter.setBrush(QColor(static_cast<QRgb>(colour)));
  painter.drawPolygon(polygon, Qt::OddEvenFill);
}

void ImageCanvas::Testo(const PuntoPixel& place, std::string_view text, Colour colour) {
  QPainter painter(&image_);
  painter.setFont(font_);
  painter.setPen(QColor(static_cast<QRgb>(colour)));
  painter.drawText(place.X, place.Y + metrics_.ascent(), Testo16(text));
}

std::int32_t ImageCanvas::LarghezzaTesto(std::string_view text) const {
  return metrics_.horizontalAdvance(Testo16(text));
}

std::int32_t ImageCanvas::AltezzaTesto() const { return metrics_.height(); }

QImage CreaImmagine(std::int32_t width, std::int32_t height) {
  QImage image(width, height, QImage::Format_RGB32);
  if (!image.isNull()) image.fill(Qt::white);
  return image;
}

}  // namespace corvan

#include "paint/PictureFile.h"

#include <QBuffer>
#include <QByteArray>

#include "base/Errors.h"
#include "base/Text.h"
#include "picture/Bitmap.h"

namespace corvan {
namespace {

bool FinisceCon(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && Maiuscolo(name.substr(name.size() - ending.size())) == ending;
}

}  // namespace

bool NomeImmagine(std::string_view name) { return FinisceCon(name, ".BMP") || FinisceCon(name, ".PNG"); }

std::string ComponiImmagine(const QImage& image, std::string_view name) {
  if (FinisceCon(name, ".BMP")) {
    QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    return ComponiBmp({reinterpret_cast<std::uint32_t*>(pixels.bits()), pixels.width(), pixels.height(),
                       static_cast<std::ptrdiff_t>(pixels.bytesPerLine()) / 4});
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) throw RunTimeError("the picture cannot be written as PNG");
  return bytes.toStdString();
}

}  // namespace corvan

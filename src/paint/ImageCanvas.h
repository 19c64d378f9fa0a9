// The canvas on a Qt image, used alike by the window and the command line.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QImage>

#include "picture/BufferCanvas.h"

namespace corvan {

/// A picture of 32-bit pixels. Texts are in the bundled font, 1/60 of the picture's height tall (at least 12 pixels),
/// so that a picture of one size is the same pixels on every machine and in both programs.
class ImageCanvas : public BufferCanvas {
 public:
  /// @param image of Format_RGB32, shared with nobody; must outlive the canvas. A QGuiApplication must exist.
  explicit ImageCanvas(QImage& image);

  void Poligono(std::span<const PuntoPixel> corners, Colour colour) override;
  void Testo(const PuntoPixel& place, std::string_view text, Colour colour) override;
  std::int32_t LarghezzaTesto(std::string_view text) const override;
  std::int32_t AltezzaTesto() const override;

 private:
  QImage& image_;
  QFont font_;
  QFontMetrics metrics_;
};

/// A white picture for an ImageCanvas; null when it does not fit into memory.
QImage CreaImmagine(std::int32_t width, std::int32_t height);

}  // namespace corvan

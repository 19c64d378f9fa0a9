// The port through which the scene is painted.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "picture/Pixels.h"

namespace corvan {

/// A colour as 0xRRGGBB.
using Colour = std::uint32_t;

/// The numbered colours of the program's drawings.
namespace qbcolor {
inline constexpr Colour DarkBlue = 0x000080;
inline constexpr Colour Green = 0x008000;
inline constexpr Colour White = 0xFFFFFF;
}  // namespace qbcolor

/// Texts and ticks of the pictures.
inline constexpr Colour InkColour = 0x202020;

/// Height of the letters of a picture so many pixels high.
constexpr std::int32_t AltezzaCarattere(std::int32_t height) { return height < 720 ? 12 : height / 60; }

/// Beside the colour of a quadrilateral: its outline alone is painted.
inline constexpr Colour OutlineOnly = 0x01000000;

/// Cells of readings that are excluded.
inline constexpr Colour ExcludedOutline = OutlineOnly | 0x8A8A8A;

/// A filled quadrilateral with an outline of its own colour.
struct PixelQuad {
  std::array<PuntoPixel, 4> corner;
  Colour colour = 0;
};

/// Place of a quadrilateral in the order of painting: the rotated depth above, its index in the list in the lower 32
/// bits.
using DepthKey = std::uint64_t;

/// A picture in memory of 32-bit pixels 0xffRRGGBB, row after row from the top.
struct PixelBuffer {
  std::uint32_t* pixels = nullptr;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::ptrdiff_t stride = 0;  ///< pixels from one row to the next
};

enum class MarkerShape { Dot, Diamond };

/// Everything is held to the drawing area; coordinates outside it are allowed everywhere.
class Canvas {
 public:
  Canvas() = default;
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  virtual ~Canvas() = default;

  virtual PixelArea area() const = 0;
  /// What has been painted.
  virtual PixelBuffer picture() const = 0;

  virtual void Riquadro(const PixelArea& box, Colour colour) = 0;
  /// A box through which the picture below is seen. @param opacity 0 (nothing painted) to 255 (a full box)
  virtual void Velo(const PixelArea& box, Colour colour, std::uint32_t opacity) = 0;
  /// All cells of a repaint at once: quads[low 32 bits of the key] for each key in turn.
  virtual void Quadrilateri(std::span<const PixelQuad> quads, std::span<const DepthKey> order) = 0;
  /// A closed polygon with its outline, filled where the number of edges around a place is odd.
  virtual void Poligono(std::span<const PuntoPixel> corners, Colour colour) = 0;
  virtual void Linea(std::span<const PuntoPixel> points, Colour colour) = 0;
  /// The same so many pixels wide.
  virtual void Tratto(std::span<const PuntoPixel> points, std::int32_t width, Colour colour) = 0;
  /// The same mark, 2 radius + 1 pixels across, centred on each point.
  virtual void Marcatori(std::span<const PuntoPixel> points, MarkerShape shape, std::int32_t radius, Colour colour) = 0;

  /// A text of one line with its top-left corner at a place; UTF-8.
  virtual void Testo(const PuntoPixel& place, std::string_view text, Colour colour) = 0;
  virtual std::int32_t LarghezzaTesto(std::string_view text) const = 0;
  virtual std::int32_t AltezzaTesto() const = 0;
};

}  // namespace corvan

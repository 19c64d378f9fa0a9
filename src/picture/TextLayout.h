// The texts of a picture: each gets a place where it touches no other, or is left out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "picture/Canvas.h"

namespace corvan {

/// What a text lies on: the picture itself, or a half-transparent white box.
enum class Ground { Bare, Plate };

struct PlacedText {
  PixelArea box;  ///< right and bottom are the first pixels outside
  std::string text;
  Colour colour = InkColour;
  Ground ground = Ground::Plate;
};

class TextLayout {
 public:
  /// @param canvas gives the size of texts; must outlive the layout
  explicit TextLayout(const Canvas& canvas) : canvas_(canvas), area_(canvas.area()) {}

  /// Box of a text with its upper left corner at a place: two pixels of margin to the left and right.
  PixelArea ingombro(const PuntoPixel& corner, std::string_view text) const;
  /// A box lies inside the picture and touches nothing that is taken.
  bool libero(const PixelArea& box) const;
  /// Keeps a box free of texts.
  void occupa(const PixelArea& box) { taken_.push_back(box); }
  /// Writes a text where its box is free. @return false where it is not: the text is left out
  bool scrivi(const PuntoPixel& corner, std::string_view text, Colour colour = InkColour,
              Ground ground = Ground::Plate);
  /// The same centred on a place across.
  bool scriviCentrato(std::int32_t middle, std::int32_t top, std::string_view text, Colour colour = InkColour,
                      Ground ground = Ground::Plate);

  const std::vector<PlacedText>& testi() const { return texts_; }
  /// Paints what has a place, on top of what is there.
  void dipingi(Canvas& canvas) const;

 private:
  const Canvas& canvas_;
  PixelArea area_;
  std::vector<PixelArea> taken_;
  std::vector<PlacedText> texts_;
};

/// Boxes share a pixel or lie side by side.
bool SiToccano(const PixelArea& a, const PixelArea& b);

/// How much of the picture shows through a plate: 0 (all) to 255 (nothing).
inline constexpr std::uint32_t PlateOpacity = 205;

/// A text as long as fits into a width, its end replaced by "…" where it does not; empty where not even that fits.
std::string Accorcia(const Canvas& canvas, std::string_view text, std::int32_t width);

}  // namespace corvan

#include "picture/TextLayout.h"

#include <algorithm>
#include <cstddef>

namespace corvan {
namespace {

constexpr std::int32_t Margin = 2;  // pixels beside a text

}  // namespace

bool SiToccano(const PixelArea& a, const PixelArea& b) {
  return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

PixelArea TextLayout::ingombro(const PuntoPixel& corner, std::string_view text) const {
  return {corner.X, corner.X + canvas_.LarghezzaTesto(text) + 2 * Margin, corner.Y, corner.Y + canvas_.AltezzaTesto()};
}

bool TextLayout::libero(const PixelArea& box) const {
  const bool inside =
      box.left >= area_.left && box.right <= area_.right && box.top >= area_.top && box.bottom <= area_.bottom;
  return inside && std::none_of(taken_.begin(), taken_.end(), [&](const PixelArea& t) { return SiToccano(box, t); });
}

bool TextLayout::scrivi(const PuntoPixel& corner, std::string_view text, Colour colour, Ground ground) {
  const PixelArea box = ingombro(corner, text);
  if (text.empty() || !libero(box)) return false;
  occupa(box);
  texts_.push_back({box, std::string(text), colour, ground});
  return true;
}

bool TextLayout::scriviCentrato(std::int32_t middle, std::int32_t top, std::string_view text, Colour colour,
                                Ground ground) {
  const PixelArea box = ingombro({0, top}, text);
  return scrivi({middle - box.right / 2, top}, text, colour, ground);
}

void TextLayout::dipingi(Canvas& canvas) const {
  for (const PlacedText& t : texts_) {
    if (t.ground == Ground::Plate) canvas.Velo(t.box, qbcolor::White, PlateOpacity);
    canvas.Testo({t.box.left + Margin, t.box.top}, t.text, t.colour);
  }
}

std::string Accorcia(const Canvas& canvas, std::string_view text, std::int32_t width) {
  if (canvas.LarghezzaTesto(text) <= width) return std::string(text);
  const std::string end = "\u2026";
  const auto fits = [&](std::size_t length) {
    return canvas.LarghezzaTesto(std::string(text.substr(0, length)) + end) <= width;
  };
  std::size_t shortest = 0, longest = text.size();
  while (longest - shortest > 1) {
    const std::size_t middle = (shortest + longest) / 2;
    (fits(middle) ? shortest : longest) = middle;
  }
  while (shortest > 0 && (static_cast<unsigned char>(text[shortest]) & 0xC0U) == 0x80U) --shortest;  // whole letters
  return shortest == 0 ? std::string() : std::string(text.substr(0, shortest)) + end;
}

}  // namespace corvan

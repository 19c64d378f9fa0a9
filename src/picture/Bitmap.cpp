#include "picture/Bitmap.h"

#include <cstddef>
#include <cstdint>

namespace corvan {
namespace {

constexpr std::size_t BitmapHeader = 54;  // file header of 14 bytes, picture header of 40
constexpr std::uint32_t DotsPerMetre = 2835;

void Aggiungi16(std::string& out, std::uint32_t value) {
  out += static_cast<char>(value & 0xFFU);
  out += static_cast<char>(value >> 8U & 0xFFU);
}

void Aggiungi32(std::string& out, std::size_t value) {
  Aggiungi16(out, static_cast<std::uint32_t>(value & 0xFFFFU));
  Aggiungi16(out, static_cast<std::uint32_t>(value >> 16U & 0xFFFFU));
}

}  // namespace

std::string ComponiBmp(const PixelBuffer& picture) {
  const auto width = static_cast<std::size_t>(picture.width), height = static_cast<std::size_t>(picture.height);
  const std::size_t row = (3 * width + 3) / 4 * 4;
  std::string out = "BM";
  out.reserve(BitmapHeader + row * height);
  Aggiungi32(out, BitmapHeader + row * height);
  Aggiungi32(out, 0);
  Aggiungi32(out, BitmapHeader);
  Aggiungi32(out, 40);
  Aggiungi32(out, width);
  Aggiungi32(out, height);
  Aggiungi16(out, 1);   // planes
  Aggiungi16(out, 24);  // bits a pixel
  Aggiungi32(out, 0);   // not compressed
  Aggiungi32(out, row * height);
  Aggiungi32(out, DotsPerMetre);
  Aggiungi32(out, DotsPerMetre);
  Aggiungi32(out, 0);  // no palette
  Aggiungi32(out, 0);
  for (std::int32_t y = picture.height - 1; y >= 0; --y) {
    const std::uint32_t* pixel = picture.pixels + y * picture.stride;
    for (std::size_t x = 0; x < width; ++x, ++pixel) {
      out += static_cast<char>(*pixel & 0xFFU);
      out += static_cast<char>(*pixel >> 8U & 0xFFU);
      out += static_cast<char>(*pixel >> 16U & 0xFFU);
    }
    out.append(row - 3 * width, '\0');
  }
  return out;
}

}  // namespace corvan

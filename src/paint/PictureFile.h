// A picture as the bytes of a file.
#pragma once

#include <QImage>
#include <string>
#include <string_view>

namespace corvan {

/// True for names that end in .bmp or .png, in any case.
bool NomeImmagine(std::string_view name);

/// The picture in the format that the name asks for. @throws RunTimeError when it cannot be put into that format
std::string ComponiImmagine(const QImage& image, std::string_view name);

}  // namespace corvan

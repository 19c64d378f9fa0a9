// A picture as the bytes of a Windows bitmap.
#pragma once

#include <string>

#include "picture/SpanPainter.h"

namespace corvan {

/// 24 bits a pixel, rows from the bottom, each filled up to four bytes; 72 dots an inch.
std::string ComponiBmp(const PixelBuffer& picture);

}  // namespace corvan

// A bitmap that the command line wrote, pixel by pixel.
#pragma once

#include <algorithm>
#include <ostream>
#include <string>

namespace corvan {

struct Box {
  int left, top, right, bottom;
  friend bool operator==(const Box&, const Box&) = default;
};

inline void PrintTo(const Box& box, std::ostream* out) {
  *out << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom;
}

/// A bitmap file without compression, 24 or 32 bits a pixel, its rows from the bottom up.
class Picture {
 public:
  explicit Picture(const std::string& bytes) : bytes_(bytes) {}

  int width() const { return number(18); }
  int height() const { return number(22); }
  /// Red, green and blue in one number, as 0xRRGGBB.
  int at(int x, int y) const {
    const int each = byte(28) / 8, row = (width() * each + 3) / 4 * 4;
    const auto start = static_cast<std::size_t>(number(10) + (height() - 1 - y) * row + x * each);
    return byte(start) + 256 * byte(start + 1) + 65536 * byte(start + 2);
  }
  /// The smallest box about the pixels that `wanted(x, y)` accepts.
  template <class Wanted>
  Box box(Wanted wanted) const {
    const int columns = width(), rows = height();
    Box found{columns, rows, -1, -1};
    for (int y = 0; y < rows; ++y) {
      for (int x = 0; x < columns; ++x) {
        if (!wanted(x, y)) continue;
        found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x), std::max(found.bottom, y)};
      }
    }
    return found;
  }
  /// The palette's last colour, in any shade.
  Box red() const {
    return box([this](int x, int y) {
      const int colour = at(x, y);
      return colour / 65536 >= 70 && colour / 256 % 256 <= 12 && colour % 256 <= 12;
    });
  }
  Box colour(int wanted) const {
    return box([this, wanted](int x, int y) { return at(x, y) == wanted; });
  }
  Box against(const Picture& other) const {
    return box([&](int x, int y) { return at(x, y) != other.at(x, y); });
  }

 private:
  int byte(std::size_t at) const { return static_cast<unsigned char>(bytes_.at(at)); }
  int number(std::size_t at) const { return byte(at) + 256 * byte(at + 1) + 65536 * byte(at + 2); }

  std::string bytes_;
};

}  // namespace corvan

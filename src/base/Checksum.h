// The checksum by which a file is known again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace corvan {

/// CRC-32 with the reflected polynomial 0xEDB88320, begun and ended with all bits turned over, as ISO 3309, gzip and
/// PNG have it: "123456789" gives CBF43926.
class Checksum {
 public:
  void add(std::span<const std::byte> bytes) {
    for (const std::byte byte : bytes)
      state_ = Table[(state_ ^ std::to_integer<std::uint32_t>(byte)) & 0xFF] ^ state_ >> 8;
  }
  std::uint32_t value() const { return ~state_; }

 private:
  static constexpr std::array<std::uint32_t, 256> Table = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t n = 0; n < table.size(); ++n) {
      std::uint32_t c = n;
      for (int bit = 0; bit < 8; ++bit) c = (c & 1) != 0 ? 0xEDB88320U ^ c >> 1 : c >> 1;
      table[n] = c;
    }
    return table;
  }();

  std::uint32_t state_ = 0xFFFFFFFFU;
};

}  // namespace corvan

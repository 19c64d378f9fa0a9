// Little-endian numbers in byte blocks, whatever the machine's own order.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>

namespace corvan {

/// The number stored at `offset`; bytes past the end of the block read as zero.
template <class T>
requires std::is_arithmetic_v<T> T LeggiLE(std::span<const std::byte> bytes, std::size_t offset) {
  std::array<std::byte, sizeof(T)> raw{};
  if (offset + sizeof(T) <= bytes.size()) {
    std::memcpy(raw.data(), bytes.data() + offset, sizeof(T));
  } else if (offset < bytes.size()) {
    std::memcpy(raw.data(), bytes.data() + offset, bytes.size() - offset);
  }
  if constexpr (std::endian::native == std::endian::big) std::reverse(raw.begin(), raw.end());
  return std::bit_cast<T>(raw);
}

/// Stores a number at `offset`; the block must have room for it.
template <class T>
requires std::is_arithmetic_v<T>
void ScriviLE(std::span<std::byte> bytes, std::size_t offset, T value) {
  auto raw = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
  if constexpr (std::endian::native == std::endian::big) std::reverse(raw.begin(), raw.end());
  std::memcpy(bytes.subspan(offset, sizeof(T)).data(), raw.data(), sizeof(T));
}

}  // namespace corvan

// The painter's order: cells from the farthest to the nearest.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "picture/Canvas.h"

namespace corvan {

/// Key of cell `index` (0-based, in its list) at a rotated depth: keys compare as depths do, equal depths by index.
/// -0 and 0 are one depth.
inline DepthKey ChiaveProfondita(float depth, std::size_t index) {
  const auto bits = std::bit_cast<std::uint32_t>(depth + 0.0F);
  const std::uint32_t ordered = (bits & 0x80000000U) != 0 ? ~bits : bits | 0x80000000U;
  return static_cast<DepthKey>(ordered) << 32U | static_cast<std::uint32_t>(index);
}

/// Sorts keys that are in the order of their indexes ascending by depth; cells of equal depth keep their order. A radix
/// sort: linear, whatever the order. @param scratch working space, kept from call to call
void OrdinaQuad(std::vector<DepthKey>& keys, std::vector<DepthKey>& scratch);

}  // namespace corvan

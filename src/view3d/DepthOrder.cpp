#include "view3d/DepthOrder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvan {
namespace {

constexpr unsigned DigitBits = 11;  // three digits cover the 32 bits of a depth
constexpr std::size_t Digits = 3;
constexpr std::size_t DigitValues = std::size_t{1} << DigitBits;

std::size_t Cifra(DepthKey key, std::size_t digit) { return key >> (32U + digit * DigitBits) & (DigitValues - 1); }

}  // namespace

void OrdinaQuad(std::vector<DepthKey>& keys, std::vector<DepthKey>& scratch) {
  constexpr std::size_t few = 1500;  // below, counting digits costs more than comparing
  if (keys.size() < few) {
    std::sort(keys.begin(), keys.end());
    return;
  }
  std::array<std::array<std::uint32_t, DigitValues>, Digits> counts{};
  for (const DepthKey key : keys) {
    for (std::size_t d = 0; d < Digits; ++d) ++counts[d][Cifra(key, d)];
  }
  scratch.resize(keys.size());
  for (std::size_t d = 0; d < Digits; ++d) {
    if (counts[d][Cifra(keys.front(), d)] == keys.size()) continue;  // all share the digit
    std::uint32_t start = 0;
    for (std::uint32_t& count : counts[d]) start += std::exchange(count, start);
    for (const DepthKey key : keys) scratch[counts[d][Cifra(key, d)]++] = key;
    keys.swap(scratch);
  }
}

}  // namespace corvan

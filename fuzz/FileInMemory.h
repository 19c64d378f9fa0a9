// Bytes as a file, where readers find them.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "Fuzz.h"

namespace corvan::fuzz {

/// Puts the bytes into a file in memory.
inline std::filesystem::path Place(std::string_view content) {
  static const int file = memfd_create("corvan-fuzz", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  const bool placed = ftruncate(file, 0) == 0 &&
                      pwrite(file, content.data(), content.size(), 0) == static_cast<ssize_t>(content.size());
  Promise(placed, "the input can be placed");
  return path;
}

}  // namespace corvan::fuzz

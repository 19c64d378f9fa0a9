// File names that stand in texts.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace corvan {

/// The path that a text names. Texts of the program are UTF-8 on every system (elsewhere than on Windows: the bytes as
/// they are); a path made from a std::string directly would be read in the code page of a Windows machine. Back again
/// leads std::filesystem::path::string(), which gives UTF-8 on Windows too.
/// @throws std::filesystem::filesystem_error on Windows for a text that is no UTF-8
inline std::filesystem::path PercorsoDi(std::string_view text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

}  // namespace corvan

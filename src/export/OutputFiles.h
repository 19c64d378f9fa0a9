// What an output may take the place of: never a file that was read, never an original; and what was written is listed.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvan {

class OutputFiles {
 public:
  /// Tells what original a file's beginning shows ("an instrument's file"); empty for what may be replaced.
  using Recogniser = std::function<std::string(std::string_view beginning)>;
  /// Bytes of a file that a recogniser is handed: a log may hold much else before its first sentence.
  static constexpr std::size_t Beginning = std::size_t{1} << 20;

  explicit OutputFiles(Recogniser original) : original_(std::move(original)) {}

  /// Names a file that must stay as it is.
  void proteggi(const std::filesystem::path& read) { protected_.push_back(read); }
  /// Looks at what has the name of an output and touches nothing.
  /// @throws FileError when it is a protected file, under whatever spelling or link, or an original, or cannot be
  /// looked into
  void controlla(const std::filesystem::path& output) const;
  /// Lists an output as written whole.
  void scritto(const std::filesystem::path& output);
  const std::vector<std::filesystem::path>& written() const { return written_; }

 private:
  Recogniser original_;
  std::vector<std::filesystem::path> protected_;
  std::vector<std::filesystem::path> written_;
};

/// True for a root that ends in a folder ("results/", "..") or is empty: an output's extension would become its name.
bool FinisceInCartella(const std::string& root);

/// Name of an output: the root with a lower-case extension appended, e.g. "survey/line" and ".bin".
/// @throws RunTimeError quoting a root that FinisceInCartella
std::filesystem::path NomeUscita(const std::string& root, const char* extension);

}  // namespace corvan

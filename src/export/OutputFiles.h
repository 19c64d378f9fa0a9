// Where outputs are opened: nothing that was read in a run is overwritten, and what was written is listed.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/File.h"

namespace corvan {

class OutputFiles {
 public:
  /// Names a file that must stay as it is.
  void proteggi(const std::filesystem::path& read) { protected_.push_back(read); }
  /// Makes way for an output: an existing file of that name is deleted.
  /// @throws FileError when the name is that of a protected file, under whatever spelling or link
  void prepara(const std::filesystem::path& output) const;
  /// Lists an output as written whole.
  void scritto(const std::filesystem::path& output);
  const std::vector<std::filesystem::path>& written() const { return written_; }

 private:
  std::vector<std::filesystem::path> protected_;
  std::vector<std::filesystem::path> written_;
};

/// Name of an output: the root with a lower-case extension appended, e.g. "survey/line" and ".bin".
std::filesystem::path NomeUscita(const std::string& root, const char* extension);

}  // namespace corvan

#include "export/OutputFiles.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace corvan {

void OutputFiles::prepara(const std::filesystem::path& output) const {
  std::error_code ignored;
  for (const auto& read : protected_) {
    if (std::filesystem::equivalent(read, output, ignored)) {
      throw FileError(output, "was read in this run and is not overwritten");
    }
  }
  const auto status = std::filesystem::symlink_status(output, ignored);
  if (std::filesystem::is_regular_file(status)) std::filesystem::remove(output, ignored);
}

void OutputFiles::scritto(const std::filesystem::path& output) {
  if (std::find(written_.begin(), written_.end(), output) == written_.end()) written_.push_back(output);
}

std::filesystem::path NomeUscita(const std::string& root, const char* extension) {
  return std::filesystem::path(root + extension);
}

}  // namespace corvan

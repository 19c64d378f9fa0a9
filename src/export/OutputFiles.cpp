#include "export/OutputFiles.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "base/Errors.h"
#include "base/File.h"
#include "base/PathText.h"

namespace corvan {

void OutputFiles::controlla(const std::filesystem::path& output) const {
  std::error_code ignored;
  for (const auto& read : protected_) {
    if (std::filesystem::equivalent(read, output, ignored)) {
      throw FileError(output, "was read in this run and is not overwritten");
    }
  }
  if (!std::filesystem::is_regular_file(output, ignored)) return;  // a folder is refused when it is opened
  const FileBytes beginning = LeggiInizio(output, Beginning);
  if (const std::string what = original_(beginning.text()); !what.empty()) {
    throw FileError(output, "is " + what + " and is not overwritten");
  }
}

void OutputFiles::scritto(const std::filesystem::path& output) {
  if (std::find(written_.begin(), written_.end(), output) == written_.end()) written_.push_back(output);
}

bool FinisceInCartella(const std::string& root) {
  const std::filesystem::path last = PercorsoDi(root).filename();
  return last.empty() || last == "." || last == "..";
}

std::filesystem::path NomeUscita(const std::string& root, const char* extension) {
  if (FinisceInCartella(root)) {
    throw RunTimeError("the root of the output names \"" + root + "\" has no name behind its folder");
  }
  return PercorsoDi(root + extension);
}

}  // namespace corvan

// Large surveys for the benchmarks, made in memory or as files that vanish at the end.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "base/Dialogs.h"
#include "survey/Survey.h"

namespace corvan::bench {

/// Cancels every question.
class Silent : public Dialogs {
 public:
  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
};

/// A folder for the run's files, removed when the program ends.
std::filesystem::path Folder();

/// Writes a Syscal file of ten channels a firing. @param length 280 or 304
void MakeSyscalFile(const std::filesystem::path& path, std::size_t firings, std::size_t length);

/// A text export of so many lines.
std::filesystem::path TextFile(std::size_t lines);

/// Measurements along a winding track, ready for the analysis.
Survey Measurements(std::size_t count);

}  // namespace corvan::bench

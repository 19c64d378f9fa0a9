// Survey files and scripted answers for tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "base/PathText.h"
#include "survey/RecordSyscalPro.h"

namespace corvan::test {

/// A folder of its own for one test, gone with it.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  /// @param name in UTF-8
  std::filesystem::path operator/(const std::string& name) const { return path_ / PercorsoDi(name); }
  const std::filesystem::path& path() const { return path_; }
  /// Writes a file into the folder and gives its full name.
  std::filesystem::path write(const std::string& name, const std::string& content) const;

 private:
  std::filesystem::path path_;
};

std::string Slurp(const std::filesystem::path& path);
/// Writes a file whole, as the program does.
void Write(const std::filesystem::path& path, std::string_view text);
/// Names of the files in a folder that begin with a dot, as those do that are being written.
std::vector<std::string> Hidden(const std::filesystem::path& folder);
/// Why an action fails with a file, or "no error".
std::string Reason(const std::function<void()>& action);
/// The pieces between CR LF pairs; the file must end in one.
std::vector<std::string> CrLfLines(const std::string& text);

/// The findings, one a line, faults behind "!", notes behind "-".
std::string Told(const Findings& findings);

/// A box as the user sees it.
struct Box {
  Question question;
  std::string prompt, title, details, defaultAnswer;
};

/// Answers in the order given for each question; one without an answer gets Cancel.
class ScriptedAnswers : public Dialogs {
 public:
  std::map<Question, std::vector<std::string>> answers;
  Answer messageAnswer = Answer::Ok;
  std::vector<Box> messages;
  std::vector<Box> questions;

  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
};

/// One record of a binary file under construction.
struct RecordValues {
  float c1 = 55, c2 = 60, m = 50, n = 45;
  float depth = 4, potential = 10, current = 1000, rho = 1;
  std::int16_t channel = 1;
  float north = 4524.5F, east = 1218.25F;
  double time = 46188.25;
  std::int16_t bits = 0;  ///< at offset 248
  float chargeability = 0, deviation = 0;
};

/// A Syscal Pro file with these records. @param type record type word @param length record length for that word
std::string SyscalFile(const std::vector<RecordValues>& records, std::int16_t type = 3, std::size_t length = 304);

/// `firings` firings of `channels` channels along a parallel, a hundredth of a minute apart; rho is firing +
/// channel/100.
std::vector<RecordValues> Firings(std::size_t firings, std::size_t channels);

/// A data line of a text export: 49 values, field k being `k` but for those in `changed` (field number to text).
std::string TextLine(const std::map<int, std::string>& changed);

}  // namespace corvan::test

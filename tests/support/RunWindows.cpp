#include <windows.h>

#include <algorithm>

#include "cli/Cli.h"

namespace corvan {
namespace {

std::wstring Wide(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                         static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

/// The words of a command line as a POSIX shell cuts them: blanks, both quotes, backslashes; nothing is expanded.
std::vector<std::string> Words(const std::string& line) {
  std::vector<std::string> words;
  char quote = '\0';
  bool open = false;
  for (std::size_t k = 0; k < line.size(); ++k) {
    const char c = line[k];
    const bool blank = quote == '\0' && c == ' ';
    if (!blank && !open) words.emplace_back();
    open = !blank;
    if (blank || c == quote) {
      quote = c == quote ? '\0' : quote;
    } else if (quote == '\0' && (c == '\'' || c == '"')) {
      quote = c;
    } else {
      words.back() += c == '\\' && quote != '\'' && k + 1 < line.size() ? line[++k] : c;
    }
  }
  return words;
}

/// One word as the C library of Windows takes it out of a command line again.
std::string Quoted(const std::string& word) {
  std::string text = "\"";
  std::size_t backslashes = 0;
  for (const char c : word) {
    if (c == '"') text.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, '\\') + "\"";
}

HANDLE Stream(const std::filesystem::path& file, DWORD access, DWORD disposition) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

Outcome Cli::operator()(const std::string& arguments, const std::string& input, const std::string& before,
                        const std::string& in) const {
  EXPECT_EQ(before, "") << "nothing can stand before the program here";
  std::string line = Quoted(CORVAN_CLI);
  for (const std::string& word : Words(arguments)) line += " " + Quoted(word);
  std::wstring command = Wide(line);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = Stream(folder.write("stdin", input), GENERIC_READ, OPEN_EXISTING);
  start.hStdOutput = Stream(folder / "stdout", GENERIC_WRITE, CREATE_ALWAYS);
  start.hStdError = Stream(folder / "stderr", GENERIC_WRITE, CREATE_ALWAYS);
  PROCESS_INFORMATION process{};
  const std::filesystem::path place = folder / in;
  const auto begin = [&] {
    return CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, place.c_str(), &start,
                          &process) != 0;
  };
  bool began = begin();
  // One in some hundred processes Wine does not start for a reason of its own.
  for (int again = 0; again < 3 && !began && GetLastError() == ERROR_INTERNAL_ERROR; ++again) began = begin();
  EXPECT_TRUE(began) << line << ": error " << GetLastError();
  DWORD status = static_cast<DWORD>(-1);
  if (began) {
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
  for (const HANDLE stream : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(stream);
  return {static_cast<int>(status), test::Slurp(folder / "stdout"), test::Slurp(folder / "stderr")};
}

}  // namespace corvan

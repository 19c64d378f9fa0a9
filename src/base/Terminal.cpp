#include "base/Terminal.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// The order matters: shellapi.h builds on windows.h.
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#else
#include <unistd.h>
#endif

namespace corvan {

#ifdef _WIN32

namespace {

struct ReleaseWords {
  void operator()(wchar_t** words) const { LocalFree(static_cast<void*>(words)); }
};

/// In UTF-8; half a pair, which a file's name may hold, becomes the sign for what cannot be shown.
std::string Testo(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), bytes, nullptr, nullptr);
  return text;
}

/// The files that a word with wildcards in its last part fits, in the order of their names.
std::vector<std::string> Adatti(const std::wstring& word) {
  std::vector<std::string> names;
  if (word.starts_with(L'-') || word.find_first_of(L"*?") == std::wstring::npos) return names;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(word.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  const std::filesystem::path folder = std::filesystem::path(word).parent_path();
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      names.push_back(Testo((folder / found.cFileName).native()));
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  std::sort(names.begin(), names.end());
  return names;
}

bool Collegato(DWORD stream) {
  const HANDLE handle = GetStdHandle(stream);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

}  // namespace

std::vector<std::string> Argomenti(int, const char* const*) {
  int count = 0;
  const std::unique_ptr<wchar_t*, ReleaseWords> words(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int k = 1; words && k < count; ++k) {
    const std::wstring word = words.get()[k];
    const std::vector<std::string> files = Adatti(word);
    if (files.empty()) {
      arguments.push_back(Testo(word));
    } else {
      arguments.insert(arguments.end(), files.begin(), files.end());
    }
  }
  return arguments;
}

void PreparaFlussi() {
  const bool out = Collegato(STD_OUTPUT_HANDLE);
  const bool err = Collegato(STD_ERROR_HANDLE);
  if ((!out || !err) && AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
    if (!out) static_cast<void>(!std::freopen("CONOUT$", "w", stdout));
    if (!err) static_cast<void>(!std::freopen("CONOUT$", "w", stderr));
  }
  for (const int stream : {0, 1, 2}) {
    if (_get_osfhandle(stream) >= 0) static_cast<void>(_setmode(stream, _O_BINARY));
  }
  SetConsoleOutputCP(CP_UTF8);
  SetConsoleCP(CP_UTF8);
}

bool ErroreSuTerminale() {
  const HANDLE handle = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0 && SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

#else

std::vector<std::string> Argomenti(int argc, const char* const* argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void PreparaFlussi() {}

bool ErroreSuTerminale() { return isatty(STDERR_FILENO) != 0; }

#endif

}  // namespace corvan

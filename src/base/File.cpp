#include "base/File.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <system_error>

namespace corvan {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

std::string Motivo(int error) { return std::generic_category().message(error); }

std::FILE* Apri(const std::filesystem::path& path) {
#ifdef _WIN32
  return _wfopen(path.c_str(), L"rb");
#else
  return std::fopen(path.c_str(), "rb");
#endif
}

FileBytes Leggi(const std::filesystem::path& path, std::size_t limit) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) throw FileError(path, error ? error.message() : Motivo(ENOENT));
  if (std::filesystem::is_directory(status)) throw FileError(path, "is a folder");
  if (!std::filesystem::is_regular_file(status)) throw FileError(path, "is not a regular file");
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) throw FileError(path, error.message());
  const OpenFile file(Apri(path));
  if (!file) throw FileError(path, Motivo(errno));
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  FileBytes bytes(static_cast<std::size_t>(std::min<std::uintmax_t>(size, limit)));
  const std::size_t got = std::fread(bytes.bytes().data(), 1, bytes.size(), file.get());
  if (std::ferror(file.get()) != 0) throw FileError(path, Motivo(errno));
  bytes.shrink(got);
  return bytes;
}

}  // namespace

FileBytes FileBytes::FromText(std::string_view text) {
  FileBytes copy(text.size());
  std::copy_n(reinterpret_cast<const std::byte*>(text.data()), text.size(), copy.data_.get());
  return copy;
}

FileBytes LeggiTutto(const std::filesystem::path& path) { return Leggi(path, std::numeric_limits<std::size_t>::max()); }

FileBytes LeggiInizio(const std::filesystem::path& path, std::size_t count) { return Leggi(path, count); }

}  // namespace corvan

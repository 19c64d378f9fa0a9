#include "base/File.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <system_error>

namespace corvan {
namespace {

std::FILE* Apri(const std::filesystem::path& path) {
#ifdef _WIN32
  return _wfopen(path.c_str(), L"rb");
#else
  return std::fopen(path.c_str(), "rb");
#endif
}

FileBytes Leggi(const std::filesystem::path& path, std::size_t limit) {
  FileReader file(path);
  FileBytes bytes(static_cast<std::size_t>(std::min<std::uintmax_t>(file.size(), limit)));
  bytes.shrink(file.read(bytes.bytes()));
  return bytes;
}

}  // namespace

FileBytes LeggiTutto(const std::filesystem::path& path) { return Leggi(path, std::numeric_limits<std::size_t>::max()); }

FileBytes LeggiInizio(const std::filesystem::path& path, std::size_t count) { return Leggi(path, count); }

FileReader::FileReader(std::filesystem::path path) : path_(std::move(path)) {
  std::error_code error;
  const auto status = std::filesystem::status(path_, error);
  if (!std::filesystem::exists(status)) throw FileError(path_, error ? error.message() : MotivoDi(ENOENT));
  if (std::filesystem::is_directory(status)) throw FileError(path_, "is a folder");
  if (!std::filesystem::is_regular_file(status)) throw FileError(path_, "is not a regular file");
  size_ = std::filesystem::file_size(path_, error);
  if (!error) written_ = std::filesystem::last_write_time(path_, error);
  if (error) throw FileError(path_, error.message());
  file_.reset(Apri(path_));
  if (!file_) throw FileError(path_, MotivoDi(UltimoErrore()));
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

std::size_t FileReader::read(std::span<std::byte> into) {
  const std::size_t got = std::fread(into.data(), 1, into.size(), file_.get());
  if (std::ferror(file_.get()) != 0) throw FileError(path_, MotivoDi(UltimoErrore()));
  return got;
}

void FileReader::seek(std::uintmax_t offset) {
#ifdef _WIN32
  const int failed = _fseeki64(file_.get(), static_cast<long long>(offset), SEEK_SET);
#else
  const int failed = fseeko(file_.get(), static_cast<off_t>(offset), SEEK_SET);
#endif
  if (failed != 0) throw FileError(path_, MotivoDi(UltimoErrore()));
}

void FileReader::requireUnchanged() const {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path_, error);
  if (error) throw FileError(path_, "went away while it was read: " + error.message());
  const std::string changed = "was written to while it was read";
  if (size != size_)
    throw FileError(path_, changed + ": " + std::to_string(size_) + " bytes, then " + std::to_string(size));
  if (std::filesystem::last_write_time(path_, error) != written_) throw FileError(path_, changed);
}

}  // namespace corvan

#include "base/File.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <system_error>
#include <utility>

namespace corvan {
namespace {

constexpr std::size_t Chunk = std::size_t{1} << 20;

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

std::string Motivo(int error) { return std::generic_category().message(error); }

std::FILE* Apri(const std::filesystem::path& path, const char* mode) {
#ifdef _WIN32
  return _wfopen(path.c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str());
#else
  return std::fopen(path.c_str(), mode);
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
  const OpenFile file(Apri(path, "rb"));
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

FileWriter::FileWriter(std::filesystem::path path) : path_(std::move(path)), file_(Apri(path_, "wb")) {
  if (file_ == nullptr) fail(errno);
  std::setvbuf(file_, nullptr, _IONBF, 0);
  buffer_.reserve(Chunk);
}

FileWriter::~FileWriter() {
  if (file_ == nullptr) return;
  static_cast<void>(std::fwrite(buffer_.data(), 1, buffer_.size(), file_));
  static_cast<void>(std::fclose(file_));
}

void FileWriter::write(std::string_view text) {
  if (file_ == nullptr) throw FileError(path_, "is closed");
  while (!text.empty()) {
    const std::size_t part = std::min(text.size(), Chunk - buffer_.size());
    buffer_ += text.substr(0, part);
    text.remove_prefix(part);
    if (buffer_.size() == Chunk) flush();
  }
}

void FileWriter::write(std::span<const std::byte> bytes) {
  write(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

void FileWriter::close() {
  if (file_ == nullptr) return;
  flush();
  std::FILE* file = std::exchange(file_, nullptr);
  if (std::fclose(file) != 0) fail(errno);
}

void FileWriter::flush() {
  const std::size_t written = std::fwrite(buffer_.data(), 1, buffer_.size(), file_);
  const int error = errno;
  const bool whole = written == buffer_.size();
  buffer_.clear();
  if (!whole) fail(error);
}

void FileWriter::fail(int error) const { throw FileError(path_, Motivo(error)); }

void Elimina(const std::filesystem::path& path) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(path, error);
  if (!std::filesystem::exists(status)) return;
  if (std::filesystem::is_directory(status)) throw FileError(path, "is a folder");
  std::filesystem::remove(path, error);
  if (error) throw FileError(path, error.message());
}

}  // namespace corvan

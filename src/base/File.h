// Whole files into memory, and outputs written through one buffer; every failure names the path and the reason.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/Errors.h"

namespace corvan {

/// The bytes of one file, owned; moved, never copied.
class FileBytes {
 public:
  FileBytes() = default;
  explicit FileBytes(std::size_t size) : data_(std::make_unique_for_overwrite<std::byte[]>(size)), size_(size) {}
  static FileBytes FromText(std::string_view text);

  std::span<const std::byte> bytes() const { return {data_.get(), size_}; }
  std::span<std::byte> bytes() { return {data_.get(), size_}; }
  std::string_view text() const { return {reinterpret_cast<const char*>(data_.get()), size_}; }
  std::size_t size() const { return size_; }
  void shrink(std::size_t size) { size_ = size; }

 private:
  std::unique_ptr<std::byte[]> data_;
  std::size_t size_ = 0;
};

/// Reads a regular file whole. @throws FileError: missing, a folder, no regular file, no permission, a read error
FileBytes LeggiTutto(const std::filesystem::path& path);

/// Reads at most `count` bytes of the file's beginning. @throws FileError as LeggiTutto does
FileBytes LeggiInizio(const std::filesystem::path& path, std::size_t count);

/// An output file, written in chunks of one MiB. An existing file is replaced. What was written before an error stays.
class FileWriter {
 public:
  /// @throws FileError
  explicit FileWriter(std::filesystem::path path);
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;
  /// Closes the file; errors are lost here, so a writer that ends well calls close().
  ~FileWriter();

  void write(std::string_view text);
  void write(std::span<const std::byte> bytes);
  /// Writes the rest and closes. @throws FileError
  void close();
  const std::filesystem::path& path() const { return path_; }

 private:
  void flush();
  [[noreturn]] void fail(int error) const;

  std::filesystem::path path_;
  std::FILE* file_ = nullptr;
  std::string buffer_;
};

/// Deletes a file (not a folder) if it exists. @throws FileError
void Elimina(const std::filesystem::path& path);

}  // namespace corvan

// Whole files into memory, and outputs that replace older ones only when they are whole; every failure names the path
// and the reason.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/Errors.h"
#include "base/Interruption.h"
#include "base/SystemFile.h"

namespace corvan {

/// The bytes of one file, owned; moved, never copied.
class FileBytes {
 public:
  FileBytes() = default;
  explicit FileBytes(std::size_t size) : data_(std::make_unique_for_overwrite<std::byte[]>(size)), size_(size) {}

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

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

/// A regular file read from its beginning to its end in pieces of any size.
class FileReader {
 public:
  /// @throws FileError as LeggiTutto does
  explicit FileReader(std::filesystem::path path);

  /// Fills `into` with the next bytes. @return how many; fewer than asked at the file's end only. @throws FileError
  std::size_t read(std::span<std::byte> into);
  /// Goes to a byte of the file, from 0. @throws FileError
  void seek(std::uintmax_t offset);
  /// Bytes of the file when it was opened.
  std::uintmax_t size() const { return size_; }
  /// @throws FileError when the file was written to since it was opened
  void requireUnchanged() const;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
  std::uintmax_t size_ = 0;
  std::filesystem::file_time_type written_;
  OpenFile file_;
};

/// An output file, written in chunks of one MiB or in the caller's own where they are large. What is written goes into
/// a hidden file ".NAME.corvan-PID-xxxx" beside the target, which close() puts in the target's place once every byte is
/// on the disk: at no moment is there half a file under the name, and whatever ends the writing before, an older file
/// stays as it was. The real target is the file at the end of the links, also when it is not there yet. It keeps an
/// older file's permissions, and owner and group where the system lets them be set. A target that is no regular file (a
/// device, a pipe) is written directly.
class FileWriter {
 public:
  using Progress = std::function<void(std::uintmax_t)>;

  /// Removes what a writer of the same target that was killed has left.
  /// @throws FileError: a folder, no permission for the file or for a new one in its folder, no such folder
  /// @param progress told how many bytes were written, once a chunk; what it throws ends the writing
  explicit FileWriter(std::filesystem::path path, Progress progress = {});
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;
  /// Without close() everything written is given up.
  ~FileWriter();

  /// @throws FileError after which everything written is given up
  void write(std::string_view text);
  void write(std::span<const std::byte> bytes);
  /// Writes the rest and gives the file its name. @throws FileError; then the older file is there as it was
  void close();
  const std::filesystem::path& path() const { return path_; }

  /// For a library that writes files itself: the name under which it may do so until close(). What write() brings
  /// beside it takes the place of the file's first bytes. @throws FileError for a target that is written directly
  const std::filesystem::path& nascosto() const;
  /// Tells how many bytes such a library has written; what the progress throws ends the writing.
  void avanza(std::uintmax_t bytes) const {
    if (progress_) progress_(bytes);
  }

 private:
  void openBeside();
  void flush();
  void giveUp() noexcept;
  void scrivi(std::string_view bytes);
  /// Fails the writer for good where `error` is the system's error number.
  void check(int error);

  std::filesystem::path path_;
  std::filesystem::path target_;  ///< the real place
  std::filesystem::path hidden_;  ///< the file beside it; empty for a target that is written directly
  std::optional<RemovedOnInterruption> removal_;
  SystemFile file_;
  std::string buffer_;
  std::string failure_;
  Progress progress_;
  std::uintmax_t written_ = 0;
};

}  // namespace corvan

// The records of one Syscal Pro file, walked in blocks: memory is that of one block, whatever the file's size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <span>
#include <string>

#include "base/File.h"
#include "base/ReadAhead.h"
#include "survey/RecordSyscalPro.h"

namespace corvan {

/// What a Syscal Pro file is, from its size and its first bytes. Record numbers are 1-based.
class SyscalFile {
 public:
  /// @throws FileError when the file cannot be read, is too short for a survey or is one of the newer kind
  explicit SyscalFile(const std::filesystem::path& path);

  const std::filesystem::path& path() const { return file_.path(); }
  std::uintmax_t bytes() const { return file_.size(); }
  /// The first 1030 bytes.
  const std::string& header() const { return header_; }
  /// Record type word as stored.
  std::int16_t type() const { return type_; }
  /// The file begins with 02 00 00 80, as the instrument and its maker's programs write.
  bool signature() const { return signature_; }
  /// Records: (file length - 1029) / record length, to the nearest whole number, halves to even.
  std::size_t size() const { return count_; }
  /// Bytes from one record to the next.
  std::size_t length() const { return length_; }
  /// Bytes of the last record that the file really holds.
  std::size_t lastHeld() const;
  /// Bytes behind the last record.
  std::uintmax_t rest() const;
  /// @throws FileError when the file was written to since it was opened
  void requireUnchanged() const { file_.requireUnchanged(); }

 private:
  FileReader file_;
  std::string header_;
  std::int16_t type_ = 0;
  bool signature_ = false;
  std::size_t length_ = 0;
  std::size_t count_ = 0;
};

/// One record in a walk's block, with the bytes behind it up to RecordBlock; past the end of the file they are zero.
class RecordView {
 public:
  explicit RecordView(const std::byte* first) : first_(first) {}

  template <class T>
  T leggi(Campo<T> field) const {
    return LeggiLE<T>(std::span<const std::byte>(first_, RecordBlock), field.offset);
  }
  const std::byte* data() const { return first_; }

 private:
  const std::byte* first_;
};

/// Goes through the records from..to of a file.
class RecordWalk {
 public:
  /// @throws FileError
  RecordWalk(const SyscalFile& file, std::size_t from, std::size_t to);

  /// Goes to the next record. @return false behind the last one. @throws FileError, also when the file lost records
  /// since it was opened
  bool next() {
    if (number_ == to_) return false;
    ++number_;
    at_ += number_ == from_ ? 0 : length_;
    if (at_ + RecordBlock > filled_ && !atEnd_) fill();
    if (at_ >= filled_) throw FileError(blocks_.file().path(), "lost records while it was read");
    return true;
  }
  std::size_t number() const { return number_; }
  RecordView record() const { return RecordView(buffer_ + at_); }
  /// The record holds the same bytes as the one before it; never so at the walk's first.
  bool repeats() const {
    if (number_ == from_) return false;
    const std::byte* now = buffer_ + at_;
    const std::byte* before = now - length_;
    // Most records differ in their electrodes already.
    if (std::memcmp(now + campo::PosM.offset, before + campo::PosM.offset, sizeof(double)) != 0) return false;
    return std::memcmp(now, before, length_) == 0;
  }

 private:
  void fill();

  ReadAhead blocks_;
  std::size_t length_;
  std::size_t from_, to_;
  std::size_t number_;
  std::byte* buffer_ = nullptr;
  std::size_t at_ = 0;      // of the record in the buffer
  std::size_t filled_ = 0;  // bytes of the file in the buffer
  bool atEnd_ = false;      // zeros follow
};

}  // namespace corvan

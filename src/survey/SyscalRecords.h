// The records of one Syscal Pro file, kept as the file's own bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "base/File.h"
#include "survey/RecordSyscalPro.h"

namespace corvan {

class SyscalRecords {
 public:
  SyscalRecords() = default;
  /// @param file the whole file, header included
  /// @param length record length in bytes
  SyscalRecords(FileBytes file, std::size_t length);

  /// Number of records: (file length - 1029) / record length, to the nearest whole number, halves to even.
  std::size_t size() const { return count_; }
  std::size_t length() const { return length_; }
  std::size_t fileSize() const { return file_.size(); }
  /// The first 1030 bytes.
  std::string_view header() const { return file_.text().substr(0, HeaderLength); }

  /// One field of record k (1-based); bytes past the end of the file read as zero.
  template <class T>
  T leggi(std::size_t k, Campo<T> field) const {
    return LeggiLE<T>(file_.bytes(), position(k) + field.offset);
  }
  /// Record k whole (1-based).
  RecordSyscalPro record(std::size_t k) const;
  /// Bytes of record k that the file really holds, at most its length.
  std::size_t held(std::size_t k) const;

 private:
  std::size_t position(std::size_t k) const { return FirstRecord + (k - 1) * length_; }

  FileBytes file_;
  std::size_t length_ = 0;
  std::size_t count_ = 0;
};

}  // namespace corvan

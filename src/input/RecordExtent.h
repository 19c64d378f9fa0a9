// Which records of a file are read: from the first one with a position to the first lost fix, or past it.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "input/SyscalFile.h"

namespace corvan {

/// A record's latitude or northing; one that is not finite counts as lost and reads 0.
inline float NordDi(const RecordView& record) {
  const float north = record.leggi(campo::GpsNord);
  return std::isfinite(north) ? north : 0.0F;
}

/// What the records say one by one. Record numbers are 1-based; 0 stands for none.
class RecordExtent {
 public:
  explicit RecordExtent(const SyscalFile& file);

  void prendi(std::size_t k, const RecordView& record) {
    const std::int32_t channel = record.leggi(campo::Canale);
    MaxCanale_ = k == 1 ? channel : std::max(MaxCanale_, channel);
    records_ = k;
    if (checked_ && implausible(record)) ++implausible_;
    const float north = NordDi(record);
    if (north != 0.0F) {
      if (first_ == 0) first_ = countedTo_ = k;
      lastFix_ = k;
      ++positioned_;
    } else if (first_ != 0 && firstLost_ == 0) {
      firstLost_ = k;
      positionedBefore_ = positioned_;
    }
    if (k == countedTo_ + 1 && first_ != 0 && (k == first_ + 1 || north == northBefore_)) countedTo_ = k;
    northBefore_ = north;
  }

  bool anyFix() const { return first_ > 0; }
  /// First record with a position; 1 when none has one.
  std::size_t PrimoValido() const { return anyFix() ? first_ : 1; }
  /// Last before the first lost fix behind it; the last record when none is lost.
  std::size_t UltimoValido() const { return firstLost_ == 0 ? records_ : firstLost_ - 1; }
  /// Last record with a position.
  std::size_t lastFix() const { return lastFix_; }
  /// Records with a position behind the first lost fix.
  std::size_t positionedBehind() const { return firstLost_ == 0 ? 0 : positioned_ - positionedBefore_; }
  std::int32_t MaxCanale() const { return MaxCanale_; }
  /// Length of the run that shares the second record's latitude, counted from the first one with a position; at least
  /// 2, since the comparison starts one record behind it.
  std::size_t counted() const;
  /// Most records hold numbers that no instrument stores. Files that begin as the instrument's do are not asked, but
  /// for those of 248-byte records, whose kind any zero makes.
  bool otherKind() const { return 2 * implausible_ > records_; }

 private:
  bool implausible(const RecordView& record) const;

  bool checked_;
  bool oldRecords_;
  std::size_t records_ = 0;
  std::size_t first_ = 0, firstLost_ = 0, lastFix_ = 0;
  std::size_t positioned_ = 0, positionedBefore_ = 0;
  std::size_t countedTo_ = 0;  // last record of the counted run
  float northBefore_ = 0;
  std::int32_t MaxCanale_ = 0;
  std::size_t implausible_ = 0;
};

}  // namespace corvan

#include "survey/SyscalRecords.h"

#include <algorithm>
#include <cstring>

#include "base/Rounding.h"

namespace corvan {

SyscalRecords::SyscalRecords(FileBytes file, std::size_t length) : file_(std::move(file)), length_(length) {
  if (file_.size() <= FirstRecord) return;
  const double records = static_cast<double>(file_.size() - FirstRecord) / static_cast<double>(length_);
  count_ = static_cast<std::size_t>(ArrotondaPari(records));
}

RecordSyscalPro SyscalRecords::record(std::size_t k) const {
  RecordSyscalPro record;
  const auto bytes = file_.bytes();
  const std::size_t first = std::min(position(k), bytes.size());
  std::memcpy(record.byte.data(), bytes.data() + first, std::min(RecordBlock, bytes.size() - first));
  return record;
}

std::size_t SyscalRecords::held(std::size_t k) const {
  const std::size_t first = std::min(position(k), file_.size());
  return std::min(length_, file_.size() - first);
}

}  // namespace corvan

#include "input/RecordExtent.h"

#include <algorithm>
#include <array>

namespace corvan {
namespace {

/// A value that an instrument could have stored: zero, or of a size between a micro-unit and a hundred million.
bool Plausibile(float value) {
  const float magnitude = std::abs(value);
  return value == 0.0F || (magnitude >= 1e-6F && magnitude <= 1e8F);
}

template <class Fields>
bool Plausibili(const RecordView& record, const Fields& fields) {
  return std::all_of(fields.begin(), fields.end(), [&](const auto& field) { return Plausibile(record.leggi(field)); });
}

constexpr std::array Places{campo::R16, campo::R20, campo::PosM, campo::PosN, campo::GpsNord, campo::GpsEst};
constexpr std::array Readings{campo::R68, campo::R72, campo::R76};

}  // namespace

RecordExtent::RecordExtent(const SyscalFile& file)
    : checked_(!file.signature() || file.type() == 0), oldRecords_(file.type() == 0) {}

bool RecordExtent::implausible(const RecordView& record) const {
  if (!Plausibili(record, Places)) return true;
  // Nothing is measured without a current.
  return oldRecords_ && (!Plausibili(record, Readings) || record.leggi(campo::R72) == 0.0F);
}

std::size_t RecordExtent::counted() const {
  const std::size_t run = anyFix() ? countedTo_ - first_ + 1 : records_;
  return std::max<std::size_t>(run, 2);
}

}  // namespace corvan

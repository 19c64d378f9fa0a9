#include "input/SyscalFile.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/Rounding.h"

namespace corvan {
namespace {

constexpr std::size_t Block = std::size_t{1} << 18;  // stays in the processor's cache from reading to reading out

constexpr std::string_view Signature{"\x02\0\0\x80", 4};
constexpr std::string_view NewerName = "SYSCAL Pro";
constexpr std::size_t NewerNameAt = 16;
constexpr std::int16_t NewerVersion = 6;

/// The instrument's newer files carry its name at byte 16 and a 6 as version before it or as record type.
bool GenereNuovo(std::string_view start, std::span<const std::byte> bytes) {
  if (start.substr(std::min(NewerNameAt, start.size()), NewerName.size()) != NewerName) return false;
  if (LeggiLE<std::int16_t>(bytes, FirstRecord + campo::Tipo.offset) == NewerVersion) return true;
  for (std::size_t at = 0; at + sizeof(std::int16_t) <= NewerNameAt; at += sizeof(std::int16_t)) {
    if (LeggiLE<std::int16_t>(bytes, at) == NewerVersion) return true;
  }
  return false;
}

}  // namespace

SyscalFile::SyscalFile(const std::filesystem::path& path) : file_(path) {
  if (bytes() == 0) throw FileError(path, "is empty");
  std::array<std::byte, ShortestSyscal> start{};
  const std::size_t got = file_.read(start);
  const std::string_view text(reinterpret_cast<const char*>(start.data()), got);
  if (GenereNuovo(text, start)) {
    throw FileError(path,
                    "is a Syscal file of the newer kind (.binx, version 6), which is not read: export it as .bin");
  }
  if (got < ShortestSyscal) {
    throw FileError(path, "is too short for a Syscal file: " + std::to_string(got) + " bytes, at least " +
                              std::to_string(ShortestSyscal) + " needed");
  }
  header_ = text.substr(0, HeaderLength);
  signature_ = text.starts_with(Signature);
  type_ = LeggiLE<std::int16_t>(start, FirstRecord + campo::Tipo.offset);
  length_ = static_cast<std::size_t>(LunghezzaRecord(type_));
  const double records = static_cast<double>(bytes() - FirstRecord) / static_cast<double>(length_);
  count_ = static_cast<std::size_t>(ArrotondaPari(records));
}

std::size_t SyscalFile::lastHeld() const {
  if (count_ == 0) return 0;
  const std::uintmax_t first = FirstRecord + std::uintmax_t{count_ - 1} * length_;
  return static_cast<std::size_t>(std::min<std::uintmax_t>(length_, bytes() - first));
}

std::uintmax_t SyscalFile::rest() const {
  const std::uintmax_t end = FirstRecord + std::uintmax_t{count_} * length_;
  return bytes() > end ? bytes() - end : 0;
}

namespace {

FileReader Dal(const SyscalFile& file, std::size_t record) {
  FileReader reader(file.path());
  reader.seek(FirstRecord + std::uintmax_t{record - 1} * file.length());
  return reader;
}

}  // namespace

// Carried over before a block: the record before the current one and what the block held of the one that it cut.
RecordWalk::RecordWalk(const SyscalFile& file, std::size_t from, std::size_t to)
    : blocks_(Dal(file, from), Block, 2 * file.length() + RecordBlock, RecordBlock),
      length_(file.length()),
      from_(from),
      to_(to),
      number_(from - 1) {}

/// Goes to the block behind, with the record and the one before it.
void RecordWalk::fill() {
  const std::size_t kept = filled_ - (number_ == from_ ? at_ : at_ - length_);
  const std::size_t got = blocks_.next(kept);
  at_ -= filled_ - kept;
  filled_ = kept + got;
  buffer_ = blocks_.data() - kept;
  if (got == Block) return;
  atEnd_ = true;
  std::memset(buffer_ + filled_, 0, RecordBlock);
}

}  // namespace corvan

// What the operator is told of a Syscal file: the sentences of its reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/Findings.h"
#include "input/FiringBuilder.h"
#include "input/RecordExtent.h"
#include "input/SyscalFile.h"

namespace corvan {

inline constexpr const char* SyscalProcedure = "LeggiSyscalPro2";

/// What a reading of a file came to.
struct SyscalOutcome {
  const SyscalFile& file;
  const RecordExtent& extent;
  const Grouping& grouping;
  const FiringTally& tally;
  const FormatCheck& format;
  const ReadOptions& options;
  std::optional<std::size_t> usual;  ///< records of a firing by the sure borders; none without one
};

/// About the file's kind and length: notes for what is odd, faults for what is lost. File names are not part of the
/// sentences.
void RilieviFile(const SyscalFile& file, Findings& out);

/// About its records and firings, likewise.
void RilieviScatti(const SyscalOutcome& outcome, Findings& out);

}  // namespace corvan

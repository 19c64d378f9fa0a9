// What a Syscal Pro file holds, found without storing a measurement.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

#include "base/File.h"
#include "base/Findings.h"
#include "survey/Misura.h"
#include "survey/SyscalRecords.h"

namespace corvan {

/// The records of a file and what decides how they are grouped. Record numbers are 1-based.
struct SyscalScan {
  SyscalRecords records;
  std::int16_t type = 0;         ///< record type word as stored
  bool signature = false;        ///< the file begins with 02 00 00 80, as the instrument and its maker's programs write
  std::size_t PrimoValido = 1;   ///< first record with a position; 1 when none has one
  std::size_t UltimoValido = 0;  ///< last before the first lost fix after it; the last record when none is lost
  std::size_t ultimoFix = 0;     ///< last record with a position; 0 when none has one
  std::int32_t MaxCanale = 0;    ///< largest channel number stored
  std::int32_t counted = 2;      ///< length of the first run of equal positions: the channels of a firing, at least 2

  bool anyFix() const { return ultimoFix > 0; }
};

/// A record's latitude or northing; one that is not finite counts as lost and reads 0.
float NordDi(const SyscalRecords& records, std::size_t k);
/// Its longitude or easting, likewise.
float EstDi(const SyscalRecords& records, std::size_t k);

/// @param file at least ShortestSyscal bytes
SyscalScan EsaminaSyscal(FileBytes file);

/// True when the file neither begins as Syscal files do nor holds records that could be readings.
bool AltroGenere(const SyscalScan& scan);

/// Why a file of this size and content cannot be a Syscal Pro survey; empty when it can.
std::string RifiutoSyscal(std::size_t fileSize);

/// Why records of the file are not what they should be or are left out when read for `channels` channels a firing up
/// to record `last`: notes for the operator, faults for what is lost. File names are not part of the sentences.
Findings RilieviSyscal(const SyscalScan& scan, std::size_t last, std::int32_t channels, bool gapsKept);

}  // namespace corvan

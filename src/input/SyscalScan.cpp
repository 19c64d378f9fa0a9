#include "input/SyscalScan.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvan {
namespace {

constexpr std::array<std::byte, 4> Signature{std::byte{0x02}, std::byte{0}, std::byte{0}, std::byte{0x80}};

float Finita(float value) { return std::isfinite(value) ? value : 0.0F; }

/// Channels of a firing: the run of records that share the latitude of the second one. The comparison starts one
/// record after the first, so the count is never below 2.
std::int32_t ContaCanali(const SyscalRecords& records, std::size_t first) {
  std::size_t k = first + 1;
  while (k < records.size() && NordDi(records, k) == NordDi(records, k + 1)) ++k;
  return static_cast<std::int32_t>(k - first + 1);
}

/// A value that an instrument could have stored: zero, or of a size between a micro-unit and a hundred million.
bool Plausibile(float value) {
  const float magnitude = std::abs(value);
  return value == 0.0F || (magnitude >= 1e-6F && magnitude <= 1e8F);
}

bool RecordPlausibile(const SyscalRecords& records, std::size_t k) {
  constexpr std::array fields{campo::R16, campo::R20, campo::PosM, campo::PosN, campo::GpsNord, campo::GpsEst};
  return std::all_of(fields.begin(), fields.end(),
                     [&](const auto& field) { return Plausibile(records.leggi(k, field)); });
}

std::string Quanti(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string Record(std::size_t count) { return Quanti(count, "record", "records"); }

using Rilievi = Findings;

constexpr const char* Procedure = "LeggiSyscalPro2";

/// The file's length against the records it should hold.
void RilieviLunghezza(const SyscalScan& scan, Rilievi& out) {
  const SyscalRecords& records = scan.records;
  const std::size_t body = records.fileSize() - FirstRecord;
  const std::size_t length = records.length();
  if (records.size() == 0) {
    out.fault(Procedure, "holds no record");
  } else if (const std::size_t held = records.held(records.size()); held < length) {
    out.fault(Procedure, "is cut short: the last record holds " + std::to_string(held) + " of " +
                             std::to_string(length) + " bytes, the missing ones read as zero");
  } else if (const std::size_t rest = body - records.size() * length; rest > 0) {
    out.fault(Procedure, Quanti(rest, "byte", "bytes") + " behind the last record left unread");
  }
}

void RilieviTipo(const SyscalScan& scan, Rilievi& out) {
  if (scan.type == 0) {
    out.note(Procedure,
             "records of 248 bytes have no room for a position: channel, position and time are "
             "taken from the bytes behind each record");
  } else if (scan.type < 0 || scan.type > 3) {
    out.note(Procedure, "record type word " + std::to_string(scan.type) + " is not 0 to 3: read as records of " +
                            std::to_string(scan.records.length()) + " bytes");
  }
}

/// Records left out before and behind those that are read.
void RilieviEstremi(const SyscalScan& scan, std::size_t last, Rilievi& out) {
  if (!scan.anyFix()) {
    out.fault(Procedure, "none of the " + Record(scan.records.size()) + " has a position: no reading is taken");
    return;
  }
  if (scan.PrimoValido > 1) {
    out.note(Procedure, Record(scan.PrimoValido - 1) + " before the first position left out");
  }
  if (last < scan.records.size()) {
    std::size_t positioned = 0;
    for (std::size_t k = last + 1; k <= scan.ultimoFix; ++k) positioned += NordDi(scan.records, k) != 0.0F ? 1U : 0U;
    out.fault(Procedure, "fix lost at record " + std::to_string(last + 1) + ": " + Record(scan.records.size() - last) +
                             " from there on left out, " + std::to_string(positioned) + " of them with a position");
  }
}

bool LettureFinite(const SyscalRecords& records, std::size_t k) {
  constexpr std::array fields{campo::R16, campo::R20, campo::PosM, campo::PosN,
                              campo::R48, campo::R68, campo::R72,  campo::R76};
  return std::all_of(fields.begin(), fields.end(),
                     [&](const auto& field) { return std::isfinite(records.leggi(k, field)); });
}

bool PosizioneFinita(const SyscalRecords& records, std::size_t k) {
  return std::isfinite(records.leggi(k, campo::GpsNord)) && std::isfinite(records.leggi(k, campo::GpsEst));
}

/// Records among those read that hold NaN or infinity.
void RilieviNonFiniti(const SyscalScan& scan, std::size_t last, Rilievi& out) {
  std::size_t readings = 0;
  std::size_t firstReading = 0;
  std::size_t positions = 0;
  for (std::size_t k = scan.PrimoValido; k <= last; ++k) {
    positions += PosizioneFinita(scan.records, k) ? 0U : 1U;
    if (LettureFinite(scan.records, k)) continue;
    if (readings++ == 0) firstReading = k;
  }
  if (readings > 0) {
    out.fault(Procedure, Record(readings) +
                             " with a reading or electrode that is not a finite number, the "
                             "first is record " +
                             std::to_string(firstReading));
  }
  if (positions > 0) {
    out.note(Procedure, Record(positions) + " with a position that is not a finite number: taken as lost");
  }
}

/// Records between the first and the last one read that give no position or no room for their channel.
void RilieviInterni(const SyscalScan& scan, std::size_t last, std::int32_t channels, bool gapsKept, Rilievi& out) {
  std::size_t halfFixes = 0;
  for (std::size_t k = scan.PrimoValido; k <= last; ++k) {
    halfFixes += NordDi(scan.records, k) != 0.0F && EstDi(scan.records, k) == 0.0F ? 1U : 0U;
  }
  if (halfFixes > 0 && !gapsKept) {
    out.fault(Procedure, Record(halfFixes) + " with a longitude or easting of 0 passed over");
  }
  if (scan.counted != scan.MaxCanale) {
    out.note(Procedure, "the counted " + std::to_string(scan.counted) +
                            " channels differ from the largest channel number stored, " +
                            std::to_string(scan.MaxCanale) + ": read with " + std::to_string(channels) +
                            " a firing (--channels)");
  }
  if (channels > static_cast<std::int32_t>(MaxChannels)) {
    out.fault(Procedure, "channels 11 to " + std::to_string(channels) + " of each firing are not stored");
  }
  const std::size_t used = last - scan.PrimoValido + 1;
  if (channels > 0 && used % static_cast<std::size_t>(channels) != 0) {
    out.note(Procedure, "the last firing has " + std::to_string(used % static_cast<std::size_t>(channels)) + " of " +
                            std::to_string(channels) + " channels");
  }
}

}  // namespace

float NordDi(const SyscalRecords& records, std::size_t k) { return Finita(records.leggi(k, campo::GpsNord)); }

float EstDi(const SyscalRecords& records, std::size_t k) { return Finita(records.leggi(k, campo::GpsEst)); }

SyscalScan EsaminaSyscal(FileBytes file) {
  SyscalScan scan;
  const auto bytes = std::as_const(file).bytes();
  scan.type = LeggiLE<std::int16_t>(bytes, FirstRecord + campo::Tipo.offset);
  scan.signature = bytes.size() >= Signature.size() && std::equal(Signature.begin(), Signature.end(), bytes.begin());
  scan.records = SyscalRecords(std::move(file), static_cast<std::size_t>(LunghezzaRecord(scan.type)));

  const SyscalRecords& records = scan.records;
  const std::size_t count = records.size();
  std::size_t firstLost = 0;
  for (std::size_t k = 1; k <= count; ++k) {
    scan.MaxCanale = k == 1 ? records.leggi(k, campo::Canale)
                            : std::max<std::int32_t>(scan.MaxCanale, records.leggi(k, campo::Canale));
    const bool fix = NordDi(records, k) != 0.0F;
    if (fix && !scan.anyFix()) scan.PrimoValido = k;
    if (!fix && scan.anyFix() && firstLost == 0) firstLost = k;
    if (fix) scan.ultimoFix = k;
  }
  scan.UltimoValido = firstLost == 0 ? count : firstLost - 1;
  scan.counted = ContaCanali(records, scan.PrimoValido);
  return scan;
}

bool AltroGenere(const SyscalScan& scan) {
  if (scan.signature) return false;
  std::size_t implausible = 0;
  for (std::size_t k = 1; k <= scan.records.size(); ++k) implausible += RecordPlausibile(scan.records, k) ? 0U : 1U;
  return 2 * implausible > scan.records.size();
}

std::string RifiutoSyscal(std::size_t fileSize) {
  if (fileSize == 0) return "is empty";
  if (fileSize >= ShortestSyscal) return "";
  return "is too short for a Syscal file: " + std::to_string(fileSize) + " bytes, at least " +
         std::to_string(ShortestSyscal) + " needed";
}

Findings RilieviSyscal(const SyscalScan& scan, std::size_t last, std::int32_t channels, bool gapsKept) {
  Rilievi out;
  RilieviTipo(scan, out);
  RilieviLunghezza(scan, out);
  if (scan.records.size() == 0) return out;
  RilieviEstremi(scan, last, out);
  if (!scan.anyFix()) return out;
  RilieviInterni(scan, last, channels, gapsKept, out);
  RilieviNonFiniti(scan, last, out);
  return out;
}

}  // namespace corvan

#include "input/SyscalFindings.h"

#include <string>

#include "base/Text.h"

namespace corvan {
namespace {

constexpr const char* Procedure = SyscalProcedure;

std::string Record(std::size_t count) { return Quanti(count, "record", "records"); }

/// "3 records with ..., the first is record 12"; "1 record with ..., it is record 12"
std::string Contati(const Tally& tally, const std::string& what) {
  std::string told = Record(tally.count) + " " + what;
  told += IlPrimo(tally.count);
  return told + "record " + std::to_string(tally.first);
}

/// Records left out before and behind those that are read.
void RilieviEstremi(const SyscalOutcome& of, Findings& out) {
  const std::size_t records = of.file.size();
  if (!of.extent.anyFix()) {
    const bool kept = of.options.span == ReadSpan::PastLostFixes;
    const std::string none = records == 1 ? "the only record has no" : "none of the " + Record(records) + " has a";
    out.fault(Procedure, none + " position: " + (kept ? "its readings have no place" : "no reading is taken"));
    return;
  }
  if (of.grouping.first > 1) {
    out.note(Procedure, Record(of.grouping.first - 1) + " before the first position left out");
  }
  if (of.grouping.last < records) {
    const bool past = of.options.span == ReadSpan::PastLostFixes;
    out.fault(Procedure, "fix lost at record " + std::to_string(of.grouping.last + 1) + ": " +
                             Record(records - of.grouping.last) + " from there on left out, " +
                             std::to_string(past ? 0 : of.extent.positionedBehind()) + " of them with a position");
  }
}

void RilieviPosizioni(const SyscalOutcome& of, Findings& out) {
  const FiringTally& tally = of.tally;
  if (tally.badPosition.count > 0) {
    out.note(Procedure, Contati(tally.badPosition, "with a position that is not a finite number") + ": taken as lost");
  }
  if (!of.extent.anyFix()) return;
  const bool kept = of.options.span == ReadSpan::PastLostFixes;
  if (kept && tally.noFix.count > 0) {
    out.note(Procedure, Contati(tally.noFix, "without position kept as bad fixes"));
  }
  if (tally.halfFix.count == 0) return;
  const std::string half = "with a longitude or easting of 0 ";
  if (kept) {
    out.note(Procedure, Contati(tally.halfFix, half + "kept as bad fixes"));
  } else {
    out.fault(Procedure, Contati(tally.halfFix, half + "passed over"));
  }
}

/// The number of records that a firing is read with, where the file says more than one thing about it.
void RilieviCanali(const SyscalOutcome& of, Findings& out) {
  const std::size_t usual = of.usual.value_or(of.extent.counted());
  const std::size_t number = of.grouping.number;
  const auto largest = static_cast<std::int64_t>(of.extent.MaxCanale());
  if (static_cast<std::int64_t>(usual) != largest || number != usual) {
    const std::string told =
        of.usual ? "firings have " + Record(usual) + " as a rule"
                 : "no border between firings is sure and " + Record(usual) + " share the first position";
    out.note(Procedure, told + ", the largest channel number stored is " + std::to_string(largest) + ": read with " +
                            std::to_string(number) + " a firing (--channels)" +
                            (of.usual && of.grouping.grid ? ", whatever the borders between firings" : ""));
  }
  if (number > MaxChannels) {
    out.fault(Procedure, number == MaxChannels + 1
                             ? "channel 11 of each firing is not stored"
                             : "channels 11 to " + std::to_string(number) + " of each firing are not stored");
  } else if (of.tally.unstored.count > 0) {
    out.fault(Procedure, Contati(of.tally.unstored, "of a channel above 10 not stored"));
  }
}

/// "firing 9 (from record 17 on) has 1 of 2 records"
std::string Corto(const ShortFirings& of, const char* has) {
  return "firing " + std::to_string(of.firing) + " (from record " + std::to_string(of.record) + " on) " + has + " " +
         std::to_string(of.held) + " of " + Record(of.expected);
}

std::string Posti(const ShortFirings& of) {
  std::string told;
  const auto add = [&told](std::size_t count, const char* how) {
    if (count > 0) told += (told.empty() ? ": " : ", ") + std::to_string(count) + how;
  };
  add(of.byChannel, " read by channel number");
  add(of.inOrder, " read in order");
  add(of.empty, " left without reading, since no record tells its channel");
  return told;
}

/// Firings that are not whole.
void RilieviCorti(const SyscalOutcome& of, Findings& out) {
  const FiringTally& tally = of.tally;
  if (tally.repeated.count > 0) {
    out.fault(Procedure, Contati(tally.repeated, "equal to the one before dropped from firings that are too long"));
  }
  if (tally.leading.count > 0) {
    out.note(Procedure,
             Corto(tally.leading, "has") + ", the others being among those without position" + Posti(tally.leading));
  }
  if (tally.shorter.count > 0) {
    std::string told = Quanti(tally.shorter.count, "firing", "firings") + " lost records";
    told += IlPrimo(tally.shorter.count);
    out.fault(Procedure, told + Corto(tally.shorter, "with") + Posti(tally.shorter));
  }
  if (tally.unplaced.count > 0) {
    out.fault(Procedure, Contati(tally.unplaced, "of such firings left out for want of a channel number of their own"));
  }
  if (of.grouping.grid && tally.lastHeld < of.grouping.number) {
    out.note(Procedure, "the last firing has " + std::to_string(tally.lastHeld) + " of " +
                            std::to_string(of.grouping.number) + " channels");
  }
}

}  // namespace

void RilieviFile(const SyscalFile& file, Findings& out) {
  if (file.type() == 0) {
    out.note(Procedure,
             "records of 248 bytes have no room for a position: channel, position and time are taken from the bytes "
             "behind each record");
  } else if (file.type() < 0 || file.type() > 3) {
    out.note(Procedure, "record type word " + std::to_string(file.type()) + " is not 0 to 3: read as records of " +
                            std::to_string(file.length()) + " bytes");
  }
  if (file.size() == 0) {
    out.fault(Procedure, "holds no record");
  } else if (file.lastHeld() < file.length()) {
    out.fault(Procedure, "is cut short: the last record holds " + std::to_string(file.lastHeld()) + " of " +
                             std::to_string(file.length()) + " bytes, the missing ones read as zero");
  } else if (file.rest() > 0) {
    out.fault(Procedure, Quanti(file.rest(), "byte", "bytes") + " behind the last record left unread");
  }
}

void RilieviScatti(const SyscalOutcome& outcome, Findings& out) {
  RilieviEstremi(outcome, out);
  RilieviCanali(outcome, out);
  RilieviCorti(outcome, out);
  RilieviPosizioni(outcome, out);
  if (const Tally& bad = outcome.tally.badReading; bad.count > 0) {
    out.fault(Procedure, Contati(bad, "with a reading, electrode or depth that is not a finite number") +
                             ": kept as read, without part in extremes and colours");
  }
  outcome.format.rilievi(Procedure, "record", out);
}

}  // namespace corvan

#include "input/TrackFile.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/Lines.h"
#include "geo/AngleText.h"
#include "input/GpxText.h"
#include "input/NmeaLog.h"
#include "input/TrackFields.h"
#include "input/TrackSteps.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiGPSEsterno";

/// Field k is a date and the one behind it a time.
bool DataEOra(const TrackFields& fields, std::size_t k) {
  const std::string_view date = fields(k);
  if (date.empty() || date.front() < '0' || date.front() > '9') return false;  // most headers and other texts
  if (fields(k + 1).find(':') == std::string_view::npos) return false;
  try {
    fields.quando(k);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

/// Sentences that were left out or taken against their checksums.
void RilieviFrasi(const NmeaCounts& c, Findings& findings) {
  for (std::size_t k = 0; k < SentenceKinds; ++k) {
    const std::string name(SentenceNames.at(k));
    const Counted &wrong = c.wrongChecksum.at(k), &malformed = c.malformed.at(k);
    if (c.trusted.at(k)) {
      findings.fault(Procedure, "every " + name + " sentence has a wrong checksum: they are taken");
    } else if (wrong.count > 0) {
      findings.fault(Procedure, Quanti(wrong.count, "", "") + name + " " +
                                    (wrong.count == 1 ? "sentence" : "sentences") + " with a wrong checksum left out" +
                                    Dove(wrong.count, wrong.line));
    }
    if (malformed.count > 0) {
      findings.fault(Procedure, Quanti(malformed.count, "", "") + name + " " +
                                    (malformed.count == 1 ? "sentence" : "sentences") +
                                    " that cannot be read left out" + Dove(malformed.count, malformed.line));
    }
  }
}

/// Sentences that say nothing of a position.
void RilieviPosizioni(const NmeaCounts& c, Findings& findings) {
  const auto note = [&findings](const Counted& counted, const char* one, const char* many) {
    if (counted.count == 0) return;
    findings.note(Procedure, Quanti(counted.count, one, many) + Dove(counted.count, counted.line));
  };
  note(c.withoutFix, "position sentence without a fix", "position sentences without a fix");
  note(c.withoutPosition, "position sentence claims a fix without latitude or longitude: left out",
       "position sentences claim a fix without latitude or longitude: left out");
  note(c.noDay, "date that is no day of 1980 to 2100 left out", "dates that are no days of 1980 to 2100 left out");
  note(c.belowKeel, "DPT offset is negative: a depth below the keel",
       "DPT offsets are negative: depths below the keel");
}

/// The talkers that are not read, the first few by name.
void RilieviAltri(const NmeaLog& log, Findings& findings) {
  if (log.others.empty()) return;
  constexpr std::size_t most = 5;
  std::size_t fixes = 0;
  std::string names;
  for (std::size_t k = 0; k < log.others.size(); ++k) {
    fixes += log.others[k].fixes;
    if (k < most) names += (k > 0 ? ", " : "") + log.others[k].name() + " " + std::to_string(log.others[k].fixes);
  }
  if (log.others.size() > most) names += ", ...";
  findings.note(Procedure, Quanti(fixes, "fix", "fixes") + " of other talkers (" + names + ") left out: " + log.talker +
                               ", with " + std::to_string(log.fixes.size()) + ", is read");
}

void RilieviDate(const NmeaLog& log, const TrackOptions& options, TrackRead& read) {
  if (log.fixes.empty()) return;
  read.undated = !log.dated && !options.firstDay;
  if (read.undated)
    read.findings.fault(
        Procedure, "no sentence tells the date: the fixes have times but no day, and nothing can be linked by time");
  if (log.dated && options.firstDay) {
    read.findings.note(Procedure, "the log tells its dates: the day given for its first fix is not used");
  }
  if (log.leaps.count > 0) {
    read.findings.note(Procedure, "the date changes other than at midnight " +
                                      Quanti(log.leaps.count, "time", "times") + Dove(log.leaps.count, log.leaps.line));
  }
}

void RilieviProfondita(const NmeaLog& log, Findings& findings) {
  if (log.otherDepths > 0 && log.sounder) {
    findings.note(Procedure, Quanti(log.otherDepths, "depth", "depths") + " of other sentences not used: " +
                                 std::string(SentenceNames.at(static_cast<std::size_t>(*log.sounder))) +
                                 " serves the whole log");
  }
  const auto without = std::count_if(log.fixes.begin(), log.fixes.end(), [](const NmeaFix& f) { return !f.depth; });
  if (without == 0) return;
  findings.note(Procedure, QuantiDi(static_cast<std::size_t>(without), log.fixes.size(), "fix", "fixes") +
                               (log.sounder ? " no depth near enough in time" : " no depth: no sentence tells one"));
}

PuntoGPSEst Fix(const NmeaFix& told, AngleFormat layout) {
  PuntoGPSEst fix;
  fix.sorgente = Geographic{told.latitude, told.longitude};
  fix.GeoA = NumeroDaGradi(told.latitude, layout);
  fix.GeoB = NumeroDaGradi(told.longitude, layout);
  fix.haProf = told.depth.has_value();
  fix.Prof = told.depth.value_or(0.0);
  fix.DataOra = told.when;
  return fix;
}

}  // namespace

std::optional<TrackKind> GenereDaContenuto(std::string_view content) {
  if (SembraGpx(content)) return TrackKind::Gpx;
  if (SembraNmea(content)) return TrackKind::Nmea;
  constexpr std::size_t enough = 400;  // of a line
  for (LineCursor lines(content); lines.more();) {
    const TrackFields fields(lines.next().substr(0, enough));
    if (DataEOra(fields, 1)) return TrackKind::SixColumns;
    if (DataEOra(fields, 3)) return TrackKind::Csv;
  }
  return std::nullopt;
}

TrackKind GenereTraccia(std::string_view name, std::string_view content) {
  const auto ends = [name](std::string_view ending) { return name.ends_with(ending); };
  if (ends(".sav")) return TrackKind::Sav;
  return GenereDaContenuto(content).value_or(ends(".csv") ? TrackKind::Csv : TrackKind::SixColumns);
}

const char* NomeGenere(TrackKind kind) {
  switch (kind) {
    case TrackKind::Csv:
      return "table of positions (.csv)";
    case TrackKind::SixColumns:
      return "six columns";
    case TrackKind::Nmea:
      return "NMEA 0183 log";
    case TrackKind::Sav:
      return "six columns (.sav)";
    case TrackKind::Gpx:
      return "GPX track";
  }
  return "";
}

TrackRead LeggiFileNav(std::string_view content, const TrackOptions& options) {
  const NmeaLog log = LeggiNmea(content, options.firstDay);
  TrackRead read;
  read.kind = TrackKind::Nmea;
  read.lines = log.counts.lines;
  read.fixes.reserve(log.fixes.size());
  std::vector<std::size_t> lines;
  lines.reserve(log.fixes.size());
  for (const NmeaFix& told : log.fixes) {
    read.fixes.append(Fix(told, options.layout));
    lines.push_back(told.line);
  }
  RilieviFrasi(log.counts, read.findings);
  if (const std::string fast = PassiVeloci(read.fixes, lines); !fast.empty()) read.findings.fault(Procedure, fast);
  RilieviDate(log, options, read);
  RilieviPosizioni(log.counts, read.findings);
  RilieviAltri(log, read.findings);
  RilieviProfondita(log, read.findings);
  return read;
}

TrackRead LeggiTraccia(TrackKind kind, std::string_view content, const TrackOptions& options) {
  switch (kind) {
    case TrackKind::Csv:
      return LeggiFileCSV(content, options);
    case TrackKind::SixColumns:
      return LeggiGPS6Col(content, options);
    case TrackKind::Nmea:
      return LeggiFileNav(content, options);
    case TrackKind::Sav:
      return LeggiFileSav(content, options);
    case TrackKind::Gpx:
      return LeggiFileGpx(content, options);
  }
  return {};
}

}  // namespace corvan

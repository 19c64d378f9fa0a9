#include "input/TextReader.h"

#include <string>
#include <system_error>

#include "base/ErrorTrap.h"
#include "input/TextLine.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiFileCorvan";

std::string Righe(std::size_t count) { return std::to_string(count) + (count == 1 ? " line" : " lines"); }

std::string Riga(std::size_t number) { return "line " + std::to_string(number); }

std::string Lasciate(const TextScan& scan) {
  return Righe(scan.left) + " from there on left out, " + std::to_string(scan.leftWithFix) + " of them with a position";
}

std::string Dietro(const TextScan& scan) {
  return Righe(scan.left) + " behind it left out, " + std::to_string(scan.leftWithFix) + " of them with a position";
}

/// What ended the data, where that left lines out.
void RilieviFine(const TextScan& scan, Findings& out) {
  const std::string place = Riga(scan.endLine);
  switch (scan.end) {
    case DataEnd::File:
      return;
    case DataEnd::LastLine:
      out.note(Procedure, "the last line, " + std::to_string(scan.endLine) + ", is left out");
      return;
    case DataEnd::OutOfRange:
      out.fault(Procedure,
                place + ", " + scan.endText + ": reading ended there, " + Righe(scan.left) + " from there on not read");
      return;
    case DataEnd::LostFix: {
      const std::string text = scan.endText.empty() ? "" : ", field 26 " + scan.endText;
      out.fault(Procedure, "fix lost at " + place + text + ": " + Lasciate(scan));
      return;
    }
    case DataEnd::Blank:
      if (scan.left > 0) out.fault(Procedure, "the data end at the blank " + place + ": " + Dietro(scan));
      return;
    case DataEnd::Header:
      if (scan.left > 0) out.fault(Procedure, "the data end at a repeated header, " + place + ": " + Dietro(scan));
      return;
    case DataEnd::LastFix:
      if (scan.left > 0)
        out.fault(Procedure, "the last position stands in " + place + ": " + Righe(scan.left) + " behind it left out");
      return;
  }
}

/// Lines before and between those taken.
void RilieviEstensione(const TextScan& scan, Findings& out) {
  if (!scan.anyFix) {
    out.fault(Procedure, scan.firings == 1 ? "the only line has no position"
                                           : "none of the " + Righe(scan.firings) + " has a position");
  }
  if (scan.anyFix && scan.leading > 0) {
    out.note(Procedure, Righe(scan.leading) + " between the header and the first position left out");
  }
  if (scan.passedOver > 0) {
    out.note(Procedure, Righe(scan.passedOver) + ", blank or a repeated header, passed over");
  }
}

/// Lines taken that do not hold what they should.
void RilieviRighe(const TextScan& scan, Findings& out) {
  if (const LinesSeen& seen = scan.incomplete; seen.count > 0) {
    out.fault(Procedure, Riga(seen.first) + " has " + std::to_string(seen.values) + " of " +
                             std::to_string(TextFields) + " values, the missing ones read as 0 (" + Righe(seen.count) +
                             " so)");
  }
  if (const LinesSeen& seen = scan.surplus; seen.count > 0) {
    out.fault(Procedure, Riga(seen.first) + " has " + std::to_string(seen.values) + " values, those behind field " +
                             std::to_string(TextFields) + " are not read (" + Righe(seen.count) + " so)");
  }
  if (scan.numbers.count() > 0) out.fault(Procedure, scan.numbers.detto());
  scan.format.rilievi(Procedure, "line", out);
}

}  // namespace

FileReport LeggiFileCorvan(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink) {
  FileReport report;
  FileSummary& summary = report.summary;
  summary.path = path;
  std::error_code ignored;
  if (const auto bytes = std::filesystem::file_size(path, ignored); !ignored) summary.bytes = bytes;
  TextScan scan(options);
  const bool whole = Trappola(report.findings, Procedure, [&] { EsaminaTesto(path, options, sink, scan); });
  if (scan.lines > 0) {
    summary.format = "text";
    summary.channels = report.largestChannel = static_cast<std::int32_t>(MaxChannels);
    summary.records = scan.lines;
    summary.firings = scan.taken;
  }
  if (whole) {
    const Findings found = RilieviTesto(scan);
    for (const Finding& finding : found.entries()) report.findings.add(finding);
  } else {
    RilieviRighe(scan, report.findings);
  }
  return report;
}

Findings RilieviTesto(const TextScan& scan) {
  Findings out;
  RilieviEstensione(scan, out);
  RilieviFine(scan, out);
  RilieviRighe(scan, out);
  return out;
}

}  // namespace corvan

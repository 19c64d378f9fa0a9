// What a track's reading gave, as texts that tables can hold.
#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "base/OleDate.h"
#include "input/TrackFile.h"

namespace corvan::test {

/// "2026-06-15 08:00:00 4.5" for a fix with a depth, "... -" for one without.
inline std::vector<std::string> TimesAndDepths(const TrackRead& read) {
  std::vector<std::string> list;
  for (const PuntoGPSEst& fix : read.fixes) {
    const std::string depth = fix.haProf ? TestoNumero(std::round(fix.Prof * 1e6) / 1e6) : "-";
    list.push_back(TestoDataOra(DaGiorni(fix.DataOra)) + " " + depth);
  }
  return list;
}

/// The findings as "fault: ..." and "note: ...".
inline std::vector<std::string> Said(const TrackRead& read) {
  std::vector<std::string> list;
  for (const Finding& finding : read.findings.entries()) {
    list.push_back((finding.severity == Severity::Fault ? "fault: " : "note: ") + finding.reason);
  }
  return list;
}

/// A sentence with its checksum, between "$" and the line's end.
inline std::string Sentence(const std::string& body) {
  unsigned sum = 0;
  for (const char c : body) sum ^= static_cast<unsigned char>(c);
  const char* digits = "0123456789ABCDEF";
  return "$" + body + "*" + digits[sum >> 4U] + digits[sum & 15U] + "\r\n";
}

}  // namespace corvan::test

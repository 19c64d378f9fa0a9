// What a track's reading gave, as texts that tables can hold.
#pragma once

#include <cmath>
#include <string>

#include "base/NumberText.h"
#include "base/OleDate.h"
#include "input/TrackFile.h"
#include "support/SurveyFiles.h"

namespace corvan::test {

/// The fixes as "08:00:00 4.5, 08:00:03 -": time and depth, the date before them where it is not 2026-06-15.
inline std::string TimesAndDepths(const TrackRead& read) {
  std::string list;
  for (const PuntoGPSEst& fix : read.fixes) {
    const std::string when = TestoDataOra(DaGiorni(fix.DataOra));
    list += (list.empty() ? "" : ", ") + when.substr(when.starts_with("2026-06-15 ") ? 11 : 0) + " ";
    list += fix.haProf ? TestoNumero(std::round(fix.Prof * 1e6) / 1e6) : "-";
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

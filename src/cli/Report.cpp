#include "cli/Report.h"

#include <cmath>
#include <iostream>

#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan::cli {

namespace {

const char* Parola(Severity severity) { return severity == Severity::Fault ? "error" : "note"; }

}  // namespace

void StampaRilievi(const Findings& findings) {
  for (const Finding& f : findings.entries()) {
    std::cerr << Parola(f.severity) << ": " << Visibile(f.procedure + ": " + f.detto()) << '\n';
  }
}

Json RilieviJson(const Findings& findings) {
  Json list = Json::array();
  for (const Finding& f : findings.entries()) {
    list.push_back({{"severity", f.severity == Severity::Fault ? "fault" : "note"},
                    {"procedure", f.procedure},
                    {"file", f.file},
                    {"reason", f.reason}});
  }
  return list;
}

Json NumeroJson(float value) { return std::isfinite(value) ? Json(Val(TestoNumero(value))) : Json(nullptr); }

Json NumeroJson(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

std::string TestoJson(const Json& json) {
  const std::string text = json.dump(2, ' ', false, Json::error_handler_t::replace);
  std::string out;
  for (std::size_t k = 0; k < text.size(); ++k) {
    const bool pair = text[k] == '\xC2' && k + 1 < text.size() && static_cast<unsigned char>(text[k + 1]) < 0xA0;
    if (!pair && text[k] != '\x7F') {
      out += text[k];
      continue;
    }
    const unsigned code = pair ? static_cast<unsigned char>(text[++k]) : 0x7FU;
    out += "\\u00";
    out += "0123456789abcdef"[code >> 4U];
    out += "0123456789abcdef"[code & 0xFU];
  }
  return out + "\n";
}

}  // namespace corvan::cli

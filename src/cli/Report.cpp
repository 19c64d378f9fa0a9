#include "cli/Report.h"

#include <cmath>
#include <iostream>

#include "base/NumberText.h"

namespace corvan::cli {

namespace {

const char* Parola(Severity severity) { return severity == Severity::Fault ? "error" : "note"; }

}  // namespace

void StampaRilievi(const Findings& findings) {
  for (const Finding& f : findings.entries()) {
    std::cerr << Parola(f.severity) << ": " << f.procedure << ": " << f.detto() << '\n';
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

std::string TestoJson(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n"; }

}  // namespace corvan::cli

#include "cli/Report.h"

#include <cmath>
#include <iostream>

#include "base/NumberText.h"

namespace corvan::cli {

void StampaDiagnostica(const Diagnostics& diagnostics) {
  for (const Diagnostic& d : diagnostics.entries()) {
    std::cerr << (d.severity == Severity::Fault ? "error: " : "note: ") << d.procedure << ": " << d.reason << '\n';
  }
}

Json DiagnosticaJson(const Diagnostics& diagnostics) {
  Json list = Json::array();
  for (const Diagnostic& d : diagnostics.entries()) list.push_back({{"procedure", d.procedure}, {"reason", d.reason}});
  return list;
}

Json NumeroJson(float value) { return std::isfinite(value) ? Json(Val(TestoNumero(value))) : Json(nullptr); }

Json NumeroJson(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

std::string TestoJson(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n"; }

}  // namespace corvan::cli

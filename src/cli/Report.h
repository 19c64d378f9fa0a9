// How results and findings are printed.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "base/Findings.h"

namespace corvan::cli {

using Json = nlohmann::ordered_json;

/// Prints every finding on standard error, one line each, faults as "error", notes as "note".
void StampaRilievi(const Findings& findings);

Json RilieviJson(const Findings& findings);

/// A single as the number that its shortest text reads, so that 0.1 stays 0.1; null when it is not finite.
Json NumeroJson(float value);
Json NumeroJson(double value);

/// The object as text with a line end; bytes that are no UTF-8 are replaced, control characters escaped, also those
/// that JSON would let stand (7F and U+0080 to U+009F).
std::string TestoJson(const Json& json);

}  // namespace corvan::cli

// The sample survey in the two forms that the instrument gives.
#pragma once

#include <string>
#include <vector>

#include "Lagoon.h"

namespace corvan::samples {

/// A Syscal Pro file of 304-byte records, ten a firing.
std::string FileSyscal(const std::vector<Firing>& firings);

/// The same firings as a text export: a header line, 49 values a line, and the blank line that ends it.
std::string FileTesto(const std::vector<Firing>& firings);

}  // namespace corvan::samples

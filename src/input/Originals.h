// Which files are originals: data that came from an instrument or a receiver and cannot be measured again.
#pragma once

#include <string>
#include <string_view>

namespace corvan {

/// What original a file's beginning shows, as people call it ("an instrument's file"); empty for everything else, first
/// of all what this program writes. A first MiB is enough to be handed: nothing tells originals later, but for a log
/// whose first sentence stands behind it.
std::string Originale(std::string_view beginning);

}  // namespace corvan

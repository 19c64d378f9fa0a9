// The computer's clock, for those who start a session.
#pragma once

#include "base/OleDate.h"

namespace corvan {

/// Local date and time of this moment.
DateTime Adesso();

}  // namespace corvan

// The border at which a procedure that traps its own errors ends quietly.
#pragma once

#include <exception>
#include <new>
#include <string>
#include <utility>

#include "base/Diagnostics.h"

namespace corvan {

/// Runs the body of a procedure; an error ends it, what it has done stays, and procedure and reason are noted.
/// @return true when the body came to its end
template <class Body>
bool Trappola(Diagnostics& diagnostics, const std::string& procedure, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const std::bad_alloc&) {
    diagnostics.fault(procedure, "not enough memory");
  } catch (const std::exception& error) {
    diagnostics.fault(procedure, error.what());
  }
  return false;
}

}  // namespace corvan

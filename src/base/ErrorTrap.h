// The border at which a procedure that traps its own errors ends quietly.
#pragma once

#include <exception>
#include <new>
#include <string>
#include <utility>

#include "base/Errors.h"
#include "base/Findings.h"

namespace corvan {

/// Runs the body of a procedure; an error ends it, what it has done stays, and procedure and reason are noted.
/// @return true when the body came to its end
template <class Body>
bool Trappola(Findings& findings, const std::string& procedure, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const FileError& error) {
    findings.fault(procedure, error.reason(), error.path().string());
  } catch (const std::bad_alloc&) {
    findings.fault(procedure, "not enough memory");
  } catch (const std::exception& error) {
    findings.fault(procedure, error.what());
  }
  return false;
}

/// The same for a step that follows from many commands: an error that was told already is not told again.
template <class Body>
bool TrappolaUnaVolta(Findings& findings, const std::string& procedure, Body&& body) {
  Findings own;
  const bool done = Trappola(own, procedure, std::forward<Body>(body));
  findings.addUnaVolta(own);
  return done;
}

}  // namespace corvan

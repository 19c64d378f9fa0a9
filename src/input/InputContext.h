// What a reader works on.
#pragma once

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "survey/Survey.h"

namespace corvan {

/// Up to where a file is read.
enum class ReadSpan {
  ToFirstLostFix,  ///< the records or lines from the first lost fix on are left out
  PastLostFixes    ///< on to the last positioned one; the firings between keep their readings and are bad fixes
};

struct InputContext {
  Survey& survey;
  Dialogs& dialogs;
  Findings& findings;
  ReadSpan span = ReadSpan::ToFirstLostFix;
};

}  // namespace corvan

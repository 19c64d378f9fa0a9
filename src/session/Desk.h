// What every desk is given: the user to ask, the lists to write into, and whom to tell that something changed.
#pragma once

#include <functional>
#include <string>

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "session/History.h"

namespace corvan {

/// What a command changed, for the desks that show or use it.
enum class Change {
  Survey,       ///< another survey was read and is about to be analysed
  Analysis,     ///< positions, factors or resistivities were derived anew
  Cells,        ///< the scene's cells show something else
  Depths,       ///< water depths, or the place where their profile is drawn
  Translation,  ///< where the view shows the data
  Colours,      ///< the range of the colour scale
  Track,        ///< another external track
  Selection,    ///< the chosen extremes
  Label         ///< the line of information on the picture
};

struct Desk {
  Dialogs& dialogs;
  Findings& findings;
  History& history;
  std::function<void(Change)> tell;

  std::string chiedi(const InputRequest& request) const { return dialogs.InputBox(request).value_or(""); }
  /// Tells the user in a box that a command is not carried out.
  void rifiuta(const char* procedure, Question message) const {
    findings.fault(procedure, PromptDi(MessageRequest{message, ""}));
    dialogs.MsgBox({message, ""});
  }
};

}  // namespace corvan

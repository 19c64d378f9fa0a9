// The controls of the window by the names that users and manuals know, each with the command that it stands for.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "session/Session.h"

namespace corvan {

struct Control {
  const char* name;     ///< the control's name and what the user does with it, e.g. "EpCmd_Click"
  const char* command;  ///< what the list of findings calls it; none for one that only looks
  void (*run)(Session& session, const std::string& text);
};

/// In the order of the panels and menus. @param text what stands in a box whose Enter was pressed; else unused
std::span<const Control> Controls();

/// Runs a control's command. Unknown names are a mistake of the program: std::out_of_range.
void EseguiControllo(Session& session, std::string_view name, const std::string& text = {});

}  // namespace corvan

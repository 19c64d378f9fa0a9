// The options of the window's command line: for its answer to --help, its manual page and its completion.
#pragma once

#include <array>
#include <string_view>

namespace corvan {

struct StartOption {
  std::string_view names;  ///< as in a help text
  std::string_view text;
};
inline constexpr std::array StartTable{StartOption{"-h,--help", "Print this help and exit"},
                                       StartOption{"--version", "Print the version and exit"},
                                       StartOption{"--", "All that follows is the name of a file"}};

/// Options that the toolkit takes out of the command line; it accepts them with one "-" and with two.
struct ToolkitOption {
  std::string_view name;   ///< without "-"
  std::string_view value;  ///< what the next argument is; empty: none belongs to it
  std::string_view text;
};
inline constexpr std::array ToolkitOptions{
    ToolkitOption{"platform", "NAME", "Way to the screen: xcb, wayland, offscreen"},
    ToolkitOption{"platformpluginpath", "FOLDER", "Where such ways are looked for"},
    ToolkitOption{"platformtheme", "NAME", "Theme of the desktop"},
    ToolkitOption{"plugin", "NAME", "Plugin to load first"},
    ToolkitOption{"style", "NAME", "Style of the controls, as fusion"},
    ToolkitOption{"stylesheet", "FILE", "Style sheet for the controls"},
    ToolkitOption{"display", "NAME", "X display"},
    ToolkitOption{"geometry", "WxH+X+Y", "Size and place of the window on an X display"},
    ToolkitOption{"qwindowgeometry", "WxH+X+Y", "Size and place of the window"},
    ToolkitOption{"qwindowtitle", "TEXT", "Title of the window"},
    ToolkitOption{"qwindowicon", "FILE", "Icon of the window"},
    ToolkitOption{"title", "TEXT", "Title of the window on an X display"},
    ToolkitOption{"icon", "FILE", "Icon of the window on an X display"},
    ToolkitOption{"session", "ID", "Session to take up again"},
    ToolkitOption{"reverse", "", "Lay the window out from right to left"}};

}  // namespace corvan

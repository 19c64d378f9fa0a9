#include "app/StartOptions.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/Text.h"

namespace corvan {
namespace {

constexpr const char* Help =
    "Usage: corvan [OPTIONS] [FILE...]\n"
    "\n"
    "Opens the window and reads the survey files named, in this order.\n"
    "\n"
    "Options:\n"
    "  -h,--help    Print this help and exit\n"
    "  --version    Print the version and exit\n"
    "  --           All that follows is the name of a file\n"
    "\n"
    "Options of the toolkit, as -platform, -style and -geometry, are taken, too.\n"
    "Without a window: corvan-cli.\n";

/// Options that the toolkit takes out of the command line; it accepts them with one "-" and with two.
struct ToolkitOption {
  std::string_view name;
  bool value;  ///< the next argument belongs to it
};
constexpr std::array ToolkitOptions{ToolkitOption{"platform", true},
                                    ToolkitOption{"platformpluginpath", true},
                                    ToolkitOption{"platformtheme", true},
                                    ToolkitOption{"plugin", true},
                                    ToolkitOption{"style", true},
                                    ToolkitOption{"stylesheet", true},
                                    ToolkitOption{"display", true},
                                    ToolkitOption{"geometry", true},
                                    ToolkitOption{"qwindowgeometry", true},
                                    ToolkitOption{"qwindowtitle", true},
                                    ToolkitOption{"qwindowicon", true},
                                    ToolkitOption{"title", true},
                                    ToolkitOption{"icon", true},
                                    ToolkitOption{"session", true},
                                    ToolkitOption{"reverse", false}};

const ToolkitOption* DelToolkit(std::string_view argument) {
  argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
  const auto name = argument.substr(0, argument.find('='));
  const auto found = std::ranges::find(ToolkitOptions, name, &ToolkitOption::name);
  return found == ToolkitOptions.end() ? nullptr : &*found;
}

}  // namespace

StartAnswer RispostaIniziale(std::span<const std::string> arguments) {
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    const std::string_view argument = arguments[k];
    if (argument == "--") break;
    if (!argument.starts_with('-')) continue;
    if (argument == "-h" || argument == "--help") return {true, 0, Help, {}};
    if (argument == "--version") return {true, 0, "corvan " CORVAN_VERSION "\n", {}};
    const ToolkitOption* known = DelToolkit(argument);
    if (known == nullptr) {
      return {
          true, 2, {}, "corvan: unknown option " + Visibile(argument) + "\nRun with --help for more information.\n"};
    }
    if (known->value && argument.find('=') == std::string_view::npos) ++k;
  }
  return {};
}

QStringList FileNominati(const QStringList& arguments) {
  QStringList files = arguments;
  files.removeOne("--");
  return files;
}

}  // namespace corvan

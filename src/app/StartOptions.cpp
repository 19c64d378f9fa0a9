#include "app/StartOptions.h"

#include <algorithm>
#include <string_view>

#include "app/StartTable.h"
#include "base/Text.h"

namespace corvan {
namespace {

std::string Aiuto() {
  std::string options;
  for (const StartOption& option : StartTable) {
    options +=
        "  " + std::string(option.names) + std::string(13 - option.names.size(), ' ') + std::string(option.text) + "\n";
  }
  return "Usage: corvan [OPTIONS] [FILE...]\n"
         "\n"
         "Opens the window and reads the survey files named, in this order, or a project.\n"
         "\n"
         "Options:\n" +
         options +
         "\n"
         "Options of the toolkit, as -platform, -style and -geometry, are taken, too.\n"
         "Without a window: corvan-cli.\n";
}

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
    if (argument == "-h" || argument == "--help") return {true, 0, Aiuto(), {}};
    if (argument == "--version") return {true, 0, "corvan " CORVAN_VERSION "\n", {}};
    const ToolkitOption* known = DelToolkit(argument);
    if (known == nullptr) {
      return {
          true, 2, {}, "corvan: unknown option " + Visibile(argument) + "\nRun with --help for more information.\n"};
    }
    if (!known->value.empty() && argument.find('=') == std::string_view::npos) ++k;
  }
  return {};
}

QStringList FileNominati(const QStringList& arguments) {
  QStringList files = arguments;
  files.removeOne("--");
  return files;
}

}  // namespace corvan

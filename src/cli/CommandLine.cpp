#include "cli/CommandLine.h"

namespace corvan::cli {
namespace {

/// Leaves the form of a value to the option's type: what checks add behind it repeats it, or shows the numbers that
/// words stand for.
void TogliForme(CLI::App& app) {
  for (CLI::Option* option : app.get_options()) {
    try {
      for (int k = 0;; ++k) option->get_validator(k)->description("");
    } catch (const CLI::OptionNotFound&) {
      // the one behind the last
    }
  }
}

}  // namespace

std::unique_ptr<CLI::App> CreaRigaComando(Work& work) {
  auto app = std::make_unique<CLI::App>("Corvan: pre-processing of marine electrical-resistivity surveys");
  app->set_version_flag("--version", "corvan-cli " CORVAN_VERSION);
  app->require_subcommand(1);
  app->allow_windows_style_options(false);  // "/surveys/line.bin" is a file on every system
  AggiungiProcess(*app, work);
  AggiungiInfo(*app, work);
  AggiungiConvert(*app, work);
  for (CLI::App* command : app->get_subcommands({})) TogliForme(*command);
  return app;
}

}  // namespace corvan::cli

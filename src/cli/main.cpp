// corvan-cli: the survey program without a window.
#include <csignal>
#include <exception>
#include <iostream>

#include "cli/Commands.h"

int main(int argc, char** argv) {
  using namespace corvan::cli;
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);  // a file grown to the user's limit fails like any other write instead of ending us
#endif
  try {
    CLI::App app{"Corvan: pre-processing of marine electrical-resistivity surveys"};
    app.set_version_flag("--version", "corvan-cli " CORVAN_VERSION);
    app.require_subcommand(1);
    Work work;
    AggiungiProcess(app, work);
    AggiungiInfo(app, work);
    AggiungiConvert(app, work);
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? AllDone : WrongCommandLine;
    }
    const int status = work();
    std::cout.flush();
    if (std::cout) return status;
    std::cerr << "corvan-cli: standard output could not be written\n";
  } catch (const std::exception& error) {
    std::cerr << "corvan-cli: " << error.what() << '\n';
  }
  return NotAllDone;
}

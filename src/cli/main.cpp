// corvan-cli: the survey program without a window.
#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/Interruption.h"
#include "base/Terminal.h"
#include "base/Text.h"
#include "cli/CommandLine.h"
#include "cli/QualityOptions.h"

namespace corvan::cli {
namespace {

/// Help, version or what is wrong with the command line, which may quote anything.
int StampaEsito(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream out;
  std::ostringstream err;
  const int status = app.exit(error, out, err);
  std::cout << Visibile(out.str(), LineFeeds::Kept);
  std::cerr << Visibile(err.str(), LineFeeds::Kept);
  return status == 0 ? AllDone : WrongCommandLine;
}

int Esegui(std::vector<std::string> arguments) {
  Work work;
  const auto app = CreaRigaComando(work);
  CompletaDespike(arguments);
  std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
  try {
    app->parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return StampaEsito(*app, error);
  }
  return work();
}

}  // namespace
}  // namespace corvan::cli

int main(int argc, char** argv) {
  using namespace corvan::cli;
  corvan::PulisciAlleInterruzioni();
  corvan::PreparaFlussi();
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);  // a file grown to the user's limit fails like any other write instead of ending us
#endif
  try {
    const int status = Esegui(corvan::Argomenti(argc, argv));
    std::cout.flush();
    if (std::cout) return status;
    std::cerr << "corvan-cli: standard output could not be written\n";
  } catch (const std::exception& error) {
    std::cerr << "corvan-cli: " << corvan::Visibile(error.what()) << '\n';
  }
  return NotAllDone;
}

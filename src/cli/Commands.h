// The three commands of corvan-cli; each adds its options and says what to run.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace corvan::cli {

/// Exit status of a run.
enum ExitStatus { AllDone = 0, NotAllDone = 1, WrongCommandLine = 2 };

/// The chosen command's work, set while the command line is parsed; gives the exit status.
using Work = std::function<int()>;

void AggiungiProcess(CLI::App& app, Work& work);
void AggiungiInfo(CLI::App& app, Work& work);
void AggiungiConvert(CLI::App& app, Work& work);

}  // namespace corvan::cli

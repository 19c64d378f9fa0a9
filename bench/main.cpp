// Runs the benchmarks, several times interleaved, and prints the promised ratios; exit status 1 when one is missed.
// With --make FILE LENGTH it writes a Syscal file of a million records of that length instead.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "BigSurvey.h"
#include "Ratios.h"

int main(int argc, char** argv) {
  std::vector<std::string> arguments(argv, argv + argc);
  if (arguments.size() == 4 && arguments[1] == "--make") {
    corvan::bench::MakeSyscalFile(arguments[2], 100'000, std::stoul(arguments[3]));
    return 0;
  }
  arguments.insert(arguments.begin() + 1, {"--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true",
                                           "--benchmark_min_time=0.05"});
  std::vector<char*> pointers;
  pointers.reserve(arguments.size());
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return 2;
  corvan::bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.printRatios() ? 0 : 1;
}

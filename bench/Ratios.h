// Collects the timings of one run and prints the ratios that the project promises.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace corvan::bench {

/// Prints as usual and keeps the median time of every benchmark.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;
  /// Prints each promised ratio beside its goal. @return true when all that were measured are kept
  bool printRatios() const;

 private:
  std::map<std::string, std::vector<double>> times_;
};

}  // namespace corvan::bench

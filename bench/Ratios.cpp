#include "Ratios.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace corvan::bench {
namespace {

struct Promise {
  const char* what;
  const char* slow;
  const char* fast;
  double goal;
};

constexpr std::array Promises{
    Promise{"Syscal file of 1,000,000 records / its bytes into memory", "ReadSyscal", "ReadSyscalBytes", 3.0},
    Promise{"text export / from_chars over the same numbers", "ReadText", "ReadTextNumbers", 2.0},
    Promise{".bin / bare write of the same bytes", "WriteBin/20000", "WriteBinBytes/20000", 3.0},
    Promise{"analysis, 100,000 / 10,000 measurements", "Analysis/100000", "Analysis/10000", 12.0},
    Promise{"extraction", "Extraction/100000", "Extraction/10000", 12.0},
    Promise{".bin", "SalvaBinPro/100000", "SalvaBinPro/10000", 12.0},
    Promise{".txt", "SalvaAscii/100000", "SalvaAscii/10000", 12.0},
    Promise{".ecs", "SalvaTraccia/100000", "SalvaTraccia/10000", 12.0},
    Promise{".kml", "SalvaKML/100000", "SalvaKML/10000", 12.0},
    Promise{".csv", "SalvaTabella/100000", "SalvaTabella/10000", 12.0}};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type == Run::RT_Iteration)
      times_[run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args)].push_back(
          run.GetAdjustedRealTime());
  }
  ConsoleReporter::ReportRuns(runs);
}

bool RatioReporter::printRatios() const {
  bool kept = true;
  std::cout << "\nratio   goal   \n";
  for (const Promise& p : Promises) {
    const auto slow = times_.find(p.slow);
    const auto fast = times_.find(p.fast);
    if (slow == times_.end() || fast == times_.end()) continue;
    const double ratio = Median(slow->second) / Median(fast->second);
    kept = kept && ratio <= p.goal;
    std::cout.precision(3);
    std::cout << ratio << "\t<= " << p.goal << "\t" << (ratio <= p.goal ? "ok  " : "OVER") << "  " << p.what << '\n';
  }
  return kept;
}

}  // namespace corvan::bench

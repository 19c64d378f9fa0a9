// Any bytes as a Syscal Pro file, alone and through the chain; the first byte picks the options.
#include <algorithm>
#include "input/SyscalScan.h"

#include "SurveyChain.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvan;
  if (size == 0) return 0;
  const std::string_view content = fuzz::Text(data + 1, size - 1);
  if (content.size() >= ShortestSyscal) {
    const SyscalScan scan = EsaminaSyscal(FileBytes::FromText(content));
    fuzz::Promise(scan.counted >= 2, "a firing counts two channels at least");
    fuzz::Promise(scan.UltimoValido <= scan.records.size(), "the last record read is in the file");
    for (const std::size_t last : {scan.UltimoValido, std::max(scan.ultimoFix, scan.PrimoValido)}) {
      for (const std::int32_t channels : {scan.counted, scan.MaxCanale, 1}) {
        for (const auto& finding : RilieviSyscal(scan, last, channels, channels == 1)) {
          fuzz::Promise(!finding.second.empty(), "a finding has words");
        }
      }
    }
  }
  fuzz::Chain(content, data[0]);
  return 0;
}

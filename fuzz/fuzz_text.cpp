// Any bytes behind the header of a text export; the first byte picks the options.
#include "input/TextScan.h"
#include "SurveyChain.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvan;
  if (size == 0) return 0;
  const std::string content = "DISTANCE" + std::string(fuzz::Text(data + 1, size - 1));
  for (const ReadSpan span : {ReadSpan::ToFirstLostFix, ReadSpan::PastLostFixes}) {
    std::size_t handed = 0;
    try {
      const TextScan scan = EsaminaTesto(content, span, data[0] % 2 == 0, [&handed](const Misura&) { ++handed; });
      fuzz::Promise(scan.UltimoValido <= scan.lines, "the last line taken is in the file");
      if (handed > 0)
        fuzz::Promise(handed == scan.UltimoValido - scan.PrimoValido + 1, "every line between is handed on");
    } catch (const RunTimeError& error) {
      fuzz::Promise(std::string_view(error.what()).substr(0, 5) == "line ", "an error names its line");
    }
  }
  fuzz::Chain(content, data[0]);
  return 0;
}

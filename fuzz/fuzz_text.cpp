// Any bytes behind the header of a text export; the first byte picks the options.
#include <algorithm>
#include <array>

#include "base/Fields.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "input/TextLine.h"
#include "input/TextReader.h"
#include "SurveyChain.h"

namespace {

using namespace corvan;

/// A line walked once gives what its fields give that are cut one by one.
void CheckLine(std::string_view line) {
  LineRead read;
  try {
    read = LeggiRiga(line, std::nullopt);
  } catch (const RunTimeError&) {
    fuzz::Promise(CampoFuori(line).substr(0, 6) == "field ", "a line refused has a field out of range");
    return;
  }
  const Misura& m = read.misura;
  const std::array<std::pair<std::size_t, float>, 8> singles{{{1, m.Passo},
                                                              {3, m.Rho[1]},
                                                              {14, m.Val64},
                                                              {15, m.Elettrodi[1]},
                                                              {25, m.Elettrodi[11]},
                                                              {28, m.Val180},
                                                              {30, m.CanaleA[1]},
                                                              {49, m.CanaleB[10]}}};
  std::string separator = ";";
  for (const auto& [field, value] : singles) {
    const double expected = EstraiCampo(line, separator, field);
    fuzz::Promise(static_cast<float>(expected) == value && std::isfinite(value), "a field is in its place");
  }
  fuzz::Promise(read.fix == RigaConFix(line), "a position is seen alike");
  NumberCheck check;
  NotaNumeri(line, 1, check);
  fuzz::Promise((check.count() > 0) == read.improper, "what is no number is seen alike");
}

/// Walks the file and returns what was told.
Findings Walk(const std::filesystem::path& path, const ReadOptions& options, std::size_t block, std::size_t lines) {
  std::size_t handed = 0;
  TextScan scan(options);
  EsaminaTesto(
      path, options, [&handed](const Misura&) { ++handed; }, scan, block);
  fuzz::Promise(handed == scan.taken, "what is handed on is counted");
  fuzz::Promise(scan.lines == lines, "lines are counted as in the whole text");
  fuzz::Promise(scan.UltimoValido <= scan.lines && scan.PrimoValido <= scan.UltimoValido, "the data lie in the file");
  const std::size_t last = scan.end == DataEnd::LastLine ? 1 : 0;
  fuzz::Promise(scan.firings == scan.leading + scan.taken + scan.left + last, "every firing is taken or told");
  return RilieviTesto(scan);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string content = "DISTANCE" + std::string(fuzz::Text(data + 1, size - 1));
  std::size_t longest = 0;
  LineCursor lines(content);
  while (lines.more()) {
    const std::string_view line = lines.next();
    longest = std::max(longest, line.size());
    if (GenereRiga(line) == LineKind::Firing) CheckLine(line);
  }
  for (const ReadSpan span : {ReadSpan::ToFirstLostFix, ReadSpan::PastLostFixes}) {
    ReadOptions options;
    options.span = span;
    if (data[0] % 4 != 0) options.layout = static_cast<AngleFormat>(data[0] % 4 - 1);
    if (data[0] % 4 == 0) options.layout = std::nullopt;
    const std::filesystem::path path = fuzz::Place(content);
    const Findings whole = Walk(path, options, std::size_t{1} << 16, lines.number());
    const Findings blocks = Walk(path, options, longest + 16, lines.number());
    fuzz::Promise(whole.entries() == blocks.entries(), "block borders change nothing");
  }
  fuzz::Chain(content, data[0]);
  return 0;
}

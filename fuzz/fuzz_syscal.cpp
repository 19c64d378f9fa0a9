// Any bytes as a Syscal Pro file; the first byte picks the options.
#include <array>
#include <optional>

#include "input/SyscalReader.h"
#include "SurveyChain.h"

namespace corvan::fuzz {
namespace {

void PromiseFiring(const Misura& m) {
  Promise((m.letture & ~AllReadings) == 0, "readings lie in channels 1 to 10");
  Promise(m.NumFile == 1 || Vuota(m), "a firing with a reading has a file");
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    Promise(HaLettura(m, c) || (m.Rho[c] == 0.0F && m.CanaleA[c] == 0.0F), "a reading that was not stored is 0");
  }
  for (const double value : {m.Lat, m.Lon, m.UTMx, m.UTMy}) Promise(std::isfinite(value), "a position is finite");
  Promise(m.SenzaFix != HaSorgente(m.sorgente), "a position has a source");
}

}  // namespace
}  // namespace corvan::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvan;
  if (size == 0) return 0;
  constexpr std::array<std::optional<AngleFormat>, 4> layouts{AngleFormat::DMMSS, AngleFormat::DMM_MMM,
                                                              AngleFormat::D_DDDD, std::nullopt};
  const unsigned choice = data[0];
  ReadOptions options;
  options.layout = layouts.at(choice % 4);
  options.span = choice / 4 % 2 == 0 ? ReadSpan::ToFirstLostFix : ReadSpan::PastLostFixes;
  options.channels = [choice](std::int32_t) { return choice % 5 == 0 ? "" : std::to_string(choice % 13); };
  const auto path = fuzz::Place(fuzz::Text(data + 1, size - 1));

  const FileRead read = LeggiSyscalPro2(path, options);
  std::size_t firings = 0;
  const FileReport report = PercorriSyscal(path, options, [&](const Misura& m) {
    fuzz::PromiseFiring(m);
    fuzz::Promise(firings < read.measurements.size() && m.letture == read.measurements[firings].letture,
                  "both ways of reading give the same readings");
    ++firings;
  });
  fuzz::Promise(firings == read.measurements.size() && firings == report.summary.firings, "firings are counted");
  fuzz::Promise(report.findings.entries() == read.findings.entries(), "both ways of reading find the same");
  for (const Finding& finding : report.findings.entries()) {
    fuzz::Promise(!finding.reason.empty(), "a finding has words");
  }
  fuzz::Chain(fuzz::Text(data + 1, size - 1), data[0]);
  return 0;
}

// Analysis, extraction and writers at 10,000 and 100,000 measurements, and the binary writer against a bare write.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

#include "BigSurvey.h"
#include "export/BinWriter.h"
#include "export/Section.h"
#include "export/SurveyKml.h"
#include "export/SurveyTable.h"
#include "export/TextWriters.h"
#include "track/TrackAnalysis.h"

namespace corvan::bench {
namespace {

/// An analysed survey and its section, made once for each size.
struct Prepared {
  Silent dialogs;
  Findings findings;
  Survey survey;
  SectionRequest request;
  Section section;

  explicit Prepared(std::size_t count) : survey(Measurements(count)) {
    AnalisiFile(survey, findings);
    request.E2 = survey.NumMisure();
    request.echoSounder = true;
    request.position = TruePosition::BehindBoat;
    section = EstraiSezione(survey, request, findings);
  }
};

Prepared& At(const benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<Prepared>> sizes;
  auto& slot = sizes[state.range(0)];
  if (!slot) slot = std::make_unique<Prepared>(static_cast<std::size_t>(state.range(0)));
  return *slot;
}

void Analysis(benchmark::State& state) {
  Prepared& p = At(state);
  for (auto _ : state) benchmark::DoNotOptimize(AnalisiFile(p.survey, p.findings));
}

void Extraction(benchmark::State& state) {
  Prepared& p = At(state);
  for (auto _ : state) benchmark::DoNotOptimize(EstraiSezione(p.survey, p.request, p.findings).points);
}

/// Times a writer on a file that swallows everything, so that the disk takes no part.
template <class Write>
void Swallowed(benchmark::State& state, Write&& write) {
  Prepared& p = At(state);
  for (auto _ : state) {
    FileWriter out("/dev/null");
    write(out, p);
    out.close();
  }
}

void SalvaBinPro(benchmark::State& state) {
  Swallowed(state, [](FileWriter& out, Prepared& p) {
    corvan::SalvaBinPro(out, p.section.RecordOut, p.section.NqpBin(), {});
  });
}

void SalvaAscii(benchmark::State& state) {
  Swallowed(state,
            [](FileWriter& out, Prepared& p) { corvan::SalvaAscii(out, p.section.RecordOut, p.section.NqpBin()); });
}

void SalvaTraccia(benchmark::State& state) {
  Swallowed(state, [](FileWriter& out, Prepared& p) {
    corvan::SalvaTraccia(out, p.section.ProfiloVero, p.section.E1, p.section.E2);
  });
}

void SalvaTabella(benchmark::State& state) {
  Swallowed(state, [](FileWriter& out, Prepared& p) { corvan::SalvaTabella(out, p.survey); });
}

void SalvaKML(benchmark::State& state) {
  Prepared& p = At(state);
  const std::filesystem::path sink = Folder() / "sink.kml";
  if (!std::filesystem::exists(sink)) std::filesystem::create_symlink("/dev/null", sink);
  for (auto _ : state) {
    KmlGoogle kml;
    kml.FileName(sink.string());
    corvan::SalvaKML(kml, p.section, {{0, 1}, 0}, p.findings);
  }
}

void WriteBin(benchmark::State& state) {
  Prepared& p = At(state);
  for (auto _ : state) {
    FileWriter out(Folder() / "written.bin");
    corvan::SalvaBinPro(out, p.section.RecordOut, p.section.NqpBin(), {});
    out.close();
  }
}

void WriteBinBytes(benchmark::State& state) {
  Prepared& p = At(state);
  const std::string bytes(FirstRecord + RecordLengthWritten * static_cast<std::size_t>(p.section.NqpBin()), 'x');
  for (auto _ : state) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen((Folder() / "written.bin").c_str(), "wb"),
                                                               std::fclose);
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
      state.SkipWithError("not all was written");
  }
}

void TwoSizes(benchmark::internal::Benchmark* b) { b->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond); }

BENCHMARK(Analysis)->Apply(TwoSizes);
BENCHMARK(Extraction)->Apply(TwoSizes);
BENCHMARK(SalvaBinPro)->Apply(TwoSizes);
BENCHMARK(SalvaAscii)->Apply(TwoSizes);
BENCHMARK(SalvaTraccia)->Apply(TwoSizes);
BENCHMARK(SalvaKML)->Apply(TwoSizes);
BENCHMARK(SalvaTabella)->Apply(TwoSizes);
BENCHMARK(WriteBin)->Arg(20'000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBinBytes)->Arg(20'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvan::bench

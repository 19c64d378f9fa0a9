// Analysis, extraction and writers at 10,000 and 100,000 measurements, the binary writer against a bare write, and all
// outputs of 200,000 against bare writes of as many bytes.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "BigSurvey.h"
#include "exchange/BottomTable.h"
#include "exchange/GeneralArray.h"
#include "exchange/GeoJson.h"
#include "exchange/GeoPackage.h"
#include "exchange/UnifiedData.h"
#include "exchange/VtuCurtain.h"
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

/// The same with the cable along the track.
void ExtractionAlongTrack(benchmark::State& state) {
  Prepared& p = At(state);
  SectionRequest request = p.request;
  request.shape = CableShape::AlongTrack;
  for (auto _ : state) benchmark::DoNotOptimize(EstraiSezione(p.survey, request, p.findings).points);
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

/// The open formats in the order of their names in the benchmarks.
void WriteOpen(FileWriter& out, Prepared& p, const std::string& format) {
  if (format == "ohm") SalvaDatiUnificati(out, p.survey, p.section, ErtDimension::Two, p.findings);
  if (format == "dat") SalvaSchieraGenerale(out, p.survey, p.section, p.findings);
  if (format == "bottom") SalvaFondo(out, p.survey, p.section, p.findings);
  if (format == "geojson") SalvaGeoJson(out, p.survey, p.section, p.findings);
  if (format == "vtu") SalvaVtu(out, p.survey, p.section, p.findings);
  if (format == "gpkg") SalvaGeoPackage(out, p.survey, p.section, {{{0, 1}}, {}}, p.findings);
}

std::uintmax_t SizeOf(const std::function<void(FileWriter&)>& write) {
  const std::filesystem::path file = Folder() / "sized";
  FileWriter out(file);
  write(out);
  out.close();
  return std::filesystem::file_size(file);
}

/// Times a writer; the time told is that of as many bytes as the survey's table has, so that it compares with the
/// table.
void Open(benchmark::State& state, const std::string& format) {
  using Clock = std::chrono::steady_clock;
  Prepared& p = At(state);
  const auto own = static_cast<double>(SizeOf([&](FileWriter& out) { WriteOpen(out, p, format); }));
  const auto table = static_cast<double>(SizeOf([&](FileWriter& out) { corvan::SalvaTabella(out, p.survey); }));
  for (auto _ : state) {
    const auto begin = Clock::now();
    FileWriter out("/dev/null");
    WriteOpen(out, p, format);
    out.close();
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count() * table / own);
  }
}

void SalvaGeoPackageWhole(benchmark::State& state) {
  Prepared& p = At(state);
  for (auto _ : state) {
    FileWriter out(Folder() / "all.gpkg");
    WriteOpen(out, p, "gpkg");
    out.close();
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

constexpr const char* OutputNames[] = {"all.bin", "all.txt", "all.ecs", "all.ecst", "all.kml", "all.csv"};

/// Every output of the survey in the run's folder.
void SaveAll(Prepared& p) {
  const Section& s = p.section;
  std::size_t next = 0;
  const auto save = [&next](auto&& write) {
    FileWriter out(Folder() / OutputNames[next++]);
    write(out);
    out.close();
  };
  save([&](FileWriter& out) { corvan::SalvaBinPro(out, s.RecordOut, s.NqpBin(), {}); });
  save([&](FileWriter& out) { corvan::SalvaAscii(out, s.RecordOut, s.NqpBin()); });
  save([&](FileWriter& out) { corvan::SalvaTraccia(out, s.Profilo, s.E1, s.E2); });
  save([&](FileWriter& out) { corvan::SalvaTraccia(out, s.ProfiloVero, s.E1, s.E2); });
  KmlGoogle kml;
  kml.FileName((Folder() / OutputNames[next++]).string());
  corvan::SalvaKML(kml, s, {{0, 1}, 0}, p.findings);
  save([&](FileWriter& out) { corvan::SalvaTabella(out, p.survey); });
}

/// A disk at rest without the outputs, so that each timing begins alike.
void ClearOutputs() {
  for (const char* name : OutputNames) std::filesystem::remove(Folder() / name);
  ::sync();
}

void WriteAll(benchmark::State& state) {
  Prepared& p = At(state);
  for (auto _ : state) {
    state.PauseTiming();
    ClearOutputs();
    state.ResumeTiming();
    SaveAll(p);
  }
  ClearOutputs();
}

/// Bytes of each output.
const std::vector<std::uintmax_t>& OutputSizes(Prepared& p) {
  static const std::vector<std::uintmax_t> sizes = [&p] {
    std::vector<std::uintmax_t> bytes;
    SaveAll(p);
    for (const char* name : OutputNames) bytes.push_back(std::filesystem::file_size(Folder() / name));
    return bytes;
  }();
  return sizes;
}

/// One file of so many bytes by the system's calls alone. @return all was written
bool BareFile(const std::filesystem::path& path, std::uintmax_t bytes, bool flushed) {
  static const std::string chunk(std::size_t{1} << 20, 'x');
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  bool good = file >= 0;
  while (good && bytes > 0) {
    const ssize_t count = ::write(file, chunk.data(), std::min<std::uintmax_t>(chunk.size(), bytes));
    good = count > 0;
    bytes -= good ? static_cast<std::uintmax_t>(count) : 0;
  }
  good = good && (!flushed || ::fdatasync(file) == 0);
  return ::close(file) == 0 && good;
}

void WriteBare(benchmark::State& state, bool flushed) {
  const std::vector<std::uintmax_t>& sizes = OutputSizes(At(state));
  for (auto _ : state) {
    state.PauseTiming();
    ClearOutputs();
    state.ResumeTiming();
    for (std::size_t k = 0; k < sizes.size(); ++k) {
      if (!BareFile(Folder() / OutputNames[k], sizes[k], flushed)) state.SkipWithError("not all was written");
    }
  }
  ClearOutputs();
}

void WriteAllBytes(benchmark::State& state) { WriteBare(state, true); }
void WriteAllBytesUnflushed(benchmark::State& state) { WriteBare(state, false); }

void TwoSizes(benchmark::internal::Benchmark* b) { b->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond); }

BENCHMARK(Analysis)->Apply(TwoSizes);
BENCHMARK(Extraction)->Apply(TwoSizes);
BENCHMARK(ExtractionAlongTrack)->Apply(TwoSizes);
BENCHMARK(SalvaBinPro)->Apply(TwoSizes);
BENCHMARK(SalvaAscii)->Apply(TwoSizes);
BENCHMARK(SalvaTraccia)->Apply(TwoSizes);
BENCHMARK(SalvaKML)->Apply(TwoSizes);
BENCHMARK(SalvaTabella)->Apply(TwoSizes);
BENCHMARK_CAPTURE(Open, ohm, "ohm")->Apply(TwoSizes)->UseManualTime();
BENCHMARK_CAPTURE(Open, dat, "dat")->Apply(TwoSizes)->UseManualTime();
BENCHMARK_CAPTURE(Open, bottom, "bottom")->Apply(TwoSizes)->UseManualTime();
BENCHMARK_CAPTURE(Open, geojson, "geojson")->Apply(TwoSizes)->UseManualTime();
BENCHMARK_CAPTURE(Open, vtu, "vtu")->Apply(TwoSizes)->UseManualTime();
BENCHMARK(SalvaGeoPackageWhole)->Apply(TwoSizes);
BENCHMARK(WriteBin)->Arg(20'000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBinBytes)->Arg(20'000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteAll)->Arg(200'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteAllBytes)->Arg(200'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteAllBytesUnflushed)->Arg(200'000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvan::bench

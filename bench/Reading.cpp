// Readers against the least that any reader of the same file must do.
#include <benchmark/benchmark.h>

#include <charconv>

#include "base/File.h"
#include "BigSurvey.h"
#include "input/InputDriver.h"

namespace corvan::bench {
namespace {

constexpr std::size_t Firings = 100'000;
constexpr std::size_t Lines = 100'000;

const std::filesystem::path& BigSyscal() {
  static const std::filesystem::path path = [] {
    std::filesystem::path file = Folder() / "firings.bin";
    MakeSyscalFile(file, Firings, 280);
    return file;
  }();
  return path;
}

const std::filesystem::path& BigText() {
  static const std::filesystem::path path = TextFile(Lines);
  return path;
}

void ReadWhole(benchmark::State& state, const std::filesystem::path& path, std::size_t expected) {
  for (auto _ : state) {
    if (LeggiFile(path, {}).measurements.size() != expected) state.SkipWithError("not all was read");
  }
}

void ReadSyscal(benchmark::State& state) { ReadWhole(state, BigSyscal(), Firings); }

/// The file through one buffer, nothing kept.
void ReadSyscalBytes(benchmark::State& state) {
  FileBytes buffer(std::size_t{1} << 20);
  for (auto _ : state) {
    FileReader file(BigSyscal());
    while (file.read(buffer.bytes()) == buffer.size()) benchmark::DoNotOptimize(buffer.bytes().data());
  }
}

void ReadText(benchmark::State& state) { ReadWhole(state, BigText(), Lines); }

/// The file into memory and every number of it through from_chars, nothing kept.
void ReadTextNumbers(benchmark::State& state) {
  for (auto _ : state) {
    const FileBytes bytes = LeggiTutto(BigText());
    const char* at = bytes.text().data();
    const char* const end = at + bytes.size();
    double sum = 0.0;
    while (at != end) {
      double value = 0.0;
      const auto [next, error] = std::from_chars(at, end, value);
      sum += value;
      at = error == std::errc() ? next : at + 1;
    }
    benchmark::DoNotOptimize(sum);
  }
}

BENCHMARK(ReadSyscal)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadSyscalBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadText)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadTextNumbers)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvan::bench

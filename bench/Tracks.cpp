// External tracks: an NMEA log against a bare loop over its bytes, the link by time against a walk over both arrays.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "BigSurvey.h"
#include "input/TrackFile.h"
#include "track/TrackLink.h"

namespace corvan::bench {
namespace {

std::string Sentence(const std::string& body) {
  unsigned sum = 0;
  for (const char c : body) sum ^= static_cast<unsigned char>(c);
  constexpr const char* digits = "0123456789ABCDEF";
  return "$" + body + "*" + digits[sum >> 4U] + digits[sum & 15U] + "\r\n";
}

/// A day's log as receivers write it: seven sentences a second, five of them about satellites and course.
const std::string& DayLog() {
  static const std::string log = [] {
    std::string text;
    for (int second = 0; second < 86400; second += 2) {
      std::string time = std::to_string(1'000'000 + second / 3600 * 10000 + second / 60 % 60 * 100 + second % 60);
      time.erase(0, 1);
      const std::string minutes = std::to_string(10000 + second % 9000);
      text += Sentence("GPGGA," + time + ".00,4524." + minutes + ",N,01218." + minutes + ",E,1,09,0.9,1.2,M,45.0,M,,");
      text += Sentence("GPRMC," + time + ".00,A,4524." + minutes + ",N,01218." + minutes + ",E,2.4,053.1,150626,,");
      text += Sentence("GPGSV,3,1,11,03,03,111,00,04,15,270,00,06,01,010,00,13,06,292,00");
      text += Sentence("GPGSV,3,2,11,14,25,170,00,16,57,208,39,18,67,296,40,19,40,246,00");
      text += Sentence("GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1");
      text += Sentence("GPVTG,054.7,T,034.4,M,005.5,N,010.2,K");
      text += Sentence("SDDPT,4.25,0.5,");
    }
    return text;
  }();
  return log;
}

void ReadNmea(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(LeggiFileNav(DayLog(), {}).fixes.size());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(DayLog().size()));
}

/// Finds line ends and sums checksums.
void ReadNmeaBytes(benchmark::State& state) {
  const std::string& log = DayLog();
  for (auto _ : state) {
    unsigned sum = 0;
    const char* at = log.data();
    const char* const end = at + log.size();
    while (at < end) {
      const auto* stop = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
      if (stop == nullptr) stop = end;
      for (const char* c = at; c < stop && *c != '*'; ++c) sum ^= static_cast<unsigned char>(*c);
      benchmark::DoNotOptimize(sum);
      at = stop + 1;
    }
  }
}

struct Linked {
  Survey survey = Measurements(100'000);
  Linked() {
    for (std::size_t k = 1; k <= survey.Misure.size(); ++k) {
      survey.Misure(k).NumFile = 0;
      survey.Misure(k).Tempo = 46188.0 + static_cast<double>(k) * 10.0 / 86400.0;
    }
    for (int k = 0; k < 1'000'000; ++k) {
      PuntoGPSEst fix;
      fix.DataOra = 46188.0 + (k + 0.5) / 86400.0;
      fix.X = k;
      survey.tracciaEst.PuntiGPSEst.append(fix);
    }
    survey.tracciaEst.loaded = true;
  }
};

Linked& Both() {
  static Linked linked;
  return linked;
}

void LinkByTime(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(LinkDataGPST(Both().survey, 0).between);
}

/// Reads both arrays once, comparing times.
void LinkWalk(benchmark::State& state) {
  const Survey& survey = Both().survey;
  for (auto _ : state) {
    std::size_t j = 1, sum = 0;
    const auto& fixes = survey.tracciaEst.PuntiGPSEst;
    for (const Misura& m : survey.Misure) {
      while (j < fixes.size() && fixes(j).DataOra < m.Tempo) ++j;
      sum += j;
    }
    benchmark::DoNotOptimize(sum);
  }
}

BENCHMARK(ReadNmea)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadNmeaBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(LinkByTime)->Unit(benchmark::kMillisecond);
BENCHMARK(LinkWalk)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvan::bench

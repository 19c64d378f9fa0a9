#include "Lagoon.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/OleDate.h"

namespace corvan::samples {
namespace {

constexpr std::size_t Firings = 220;
constexpr double StartLatitude = 45.4;   // degrees
constexpr double StartLongitude = 12.3;  // degrees
constexpr double MetresPerDegree = 111132.0;
constexpr double LongitudeShrink = 0.70215;  // cosine of the start latitude
constexpr double Spacing = 5.0;              // m between firings
constexpr double SecondsPerFiring = 4.0;
constexpr double Water = 0.42;    // ohm m, brackish
constexpr double Sediment = 3.1;  // ohm m, silt and sand
constexpr double Noise = 0.02;    // share of the reading, one standard deviation

/// Numbers that are the same on every machine (SplitMix64).
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  double uniform() { return static_cast<double>(next() >> 11U) * 0x1p-53; }
  /// Standard normal, as the sum of twelve uniforms: no function whose last digit depends on the library.
  double normal() {
    double sum = -6.0;
    for (int k = 0; k < 12; ++k) sum += uniform();
    return sum;
  }

 private:
  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }
  std::uint64_t state_;
};

/// Rounded to a step before it is stored, so that the files do not depend on the last digit of sine or root.
float Quantizza(double value, double step) { return static_cast<float>(std::round(value / step) * step); }

float GradiMinuti(double degrees) {
  const double whole = std::floor(degrees);
  return Quantizza(whole * 100.0 + (degrees - whole) * 60.0, 1e-4);
}

/// A triangle wave between -1 and 1.
double Triangolo(double phase) { return 4.0 * std::abs(phase - std::floor(phase + 0.5)) - 1.0; }

double Potenziale(double distance, double reflection, double thickness) {
  double sum = 1.0 / distance;
  double power = reflection;
  for (int k = 1; std::abs(power) > 1e-12; ++k, power *= reflection) {
    sum += 2.0 * power / std::sqrt(distance * distance + 4.0 * k * k * thickness * thickness);
  }
  return sum;
}

/// The boat's place in metres east and north of the start: legs of 40 firings to either side of a northeasterly course.
struct Place {
  double east = 0;
  double north = 0;
};

Place Posto(int line, double firing) {
  const double along = Spacing * (line == 1 ? firing : static_cast<double>(Firings) - 1.0 - firing);
  const double across = 60.0 * Triangolo(firing / 80.0) + (line == 1 ? 0.0 : 180.0);
  return {0.6 * along + 0.8 * across, 0.8 * along - 0.6 * across};
}

/// Depth of the lagoon's floor: a channel between two flats, 2 to 12 m.
double Fondo(const Place& p) {
  const double across = Triangolo((p.east + 0.5 * p.north) / 1400.0);
  return std::clamp(7.0 - 5.0 * across + 0.4 * Triangolo(p.north / 90.0), 2.0, 12.0);
}

/// Whether the receiver gave nothing, or only half a position, at a firing (0-based).
enum class Fix { Good, NoLongitude, Lost };

Fix Ricevuto(int line, std::size_t firing) {
  if (line == 1 && firing < 2) return Fix::Lost;  // switched on too late
  if (line == 1 && (firing == 60 || firing == 61)) return Fix::NoLongitude;
  if (line == 2 && firing >= 150 && firing < 153) return Fix::Lost;  // under a bridge
  return Fix::Good;
}

void Misurazione(Firing& f, Random& random) {
  f.current = Quantizza(8000.0 + 40.0 * random.normal(), 0.01);
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const double a = Cable[12], b = Cable[13], m = Cable.at(c), n = Cable.at(c + 1);
    const double factor =
        6.2832 / (1 / std::abs(a - m) - 1 / std::abs(a - n) - 1 / std::abs(b - m) + 1 / std::abs(b - n));
    const double rho = DueStrati(a, b, m, n, Water, Sediment, f.depth) * (1.0 + Noise * random.normal());
    f.potential.at(c) = Quantizza(rho * f.current / factor, 1e-4);
    f.resistivity.at(c) = Quantizza(f.potential.at(c) / f.current * factor, 1e-5);
    f.quality.at(c) = Quantizza(2.0 * random.uniform(), 0.01);
  }
}

}  // namespace

double DueStrati(double a, double b, double m, double n, double upper, double lower, double thickness) {
  const double reflection = (lower - upper) / (lower + upper);
  const auto seen = [&](double p, double q) { return Potenziale(std::abs(p - q), reflection, thickness); };
  const auto half = [](double p, double q) { return 1.0 / std::abs(p - q); };
  const double layered = seen(a, m) - seen(a, n) - seen(b, m) + seen(b, n);
  return upper * layered / (half(a, m) - half(a, n) - half(b, m) + half(b, n));
}

std::vector<Firing> Linea(int line) {
  Random random(line == 1 ? 20260615U : 20260616U);
  const double start = AGiorni({2026, 6, 15, 8, line == 1 ? 0 : 25, 0});
  std::vector<Firing> firings(Firings);
  for (std::size_t k = 0; k < Firings; ++k) {
    Firing& f = firings[k];
    const Place p = Posto(line, static_cast<double>(k));
    const Place before = Posto(line, k == 0 ? 0.0 : static_cast<double>(k - 1));
    f.time = start + std::floor(SecondsPerFiring * static_cast<double>(k)) / 86400.0;
    f.depth = Quantizza(Fondo(p), 0.01);
    f.step = Quantizza(std::sqrt((p.east - before.east) * (p.east - before.east) +
                                 (p.north - before.north) * (p.north - before.north)),
                       0.01);
    const Fix fix = Ricevuto(line, k);
    if (fix != Fix::Lost) f.latitude = GradiMinuti(StartLatitude + p.north / MetresPerDegree);
    if (fix == Fix::Good) f.longitude = GradiMinuti(StartLongitude + p.east / (MetresPerDegree * LongitudeShrink));
    Misurazione(f, random);
  }
  return firings;
}

std::vector<TrackFix> Traccia() {
  constexpr double firstLine = 8 * 3600.0, secondLine = firstLine + 25 * 60.0;  // s since midnight
  constexpr double length = SecondsPerFiring * static_cast<double>(Firings - 1);
  const double day = AGiorni({2026, 6, 15, 0, 0, 0});
  std::vector<TrackFix> fixes;
  for (int k = 0; firstLine - 2.0 + 3.0 * k <= secondLine + length + 4.0; ++k) {
    const double second = firstLine - 2.0 + 3.0 * k;
    const double ofFirst = std::clamp((second - firstLine) / SecondsPerFiring, 0.0, Firings - 1.0);
    const double ofSecond = std::clamp((second - secondLine) / SecondsPerFiring, 0.0, Firings - 1.0);
    Place p = second < secondLine ? Posto(1, ofFirst) : Posto(2, ofSecond);
    if (second > firstLine + length && second < secondLine) {  // straight across to the second line
      const Place from = Posto(1, Firings - 1.0), to = Posto(2, 0.0);
      const double share = (second - firstLine - length) / (secondLine - firstLine - length);
      p = {from.east + (to.east - from.east) * share, from.north + (to.north - from.north) * share};
    }
    fixes.push_back({day, second, StartLatitude + (p.north + LeverNorth) / MetresPerDegree,
                     StartLongitude + (p.east + LeverEast) / (MetresPerDegree * LongitudeShrink),
                     static_cast<double>(Quantizza(Fondo(p), 0.01))});
  }
  return fixes;
}

}  // namespace corvan::samples

// Which readings are taken as bad: the limits that the user set and what was decided by hand.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

namespace corvan {

/// A reading is a spike when the logarithm of its resistivity lies farther from the median of its neighbourhood than
/// `fattore` times the median absolute deviation there.
struct Despike {
  double fattore = 4;
  std::int32_t finestra = 15;  ///< measurements of the neighbourhood, 3 or more
  friend bool operator==(const Despike&, const Despike&) = default;
};

/// What each limit is called in summaries.
enum class Limit : std::uint8_t { Current, Potential, Deviation, Range, Despike, Negative };
inline constexpr std::array<std::string_view, 6> LimitNames{"min_current", "min_potential", "max_deviation",
                                                            "rho_range",   "despike",       "negative"};

/// A limit that is not set excludes nothing.
struct QualityLimits {
  std::optional<double> corrente;        ///< smallest current, without its sign, mA
  std::optional<double> potenziale;      ///< smallest potential difference, without its sign, mV
  std::optional<double> deviazione;      ///< largest standard deviation, %
  std::optional<double> rhoMin, rhoMax;  ///< bounds of the resistivity, both still good, ohm m
  std::optional<Despike> picchi;
  bool negative = false;  ///< resistivities below 0 are bad

  bool any() const { return *this != QualityLimits{}; }
  friend bool operator==(const QualityLimits&, const QualityLimits&) = default;
};

/// One reading of the survey.
struct ReadingKey {
  std::int32_t misura = 0;  ///< 1-based
  std::size_t canale = 0;   ///< 1..10
  friend auto operator<=>(const ReadingKey&, const ReadingKey&) = default;
};

struct Quality {
  QualityLimits limiti;
  std::map<ReadingKey, bool> aMano;  ///< decided by hand, whatever the limits say: true is excluded
  std::size_t escluse = 0;           ///< readings that are excluded now

  bool inVigore() const { return limiti.any() || !aMano.empty(); }
};

}  // namespace corvan

// Depths of a log by their time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace corvan {

/// A depth with its time and its place in the log.
struct TimedDepth {
  std::int64_t time = 0;  ///< in half milliseconds
  std::size_t place = 0;  ///< how many times stand before it in the log
  double metres = 0;
};

/// Half the median of the steps between neighbouring times, but 5 s at least: a fix looks so far for its depth.
/// @param times and result in half milliseconds
std::int64_t RaggioProfondita(std::span<const std::int64_t> times);

/// Finds the depth nearest to a moment; moments that rise cost no search.
class DepthsByTime {
 public:
  /// @param depths in the order of the log
  explicit DepthsByTime(std::vector<TimedDepth> depths);

  /// The nearest depth; of equally near ones the last before the place in the log, else the first behind it.
  /// @param place a depth whose place is larger stands behind the moment in the log
  /// @return nothing when none lies within `reach`
  std::optional<double> vicino(std::int64_t time, std::size_t place, std::int64_t reach);

 private:
  std::size_t primoDa(std::int64_t time);
  std::span<const TimedDepth> ugualiPrima(std::size_t end) const;
  std::span<const TimedDepth> ugualiDa(std::size_t from) const;

  std::vector<TimedDepth> depths_;  // by time, of equal times by their order in the log
  std::size_t hint_ = 0;
};

}  // namespace corvan

#include "input/NmeaDepths.h"

#include <algorithm>

namespace corvan {
namespace {

constexpr std::int64_t HalfMilliseconds = 2000;  // in a second
constexpr std::int64_t Nearby = 5 * HalfMilliseconds;

bool PiuPresto(const TimedDepth& a, const TimedDepth& b) { return a.time < b.time; }

std::ptrdiff_t Passo(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

std::size_t Posto(std::span<const TimedDepth> all, std::span<const TimedDepth>::iterator at) {
  return static_cast<std::size_t>(at - all.begin());
}

}  // namespace

std::int64_t RaggioProfondita(std::span<const std::int64_t> times) {
  if (times.size() < 2) return Nearby;
  std::vector<std::int64_t> steps(times.size() - 1);
  for (std::size_t k = 0; k < steps.size(); ++k) steps[k] = std::abs(times[k + 1] - times[k]);
  const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
  std::nth_element(steps.begin(), middle, steps.end());
  std::int64_t twice = 2 * *middle;
  if (steps.size() % 2 == 0) twice = *middle + *std::max_element(steps.begin(), middle);
  return std::max(Nearby, twice / 4);
}

DepthsByTime::DepthsByTime(std::vector<TimedDepth> depths) : depths_(std::move(depths)) {
  if (!std::is_sorted(depths_.begin(), depths_.end(), PiuPresto)) {
    std::stable_sort(depths_.begin(), depths_.end(), PiuPresto);
  }
}

/// First depth that is not earlier, from where the last search ended.
std::size_t DepthsByTime::primoDa(std::int64_t time) {
  const auto earlier = [time](const TimedDepth& depth) { return depth.time < time; };
  constexpr std::size_t steps = 8;
  std::size_t at = hint_;
  if (at == 0 || earlier(depths_[at - 1])) {
    for (std::size_t k = 0; k < steps && at < depths_.size() && earlier(depths_[at]); ++k) ++at;
    if (at == depths_.size() || !earlier(depths_[at])) return hint_ = at;
  }
  const std::span<const TimedDepth> all(depths_);
  return hint_ = Posto(all, std::partition_point(all.begin(), all.end(), earlier));
}

/// The depths of the same time as the one before `end`, which is the last of them.
std::span<const TimedDepth> DepthsByTime::ugualiPrima(std::size_t end) const {
  const std::span<const TimedDepth> all(depths_);
  std::size_t from = end - 1;
  if (from > 0 && all[from - 1].time == all[from].time) {
    from = Posto(all, std::lower_bound(all.begin(), all.begin() + Passo(from), all[from], PiuPresto));
  }
  return all.subspan(from, end - from);
}

/// The depths of the same time as the one at `from`, which is the first of them.
std::span<const TimedDepth> DepthsByTime::ugualiDa(std::size_t from) const {
  const std::span<const TimedDepth> all(depths_);
  std::size_t end = from + 1;
  if (end < all.size() && all[end].time == all[from].time) {
    end = Posto(all, std::upper_bound(all.begin() + Passo(end), all.end(), all[from], PiuPresto));
  }
  return all.subspan(from, end - from);
}

std::optional<double> DepthsByTime::vicino(std::int64_t time, std::size_t place, std::int64_t reach) {
  if (depths_.empty()) return std::nullopt;
  const std::size_t at = primoDa(time);
  const bool left = at > 0, right = at < depths_.size();
  const std::int64_t before = left ? time - depths_[at - 1].time : reach + 1;
  const std::int64_t after = right ? depths_[at].time - time : reach + 1;
  const std::int64_t distance = std::min(before, after);
  if (distance > reach) return std::nullopt;

  const TimedDepth* last = nullptr;   // before the place in the log
  const TimedDepth* first = nullptr;  // behind it
  const auto look = [&](std::span<const TimedDepth> equal) {
    const auto behind = std::partition_point(equal.begin(), equal.end(), [place](auto& d) { return d.place <= place; });
    if (behind != equal.begin() && (last == nullptr || last->place < (behind - 1)->place)) last = &*(behind - 1);
    if (behind != equal.end() && (first == nullptr || behind->place < first->place)) first = &*behind;
  };
  if (before == distance) look(ugualiPrima(at));
  if (after == distance) look(ugualiDa(at));
  return last != nullptr ? last->metres : first->metres;
}

}  // namespace corvan

// A long row of independent items worked on by two cores.
#pragma once

#include <cstddef>
#include <future>
#include <utility>

namespace corvan {

/// Calls f(from, to) for the items from..to - 1 of 0..count - 1: once, or for a long row twice at the same time, for
/// its two halves. @return both results in the order of the items; the second is a default one where f ran once Errors:
/// what f throws, that of the first half first.
template <class F>
auto InDueMeta(std::size_t count, F f) {
  using Result = decltype(f(std::size_t{}, std::size_t{}));
  constexpr std::size_t shared = 16384;  // a thread costs some 30 us
  if (count < shared) return std::pair(f(0, count), Result());
  std::future<Result> second = std::async(std::launch::async, f, count / 2, count);
  Result first = f(0, count / 2);
  return std::pair(std::move(first), second.get());
}

}  // namespace corvan

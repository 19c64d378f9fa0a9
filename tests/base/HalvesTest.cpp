// Work shared by two cores.
#include "base/Halves.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace corvan {
namespace {

TEST(Halves, CoverEveryItemOnceAndGiveTheirResultsInOrder) {
  for (const std::size_t count :
       {std::size_t{0}, std::size_t{1}, std::size_t{16383}, std::size_t{16384}, std::size_t{30001}}) {
    std::vector<int> seen(count, 0);
    const auto [first, second] = InDueMeta(count, [&](std::size_t from, std::size_t to) {
      for (std::size_t k = from; k < to; ++k) ++seen[k];
      return std::pair(from, to);
    });
    EXPECT_EQ(seen, std::vector<int>(count, 1)) << count;
    EXPECT_EQ(first.first, 0U);
    EXPECT_EQ(count < 16384 ? first.second : second.second, count);
    EXPECT_EQ(count < 16384 ? 0U : first.second, second.first) << count;
  }
}

TEST(Halves, HandOnWhatEitherThrows) {
  for (const std::size_t bad : {std::size_t{5}, std::size_t{29999}}) {
    EXPECT_THROW(InDueMeta(30000,
                           [bad](std::size_t from, std::size_t to) {
                             if (from <= bad && bad < to) throw std::runtime_error("here");
                             return 0;
                           }),
                 std::runtime_error);
  }
}

}  // namespace
}  // namespace corvan

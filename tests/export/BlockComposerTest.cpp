// Blocks composed on several threads: the same bytes as by one, and errors where one would have met them.
#include "export/BlockComposer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "base/Errors.h"

namespace corvan {
namespace {

void AppendItems(std::string& out, std::size_t first, std::size_t end) {
  for (std::size_t k = first; k < end; ++k) out += std::to_string(k) + ";";
}

TEST(ComposedBlocks, AreWrittenInOrderToTheLastWhateverTheThreads) {
  for (const std::size_t items : {0U, 1U, 7U, 8U, 9U, 100U, 1001U}) {
    std::string expected;
    AppendItems(expected, 0, items);
    for (const std::size_t perBlock : {1U, 3U, 8U, 2000U}) {
      for (const std::size_t workers : {0U, 1U, 3U}) {
        std::string written;
        std::size_t blocks = 0;
        const auto compose = [](std::string& out, std::size_t first, std::size_t end) {
          // Some blocks take their time, so that later ones are done before them.
          if (first % 64 == 0) std::this_thread::sleep_for(std::chrono::microseconds(300));
          AppendItems(out, first, end);
        };
        ComponiBlocchi(
            {items, perBlock}, compose,
            [&](std::string_view text) {
              written += text;
              ++blocks;
            },
            workers);
        EXPECT_EQ(written, expected) << items << " items, " << perBlock << " a block, " << workers << " workers";
        EXPECT_EQ(blocks, (items + perBlock - 1) / perBlock);
      }
    }
  }
}

TEST(ComposedBlocks, HoldEightAtOnceAtMost) {
  std::atomic<std::size_t> composed{0}, written{0}, most{0};
  ComponiBlocchi(
      {500, 1},
      [&](std::string&, std::size_t, std::size_t) {
        const std::size_t held = ++composed - written;
        if (held > most) most = held;
      },
      [&](std::string_view) {
        // The first is written slowly: the helpers have the time to fill every place, however late they begin.
        for (int k = 0; written == 0 && composed < 8 && k < 100'000; ++k)
          std::this_thread::sleep_for(std::chrono::microseconds(100));
        ++written;
      },
      2);
  EXPECT_LE(most, 9U) << "the one that is being written may be counted still";
  EXPECT_GE(most, 8U) << "nobody composed ahead";
}

TEST(ComposedBlocks, ThrowWhatAHelperThrewBehindTheBlocksBeforeIt) {
  const auto caller = std::this_thread::get_id();
  std::atomic<bool> helped{false};
  std::atomic<std::size_t> failed{0};
  std::size_t blocks = 0;
  int waits = 0;
  const auto compose = [&](std::string& out, std::size_t first, std::size_t end) {
    if (std::this_thread::get_id() != caller) {
      if (!helped.exchange(true)) {
        failed = first;
        throw RunTimeError("block " + std::to_string(first));
      }
    } else {  // the caller leaves one block to the worker
      for (; waits < 5000 && !helped; ++waits) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    AppendItems(out, first, end);
  };
  std::string reason;
  try {
    ComponiBlocchi(
        {100, 1}, compose, [&](std::string_view) { ++blocks; }, 1);
  } catch (const RunTimeError& error) {
    reason = error.what();
  }
  EXPECT_TRUE(helped);
  EXPECT_EQ(reason, "block " + std::to_string(failed));
  EXPECT_EQ(blocks, failed);
}

TEST(ComposedBlocks, StopAtAFailedWritingAndLeaveNoThread) {
  for (const std::size_t workers : {0U, 1U, 3U}) {
    std::atomic<std::size_t> composed{0};
    std::size_t blocks = 0;
    const auto write = [&](std::string_view) {
      if (++blocks == 3) throw FileError("disk", "is full");
    };
    EXPECT_THROW(ComponiBlocchi(
                     {100'000, 1}, [&](std::string&, std::size_t, std::size_t) { ++composed; }, write, workers),
                 FileError);
    const std::size_t then = composed;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(composed, then) << "somebody is composing still";
    EXPECT_EQ(blocks, 3U);
    EXPECT_LE(then, 2U + 8U);
  }
}

}  // namespace
}  // namespace corvan

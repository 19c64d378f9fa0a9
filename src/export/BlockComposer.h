// Composes the text of a large output block by block on several cores and hands the blocks on in their order.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace corvan {

/// How an output is cut: items 0 to items - 1, `perBlock` of them a block (at least 1), the last block what is left.
struct Blocks {
  std::size_t items = 0;
  std::size_t perBlock = 1;

  std::size_t count() const { return items / perBlock + (items % perBlock == 0 ? 0 : 1); }
};

/// Appends the text of items first to end - 1. Called from several threads at once, for different blocks.
using BlockText = std::function<void(std::string& out, std::size_t first, std::size_t end)>;

/// Threads that compose beside the caller: one where the machine has a second core. One writes while the other
/// composes, and a third found nothing left to do.
std::size_t AiutantiDisponibili();

/// Calls `write` in the caller's thread with the text of every block, in order, so that what is written is the same
/// for any number of workers. At most eight blocks are in memory, whatever the output's length.
/// Errors: what `compose` throws for a block is thrown to the caller in the block's place, behind the blocks before
/// it; what `write` throws ends the composing. No thread is left in either case.
void ComponiBlocchi(const Blocks& blocks, const BlockText& compose, const std::function<void(std::string_view)>& write,
                    std::size_t workers = AiutantiDisponibili());

}  // namespace corvan

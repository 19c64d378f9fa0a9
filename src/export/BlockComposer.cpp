#include "export/BlockComposer.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace corvan {
namespace {

/// A block from its composing to its writing; the text's memory serves the next one.
struct Slot {
  std::string text;
  std::exception_ptr failure;
  bool composed = false;
};

/// The blocks that are in work: each is taken by one thread, composed without the lock and kept until it is its turn.
class Window {
 public:
  Window(const Blocks& blocks, const BlockText& compose) : blocks_(blocks), compose_(compose) {}

  /// What a worker does: composes while blocks are left and there is room for them.
  void help() {
    std::unique_lock lock(mutex_);
    while (true) {
      changed_.wait(lock, [this] { return room() || allTaken() || stopped_; });
      if (allTaken() || stopped_) return;
      composeNext(lock);
    }
  }

  /// Sends the workers home once they are done with the block at hand.
  void stop() {
    const std::scoped_lock lock(mutex_);
    stopped_ = true;
    changed_.notify_all();
  }

  /// The text of the next block to be written. Until it is there the caller composes too.
  const std::string& front() {
    std::unique_lock lock(mutex_);
    const Slot& slot = slotOf(written_);
    while (!slot.composed) {
      if (room()) {
        composeNext(lock);
      } else {
        changed_.wait(lock);
      }
    }
    if (slot.failure) std::rethrow_exception(slot.failure);
    return slot.text;
  }

  /// That block is written: its place is free.
  void pop() {
    const std::scoped_lock lock(mutex_);
    slotOf(written_).composed = false;
    ++written_;
    changed_.notify_all();
  }

 private:
  bool allTaken() const { return taken_ == blocks_.count(); }
  bool room() const { return !allTaken() && taken_ < written_ + slots_.size(); }
  Slot& slotOf(std::size_t block) { return slots_.at(block % slots_.size()); }

  /// @param lock held at the call and behind it, not between
  void composeNext(std::unique_lock<std::mutex>& lock) {
    const std::size_t first = taken_ * blocks_.perBlock;
    Slot& slot = slotOf(taken_++);
    lock.unlock();
    slot.text.clear();
    try {
      compose_(slot.text, first, first + std::min(blocks_.perBlock, blocks_.items - first));
    } catch (...) {
      slot.failure = std::current_exception();
    }
    lock.lock();
    slot.composed = true;
    changed_.notify_all();
  }

  const Blocks blocks_;
  const BlockText& compose_;
  std::mutex mutex_;
  // A flag and no stop token: where the system has no semaphore of its own, waiting with one can hang (MinGW, GCC 12).
  std::condition_variable changed_;
  std::array<Slot, 8> slots_;
  std::size_t taken_ = 0;    // blocks that some thread has taken
  std::size_t written_ = 0;  // blocks that the caller is done with
  bool stopped_ = false;
};

/// Ends the work of a window however it is left.
struct StopAtTheEnd {
  Window& window;
  ~StopAtTheEnd() { window.stop(); }
};

}  // namespace

std::size_t AiutantiDisponibili() { return std::thread::hardware_concurrency() > 1 ? 1 : 0; }

void ComponiBlocchi(const Blocks& blocks, const BlockText& compose, const std::function<void(std::string_view)>& write,
                    std::size_t workers) {
  const std::size_t count = blocks.count();
  Window window(blocks, compose);
  std::vector<std::jthread> threads;
  const StopAtTheEnd stopped{window};  // before the threads are waited for
  try {
    while (threads.size() < workers && threads.size() + 1 < count) {
      threads.emplace_back([&window] { window.help(); });
    }
  } catch (const std::system_error&) {
    // The system gives no more threads: the caller composes what they would have.
  }
  for (std::size_t k = 0; k < count; ++k) {
    write(window.front());
    window.pop();
  }
}

}  // namespace corvan

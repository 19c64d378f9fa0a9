// A file in blocks, the next of which is read on a second thread while the caller works on the one it has: on a fast
// disk the copy out of the system's cache is a third of what reading a survey costs.
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

#include "base/File.h"

namespace corvan {

/// The blocks of a file from where a reader stands to its end. Two blocks are held; a file of one needs no thread.
class ReadAhead {
 public:
  /// @param block bytes of a block @param front bytes that the caller may carry over before a block @param back bytes
  /// of its own behind one
  ReadAhead(FileReader file, std::size_t block, std::size_t front, std::size_t back);
  ~ReadAhead();
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  /// Goes to the next block and carries the last `kept` bytes of the one before (at most `front`) over before it.
  /// @return bytes of the file in it; fewer than `block` at the end only, where no other call may follow
  /// @throws FileError
  std::size_t next(std::size_t kept);
  /// The first byte of the block.
  std::byte* data() { return buffers_[current_].get() + front_; }

  const FileReader& file() const { return file_; }

 private:
  void readInto(std::size_t buffer);
  void work(std::size_t first);

  FileReader file_;
  std::size_t block_, front_, back_;
  std::array<std::unique_ptr<std::byte[]>, 2> buffers_;
  std::size_t current_ = 1;
  std::size_t calls_ = 0;
  // Of the block that was read last: the worker's while a block is wanted.
  std::size_t got_ = 0;
  std::exception_ptr failure_;
  // No semaphore and no stop token, which holds one: where the system has none of its own, those of the library lose
  // wake-ups (MinGW, GCC 12).
  std::mutex mutex_;
  std::condition_variable changed_;
  bool wanted_ = false;
  bool over_ = false;
  std::jthread worker_;
};

}  // namespace corvan

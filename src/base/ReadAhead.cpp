#include "base/ReadAhead.h"

#include <cstring>
#include <utility>

namespace corvan {

ReadAhead::ReadAhead(FileReader file, std::size_t block, std::size_t front, std::size_t back)
    : file_(std::move(file)), block_(block), front_(front), back_(back) {}

ReadAhead::~ReadAhead() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
  }
  changed_.notify_one();
}

std::size_t ReadAhead::next(std::size_t kept) {
  const std::size_t before = current_;
  current_ = 1 - current_;
  if (worker_.joinable()) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !wanted_; });
  } else {
    readInto(current_);
  }
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  if (kept > 0) std::memcpy(data() - kept, buffers_[before].get() + front_ + block_ - kept, kept);
  const std::size_t got = got_;
  // Who asks for a second block will want the others too.
  if (++calls_ >= 2 && got == block_) {
    {
      const std::lock_guard lock(mutex_);
      wanted_ = true;
    }
    changed_.notify_one();
    if (!worker_.joinable()) worker_ = std::jthread([this, other = before] { work(other); });
  }
  return got;
}

void ReadAhead::readInto(std::size_t buffer) {
  try {
    if (!buffers_[buffer]) buffers_[buffer] = std::make_unique_for_overwrite<std::byte[]>(front_ + block_ + back_);
    got_ = file_.read({buffers_[buffer].get() + front_, block_});
  } catch (...) {
    failure_ = std::current_exception();
  }
}

void ReadAhead::work(std::size_t first) {
  for (std::size_t buffer = first;; buffer = 1 - buffer) {
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return wanted_ || over_; });
      if (over_) return;
    }
    readInto(buffer);
    {
      const std::lock_guard lock(mutex_);
      wanted_ = false;
    }
    changed_.notify_one();
  }
}

}  // namespace corvan

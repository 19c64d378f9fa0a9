// Files that must not outlive the program when a signal ends it.
#pragma once

#include <cstddef>
#include <filesystem>

namespace corvan {

/// While it lives, a signal that PulisciAlleInterruzioni() watches takes the file away before it ends the program.
/// Sixteen at a time are remembered, and names that the system takes; one more is simply not taken away.
class RemovedOnInterruption {
 public:
  /// @param file its whole name; it may come to be later and may be gone earlier
  explicit RemovedOnInterruption(const std::filesystem::path& file);
  RemovedOnInterruption(const RemovedOnInterruption&) = delete;
  RemovedOnInterruption& operator=(const RemovedOnInterruption&) = delete;
  ~RemovedOnInterruption();

 private:
  std::size_t place_;
};

/// From now on signals that end the program from outside (SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU) first
/// take away the files named above, then end it as they do by themselves. One that the caller of the program had
/// ignored (nohup) stays ignored. On Windows nothing is done: an open file cannot be deleted there, and the next
/// writing to the same target removes what is left.
void PulisciAlleInterruzioni();

}  // namespace corvan

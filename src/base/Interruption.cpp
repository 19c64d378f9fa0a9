#include "base/Interruption.h"

#ifndef _WIN32
#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#endif

namespace corvan {

#ifdef _WIN32

RemovedOnInterruption::RemovedOnInterruption(const std::filesystem::path&) : place_(0) {}
RemovedOnInterruption::~RemovedOnInterruption() = default;
void PulisciAlleInterruzioni() {}

#else

namespace {

/// Memory that a signal handler may read at any moment: no allocation, no lock.
struct Place {
  std::atomic<bool> taken{false};
  std::atomic<bool> named{false};  // set once the name stands whole
  std::array<char, PATH_MAX> name{};
};
static_assert(std::atomic<bool>::is_always_lock_free);

std::array<Place, 16> places;

extern "C" void PulisciEFinisci(int signal) {
  for (const Place& place : places) {
    if (place.named) static_cast<void>(::unlink(place.name.data()));
  }
  static_cast<void>(std::raise(signal));  // SA_RESETHAND has put the system's own way back
}

}  // namespace

RemovedOnInterruption::RemovedOnInterruption(const std::filesystem::path& file) : place_(0) {
  if (file.native().size() >= PATH_MAX) place_ = places.size();
  while (place_ < places.size() && places[place_].taken.exchange(true)) ++place_;
  if (place_ == places.size()) return;
  Place& place = places[place_];
  std::memcpy(place.name.data(), file.c_str(), file.native().size() + 1);
  place.named = true;
}

RemovedOnInterruption::~RemovedOnInterruption() {
  if (place_ == places.size()) return;
  places[place_].named = false;
  places[place_].taken = false;
}

void PulisciAlleInterruzioni() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU}) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = PulisciEFinisci;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    static_cast<void>(sigaction(signal, &action, nullptr));
  }
}

#endif

}  // namespace corvan

#include "base/Findings.h"

namespace corvan {

void Findings::add(Finding entry) {
  if (!pending_.empty()) comincia(std::move(pending_));
  if (detto(std::max(scope_, commands_.empty() ? 0 : commands_.back().first), entry)) return;
  entries_.push_back(std::move(entry));
}

void Findings::addUnaVolta(const Finding& entry) {
  if (!detto(scope_, entry)) add(entry);
}

void Findings::addUnaVolta(const Findings& of) {
  for (const Finding& entry : of.entries_) addUnaVolta(entry);
}

void Findings::add(const Findings& of, const std::filesystem::path& file) {
  for (Finding entry : of.entries_) {
    if (entry.file.empty()) entry.file = file.string();
    add(std::move(entry));
  }
}

std::vector<Finding> Findings::ritira(const std::string& procedure) {
  std::vector<Finding> taken;
  for (std::size_t k = scope_; k < entries_.size();) {
    if (entries_[k].procedure != procedure) {
      ++k;
      continue;
    }
    taken.push_back(std::move(entries_[k]));
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(k));
    for (Command& command : commands_) command.first -= command.first > k ? 1 : 0;
  }
  return taken;
}

void Findings::comincia(std::string command) {
  commands_.push_back({std::move(command), entries_.size()});
  pending_.clear();
}

}  // namespace corvan

#include "base/Findings.h"

namespace corvan {

void Findings::add(Finding entry) {
  const auto first = entries_.begin() + static_cast<std::ptrdiff_t>(scope_);
  if (std::find(first, entries_.end(), entry) != entries_.end()) return;
  if (!pending_.empty()) comincia(std::move(pending_));
  entries_.push_back(std::move(entry));
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

#include "cli/ProjectOptions.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "cli/Validators.h"

namespace corvan::cli {
namespace {

template <class... Kinds>
void Togli(std::vector<Act>& acts) {
  std::erase_if(acts, [](const Act& act) { return (std::holds_alternative<Kinds>(act) || ...); });
}

/// The reading of a list of acts; put before all others where there is none.
std::size_t Lettura(std::vector<Act>& acts) {
  const auto found =
      std::find_if(acts.begin(), acts.end(), [](const Act& act) { return std::holds_alternative<ReadAct>(act); });
  if (found != acts.end()) return static_cast<std::size_t>(found - acts.begin());
  acts.insert(acts.begin(), ReadAct{});
  return 0;
}

}  // namespace

void AggiungiProgetto(CLI::App& command, ProjectOptions& o) {
  command
      .add_option(
          "--project", o.open,
          "Do what a saved project (.corvan) did and write what it asks for; options beside it win, files beside "
          "it replace its own")
      ->check(Offre("endings", {"corvan"}))
      ->type_name("FILE");
  command.add_option("--save-project", o.save, "Save everything that makes this run as a project (.corvan)")
      ->check(Offre("endings", {"corvan"}))
      ->type_name("FILE");
}

void RifaiAtti(Session& session, Project& project, const Said& said, const ChangeReading& change,
               const std::function<void()>& behindReading) {
  std::vector<Act>& acts = project.acts;
  if (said.cable) Togli<CableAct>(acts);
  if (said.zone) Togli<ZoneAct>(acts);
  if (said.track) Togli<TrackAct>(acts);
  if (said.track || said.link) Togli<TimeLinkAct, PlaceLinkAct>(acts);
  const std::size_t reading = Lettura(acts);
  const ReadAct before = std::get<ReadAct>(acts[reading]);
  change(std::get<ReadAct>(acts[reading]));
  // Files that are not read any more need not be what they were.
  const auto& files = std::get<ReadAct>(acts[reading]).in.File1;
  std::erase_if(project.files, [&](const ProjectFile& file) {
    const auto names = [&file](const auto& list) {
      return std::find(list.begin(), list.end(), file.path) != list.end();
    };
    return names(before.in.File1) && !names(files);
  });
  session.confronta(project);
  const auto behind = acts.begin() + static_cast<std::ptrdiff_t>(reading) + 1;
  session.rifai(std::vector<Act>(acts.begin(), behind));
  behindReading();
  session.rifai(std::vector<Act>(behind, acts.end()));
}

}  // namespace corvan::cli

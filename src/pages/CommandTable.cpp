#include "pages/CommandTable.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/StartTable.h"
#include "cli/Validators.h"

namespace corvan::pages {
namespace {

using CLI::detail::split;

/// Kind and words of the offer that one of the option's validators carries.
std::optional<std::pair<std::string, std::vector<std::string>>> Portata(CLI::Option& option) {
  try {
    for (int k = 0;; ++k) {
      const std::string& name = option.get_validator(k)->get_name();
      const std::size_t colon = name.find(':');
      if (colon != std::string::npos) {
        return std::pair(name.substr(0, colon), split(name.substr(colon + 1), cli::OfferSeparator));
      }
    }
  } catch (const CLI::OptionNotFound&) {
    return std::nullopt;
  }
}

/// The words that a form like "auto|pLOW,HIGH" names as they are typed.
std::vector<std::string> ParoleDellaForma(const std::string& form) {
  std::vector<std::string> words;
  if (form.find('|') == std::string::npos) return words;
  for (const std::string& word : split(form, '|')) {
    const bool typed = word.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789.") == std::string::npos;
    if (typed) words.push_back(word);
  }
  return words;
}

void Offri(OptionEntry& entry, CLI::Option& option) {
  if (entry.value.empty() || entry.value.front() == '[') return;
  entry.offer = entry.value == "FILE" ? Offer::Files : Offer::Anything;
  if (const auto carried = Portata(option)) {
    const auto& [kind, words] = *carried;
    entry.words = words;
    entry.offer = kind == "words"     ? Offer::Words
                  : kind == "list"    ? Offer::List
                  : kind == "folders" ? Offer::Folders
                                      : Offer::Files;
    return;
  }
  entry.words = ParoleDellaForma(entry.value);
  if (!entry.words.empty()) entry.offer = Offer::Words;
}

OptionEntry VoceDi(CLI::Option& option) {
  OptionEntry entry;
  for (const std::string& name : option.get_snames()) entry.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) entry.names.push_back("--" + name);
  entry.text = option.get_description();
  if (option.get_type_size_max() > 0) entry.value = option.get_type_name();
  for (const CLI::Option* needed : option.get_needs()) entry.text += " (needs " + needed->get_name() + ")";
  Offri(entry, option);
  return entry;
}

CommandEntry ComandoDi(CLI::App& app) {
  CommandEntry command{
      .name = app.get_name(), .text = app.get_description(), .usage = "[OPTIONS]", .options = {}, .endings = {}};
  for (CLI::Option* option : app.get_options()) {
    if (!option->get_positional()) {
      command.options.push_back(VoceDi(*option));
      continue;
    }
    command.takesFiles = true;
    if (const auto carried = Portata(*option)) command.endings = carried->second;
    command.usage += option->get_required() ? " FILE..." : " [FILE...]";
  }
  return command;
}

}  // namespace

ProgramEntry TabellaDi(const std::string& name, CLI::App& app) {
  ProgramEntry program{name, {ComandoDi(app)}};
  program.commands.front().name.clear();
  for (CLI::App* command : app.get_subcommands({})) program.commands.push_back(ComandoDi(*command));
  return program;
}

ProgramEntry TabellaFinestra() {
  CommandEntry window{.name = "",
                      .text = "",
                      .usage = "[OPTIONS] [FILE...]",
                      .options = {},
                      .takesFiles = true,
                      .endings = cli::SurveyEndings};
  window.endings.emplace_back("corvan");
  for (const StartOption& option : StartTable) {
    window.options.push_back({split(std::string(option.names), ','), "", std::string(option.text), Offer::NoValue, {}});
  }
  for (const ToolkitOption& option : ToolkitOptions) {
    const Offer offer = option.value.empty()       ? Offer::NoValue
                        : option.value == "FILE"   ? Offer::Files
                        : option.value == "FOLDER" ? Offer::Folders
                                                   : Offer::Anything;
    window.options.push_back(
        {{"-" + std::string(option.name)}, std::string(option.value), std::string(option.text), offer, {}});
  }
  return {"corvan", {window}};
}

}  // namespace corvan::pages

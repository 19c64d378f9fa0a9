#include "pages/Completion.h"

#include <algorithm>

namespace corvan::pages {
namespace {

const char* Genere(Offer offer) {
  switch (offer) {
    case Offer::NoValue:
      return "flag";
    case Offer::Anything:
      return "anything";
    case Offer::Words:
      return "words";
    case Offer::List:
      return "list";
    case Offer::Files:
      return "files";
    case Offer::Folders:
      return "folders";
  }
  return "anything";
}

/// One line of the script's table: name, kind and words, parted by blanks and the words by "|".
std::string RigaTabella(const std::string& name, Offer offer, const std::vector<std::string>& words) {
  return "      echo '" + name + " " + Genere(offer) + (words.empty() ? "" : " ") + CLI::detail::join(words, "|") +
         "'\n";
}

std::string Tabella(const ProgramEntry& program) {
  std::string out;
  for (const CommandEntry& command : program.commands) {
    out += "    '" + command.name + "')\n";
    for (const OptionEntry& option : command.options) {
      for (const std::string& name : option.names) out += RigaTabella(name, option.offer, option.words);
    }
    if (command.takesFiles) out += RigaTabella("FILES", Offer::Files, command.endings);
    out += "      ;;\n";
  }
  out.pop_back();
  return out;
}

}  // namespace

std::string ComponiCompletamento(const ProgramEntry& program, std::string_view logic) {
  std::string function = program.name, commands;
  std::replace(function.begin(), function.end(), '-', '_');
  for (const CommandEntry& command : program.commands) {
    if (!command.name.empty()) commands += (commands.empty() ? "" : " ") + command.name;
  }
  std::string out(logic);
  const auto put = [&out](const std::string& mark, const std::string& text) {
    for (std::size_t at = 0; (at = out.find(mark, at)) != std::string::npos; at += text.size()) {
      out.replace(at, mark.size(), text);
    }
  };
  put("@TABLE@", Tabella(program));
  put("@PROGRAM@", program.name);
  put("@FUNCTION@", function);
  put("@COMMANDS@", commands);
  return out;
}

}  // namespace corvan::pages

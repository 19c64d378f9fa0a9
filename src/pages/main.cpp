// corvan-pages: writes manual page or completion of a program. Runs while Corvan is built.
#include <exception>
#include <iostream>
#include <span>
#include <string>
#include <vector>

#include "base/File.h"
#include "cli/CommandLine.h"
#include "pages/Completion.h"
#include "pages/ManPage.h"

namespace corvan::pages {
namespace {

constexpr const char* Usage =
    "Usage: corvan-pages man PROGRAM PROSE VERSION DATE SAMPLES\n"
    "       corvan-pages completion PROGRAM LOGIC\n"
    "PROGRAM is corvan or corvan-cli; the text goes to standard output.\n";

ProgramEntry TabellaPerNome(const std::string& name) {
  if (name == "corvan") return TabellaFinestra();
  cli::Work work;
  return TabellaDi(name, *cli::CreaRigaComando(work));
}

int Esegui(const std::vector<std::string>& words) {
  const bool man = words.size() == 6 && words[0] == "man";
  const bool completion = words.size() == 3 && words[0] == "completion";
  if ((!man && !completion) || (words[1] != "corvan" && words[1] != "corvan-cli")) {
    std::cerr << Usage;
    return 2;
  }
  const ProgramEntry program = TabellaPerNome(words[1]);
  const FileBytes source = LeggiTutto(words[2]);
  std::cout << (man ? ComponiPagina(program, source.text(), {words[3], words[4], words[5]})
                    : ComponiCompletamento(program, source.text()));
  std::cout.flush();
  return std::cout ? 0 : 1;
}

}  // namespace
}  // namespace corvan::pages

int main(int argc, char** argv) {
  try {
    const std::span<char*> words(argv, static_cast<std::size_t>(argc));
    return corvan::pages::Esegui({words.begin() + 1, words.end()});
  } catch (const std::exception& error) {
    std::cerr << "corvan-pages: " << error.what() << '\n';
    return 1;
  }
}

#include <sys/wait.h>

#include <cstdlib>

#include "cli/Cli.h"

namespace corvan {

Outcome Cli::operator()(const std::string& arguments, const std::string& input, const std::string& before,
                        const std::string& in) const {
  const std::string base = folder.path().string();
  folder.write("stdin", input);
  const std::string command = "cd '" + base + "/" + in + "' && " + before + " '" CORVAN_CLI "' " + arguments + " <'" +
                              base + "/stdin' >'" + base + "/stdout' 2>'" + base + "/stderr'";
  const int result = std::system(command.c_str());
  return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, test::Slurp(folder / "stdout"), test::Slurp(folder / "stderr")};
}

}  // namespace corvan

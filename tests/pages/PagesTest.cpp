// Manual pages and completions against what the programs themselves say that they take.
#include <algorithm>
#include <regex>
#include <set>

#include "app/StartTable.h"
#include "cli/Cli.h"
#include "pages/ManPage.h"

namespace corvan {
namespace {

using Names = std::set<std::string>;

#if CORVAN_WINDOW
const Names Programs{"corvan", "corvan-cli"};
#else
const Names Programs{"corvan-cli"};
#endif

std::string Page(const std::string& program) { return test::Slurp(std::string(CORVAN_PAGES) + "/" + program); }

/// The long options in the help of a command ("" for the program itself), each with the form of its value.
std::map<std::string, std::string> OptionsInHelp(const std::string& command) {
  const std::string help = Cli()(command + " --help").out;
  const std::regex option(R"(\n  (?:-\w,)?(--[\w-]+)(?: (\S+))?)");
  std::map<std::string, std::string> options;
  for (std::sregex_iterator at(help.begin(), help.end(), option), end; at != end; ++at) {
    options[(*at)[1]] = (*at)[2];
  }
  return options;
}

/// What stands below a heading of the page, up to the next one.
std::string Below(const std::string& page, const std::string& heading) {
  const std::size_t at = page.find(heading + "\n");
  if (at == std::string::npos) return "";
  const std::string rest = page.substr(at + heading.size());
  return rest.substr(0, std::min(rest.find("\n.SS "), rest.find("\n.SH ")));
}

std::string Escaped(std::string name) { return "\\fB" + std::regex_replace(name, std::regex("-"), "\\-") + "\\fR"; }

TEST(ManPages, NameEveryOptionOfEveryCommand) {
  const std::string page = Page("corvan-cli.1");
  std::size_t seen = 0;
  for (const std::string command : {"", "process", "info", "convert"}) {
    const std::string part = Below(page, command.empty() ? ".SH OPTIONS" : ".SS \"corvan-cli " + command + "\"");
    EXPECT_TRUE(Contains(part, "\\fB\\-h\\fR, " + Escaped("--help"))) << command;
    for (const auto& [name, form] : OptionsInHelp(command)) {
      EXPECT_TRUE(Contains(part, Escaped(name))) << command << " " << name;
      ++seen;
    }
  }
  EXPECT_GE(seen, 70U);
  if (!Programs.contains("corvan")) return;
  const std::string window = Page("corvan.1");
  for (const StartOption& option : StartTable) {
    const std::string names(option.names);
    EXPECT_TRUE(Contains(window, Escaped(names.substr(names.find(',') + 1)))) << names;
  }
  for (const ToolkitOption& option : ToolkitOptions) {
    EXPECT_TRUE(Contains(window, Escaped("-" + std::string(option.name)))) << option.name;
  }
}

TEST(ManPages, PleaseBothFormattersAndShowDashesThatCanBeCopied) {
  for (const std::string& program : Programs) {
    const std::string page = "'" CORVAN_PAGES "/" + program + ".1'";
    test::TempFolder folder;
    const std::string to = "'" + (folder / "out").string() + "'";
    const auto run = [&](const std::string& command) {
      const int status = std::system((command + " >" + to + " 2>&1").c_str());
      return std::pair(status, test::Slurp(folder / "out"));
    };
    EXPECT_EQ(run("mandoc -Tlint -Wstyle " + page), std::pair(0, std::string()));
    EXPECT_EQ(run("{ man --warnings -l -Tutf8 -Z " + page + " 2>&1 >/dev/null; }"), std::pair(0, std::string()));
    const auto [status, text] = run("MANWIDTH=200 LC_ALL=C.UTF-8 man -E UTF-8 -l " + page);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(Contains(text, "Corvan " CORVAN_VERSION)) << "foot of " << program;
    EXPECT_TRUE(Contains(text, CORVAN_RELEASED)) << "foot of " << program;
    for (const auto& [name, form] : OptionsInHelp(program == "corvan" ? "" : "process")) {
      EXPECT_TRUE(Contains(text, name + (form.empty() ? "" : " " + form))) << name;
    }
  }
}

TEST(ManPages, ShowEveryCharacterAsItIs) {
  const std::pair<const char*, const char*> cases[] = {{"pre-processing", "pre-processing"},  // a hyphen
                                                       {"--save-project FILE", "\\-\\-save\\-project FILE"},
                                                       {"(needs --gps), e.g. -90", "(needs \\-\\-gps), e.g. \\-90"},
                                                       {"easting\"; - for one", "easting\"; \\- for one"},
                                                       {"track's ^ ~ ` \\", "track\\(aqs \\(ha \\(ti \\(ga \\e"}};
  for (const auto& [text, shown] : cases) EXPECT_EQ(pages::ProteggiTesto(text), shown);

  const pages::ProgramEntry program{
      "a-b", {{"", "", "[OPTIONS] FILE...", {{{"-x", "--x-y"}, "pLOW,HIGH", "Text", {}, {}}}, true, {}}}};
  const std::string page = pages::ComponiPagina(program,
                                                "# NAME\n\n.first `-o`\n*two* **lines**\n\n- item\n\n```\n.dot 'a' "
                                                "--b\n```\n# OPTIONS\n@options\n\nafter @samples\n",
                                                {"1.2", "2026-01-02", "/s"});
  EXPECT_EQ(
      page,
      ".TH A\\-B 1 2026-01-02 \"Corvan 1.2\" \"Corvan\"\n.nh\n.ad l\n.SH NAME\n\\&.first \\fB\\-o\\fR \\fItwo\\fR "
      "\\fBlines\\fR\n"
      ".IP \\(bu 2\nitem\n.PP\n.RS 2\n.EX\n\\&.dot \\(aqa\\(aq \\-\\-b\n.EE\n.RE\n"
      ".SH OPTIONS\n.TP\n\\fB\\-x\\fR, \\fB\\-\\-x\\-y\\fR \\fBp\\fILOW\\fR,\\fIHIGH\\fR\nText.\n.PP\nafter /s\n");
}

/// What bash offers behind words, of which the last is being typed, in a folder with some files.
struct Shell {
  test::TempFolder folder;
  Shell() {
    for (const char* name : {"line.bin", "LINE.TXT", "plan.corvan", "shot.png", "notes.odt", "my line.bin"}) {
      folder.write(name, "");
    }
    std::filesystem::create_directory(folder / "lake");
  }
  /// @param words as bash splits the line; @param line as typed when it is not the words joined by blanks
  Names operator()(std::vector<std::string> words, std::string line = "") const {
    if (line.empty()) line = CLI::detail::join(words, " ");
    std::string function = words.front(), script = "source '" CORVAN_PAGES "/" + words.front() + ".bash'\nCOMP_WORDS=(";
    std::replace(function.begin(), function.end(), '-', '_');
    for (const std::string& word : words)
      script += " $'" + std::regex_replace(word, std::regex(R"(['\\])"), "\\$&") + "'";
    script += ")\nCOMP_CWORD=" + std::to_string(words.size() - 1) + "\nCOMP_LINE=$'" +
              std::regex_replace(line, std::regex(R"(['\\])"), "\\$&") + "'\nCOMP_POINT=${#COMP_LINE}\n_" + function +
              "\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
    folder.write(".script", script);
    const std::string command = "cd '" + folder.path().string() + "' && bash --norc .script >.out 2>.err";
    EXPECT_EQ(std::system(command.c_str()), 0) << test::Slurp(folder / ".err");
    EXPECT_EQ(test::Slurp(folder / ".err"), "");
    Names names;
    for (const std::string& name : CLI::detail::split(test::Slurp(folder / ".out"), '\n')) {
      if (!name.empty()) names.insert(name);
    }
    return names;
  }
};

struct Completed {
  std::vector<std::string> words;
  Names offered;
  std::string line = "";
};

TEST(Completion, OffersWhatFits) {
  const Shell shell;
  const Completed cases[] = {
      {{"corvan-cli", ""}, {"process", "info", "convert"}},
      {{"corvan-cli", "--v"}, {"--version"}},
      {{"corvan-cli", "process", "--cable"}, {"--cable", "--cable-geometry", "--cable-offset"}},
      {{"corvan-cli", "info", "--c"}, {"--columns"}},
      // words and lists
      {{"corvan-cli", "process", "--coords", "dd"}, {"ddmmss", "ddmm", "dd"}},
      {{"corvan-cli", "process", "line.bin", "--bad-gps", ""}, {"none", "skip", "interpolate"}},
      {{"corvan-cli", "process", "--coords", "=", "u"}, {"utm"}, "corvan-cli process --coords=u"},
      {{"corvan-cli", "process", "--coords", "="}, {"ddmmss", "ddmm", "dd", "utm"}, "corvan-cli process --coords="},
      {{"corvan-cli", "process", "--format", ""},
       {"bin", "txt", "ecs", "kml", "csv", "ert", "bottom", "res2dinv", "gpkg", "geojson", "vtu"}},
      {{"corvan-cli", "process", "--format", "bin,gpkg,g"}, {"bin,gpkg,geojson"}},
      {{"corvan-cli", "process", "--format", "=", "bin,k"}, {"bin,kml"}, "corvan-cli process --format=bin,k"},
      {{"corvan-cli", "process", "--layers", "scale,n"}, {"scale,north", "scale,names"}},
      {{"corvan-cli", "process", "--curves", "d"}, {"depth"}},
      {{"corvan-cli", "process", "--link", ""}, {"time", "position"}},
      {{"corvan-cli", "process", "--range", ""}, {"auto"}},
      {{"corvan-cli", "process", "--ert-dimension", ""}, {"2", "3"}},
      {{"corvan-cli", "process", "--palette", ""},
       {"spectrum", "spectrum:reversed", "viridis", "viridis:reversed", "cividis", "cividis:reversed", "grey",
        "grey:reversed"}},
      {{"corvan-cli", "process", "--palette", "gr"}, {"grey", "grey:reversed"}},
      {{"corvan-cli", "process", "--palette", "grey", ":", "r"}, {"reversed"}, "corvan-cli process --palette grey:r"},
      {{"corvan-cli", "process", "--palette", "=", "grey", ":", "r"},
       {"reversed"},
       "corvan-cli process --palette=grey:r"},
      {{"corvan-cli", "convert", "--format", "d"}, {"dmmss", "dmm.mmm", "d.dddd"}},
      {{"corvan-cli", "convert", "--datum", "Clarke\\ 18"}, {"Clarke 1880", "Clarke 1866"}},
      {{"corvan-cli", "convert", "--datum", "Clar"}, {"Clarke\\ 1880", "Clarke\\ 1866"}},
      // numbers and texts of the user's own
      {{"corvan-cli", "process", "--zone", ""}, {}},
      {{"corvan-cli", "process", "--connect", ""}, {}},
      // files: by their ending, all where none has one
      {{"corvan-cli", "process", ""}, {"line.bin", "LINE.TXT", "my line.bin", "lake"}},
      {{"corvan-cli", "process", "--past-gaps", "l"}, {"line.bin", "lake"}},
      {{"corvan-cli", "process", "--despike", "l"}, {"line.bin", "lake"}},
      {{"corvan-cli", "process", "n"}, {"notes.odt"}},
      {{"corvan-cli", "process", "my\\ l"}, {"my line.bin"}},
      {{"corvan-cli", "process", "--picture", ""}, {"shot.png", "lake"}},
      {{"corvan-cli", "process", "--section-picture", "=", "s"},
       {"shot.png"},
       "corvan-cli process --section-picture=s"},
      {{"corvan-cli", "process", "--save-project", ""}, {"plan.corvan", "lake"}},
      {{"corvan-cli", "process", "--gps", "n"}, {"notes.odt"}},
      {{"corvan-cli", "process", "--out", ""}, {"lake"}},
      {{"corvan-cli", "process", "--", "--coords"}, {}},
      {{"corvan-cli", "convert", "l"}, {}},
      {{"corvan", "--"}, {"--help", "--version", "--"}},
      {{"corvan", "-style"}, {"-style", "-stylesheet"}},
      {{"corvan", ""}, {"line.bin", "LINE.TXT", "my line.bin", "plan.corvan", "lake"}}};
  for (const Completed& c : cases) {
    if (!Programs.contains(c.words.front())) continue;
    EXPECT_EQ(shell(c.words, c.line), c.offered) << CLI::detail::join(c.words, " ");
  }
}

TEST(Completion, OffersEveryOptionOfEveryCommandAndTheWordsOfItsForm) {
  const Shell shell;
  for (const std::string command : {"process", "info", "convert"}) {
    Names all;
    for (const auto& [name, form] : OptionsInHelp(command)) {
      all.insert(name);
      const Names offered = shell({"corvan-cli", command, name, ""});
      EXPECT_TRUE(form != "FILE" || offered.contains("lake")) << name;
      for (const std::string& word : CLI::detail::split(form, '|')) {
        const bool typed =
            form.find('|') != std::string::npos && std::islower(static_cast<unsigned char>(word.back())) != 0;
        EXPECT_TRUE(!typed || offered.contains(word)) << name << " " << word;
      }
    }
    EXPECT_EQ(shell({"corvan-cli", command, "--"}), all);
  }
}

}  // namespace
}  // namespace corvan

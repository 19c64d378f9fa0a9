// The command line from outside, where only POSIX systems have the means: signals, limits, devices, names of any bytes.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "cli/Cli.h"

namespace corvan {
namespace {

using test::Firings;
using test::Hidden;
using test::SyscalFile;

TEST(Process, NamesTheOutputThatDoesNotFitAndWritesTheRest) {
  const Cli cli;
  cli.folder.write("good.bin", SyscalFile(Firings(200, 10)));
  std::filesystem::create_symlink("/dev/full", cli.folder / "o.bin");
  const Outcome run = cli("process good.bin --out o --format bin,txt");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.err, "o.bin: No space left on device")) << run.err;
  EXPECT_TRUE(cli.exists("o.txt"));
  EXPECT_FALSE(Contains(run.out, "o.bin"));
}

TEST(Process, LeavesEveryOlderOutputWholeWhenThereIsNoRoom) {
  const Cli cli;
  cli.folder.write("line.bin", SyscalFile(Firings(50, 10)));
  const std::vector<std::string> names{"o.bin", "o.txt", "o.kml", "o.csv"};
  for (const std::string& name : names) cli.folder.write(name, "older");
  const Outcome run = cli("process line.bin --out o --format bin,txt,ecs,kml,csv", "", "ulimit -f 16 &&");
  EXPECT_EQ(run.status, 1);
  for (const std::string& name : names) {
    EXPECT_TRUE(Contains(run.err, name + ": File too large")) << run.err;
    EXPECT_EQ(test::Slurp(cli.folder / name), "older") << name;
  }
  EXPECT_TRUE(Contains(run.out, "written       o.ecs\n")) << "what has room is written";
  EXPECT_EQ(Hidden(cli.folder.path()).size(), 0U);
}

TEST(Process, KilledAtAnyMomentLeavesTheOlderOutputWhole) {
  const Cli cli;
  cli.folder.write("line.bin", SyscalFile(Firings(1000, 10)));
  const std::string process = "process line.bin --out o --format ";
  ASSERT_EQ(cli(process + "kml").status, 0);
  const std::string whole = test::Slurp(cli.folder / "o.kml");
  for (const int signal : {SIGTERM, SIGKILL, SIGINT, SIGKILL, SIGHUP, SIGTERM}) {
    cli.folder.write("o.kml", "older");
    const pid_t child = fork();
    if (child == 0) {
      static_cast<void>(!freopen("/dev/null", "w", stdout) || !freopen("/dev/null", "w", stderr));
      static_cast<void>(chdir(cli.folder.path().c_str()));
      execl(CORVAN_CLI, CORVAN_CLI, "process", "line.bin", "--out", "o", "--format", "kml", nullptr);
      _exit(127);
    }
    int status = 0;
    // Waits for the hidden file or the end, whichever comes first; both leave the output whole.
    pid_t ended = 0;
    while (Hidden(cli.folder.path()).empty() && ended == 0) ended = waitpid(child, &status, WNOHANG);
    if (ended == 0) {
      kill(child, signal);
      waitpid(child, &status, 0);
    }
    EXPECT_TRUE(!WIFSIGNALED(status) || WTERMSIG(status) == signal);
    const std::string after = test::Slurp(cli.folder / "o.kml");
    EXPECT_TRUE(after == "older" || after == whole) << after.size() << " bytes after signal " << signal;
    EXPECT_LE(Hidden(cli.folder.path()).size(), signal == SIGKILL ? 1U : 0U) << "signal " << signal;
    EXPECT_EQ(cli(process + "kml").status, 0);
    EXPECT_EQ(Hidden(cli.folder.path()).size(), 0U) << "the next run sweeps";
  }
}

TEST(Standard, OutputThatCannotBeWrittenGivesStatus1) {
  const Cli cli;
  cli.folder.write("good.bin", SyscalFile(Firings(4, 10)));
  for (const char* arguments : {"process good.bin", "process good.bin --json", "info good.bin", "info good.bin --json",
                                "convert --to-utm", "convert --datums", "--help", "--version"}) {
    for (const char* place : {">/dev/full", ">&-"}) {
      const std::string wrapped = "sh -c '\"$@\" " + std::string(place) + "' sh ";
      const Outcome run = cli(arguments, "4524 1218\n", wrapped);
      EXPECT_EQ(run.status, 1) << arguments << place;
      EXPECT_TRUE(Contains(run.err, "standard output could not be written")) << arguments << place;
    }
  }
}

TEST(Standard, StreamsCarryNoControlCharacterOfANameOrCell) {
  const Cli cli;
  const std::string name = "a\x1B[2J\x7F\xC2\x9B\n.bin";
  cli.folder.write(name, SyscalFile(Firings(4, 10)));
  const auto clean = [](const std::string& text) {
    return !Contains(text, "\xC2\x9B") && std::none_of(text.begin(), text.end(), [](char c) {
      return (c >= 0 && c < ' ' && c != '\n') || c == '\x7F';
    });
  };
  const std::string shown = "a\\x1B[2J\\x7F\\x9B\\x0A.bin";
  const std::string quoted = "'" + name + "'";
  for (const char* arguments : {"process ", "info ", "process --out '\x1B/o' ", "info '\x1B]' "}) {
    const Outcome run = cli(arguments + quoted);
    EXPECT_TRUE(clean(run.out) && clean(run.err)) << arguments << run.out << run.err;
    EXPECT_TRUE(Contains(run.out, shown)) << arguments << run.out;
  }
  for (const char* arguments : {"process x --format '\x1B[31m'", "'\x1B[31m'"}) {
    const Outcome run = cli(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(clean(run.err)) << arguments << run.err;
  }
  const Outcome cell = cli("convert --to-utm", "45\x1B[31m 12\n");
  EXPECT_TRUE(clean(cell.err) && Contains(cell.err, "45\\x1B[31m")) << cell.err;
  const Outcome json = cli("info --json " + quoted);
  EXPECT_TRUE(clean(json.out) && Contains(json.out, R"(a\u001b[2J\u007f\u009b\n.bin)")) << json.out;
}

/// The seconds of the day in the header of o.bin.
int SecondsOfDay(const Cli& cli) {
  const std::string clock = test::Slurp(cli.folder / "o.bin").substr(31, 8);
  return std::stoi(clock.substr(0, 2)) * 3600 + std::stoi(clock.substr(3, 2)) * 60 + std::stoi(clock.substr(6, 2));
}

TEST(Clock, OfTheHeaderIsTheLocalOne) {
  const Cli cli;
  cli.folder.write("s.bin", test::SyscalFile(TimedFirings()));
  ASSERT_EQ(cli("process s.bin --out o", "", "TZ=UTC0").status, 0);
  const int utc = SecondsOfDay(cli);
  for (const auto& [zone, hours] : {std::pair{"TZ=LINE-14", 14}, {"TZ=WEST+3:30", -3}}) {
    ASSERT_EQ(cli("process s.bin --out o", "", zone).status, 0);
    const int later = (SecondsOfDay(cli) - utc + 2 * 86400) % 86400;
    const int wanted = hours > 0 ? hours * 3600 : 86400 - 3 * 3600 - 1800;
    EXPECT_LE(std::abs(later - wanted), 30) << zone;
  }
}

}  // namespace
}  // namespace corvan

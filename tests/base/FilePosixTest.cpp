// Outputs replace older files whole or not at all: links, devices, permissions, signals, limits.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "base/File.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

namespace fs = std::filesystem;
using test::Hidden;
using test::Reason;
using test::Slurp;
using test::TempFolder;
using test::Write;

TEST(Links, AreFollowedToThePlaceThatIsReplaced) {
  struct Case {
    const char* asked;
    const char* real;
    bool there;  ///< an older file stands at the real place
  };
  const Case cases[] = {{"plain", "plain", true},       {"plain", "plain", false},     {"one", "far/data.bin", true},
                        {"one", "far/data.bin", false}, {"two", "far/data.bin", true}, {"two", "far/data.bin", false},
                        {"far/back", "plain", false},   {"away/new", "far/new", false}};
  for (const auto& [asked, real, there] : cases) {
    SCOPED_TRACE(asked);
    const TempFolder folder;
    fs::create_directory(folder / "far");
    fs::create_symlink("far/data.bin", folder / "one");
    fs::create_symlink(folder / "one", folder / "two");  // absolute, then relative
    fs::create_symlink("../plain", folder / "far/back");
    fs::create_symlink("far", folder / "away");
    if (there) folder.write(real, "older");
    FileWriter out(folder / asked);
    out.write(std::string(3'000'000, 'n'));
    const auto beside = Hidden((folder / real).parent_path());
    ASSERT_EQ(beside.size(), 1U);
    const std::string start = "." + fs::path(real).filename().string() + ".corvan-" + std::to_string(getpid()) + "-";
    EXPECT_TRUE(beside[0].starts_with(start)) << beside[0];
    EXPECT_EQ(fs::exists(folder / real), there);
    EXPECT_TRUE(!there || Slurp(folder / real) == "older");
    out.close();
    EXPECT_EQ(Slurp(folder / real), std::string(3'000'000, 'n'));
    EXPECT_TRUE(!fs::is_symlink(folder / real) && fs::is_symlink(folder / "one") && fs::is_symlink(folder / "two"));
    EXPECT_TRUE(Hidden(folder.path()).empty() && Hidden(folder / "far").empty());
  }
}

TEST(Writer, WritesDirectlyToWhatIsNoRegularFile) {
  const TempFolder folder;
  fs::create_symlink("/dev/null", folder / "null");
  Write(folder / "null", "x");
  EXPECT_TRUE(fs::is_symlink(folder / "null") && fs::is_character_file("/dev/null"));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const int reader = open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
  Write(folder / "pipe", "through");
  std::array<char, 16> got{};
  EXPECT_EQ(read(reader, got.data(), got.size()), 7);
  close(reader);
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_TRUE(Hidden(folder.path()).empty());
}

TEST(Devices, AreNotReadAndTellWhyTheyTakeNothing) {
  EXPECT_EQ(Reason([] { LeggiTutto("/dev/null"); }), "is not a regular file");
  EXPECT_EQ(Reason([] { Write("/dev/full", "x"); }), "No space left on device");
}

TEST(Writer, KeepsTheOlderFilesPermissions) {
  const TempFolder folder;
  for (const mode_t mode : {0600U, 0664U, 0755U}) {
    chmod(folder.write("old", "older").c_str(), mode);
    Write(folder / "old", "new");
    EXPECT_EQ(static_cast<mode_t>(fs::status(folder / "old").permissions()), mode);
  }
  const mode_t mask = umask(027);
  Write(folder / "fresh", "new");
  umask(mask);
  EXPECT_EQ(static_cast<mode_t>(fs::status(folder / "fresh").permissions()), 0640U);
}

TEST(Writer, NamesWhatTheSystemForbids) {
  const TempFolder folder;
  fs::create_symlink("round", folder / "round");
  const auto open = [&](const std::string& name) { return Reason([&] { FileWriter(folder / name); }); };
  EXPECT_EQ(open("round"), "Too many levels of symbolic links");
  chmod(folder.write("closed", "older").c_str(), 0444);
  chmod(folder.path().c_str(), 0555);
  constexpr uid_t nobody = 65534;  // root may write everywhere
  const bool root = geteuid() == 0;
  EXPECT_TRUE(!root || seteuid(nobody) == 0);
  EXPECT_EQ(open("closed"), "Permission denied");
  EXPECT_EQ(open("fresh"), "no new file can be made in its folder: Permission denied");
  EXPECT_TRUE(!root || seteuid(0) == 0);
  chmod(folder.path().c_str(), 0755);
}

TEST(Writer, OnAFullDiskLeavesTheOlderFileAndNothingElse) {
  const TempFolder folder;
  folder.write("old", "older");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tight{1'500'000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  FileWriter out(folder / "old");
  const std::string atWrite = Reason([&] { out.write(std::string(3'000'000, 'n')); });
  const auto left = Hidden(folder.path());
  const std::string atClose = Reason([&] { out.close(); });
  FileWriter late(folder / "old");
  for (int k = 0; k < 52; ++k) late.write(std::string(40'000, 'n'));  // the last million waits in the buffer
  const std::string onlyAtClose = Reason([&] { late.close(); });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(atWrite, "File too large");
  EXPECT_TRUE(left.empty()) << "the disk is full: room is given back at once";
  EXPECT_EQ(atClose, "File too large") << "who passed over the first error is not told that all is well";
  EXPECT_EQ(onlyAtClose, "File too large");
  EXPECT_EQ(Slurp(folder / "old"), "older");
  EXPECT_TRUE(Hidden(folder.path()).empty());
}

/// Runs `body` in a child and gives how it ended (as waitpid tells).
template <class Body>
int InChild(Body&& body) {
  const pid_t child = fork();
  if (child == 0) {
    body();
    _exit(0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return status;
}

TEST(Signals, LeaveTheOlderFileWholeInTheMiddleOfAWriting) {
  struct Case {
    int signal;
    bool ignored;
    std::size_t left;  ///< hidden files
  };
  const Case cases[] = {{SIGKILL, false, 1}, {SIGTERM, false, 0}, {SIGINT, false, 0},
                        {SIGHUP, false, 0},  {SIGHUP, true, 0},   {SIGPIPE, false, 0}};
  for (const Case& c : cases) {
    for (const std::string& name : {std::string("old"), std::string(240, 'l')}) {
      SCOPED_TRACE(std::to_string(c.signal) + " " + name);
      const TempFolder folder;
      folder.write(name, "older");
      const int status = InChild([&] {
        if (c.ignored) std::signal(c.signal, SIG_IGN);
        PulisciAlleInterruzioni();
        Write(folder / "other", "");  // closed again: its name is no longer looked after
        FileWriter out(folder / name);
        out.write(std::string(2'000'000, 'n'));
        raise(c.signal);
        out.close();
      });
      EXPECT_TRUE(c.ignored ? WIFEXITED(status) : WIFSIGNALED(status) && WTERMSIG(status) == c.signal) << status;
      EXPECT_EQ(Slurp(folder / name), c.ignored ? std::string(2'000'000, 'n') : "older");
      EXPECT_TRUE(fs::exists(folder / "other"));
      EXPECT_EQ(Hidden(folder.path()).size(), c.left);
      Write(folder / name, "next");
      EXPECT_TRUE(Hidden(folder.path()).empty());
    }
  }
}

TEST(Writer, NeverTakesThePlaceOfAClosedStandardStream) {
  const TempFolder folder;
  InChild([&] {
    close(STDERR_FILENO);
    FileWriter out(folder / "x");
    out.write("data");
    static_cast<void>(!write(STDERR_FILENO, "noise", 5));
    out.close();
  });
  EXPECT_EQ(Slurp(folder / "x"), "data");
}

}  // namespace
}  // namespace corvan

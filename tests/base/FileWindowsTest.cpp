// Files where names are UTF-16, ignore case, and a file that is open cannot be replaced.
#include <gtest/gtest.h>
#include <windows.h>

#include "base/File.h"
#include "base/PathText.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

namespace fs = std::filesystem;
using test::Reason;
using test::Slurp;
using test::Write;

/// A file as another program has it open.
class Opened {
 public:
  Opened(const fs::path& file, DWORD shared)
      : handle_(CreateFileW(file.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() { CloseHandle(handle_); }

 private:
  HANDLE handle_;
};

TEST(OpenFiles, OfAnotherProgramAreNamedBeforeAnythingIsWritten) {
  const test::TempFolder folder;
  const fs::path table = folder.write("table.csv", "older");
  {
    const Opened spreadsheet(table, FILE_SHARE_READ);
    EXPECT_EQ(Reason([&] { FileWriter out(table); }), "another program has it open");
    EXPECT_EQ(LeggiTutto(table).text(), "older") << "reading is shared";
  }
  {
    const Opened jealous(table, 0);
    EXPECT_EQ(Reason([&] { LeggiTutto(table); }), "another program has it open");
  }
  {
    FileWriter out(table);
    out.write("newer");
    const Opened late(table, FILE_SHARE_READ);
    EXPECT_EQ(Reason([&] { out.close(); }), "another program has it open");
  }
  EXPECT_EQ(Slurp(table), "older");
  EXPECT_TRUE(test::Hidden(folder.path()).empty());
  Write(table, "newer");
  EXPECT_EQ(Slurp(table), "newer");
}

TEST(Names, ThatWindowsWouldTurnIntoSomethingElseAreRefused) {
  const test::TempFolder folder;
  struct Case {
    const char* name;
    const char* reason;
  };
  for (const auto& [name, reason] :
       {Case{"line:2.bin", "has a colon in its name"}, Case{"con.bin", "has the name of a device"},
        Case{"Nul.csv", "has the name of a device"}, Case{"COM3.txt", "has the name of a device"},
        Case{"lpt9", "has the name of a device"}, Case{"aux.tar.gz", "has the name of a device"},
        Case{"line.", "has a name that ends in a dot or a blank, which would be dropped"},
        Case{"line.bin ", "has a name that ends in a dot or a blank, which would be dropped"}}) {
    EXPECT_EQ(Reason([&] { FileWriter(folder.path() / name); }), reason) << name;
  }
  for (const char* name : {"console.bin", "com.bin", "comx.bin", "nulls", "com10.bin", ".hidden"}) {
    Write(folder.path() / name, "x");
    EXPECT_EQ(Slurp(folder.path() / name), "x") << name;
  }
}

TEST(Names, KeepEveryLetterBetweenTextAndFile) {
  const test::TempFolder folder;
  for (const char* name : {"Pr\xC3\xBC"
                           "f linea.bin",
                           "gi\xC3\xB9 \xE6\xB2\xB3.csv", "\xF0\x9F\x8C\x8A.txt"}) {
    Write(folder.path() / PercorsoDi(name), name);
    EXPECT_EQ(PercorsoDi(name).string(), name);
    EXPECT_EQ(LeggiTutto(folder.path() / PercorsoDi(name)).text(), name);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 3);
}

TEST(Names, ThatDifferInCaseAreOneFile) {
  const test::TempFolder folder;
  Write(folder / "Line.bin", "first");
  Write(folder / "LINE.BIN", "second");
  EXPECT_EQ(Slurp(folder / "line.bin"), "second");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

}  // namespace
}  // namespace corvan

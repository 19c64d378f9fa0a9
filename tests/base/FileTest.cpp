// Outputs replace older files whole or not at all, whatever ends the writing.
#include <gtest/gtest.h>

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

TEST(Writer, KeepsTheFolderThatItBeganIn) {
  const TempFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  FileWriter out("x");
  fs::current_path(before);
  out.write("new");
  out.close();
  EXPECT_EQ(Slurp(folder / "x"), "new");
}

TEST(Writer, NamesWhyItCannotBegin) {
  const TempFolder folder;
  const auto open = [&](const std::string& name) { return Reason([&] { FileWriter(folder / name); }); };
  EXPECT_EQ(open("."), "is a folder");
  EXPECT_EQ(open("no/x"), "No such file or directory");
  EXPECT_EQ(open("no/"), "has no name behind the folder");
}

TEST(Writer, GivenUpLeavesTheOlderFileAndNothingElse) {
  const TempFolder folder;
  folder.write("old", "older");
  for (const char* name : {"old", "fresh"}) FileWriter(folder / name).write(std::string(2'000'000, 'n'));
  EXPECT_EQ(Slurp(folder / "old"), "older");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST(Writer, KeepsTheOrderOfSmallAndLargePieces) {
  const TempFolder folder;
  FileWriter out(folder / "x");
  std::string all;
  for (const std::size_t size : {3U, 100'000U, 1U, 65'535U, 65'536U, 2'000'000U, 7U}) {
    const std::string piece(size, static_cast<char>('a' + size % 26));
    out.write(piece);
    all += piece;
  }
  out.close();
  EXPECT_EQ(Slurp(folder / "x"), all);
  EXPECT_EQ(LeggiTutto(folder / "x").text(), all);
  EXPECT_EQ(LeggiInizio(folder / "x", 4).text(), all.substr(0, 4));
}

TEST(Stumps, AreRemovedOnlyWhereTheirWriterIsGone) {
  const TempFolder folder;
  const std::string longName(250, 'l');
  for (const char* name : {".x.corvan-1-0000", ".x.corvan-99999999-00af"}) folder.write(name, "stump");
  const std::vector<std::string> others{".x.corvan-1-000",   ".x.corvan-1-00000",   ".x.corvan--0000",
                                        ".x.corvan-1a-0000", ".xx.corvan-1-0000",   ".x.corvan-1-000G",
                                        "x.corvan-1-0000",   ".x.corvan-1-0000.bin"};
  for (const std::string& name : others) folder.write(name, "another's");
  fs::create_directory(folder / ".x.corvan-1-0001");
  FileWriter living(folder / "x");
  living.write("living");
  EXPECT_EQ(Hidden(folder.path()).size(), others.size() - 1 + 2) << "the folder and the living one";
  Write(folder / "x", "second");
  EXPECT_EQ(Slurp(folder / "x"), "second");
  living.close();
  EXPECT_EQ(Slurp(folder / "x"), "living");
  for (const std::string& name : others) EXPECT_TRUE(fs::exists(folder / name)) << name;
  EXPECT_EQ(Hidden(folder.path()).size(), others.size() - 1 + 1);
  Write(folder / longName, "long");
  EXPECT_EQ(Slurp(folder / longName), "long");
}

}  // namespace
}  // namespace corvan

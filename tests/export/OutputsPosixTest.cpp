// Originals behind symbolic links.
#include <gtest/gtest.h>

#include "export/OutputFiles.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

TEST(Outputs, NeverReplaceAnOriginalThroughALink) {
  const test::TempFolder folder;
  const auto read = folder.write("line.bin", "precious");
  std::filesystem::create_symlink(read, folder / "line_link.bin");
  folder.write("other.txt", "!");
  std::filesystem::create_symlink("other.txt", folder / "other_link.txt");
  OutputFiles outputs([](std::string_view beginning) { return beginning.back() == '!' ? "a treasure" : ""; });
  outputs.proteggi(read);
  const auto refusal = [&](const char* name) { return test::Reason([&] { outputs.controlla(folder / name); }); };
  EXPECT_EQ(refusal("line_link.bin"), "was read in this run and is not overwritten");
  EXPECT_EQ(refusal("other_link.txt"), "is a treasure and is not overwritten");
  EXPECT_EQ(test::Reason([&] { outputs.controlla("/dev/null"); }), "no error");
}

}  // namespace
}  // namespace corvan

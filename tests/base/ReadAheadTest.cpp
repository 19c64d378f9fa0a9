// A file read in blocks by a second thread gives its bytes in their order, wherever the reader stops.
#include "base/ReadAhead.h"

#include <gtest/gtest.h>

#include "support/SurveyFiles.h"

namespace corvan {
namespace {

TEST(BlocksAhead, AreTheBytesOfTheFileWithWhatIsCarriedOver) {
  std::string text(1'000'003, ' ');
  for (std::size_t k = 0; k < text.size(); ++k) text[k] = static_cast<char>(k * 7 + k / 251);
  const test::TempFolder folder;
  const auto path = folder.write("x", text);
  constexpr std::size_t kept = 5;
  for (const std::size_t block : {1000U, 4096U, 333'000U, 2'000'000U}) {
    for (const std::size_t most : {0U, 1U, 2U, 3U, 5U, 2000U}) {  // a reader may go at any moment
      ReadAhead reader(FileReader(path), block, 16, 16);
      std::string all;
      for (std::size_t n = 0, got = block; n < most && got == block; ++n) {
        got = reader.next(n == 0 ? 0 : kept);
        const char* data = reinterpret_cast<const char*>(reader.data());
        ASSERT_TRUE(n == 0 || std::string(data - kept, kept) == all.substr(all.size() - kept)) << block << " " << n;
        all.append(data, got);
      }
      ASSERT_TRUE(all == text.substr(0, std::min(text.size(), most * block))) << block << " " << most;
    }
  }
}

}  // namespace
}  // namespace corvan

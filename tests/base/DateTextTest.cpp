// Dates and times as people and programs write them.
#include "base/DateText.h"

#include <gtest/gtest.h>

#include "base/Errors.h"
#include "base/OleDate.h"

namespace corvan {
namespace {

TEST(DateText, IsReadInEveryForm) {
  const std::pair<const char*, DateTime> cases[] = {{"15/06/2026 08:00:04", {2026, 6, 15, 8, 0, 4}},
                                                    {"2026-06-15 8:00", {2026, 6, 15, 8, 0, 0}},
                                                    {"2026/6/5", {2026, 6, 5, 0, 0, 0}},
                                                    {" 5.6.26 23:59:59", {2026, 6, 5, 23, 59, 59}},
                                                    {"06/15/2026 1:02:03 PM", {2026, 6, 15, 13, 2, 3}},
                                                    {"12/11/2026 12:00:00 AM", {2026, 11, 12, 0, 0, 0}},
                                                    {"12/11/2026 12:30 pm", {2026, 11, 12, 12, 30, 0}},
                                                    {"1-2-30 ", {1930, 2, 1, 0, 0, 0}},
                                                    {"1-2-29", {2029, 2, 1, 0, 0, 0}},
                                                    {"29/02/2024", {2024, 2, 29, 0, 0, 0}},
                                                    {"2026-06-15T08:00:04", {2026, 6, 15, 8, 0, 4}}};
  for (const auto& [text, date] : cases) EXPECT_NEAR(DataDaTesto(text), AGiorni(date), 1e-9) << text;
  EXPECT_NEAR((DataDaTesto("15/06/2026 08:00:04.25") - AGiorni({2026, 6, 15, 8, 0, 4})) * 86400, 0.25, 1e-5);
}

TEST(DateText, CountsTheZoneBehindATime) {
  const std::pair<const char*, DateTime> cases[] = {{"2026-06-15T08:00:04Z", {2026, 6, 15, 8, 0, 4}},
                                                    {"2026-06-15T08:00:04.00z ", {2026, 6, 15, 8, 0, 4}},
                                                    {"2026-06-15 01:00:04+02:00", {2026, 6, 14, 23, 0, 4}},
                                                    {"2026-06-15T20:45-0330", {2026, 6, 16, 0, 15, 0}},
                                                    {"15-06-2026 08:00+1", {2026, 6, 15, 7, 0, 0}},
                                                    {"2026-06-15 08:00:04", {2026, 6, 15, 8, 0, 4}},
                                                    {"2026-06-15", {2026, 6, 15, 0, 0, 0}}};
  for (const auto& [text, date] : cases) EXPECT_NEAR(IstanteDaTesto(text), AGiorni(date), 1e-9) << text;
  for (const char* text : {"2026-06-15T08:00+", "2026-06-15T08:00+15:00", "2026-06-15T08:00+02:60",
                           "2026-06-15T08:00+2:0x", "2026-06-15Z", "08:00Z", ""}) {
    EXPECT_THROW(IstanteDaTesto(text), RunTimeError) << text;
  }
}

TEST(DateText, ThatIsNoneIsNamed) {
  for (const char* text : {"", " ", "hello", "29/02/2026", "15/06/2026 25:00", "15/06/2026 08:60", "15-06/2026",
                           "15/06", "15/06/2026 08:00:00x", "15/06/2026x", "13/13/2026", "15/06/2026 13:00 PM"}) {
    try {
      DataDaTesto(text);
      ADD_FAILURE() << text;
    } catch (const RunTimeError& error) {
      EXPECT_NE(std::string(error.what()).find('"' + std::string(text) + '"'), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace corvan

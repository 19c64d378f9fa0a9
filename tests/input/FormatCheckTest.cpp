// The coordinate format that a file's numbers look like.
#include "input/FormatCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "geo/AngleText.h"

namespace corvan {
namespace {

using Layout = std::optional<AngleFormat>;
constexpr Layout Degrees = AngleFormat::D_DDDD;
constexpr Layout Minutes = AngleFormat::DMM_MMM;
constexpr Layout Seconds = AngleFormat::DMMSS;
constexpr Layout Metres = std::nullopt;

struct FormatCase {
  const char* what;
  Layout layout;
  std::vector<std::pair<double, double>> positions;  // north, east
  const char* says;                                  // empty: nothing
};

void PrintTo(const FormatCase& c, std::ostream* out) { *out << c.what; }

class Formats : public ::testing::TestWithParam<FormatCase> {};

TEST_P(Formats, AreNamedWhenTheNumbersFitAnother) {
  ReadOptions options;
  options.layout = GetParam().layout;
  FormatCheck check(options);
  std::size_t place = 10;
  for (const auto& [north, east] : GetParam().positions) {
    Misura m;
    if (const Layout& layout = GetParam().layout) {
      ImpostaGeografica(m, north, east, {GradiDaNumero(north, *layout), GradiDaNumero(east, *layout)});
    } else {
      ImpostaUTM(m, north, east);
    }
    check.prendi(m, ++place);
  }
  Findings findings;
  check.rilievi("reader", "line", findings);
  if (std::string_view(GetParam().says).empty()) {
    EXPECT_TRUE(findings.empty()) << findings.entries().front().reason;
    return;
  }
  ASSERT_EQ(findings.entries().size(), 1U);
  EXPECT_TRUE(findings.anyFault());
  EXPECT_NE(findings.entries()[0].reason.find(GetParam().says), std::string::npos) << findings.entries()[0].reason;
}

INSTANTIATE_TEST_SUITE_P(
    Files, Formats,
    ::testing::Values(
        FormatCase{"as it should be", Minutes, {{4524.5, 1218.25}, {0, 0}, {-3350.5, -15112.2}}, ""},
        FormatCase{"degrees, south and west", Degrees, {{-33.8, -151.2}, {90, 180}}, ""},
        FormatCase{"seconds", Seconds, {{452430.0, 121815.0}}, ""},
        FormatCase{"metres", Metres, {{5030000, 290000}}, ""},
        FormatCase{"no position at all", Minutes, {{0, 0}, {4524.5, 0}}, ""},
        FormatCase{"degrees as minutes",
                   Minutes,
                   {{45.4, 12.25}, {45.3, 12.3}},
                   "latitudes up to 45.4 and longitudes up to 12.3 are decimal degrees (--coords dd)"},
        FormatCase{"minutes as seconds",
                   Seconds,
                   {{4524.5, 1218.25}, {-4524.6, 1218.5}},
                   "are degrees and minutes (--coords ddmm), read as degrees, minutes and seconds"},
        FormatCase{"one longitude is of seconds", Seconds, {{4524.5, 1218.25}, {4524.5, 18000.5}}, ""},
        FormatCase{"degrees as seconds", Seconds, {{-45.4, 179.9}}, "(--coords ddmmss) at the only position"},
        FormatCase{"one number is beyond degrees", Minutes, {{45.4, 12.25}, {45.4, 181.0}}, ""},
        FormatCase{"minutes as degrees",
                   Degrees,
                   {{45.5, 12.5}, {4524.5, 1218.25}},
                   "(--coords ddmm), read as decimal degrees (--coords dd): 1 of 2 positions is over 90 or 180 "
                   "degrees, at line 12"},
        FormatCase{"a longitude alone",
                   Degrees,
                   {{45.5, 180.25}, {91, 0.5}},
                   "2 of 2 positions are over 90 or 180 degrees, the first at line 11"},
        FormatCase{"seconds as degrees", Degrees, {{452430, 121815}}, "are degrees, minutes and seconds"},
        FormatCase{"seconds as minutes", Minutes, {{452430, 121815}}, "(--coords ddmmss), read as degrees and minutes"},
        FormatCase{"metres as minutes", Minutes, {{5030012, 290077}}, "are UTM metres (--coords utm)"},
        FormatCase{"metres near the equator", Minutes, {{452430, 291815}, {452470, 291815}}, "are UTM metres"},
        FormatCase{"nothing fits", Degrees, {{4570.5, 1218}}, "fit no coordinate format"},
        FormatCase{"minutes as metres", Metres, {{4524.5, 1218.25}}, "are degrees and minutes (--coords ddmm)"},
        FormatCase{"degrees as metres", Metres, {{45.4, 12.25}}, "are decimal degrees (--coords dd)"},
        FormatCase{"a short northing on a grid", Metres, {{8999, 17999}, {8000, 18000}}, ""}));

}  // namespace
}  // namespace corvan

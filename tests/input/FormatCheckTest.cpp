// The coordinate format that a file's numbers look like.
#include "input/FormatCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "geo/AngleText.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using Layout = std::optional<AngleFormat>;
constexpr Layout Degrees = AngleFormat::D_DDDD;
constexpr Layout Minutes = AngleFormat::DMM_MMM;
constexpr Layout Seconds = AngleFormat::DMMSS;
constexpr Layout Metres = std::nullopt;

TEST(Formats, AreNamedWhenTheNumbersFitAnother) {
  struct Case {
    const char* what;
    Layout layout;
    std::vector<std::pair<double, double>> positions;  // north, east
    const char* says = "";                             // empty: nothing
  };
  const Case cases[] = {
      {"as it should be", Minutes, {{4524.5, 1218.25}, {0, 0}, {-3350.5, -15112.2}}},
      {"degrees, south and west", Degrees, {{-33.8, -151.2}, {90, 180}}},
      {"seconds", Seconds, {{452430.0, 121815.0}}},
      {"metres", Metres, {{5030000, 290000}}},
      {"no position at all", Minutes, {{0, 0}, {4524.5, 0}}},
      {"degrees as minutes",
       Minutes,
       {{45.4, 12.25}, {45.3, 12.3}},
       "latitudes up to 45.4 and longitudes up to 12.3 are decimal degrees (--coords dd)"},
      {"minutes as seconds",
       Seconds,
       {{4524.5, 1218.25}, {-4524.6, 1218.5}},
       "are degrees and minutes (--coords ddmm), read as degrees, minutes and seconds"},
      {"one longitude is of seconds", Seconds, {{4524.5, 1218.25}, {4524.5, 18000.5}}},
      {"degrees as seconds", Seconds, {{-45.4, 179.9}}, "(--coords ddmmss) at the only position"},
      {"one number is beyond degrees", Minutes, {{45.4, 12.25}, {45.4, 181.0}}},
      {"minutes as degrees",
       Degrees,
       {{45.5, 12.5}, {4524.5, 1218.25}},
       "(--coords ddmm), read as decimal degrees (--coords dd): 1 of 2 positions is over 90 or 180 degrees, at line "
       "12"},
      {"a longitude alone",
       Degrees,
       {{45.5, 180.25}, {91, 0.5}},
       "2 of 2 positions are over 90 or 180 degrees, the first at line 11"},
      {"seconds as degrees", Degrees, {{452430, 121815}}, "are degrees, minutes and seconds"},
      {"seconds as minutes", Minutes, {{452430, 121815}}, "(--coords ddmmss), read as degrees and minutes"},
      {"metres as minutes", Minutes, {{5030012, 290077}}, "are UTM metres (--coords utm)"},
      {"metres near the equator", Minutes, {{452430, 291815}, {452470, 291815}}, "are UTM metres"},
      {"nothing fits", Degrees, {{4570.5, 1218}}, "fit no coordinate format"},
      {"minutes as metres", Metres, {{4524.5, 1218.25}}, "are degrees and minutes (--coords ddmm)"},
      {"degrees as metres", Metres, {{45.4, 12.25}}, "are decimal degrees (--coords dd)"},
      {"a short northing on a grid", Metres, {{8999, 17999}, {8000, 18000}}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ReadOptions options;
    options.layout = c.layout;
    FormatCheck check(options);
    std::size_t place = 10;
    for (const auto& [north, east] : c.positions) {
      Misura m;
      if (c.layout) {
        ImpostaGeografica(m, north, east, {GradiDaNumero(north, *c.layout), GradiDaNumero(east, *c.layout)});
      } else {
        ImpostaUTM(m, north, east);
      }
      check.prendi(m, ++place);
    }
    Findings findings;
    check.rilievi("reader", "line", findings);
    const std::string told = test::Told(findings);
    EXPECT_EQ(findings.entries().size(), *c.says == '\0' ? 0U : 1U) << told;
    EXPECT_TRUE(*c.says == '\0' || (findings.anyFault() && told.find(c.says) != std::string::npos)) << told;
  }
}

}  // namespace
}  // namespace corvan

// GeoJSON: features, their columns, names from outside and the antimeridian, read back with a JSON parser.
#include "exchange/GeoJson.h"

#include <limits>
#include <nlohmann/json.hpp>

#include "exchange/JsonText.h"
#include "exchange/OpenPlaces.h"
#include "Sections.h"

namespace corvan {
namespace {

/// A name that JSON cannot hold as it is. Windows allows no quotation mark, backslash or half a letter in names.
#ifdef _WIN32
constexpr const char* OddName = "b\x01.bin";
constexpr const char* OddNameInJson = R"(b\u0001.bin)";
#else
constexpr const char* OddName = "b\"\\\x01\xFF\xC3\xA9.bin";
constexpr const char* OddNameInJson = R"(b\"\\\u0001\ufffd\u00e9.bin)";
#endif

using nlohmann::json;
using test::Cut;

json Features(Cut& cut) {
  const Section section = cut.section();
  const std::string text =
      test::WrittenBy([&](FileWriter& out) { SalvaGeoJson(out, cut.survey, section, cut.findings); });
  json whole = json::parse(text);
  EXPECT_EQ(whole["type"], "FeatureCollection");
  return whole["features"];
}

/// Two files, the second with one kept measurement; measurement 3 has no position, 4 is left out.
Cut FourMeasurements() {
  Cut cut(test::GeographicMeasurements(
      {{12.3, 45.4, 1, 3}, {12.3125, 45.40625, 1, 4}, {0, 0, 1, 5}, {12.5, 45.5, 2, 6}, {12.4, 45.45, 2, 7}}));
  cut.m(4).Scartata = true;
  const double est[] = {1000, 1030, 0, 5000, 6000}, nord[] = {2000, 2040, 0, 7000, 8000};
  for (std::size_t n : {1U, 2U, 4U, 5U}) cut.m(n).UTMx = est[n - 1], cut.m(n).UTMy = nord[n - 1];
  cut.m(2).Rho[7] = std::numeric_limits<float>::quiet_NaN();
  cut.m(2).Rho[9] = -0.1F;
  cut.survey.files[0].recordLength = 280;  // holds no time
  cut.m(5).Tempo = 46188.3333;
  cut.survey.files[1].path = std::string("dir/") + OddName;
  return cut;
}

TEST(GeoJson, HoldsMeasurementsLinesAndTheSection) {
  Cut cut = FourMeasurements();
  cut.request.E1 = 2;
  const json features = Features(cut);
  ASSERT_EQ(features.size(), 5U + 2U + 3U);
  EXPECT_EQ(features[0]["geometry"], json::parse(R"({"type":"Point","coordinates":[12.3,45.4]})"));
  EXPECT_EQ(features[2]["geometry"], json(nullptr));
  EXPECT_EQ(features[3]["geometry"]["coordinates"], json({12.5, 45.5})) << "left out, but there";
  const json& two = features[1]["properties"];
  EXPECT_EQ(two.size(), 60U) << "the layer and 59 columns";
  EXPECT_EQ(two["layer"], "measurements");
  EXPECT_EQ(two["n"], 2);
  EXPECT_EQ(two["time"], json(nullptr));
  EXPECT_EQ(two["lat"], 45.40625);
  EXPECT_EQ(two["utm_x"], 1030);
  EXPECT_EQ(two["va3"], 3);
  EXPECT_EQ(two["vb3"], -4);
  EXPECT_EQ(two["rho7"], json(nullptr));
  EXPECT_EQ(two["rho9"], -0.1) << "a single by its own shortest text";
  EXPECT_EQ(features[3]["properties"]["discarded"], 1);
  EXPECT_EQ(features[4]["properties"]["time"], 46188.3333);
  EXPECT_EQ(features[5], json::parse(R"({"type":"Feature",
    "geometry":{"type":"LineString","coordinates":[[12.3,45.4],[12.3125,45.40625]]},
    "properties":{"layer":"lines","file":1,"name":"a.bin","measurements":3,"length":50}})"));
  EXPECT_EQ(features[6], json::parse(R"({"type":"Feature","geometry":null,"properties":{"layer":"lines","file":2,
    "name":")" + std::string(OddNameInJson) +
                                     R"(","measurements":2,"length":0}})"));
  EXPECT_EQ(features[7], json::parse(R"({"type":"Feature",
    "geometry":{"type":"LineString","coordinates":[[12.3125,45.40625],[12.4,45.45]]},
    "properties":{"layer":"section","part":"line","from":2,"to":5}})"));
  EXPECT_EQ(features[8]["properties"]["part"], "first");
  EXPECT_EQ(features[8]["geometry"]["coordinates"], json({12.3125, 45.40625}));
  EXPECT_EQ(features[9]["properties"]["part"], "last");
  EXPECT_EQ(features[9]["geometry"]["coordinates"], json({12.4, 45.45}));
  EXPECT_EQ(test::Told(cut.findings), "-1 of 5 measurements has no position and no geometry\n");
}

// By cs2cs: 288685.5 5030933 of zone 33; true positions were moved, so the degrees as read are no longer theirs.
TEST(GeoJson, PutsMovedPositionsWhereTheyAreOnTheGrid) {
  Cut cut(test::GeographicMeasurements({{12.3, 45.4}, {12.3001, 45.4}}));
  cut.m(1).UTMx = 288688.0;
  cut.m(2).UTMx = 288788.0;
  cut.m(1).UTMy = cut.m(2).UTMy = 5030933.0;
  cut.request.position = TruePosition::BehindBoat;  // 2.5 m to the west
  const json features = Features(cut);
  EXPECT_EQ(features[0]["geometry"]["coordinates"], json({12.3, 45.4}));
  ASSERT_EQ(features[4]["properties"]["part"], "first");
  const json& first = features[4]["geometry"]["coordinates"];
  EXPECT_NEAR(first[0].get<double>(), 12.29999960927, 1e-8);
  EXPECT_NEAR(first[1].get<double>(), 45.39999668720, 1e-8);
}

TEST(GeoJson, CutsLinesAtTheAntimeridian) {
  Cut cut(test::GeographicMeasurements({{179.75, -10}, {-179.75, -11}, {179.5, -14}}));
  const json features = Features(cut);
  EXPECT_EQ(features[3]["geometry"], json::parse(R"({"type":"MultiLineString","coordinates":[
    [[179.75,-10],[180,-10.5]],[[-180,-10.5],[-179.75,-11],[-180,-12]],[[180,-12],[179.5,-14]]]})"));
}

TEST(GeoJson, WithoutAnyPositionHasNoGeometry) {
  Cut cut({{0, 0, 1}, {0, 0, 1}});
  const json features = Features(cut);
  ASSERT_EQ(features.size(), 4U);
  for (const json& feature : features) EXPECT_TRUE(feature["geometry"].is_null());
}

TEST(JsonTexts, ReplaceWhatIsNoUtf8) {
  const struct {
    std::string bytes;
    const char* text;
  } cases[] = {{"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8C\x8A", "\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8C\x8A\""},
               {"a\xC3", "\"a\\ufffd\""},
               {"\xC0\xAF", "\"\\ufffd\\ufffd\""},             // an overlong slash
               {"\xED\xA0\x80", "\"\\ufffd\\ufffd\\ufffd\""},  // half a surrogate pair
               {"\xF4\x90\x80\x80", "\"\\ufffd\\ufffd\\ufffd\\ufffd\""},
               {"\xE2\x82z", "\"\\ufffd\\ufffdz\""},
               {std::string("\0\x1F\x7F", 3), "\"\\u0000\\u001f\x7F\""}};
  for (const auto& c : cases) {
    std::string out;
    AggiungiTestoJson(out, c.bytes);
    EXPECT_EQ(out, c.text);
  }
}

}  // namespace
}  // namespace corvan

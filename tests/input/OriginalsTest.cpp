// What must never be overwritten is told from what the program itself wrote.
#include "input/Originals.h"

#include <gtest/gtest.h>

#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using namespace std::string_literals;

/// A binary with the instrument's first bytes and this in the sequence name of its first record.
std::string Binary(const std::string& sequence) {
  std::string file = "\x02\0\0\x80"s + std::string(1600, '\0');
  return file.replace(1029 + 252, sequence.size(), sequence);
}

std::string Sample(const char* name) { return test::Slurp(CORVAN_SAMPLES "/lagoon_" + std::string(name)); }

TEST(Originals, AreKnownByTheirContent) {
  const std::string section = Binary("").substr(0, 1029);  // the header of a section without records, but for one byte
  const std::vector<std::pair<const char*, std::vector<std::string>>> originals{
      {"an instrument's file",
       {Sample("1.bin"), Binary("22080202"), Binary("\0myseqs     "s), Binary("").substr(0, 1200), section + '\x02'}},
      {"an instrument's text export",
       {Sample("1.txt"), "Distance;Depth\n",
        "\xEF\xBB\xBF"
        "DISTANCE"}},
      {"an NMEA 0183 log", {Sample("track.nav")}},
      {"a track of six columns", {Sample("track.gps")}},
      {"a track's table of positions",
       {Sample("track.csv"), "x;y\n;;15/06/2026;8\n1;a;2026-06-15;07:59:58;;;;1;;1;1\n"}},
      {"a GPX track", {"<?xml version=\"1.0\"?>\n<gpx version=\"1.1\">\n"}},
      {"a column text", {"# survey\nA;B;M;N;R [ohm];Easting;Northing\n", "a b m n rhoa lat lon"}},
      {"",
       {"# a b m n rhoa\n1 2 3 4 20\n", Binary("\0myseq      "s), section + '\x01', "\x89PNG\r\n\x1A\n", "",
        "1;calm sea;2026-06-15;;3\n", "N.\tAx\tBx\tMx\r\n 1 \t13.\t23.\t3.\r\n",
        "1             288685.52     5030933.45    4.0           0.0\r\n",
        "n,file,time,lat,lon\n1,1,46188.25,4524.5,1218.25\n", "<?xml version=\"1.0\" encoding=\"UTF-8\"?> \r<kml>",
        "distance,easting,northing,latitude,longitude,depth\n0.0,1.0,2.0,3.0,4.0,5.0\n", "notes of the day\n"}}};
  for (const auto& [what, beginnings] : originals) {
    for (const std::string& beginning : beginnings) {
      EXPECT_EQ(Originale(beginning), what) << beginning.substr(0, 80);
    }
  }
}

}  // namespace
}  // namespace corvan

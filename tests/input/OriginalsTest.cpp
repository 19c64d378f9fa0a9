// What must never be overwritten is told from what the program itself wrote.
#include "input/Originals.h"

#include <gtest/gtest.h>

#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using namespace std::string_literals;

struct OriginalCase {
  std::string beginning;
  const char* what;
};

class Originals : public ::testing::TestWithParam<OriginalCase> {};

TEST_P(Originals, AreKnownByTheirContent) { EXPECT_EQ(Originale(GetParam().beginning), GetParam().what); }

const std::string Signature = "\x02\0\0\x80"s;

/// A binary with the instrument's first bytes and this in the sequence name of its first record.
std::string Binary(const std::string& sequence) {
  std::string file = Signature + std::string(1600, '\0');
  return file.replace(1029 + 252, sequence.size(), sequence);
}

INSTANTIATE_TEST_SUITE_P(
    Binaries, Originals,
    ::testing::Values(OriginalCase{test::Slurp(CORVAN_SAMPLES "/lagoon_1.bin"), "an instrument's file"},
                      OriginalCase{Binary("22080202"), "an instrument's file"},
                      OriginalCase{Binary("\0myseqs     "s), "an instrument's file"},
                      OriginalCase{Binary("\0myseq      "s), ""},
                      OriginalCase{Binary("").substr(0, 1200), "an instrument's file"},
                      OriginalCase{Signature + std::string(1025, '\0') + '\x01', ""},  // a section without records
                      OriginalCase{Signature + std::string(1025, '\0') + '\x02', "an instrument's file"},
                      OriginalCase{"\x89PNG\r\n\x1A\n", ""}, OriginalCase{"", ""}));

INSTANTIATE_TEST_SUITE_P(
    Texts, Originals,
    ::testing::Values(OriginalCase{test::Slurp(CORVAN_SAMPLES "/lagoon_1.txt"), "an instrument's text export"},
                      OriginalCase{"Distance;Depth\n", "an instrument's text export"},
                      OriginalCase{"\xEF\xBB\xBF"
                                   "DISTANCE",
                                   "an instrument's text export"},
                      OriginalCase{test::Slurp(CORVAN_SAMPLES "/lagoon_track.nav"), "an NMEA 0183 log"},
                      OriginalCase{test::Slurp(CORVAN_SAMPLES "/lagoon_track.gps"), "a track of six columns"},
                      OriginalCase{test::Slurp(CORVAN_SAMPLES "/lagoon_track.csv"), "a track's table of positions"},
                      OriginalCase{"x;y\n;;15/06/2026;8\n1;a;2026-06-15;07:59:58;;;;1;;1;1\n",
                                   "a track's table of positions"},
                      OriginalCase{"1;calm sea;2026-06-15;;3\n", ""},
                      OriginalCase{"N.\tAx\tBx\tMx\r\n 1 \t13.\t23.\t3.\r\n", ""},
                      OriginalCase{"1             288685.52     5030933.45    4.0           0.0\r\n", ""},
                      OriginalCase{"n,file,time,lat,lon\n1,1,46188.25,4524.5,1218.25\n", ""},
                      OriginalCase{"<?xml version=\"1.0\" encoding=\"UTF-8\"?> \r<kml>", ""},
                      OriginalCase{"notes of the day\n", ""}));

}  // namespace
}  // namespace corvan

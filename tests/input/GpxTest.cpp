// GPX tracks: what a point gives, in which dialects, and what is left out of it.
#include <gtest/gtest.h>

#include <algorithm>

#include "input/GpxText.h"
#include "TrackTexts.h"

namespace corvan {
namespace {

using test::TimesAndDepths;
using test::Told;

const std::string Start =
    "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n<trk><trkseg>\n";
const std::string End = "</trkseg></trk></gpx>\n";

std::string Point(const std::string& second, const std::string& inside = "",
                  const std::string& place = "45.4\" lon=\"12.3") {
  const std::string time = second.empty() ? "" : "<time>2026-06-15T08:00:" + second + "Z</time>";
  return "<trkpt lat=\"" + place + "\"><ele>-1</ele>" + time + inside + "</trkpt>\n";
}

struct GpxCase {
  const char* what;
  std::string content, fixes, told;
};

const std::string Depthless = "-1 of 1 fix has no depth\n";

const GpxCase Cases[] = {
    {"a depth of its own", Start + Point("00", "<depth>4.5</depth>") + Point("01.5", "<depth> 0 </depth>") + End,
     "08:00:00 4.5, 08:00:02 0", ""},
    {"depths among extensions",
     Start +
         Point("00",
               "<extensions><gpxtpx:TrackPointExtension><gpxtpx:atemp>7</gpxtpx:atemp><gpxtpx:depth>3.25"
               "</gpxtpx:depth></gpxtpx:TrackPointExtension></extensions>") +
         Point("01",
               "<extensions><gpxx:TrackPointExtension><gpxx:Depth>3.5</gpxx:Depth></gpxx:TrackPointExtension>"
               "</extensions>") +
         Point("02", "<extensions><depth>4</depth></extensions>") + End,
     "08:00:00 3.25, 08:00:01 3.5, 08:00:02 4", ""},
    {"1.0 with a prefix, segments and tracks",
     "\xEF\xBB\xBF  <!-- < gpx? > -->\n<g:gpx xmlns:g=\"http://www.topografix.com/GPX/1/0\"><g:wpt lat=\"1\" "
     "lon=\"2\"/>"
     "<g:trk><g:trkseg><g:trkpt lat='45.4' "
     "lon='12.3'><g:time>2026-06-15T08:00:00Z</g:time><g:depth>1</g:depth></g:trkpt>"
     "</g:trkseg><g:trkseg/></g:trk><g:trk><g:trkseg><g:trkpt lat='45.4' lon='12.3'><g:time>2026-06-15T10:30:00+02:30"
     "</g:time><g:depth>2</g:depth></g:trkpt></g:trkseg></g:trk></g:gpx>",
     "08:00:00 1, 08:00:00 2", "-2 segments are read as one track\n-1 waypoint or route not read\n"},
    {"positions that are none",
     Start + Point("00", "", "45.4\" lon=\"0") + Point("01", "", "45.4\" x=\"1") + Point("02", "", "95\" lon=\"12") +
         Point("03", "", "45\" lon=\"180.5") + Point("04", "", "1e999\" lon=\"12") +
         Point("05", "<depth>1</depth>", "45,4\" lon=\"12.3") + End,
     "08:00:05 1",
     "!1 value is not a number from end to end in line 9: \"45,4\" read as 45\n!3 points with a latitude over 90 or a "
     "longitude over 180 degrees left out (the first in line 6)\n-2 points without a position left out (the first in "
     "line "
     "4)\n"},
    {"times that are none",
     Start + Point("") + Point("61") + Point("00") +
         "<trkpt lat=\"45.4\" lon=\"12.3\"><time>1970-01-01T00:00:00Z</time></trkpt>\n" + End,
     "08:00:00 -",
     "!2 points whose time is none of 1980 to 2100 left out (the first in line 5)\n!1 point without a time left out "
     "(line "
     "4)\n" +
         Depthless},
    {"no time anywhere", Start + Point("", "<depth>1</depth>") + Point("", "<depth>2</depth>") + End,
     "1899-12-30 00:00:00 1, 1899-12-30 00:00:00 2", "!no point tells its time: nothing can be linked by time\n"},
    {"depths that are none",
     Start + Point("00", "<depth/>") + Point("01", "<depth>--</depth>") + Point("02", "<depth>1,5</depth>") + End,
     "08:00:00 -, 08:00:01 -, 08:00:02 1",
     "!1 value is not a number from end to end in line 6: \"1,5\" read as 1\n!1 depth is no number (line 5): its fix "
     "has "
     "none\n-2 of 3 fixes have no depth\n"},
    {"a boat at 111 m/s",
     Start + Point("00", "<depth>1</depth>") + Point("01", "<depth>1</depth>", "45.401\" lon=\"12.3") + End,
     "08:00:00 1, 08:00:01 1", "!a step of over 50 m/s in line 5 (111 m in 1 s): every fix is kept\n"},
    {"cut in a point", Start + Point("00", "<depth>1</depth>") + Point("01", "<depth>12").substr(0, 80), "08:00:00 1",
     "!the XML is broken in line 5 (Error parsing start element tag): the point there and what follows are not read\n"},
    {"a tag that is not closed",
     Start + Point("00", "<depth>1</depth>") + Point("01", "<depth>1</dept>") + Point("02") + End, "08:00:00 1",
     "!the XML is broken in line 5 (Start-end tags mismatch): the point there and what follows are not read\n"},
    {"entities of its own",
     "<!DOCTYPE gpx [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]>\n" + Start.substr(22) + Point("00") + End, "",
     "!its document type declares entities or elements of its own: nothing is read\n"},
    {"a plain document type", "<!DOCTYPE gpx>\n" + Start.substr(22) + Point("00", "<depth>1</depth>") + End,
     "08:00:00 1", ""},
};

TEST(GpxTracks, GiveTheirPointsAndTellWhatIsLeftOut) {
  for (const GpxCase& c : Cases) {
    EXPECT_EQ(GenereTraccia("a.csv", c.content), TrackKind::Gpx) << c.what;
    const TrackRead read = LeggiTraccia(TrackKind::Gpx, c.content, {});
    EXPECT_EQ(TimesAndDepths(read), c.fixes) << c.what;
    EXPECT_EQ(Told(read.findings), c.told) << c.what;
    EXPECT_EQ(read.lines, static_cast<std::size_t>(std::count(c.content.begin(), c.content.end(), '\n')) +
                              (c.content.ends_with('\n') ? 0U : 1U))
        << c.what;
  }
}

TEST(GpxTracks, HoldDecimalDegreesInTheLayoutOfTheSurvey) {
  const TrackRead read = LeggiTraccia(TrackKind::Gpx, Start + Point("00", "", "-45.5\" lon=\"12.25") + End, {});
  ASSERT_EQ(read.fixes.size(), 1U);
  EXPECT_EQ(read.fixes(1).sorgente, PositionSource(Geographic{-45.5, 12.25}));
  EXPECT_DOUBLE_EQ(read.fixes(1).GeoA, -4530.0);
  EXPECT_DOUBLE_EQ(read.fixes(1).GeoB, 1215.0);
}

TEST(GpxTracks, AreNoOtherXml) {
  for (const char* other : {"<kml><gpx/></kml>", "gpx", "<!-- <gpx> -->", "<!-- <gpx>", "", "<gpxx>", "  x <gpx>"}) {
    EXPECT_FALSE(SembraGpx(other)) << other;
  }
  EXPECT_TRUE(SembraGpx("<gpx/>"));
}

TEST(LinesOfPlaces, CountEveryKindOfLineEnd) {
  LineOf line("a\nb\r\nc\rd");
  const std::vector<std::pair<std::size_t, std::size_t>> cases{{0, 1}, {2, 2}, {5, 3}, {7, 4}, {99, 4}};
  for (const auto& [offset, number] : cases) EXPECT_EQ(line(offset), number) << offset;
}

}  // namespace
}  // namespace corvan

// The files written: exact bytes and exact text.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "base/NumberText.h"
#include "export/BinWriter.h"
#include "export/KmlGoogle.h"
#include "export/OutputFiles.h"
#include "export/SurveyKml.h"
#include "export/SurveyTable.h"
#include "export/TextWriters.h"
#include "geo/Utm.h"
#include "support/SurveyFiles.h"

namespace corvan {
namespace {

using namespace std::string_literals;

/// What `body` writes.
template <class Body>
std::string Written(Body&& body) {
  const test::TempFolder folder;
  FileWriter out(folder / "out");
  body(out);
  out.close();
  return test::Slurp(folder / "out");
}

void ExpectParts(const std::string& text, const std::vector<std::string>& parts) {
  for (const std::string& part : parts) EXPECT_NE(text.find(part), std::string::npos) << part;
}

std::string Bin(const SectionRecords& records, std::int32_t count) {
  return Written([&](FileWriter& out) { SalvaBinPro(out, records, count, {2026, 6, 5, 7, 8, 9}); });
}

TEST(BinFiles, CarryTheHeaderToTheByte) {
  const SectionRecords none;
  const std::string file = Bin(none, 0);
  const std::string head = "\x02\0\0\x80\x08SYSCAL PRO\0 at 05/06/2026 07:08:09"s;
  EXPECT_EQ(file, head + std::string(1029 - head.size(), '\0') + "\x01");
}

TEST(BinFiles, OverlapHeaderAndFirstRecordAndNumberTheRest) {
  SectionRecords records;
  SectionPoint point;
  point.potential[1] = 4.5F;
  for (std::size_t k = 1; k <= 6554; ++k) records.append(point);
  const std::string one = Bin(records, 1);
  ASSERT_EQ(one.size(), 1309U);
  EXPECT_EQ(one[1029], 9);
  EXPECT_EQ(one.substr(1029 + 68, 4), "\0\0\x90\x40"s);
  const std::string fixed = one.substr(1029 + 2, 14) + one.substr(1029 + 248, 16) + one.substr(1029 + 272, 8);
  EXPECT_EQ(fixed, "\1\0\0\0\xFA\x43\0\0\x20\x42\1\0\0\0"s + "\x58\x02\0\0\0myseq      "s + "\0\0\x40\x40\0\0\0\0"s);
  const std::string all = Bin(records, 65537);
  ASSERT_EQ(all.size(), 1029U + 280 * 65537);
  EXPECT_EQ(all.substr(1029 + 280 * 65535 + 250, 2), "\xFF\xFF") << "the ordinal's low 16 bits";
  EXPECT_EQ(all.substr(1029 + 280 * 65536 + 250, 2), "\0\0"s);
}

TEST(TextTables, PutCurrentBeforePotentialAndEastingBeforeNorthing) {
  SectionPoint point;
  point.x = {0, -3, 0.125F, 7, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2.5F};
  point.z = {0, 11, 12, 8, 0, 0, 0, 0, 0, 0, 0, 0, 9, 10};
  point.potential = {0, 13, 23};
  point.resistivity = {0, 15, 25};
  point.current = 14;
  point.nord = 5030000.5F;
  point.est = 288685.53F;
  SectionRecords records;
  records.append(point);
  EXPECT_EQ(
      Written([&](FileWriter& out) { SalvaAscii(out, records, 2); }),
      "N.\tAx\tBx\tMx\tNx\tAy\tBy\tMy\tNy\tAz\tBz\tMz\tNz\ti\tv\tRho\tq\tm\tUTMx\tUTMy\r\n"
      " 1 \t1.\t2.5\t-3.\t0.13\t0.\t0.\t0.\t0.\t9.\t10.\t11.\t12.\t14.\t13.\t15.\t0.\t0.\t288685.53\t5030000.5\r\n"
      " 2 \t1.\t2.5\t0.13\t7.\t0.\t0.\t0.\t0.\t9.\t10.\t12.\t8.\t14.\t23.\t25.\t0.\t0.\t288685.53\t5030000.5\r\n");
}

TEST(TextTables, NumberTheLinesThroughAllBlocksAndEndInAPoint) {
  SectionRecords records;
  for (int k = 1; k <= 1003; ++k) {
    SectionPoint point;
    point.current = static_cast<float>(k);
    for (std::size_t c = 1; c <= MaxChannels; ++c) point.potential.at(c) = static_cast<float>(c);
    records.append(point);
  }
  const auto lines = test::CrLfLines(Written([&](FileWriter& out) { SalvaAscii(out, records, 10025); }));
  ASSERT_EQ(lines.size(), 10026U);
  for (std::size_t k = 1; k < lines.size(); ++k) {
    const std::string point = std::to_string((k + 9) / 10), channel = std::to_string((k - 1) % 10 + 1);
    ASSERT_EQ(lines[k].substr(0, lines[k].find('\t')), " " + std::to_string(k) + " ");
    ASSERT_NE(lines[k].find("\t" + point + ".\t" + channel + ".\t0.\t0.\t0.\t.0\t.0"), std::string::npos) << lines[k];
  }
  EXPECT_THROW(Written([&](FileWriter& out) { SalvaAscii(out, records, 10031); }), RunTimeError);
}

TEST(Profiles, GoOnThroughAllBlocks) {
  Profile profile(-3, 12'000);
  for (std::int32_t p = -3; p <= 12'000; ++p) profile(p) = {p + 0.5, 1, 2, 3};
  const auto lines = test::CrLfLines(Written([&](FileWriter& out) { SalvaTraccia(out, profile, -3, 12'000); }));
  ASSERT_EQ(lines.size(), 12'004U);
  for (std::int32_t p = 1; p <= 12'000; ++p) {
    const std::string number = std::to_string(p), line = " " + number + std::string(13 - number.size(), ' ') + number;
    ASSERT_EQ(lines[static_cast<std::size_t>(p + 3)].substr(0, line.size() + 2), line + ".5");
  }
}

TEST(Profiles, StandInPrintZones) {
  Profile profile(9, 10);
  profile(9) = {288685.504, 5030933.4458, 0, 0};
  profile(10) = {-1234567890.126, 12, 0.005, 3.999};
  EXPECT_EQ(Written([&](FileWriter& out) { SalvaTraccia(out, profile, 9, 10); }),
            " 9            288685.5      5030933.45    0.0           0.0\r\n"
            " 10           -1234567890.1312.0          0.01          4.0\r\n")
      << "14 columns filled: the next follows at once";
  EXPECT_EQ(Written([&](FileWriter& out) { SalvaTraccia(out, profile, 10, 9); }), "");
}

TEST(KmlDocuments, AreWrittenBlockByBlock) {
  const test::TempFolder folder;
  KmlGoogle kml;
  kml.FileName((folder / "doc").string());
  EXPECT_EQ(kml.FileName(), (folder / "doc.Kml").string());
  kml.OpenKml();
  kml.SetLines(12.3, 45.4, -1.5, 1);
  kml.LinesToKml();
  kml.SetPoints(12.5, -45, 2, 2);  // point 1 is filled with zeros
  kml.PointsToKml();
  kml.GroundOverlayImage(" a&b.png ");
  kml.SetOverlay();
  kml.CloseKml();
  const std::string text = test::Slurp(folder / "doc.Kml");
  EXPECT_EQ(text.substr(0, 41), "<?xml version=\"1.0\" encoding=\"UTF-8\"?> \r<");
  ExpectParts(text, {"<Document>\r\n\r\n<name></name>\r\n<Placemark>\r\n  <visibility>1</visibility>\r\n",
                     "      <color>C800FFFF</color>\r\n      <width> 4</width>\r\n",
                     "    <extrude> 1</extrude>\r\n    <tessellate> 1 </tessellate>\r\n",
                     "    <coordinates>\r\n12.3,45.4,-1.5\r\n    </coordinates>\r\n",
                     "    <coordinates>0.0,0.0,0.0\r\n    </coordinates> \r\n", "    <coordinates>12.5,-45.0,2.0\r\n",
                     "<href>a&amp;b.png</href>",
                     "<south>-1.00000000000000 </south>\r\n        <east>-1.00000000000000</east>"});
  EXPECT_EQ(text.substr(text.size() - 30), "</Folder>\r\n\r\n</Document> \r </kml>\r\n"s.substr(5));
  EXPECT_THROW(kml.PointsToKml(), FileError) << "closed";
  kml.FileName("x.kMl");
  EXPECT_EQ(kml.FileName(), "x.kMl");
}

struct CurtainFixture {
  test::TempFolder folder;
  Findings findings;
  Section section;

  /// Points of a section, each with its easting and file; 0 for none.
  explicit CurtainFixture(const std::vector<std::pair<double, std::int16_t>>& eastings) {
    section.Passo = 5;
    section.griglia = {33, Hemisphere::North};
    section.altezza = 2;
    std::int32_t number = 0;
    for (const auto& [x, file] : eastings) {
      SectionPoint point;
      point.misura = ++number;
      point.file = file;
      point.posta = x != 0;
      point.estVero = x;
      point.nordVero = 5e6;
      for (std::size_t c = 1; c <= MaxChannels; ++c) point.resistivity.at(c) = static_cast<float>(c);
      points.push_back(point);
    }
  }
  std::string write() {
    for (const SectionPoint& point : points) section.RecordOut.append(point);
    KmlGoogle kml;
    kml.FileName((folder / "c.kml").string());
    SalvaKML(kml, section, {{1, 10}, 100}, findings);
    return test::Slurp(folder / "c.kml");
  }
  /// Easting of the first and second corner of a cell, back through the projection.
  static std::pair<double, double> edges(const std::string& text, const std::string& name) {
    const std::size_t ring = text.find("<coordinates>\r\n", text.find("<name>" + name + "</name>")) + 15;
    const auto easting = [&](std::size_t at) {
      const std::size_t comma = text.find(',', at);
      const double lat = Val(text.substr(comma + 1, text.find(',', comma + 1) - comma - 1));
      return VersoUTM({lat, Val(text.substr(at, comma - at))}, {33, Hemisphere::North})->easting;
    };
    return {easting(ring), easting(text.find("\r\n", ring) + 2)};
  }

  std::vector<SectionPoint> points;
};

TEST(Curtains, TileTheSectionToTheMidpointsOfKeptNeighbours) {
  CurtainFixture f({{500000, 1}, {0, 1}, {500010, 1}, {500020, 2}});
  const std::string text = f.write();
  const auto near = [&](const char* name, double west, double east) {
    const auto [a, b] = CurtainFixture::edges(text, name);
    EXPECT_NEAR(a, west, 0.01) << name;
    EXPECT_NEAR(b, east, 0.01) << name;
  };
  near("n.  1 -  1", 500000, 500005);
  near("n.  3 -  10", 500005, 500010);     // own position where the file changes
  near("n.  4 -  1", 500017.5, 500022.5);  // alone: half a spacing to either side
  EXPECT_EQ(text.find("n.  2 -"), std::string::npos) << "no cell without a position";
  ExpectParts(text, {"<description>UTMx: 500000.0 UTMy: 5000000.0 Rho: 1.0 Level: 1</description>",
                     ",120.00000\r\n",             // top of channel 1: 10 levels of 2 m and the offset
                     ",100.00000\r\n",             // bottom of channel 10
                     "<color>C8FE0078</color>",    // lowest resistivity: violet
                     "<color>C80009FF</color>"});  // highest: red
}

TEST(Curtains, GoOnThroughAllBlocksEachCellBeginningWhereTheOneBeforeItEnds) {
  std::vector<std::pair<double, std::int16_t>> eastings;
  for (int k = 1; k <= 230; ++k) eastings.emplace_back(k % 37 == 0 ? 0 : 500000 + 3 * k + k % 5, k <= 120 ? 1 : 2);
  CurtainFixture f(eastings);
  for (std::size_t k = 0; k < f.points.size(); ++k) f.points[k].nordVero = 5e6 + 4.0 * static_cast<double>(k);
  const std::string text = f.write();
  std::size_t at = 0;
  std::string end;
  for (int k = 1; k <= 230; ++k) {
    if (k % 37 == 0) continue;
    for (int c = 1; c <= 10; ++c) {
      const std::string name = "<name>n.  " + std::to_string(k) + " -  " + std::to_string(c) + "</name>";
      at = text.find("<name>", at);
      ASSERT_EQ(text.substr(at, name.size()), name);
      at += name.size();
    }
    const std::size_t ring = text.find("<coordinates>\r\n", at) + 15;
    const std::size_t second = text.find("\r\n", ring) + 2;
    const auto place = [&text](std::size_t from) {
      return text.substr(from, text.find(',', text.find(',', from) + 1) - from);
    };
    if (k != 1 && k != 121) {
      ASSERT_EQ(place(ring), end) << k;
    } else {
      ASSERT_NE(place(ring), end) << "a file's first cell begins at its own place";
    }
    ASSERT_NE(place(ring), place(second)) << k;
    end = place(second);
  }
  EXPECT_EQ(text.find("<name>", at), std::string::npos);
}

TEST(Curtains, LeaveOutCellsThatAreNotFiniteOrNotThere) {
  CurtainFixture f({{500000, 1}});
  f.points[0].resistivity[4] = std::numeric_limits<float>::infinity();
  f.points[0].letture = f.points[0].inUso = AllReadings & ~BitDi(7);
  const std::string text = f.write();
  EXPECT_EQ(text.find("n.  1 -  4<"), std::string::npos);
  EXPECT_EQ(text.find("n.  1 -  7<"), std::string::npos);
  EXPECT_NE(text.find("n.  1 -  5<"), std::string::npos);
  EXPECT_EQ(test::Told(f.findings), "!cells without a finite resistivity or place left out: 1\n")
      << "an absent reading is no loss";
}

TEST(Curtains, LeaveOutExcludedReadingsAndSaySo) {
  CurtainFixture f({{500000, 1}});
  f.points[0].inUso = static_cast<ReadingSet>(AllReadings & ~BitDi(3) & ~BitDi(8));
  const std::string text = f.write();
  EXPECT_EQ(text.find("n.  1 -  3<"), std::string::npos);
  EXPECT_EQ(text.find("n.  1 -  8<"), std::string::npos);
  EXPECT_NE(text.find("n.  1 -  9<"), std::string::npos);
  EXPECT_EQ(test::Told(f.findings), "-2 excluded readings have no cell\n");
}

TEST(Tables, HoldEveryNumberAtFullPrecision) {
  Survey survey;
  Misura m;
  m.NumFile = 2;
  m.Tempo = 46188.25;
  m.Lat = 4524.123046875;
  m.Rho[10] = 0.1F;
  m.CanaleA = {0, 10, 0.1F, 3, -2, 0, 0, 0, 0, 0, 1e-5F};
  m.CanaleB = {0, -10, -0.1F, -4, 2, 0, 0, 0, 0, -1.5e-7F, -1e-5F};
  m.Val12 = 100000;  // shorter with an exponent
  m.Val60 = -99999;
  m.Val64 = 0.5F;
  m.Elettrodi[1] = -0.0F;
  m.Elettrodi[2] = -55;
  m.Scartata = true;
  survey.Misure.append(m);
  const std::string text = Written([&](FileWriter& out) { SalvaTabella(out, survey); });
  const std::size_t row = text.find('\n') + 1;
  EXPECT_EQ(std::count(text.data(), text.data() + row, ','), 58);
  EXPECT_EQ(text.substr(row),
            "1,2,46188.25,4524.123046875,0,0,0,0,0,0,0,1e+05,-99999,0.5,-0,-55,0,0,0,0,0,0,0,0,0,0,0,"
            "10,0.1,3,-2,0,0,0,0,0,1e-05,-10,-0.1,-4,2,0,0,0,0,-1.5e-07,-1e-05,0,0,0,0,0,0,0,0,0,0.1,1,0\n");
}

TEST(Tables, NumberTheRowsThroughAllBlocksAndLeaveTheTimeOfRecordsTooShortForOneEmpty) {
  Survey survey;
  survey.files.resize(3);
  survey.files[0].recordLength = 280;
  survey.files[1].recordLength = 304;
  for (int k = 1; k <= 2000; ++k) {
    Misura m;
    m.NumFile = static_cast<std::int16_t>(k);
    survey.Misure.append(m);
  }
  const std::string text = Written([&](FileWriter& out) { SalvaTabella(out, survey); });
  std::size_t at = 0;
  for (int k = 1; k <= 2000; ++k) {
    at = text.find('\n', at) + 1;
    const std::string number = std::to_string(k), begin = number + "," + number + (k == 1 ? ",,0," : ",0,0,");
    ASSERT_EQ(text.substr(at, begin.size()), begin);
  }
  EXPECT_EQ(text.find('\n', at), text.size() - 1);
}

/// Why an output is refused where `read` was read, or nothing; what ends in "!" is an original.
std::string Refusal(const std::filesystem::path& read, const std::filesystem::path& output) {
  OutputFiles outputs([](std::string_view beginning) { return beginning.back() == '!' ? "a treasure" : ""; });
  outputs.proteggi(read);
  try {
    outputs.controlla(output);
  } catch (const FileError& error) {
    EXPECT_EQ(error.path(), output);
    return error.reason();
  }
  return "";
}

TEST(Outputs, NeverReplaceWhatWasReadOrIsAnOriginal) {
  const test::TempFolder folder;
  const auto read = folder.write("line.bin", "precious");
  std::filesystem::create_hard_link(read, folder / "hard.bin");
  const auto other = folder.write("other.txt", std::string(OutputFiles::Beginning - 1, ' ') + "!?");
  const auto old = folder.write("old.bin", "of an earlier export");
  for (const char* name : {"line.bin", "hard.bin", "./line.bin"}) {
    EXPECT_EQ(Refusal(read, folder / name), "was read in this run and is not overwritten") << name;
  }
  EXPECT_EQ(Refusal(read, other), "is a treasure and is not overwritten");
  for (const std::filesystem::path& free : {old, folder / "new.bin"}) {
    EXPECT_EQ(Refusal(read, free), "") << free;
  }
  EXPECT_EQ(test::Slurp(old), "of an earlier export");
}

TEST(Outputs, NeedANameBehindTheirFolder) {
  for (const char* root : {"", "results/", "results/.", "..", "/"}) {
    EXPECT_THROW(NomeUscita(root, ".bin"), RunTimeError) << root;
  }
  for (const char* root : {"results/x", "...", ".x", "a.b"}) {
    EXPECT_EQ(NomeUscita(root, ".bin"), std::string(root) + ".bin");
  }
}

}  // namespace
}  // namespace corvan

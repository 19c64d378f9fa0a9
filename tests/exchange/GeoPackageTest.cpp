// GeoPackages read back with plain SQL: tables, geometries byte by byte, the R-tree and what is missing.
#include "exchange/GeoPackage.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "exchange/Database.h"
#include "exchange/LayerStyle.h"
#include "exchange/SpatialIndex.h"
#include "Sections.h"

namespace corvan {
namespace {

using test::Cut;

/// What a query gives: fields joined by "|", rows by a line end. Blobs as hexadecimal, null as "-".
std::string Ask(const std::filesystem::path& file, const std::string& sql) {
  sqlite3* database = nullptr;
  EXPECT_EQ(sqlite3_open_v2(file.string().c_str(), &database, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  sqlite3_stmt* query = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(database, sql.c_str(), -1, &query, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
  std::string rows;
  while (sqlite3_step(query) == SQLITE_ROW) {
    rows += rows.empty() ? "" : "\n";
    for (int k = 0; k < sqlite3_column_count(query); ++k) {
      const bool none = sqlite3_column_type(query, k) == SQLITE_NULL;
      rows +=
          (k > 0 ? "|" : "") + std::string(none ? "-" : reinterpret_cast<const char*>(sqlite3_column_text(query, k)));
    }
  }
  sqlite3_finalize(query);
  sqlite3_close(database);
  return rows;
}

struct Packed {
  test::TempFolder folder;
  std::filesystem::path file = folder / "p.gpkg";

  explicit Packed(Cut& cut, const GeoPackageRequest& request = {{{1, 3}}, {2026, 6, 5, 7, 8, 9}}) {
    const Section section = cut.section();
    FileWriter out(file);
    SalvaGeoPackage(out, cut.survey, section, request, cut.findings);
    out.close();
  }
  std::string operator()(const std::string& sql) const { return Ask(file, sql); }
};

/// Two files; measurement 3 has no position, 4 is left out; one reading excluded.
Cut FourMeasurements() {
  Cut cut(test::GeographicMeasurements({{12.25, 45.5, 1, 3}, {12.5, 45.75, 1, 4}, {0, 0, 2, 5}, {12.75, 46, 2, 6}}));
  const double est[] = {288685.5, 288715.5, 0, 9999}, nord[] = {5030933, 5030973, 0, 9999};
  for (std::size_t n : {1U, 2U, 4U}) cut.m(n).UTMx = est[n - 1], cut.m(n).UTMy = nord[n - 1];
  cut.m(4).Scartata = true;
  cut.channels(1, {2, 5});
  cut.m(1).escluse = BitDi(5);
  cut.channels(2, {1});
  cut.channels(3, {1});
  cut.reading(1, 2, 4.5F, -1.25F);
  cut.current(1, 500);
  cut.quality(1, 2, 3.25F, 1.5F);
  cut.survey.files[0].recordLength = 280;  // holds no time
  cut.m(4).Tempo = 46188.25;
  cut.m(4).Rho[10] = std::numeric_limits<float>::infinity();
  return cut;
}

TEST(GeoPackages, DescribeTheirTables) {
  Cut cut = FourMeasurements();
  const Packed p(cut);
  EXPECT_EQ(p("PRAGMA application_id"), "1196444487");  // "GPKG"
  EXPECT_EQ(p("PRAGMA user_version"), "10300");
  EXPECT_EQ(p("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(p("SELECT table_name, data_type, last_change, min_x, min_y, max_x, max_y, srs_id FROM gpkg_contents"),
            "measurements|features|2026-06-05T07:08:09.000Z|12.25|45.5|12.75|46.0|4326\n"
            "lines|features|2026-06-05T07:08:09.000Z|12.25|45.5|12.5|45.75|4326\n"
            "section|features|2026-06-05T07:08:09.000Z|12.25|45.5|12.5|45.75|4326\n" +
                p("SELECT table_name, data_type, last_change, min_x, min_y, max_x, max_y, srs_id FROM gpkg_contents "
                  "WHERE table_name = 'readings'") +
                "\nlayer_styles|attributes|2026-06-05T07:08:09.000Z|-|-|-|-|-");
  EXPECT_EQ(p("SELECT table_name, column_name, geometry_type_name, srs_id, z, m FROM gpkg_geometry_columns"),
            "measurements|geom|POINT|4326|0|0\nlines|geom|LINESTRING|4326|0|0\nsection|geom|GEOMETRY|4326|0|0\n"
            "readings|geom|POINT|4326|2|0");
  EXPECT_EQ(p("SELECT srs_id FROM gpkg_spatial_ref_sys ORDER BY 1"), "-1\n0\n4326");
  EXPECT_EQ(p("SELECT count(*), min(extension_name) FROM gpkg_extensions"), "4|gpkg_rtree_index");
  EXPECT_EQ(p("SELECT count(*) FROM sqlite_master WHERE type = 'trigger'"), "24");
  EXPECT_EQ(p("SELECT f_table_name, f_geometry_column, useAsDefault FROM layer_styles"),
            "measurements|geom|1\nreadings|geom|1");
  EXPECT_NE(p("SELECT styleQML FROM layer_styles WHERE id = 2").find("attr=\"resistivity\""), std::string::npos);
  EXPECT_NE(p("SELECT styleQML FROM layer_styles WHERE id = 1").find("attr=\"rho1\""), std::string::npos);
}

TEST(GeoPackages, HoldMeasurementsWithAllColumns) {
  Cut cut = FourMeasurements();
  const Packed p(cut);
  EXPECT_EQ(p("SELECT n, file, time, lat, utm_x, utm_y, depth, e2, va3, vb3, rho10, discarded FROM measurements"),
            "1|1|-|45.5|288685.5|5030933.0|3.0|45.0|3.0|-4.0|" + p("SELECT rho10 FROM measurements WHERE fid = 1") +
                "|0\n2|1|-|45.75|288715.5|5030973.0|4.0|45.0|3.0|-4.0|" +
                p("SELECT rho10 FROM measurements WHERE fid = 2") + "|0\n3|2|0.0|0.0|0.0|0.0|5.0|45.0|3.0|-4.0|" +
                p("SELECT rho10 FROM measurements WHERE fid = 3") +
                "|0\n4|2|46188.25|46.0|9999.0|9999.0|6.0|45.0|3.0|-4.0|-|1");
  EXPECT_NEAR(std::stod(p("SELECT rho10 FROM measurements WHERE fid = 2")), 2.1, 1e-6);
  // "GP", version 0, little-endian without envelope, 4326; then a point: 12.25, 45.5.
  EXPECT_EQ(p("SELECT hex(geom) FROM measurements WHERE n = 1"),
            "47500001E6100000"
            "0101000000"
            "0000000000802840"
            "0000000000C04640");
  EXPECT_EQ(p("SELECT geom IS NULL FROM measurements"), "0\n0\n1\n0");
  EXPECT_EQ(test::Told(cut.findings),
            "-2 of 4 readings are left out: 1 excluded, 1 of measurements without a position\n"
            "-1 of 4 measurements has no position and no geometry\n");
}

TEST(GeoPackages, HoldLinesAndTheSection) {
  Cut cut = FourMeasurements();
  const Packed p(cut);
  EXPECT_EQ(p("SELECT fid, file, name, measurements, length, geom IS NULL FROM lines"),
            "1|1|a.bin|2|50.0|0\n2|2|b.bin|2|0.0|1");
  // Envelope west, east, south, north, then a line of two places.
  EXPECT_EQ(p("SELECT hex(geom) FROM lines WHERE file = 1"),
            "47500003E6100000"
            "0000000000802840"
            "0000000000002940"
            "0000000000C04640"
            "0000000000E04640"
            "010200000002000000"
            "0000000000802840"
            "0000000000C04640"
            "0000000000002940"
            "0000000000E04640");
  EXPECT_EQ(p("SELECT part, first, last, length(geom) FROM section"), "line|1|4|81\nfirst|1|4|29\nlast|1|4|29");
  EXPECT_EQ(p("SELECT hex(geom) FROM section WHERE part = 'last'"),
            "47500001E6100000"
            "0101000000"
            "0000000000002940"
            "0000000000E04640");
}

// The cable lies behind 288685.5 5030933 along (0.6, 0.8): electrodes of channel 2 stand at 55, 60, 45 and 40, in the
// mean 10 m behind the boat. Depth as of test Vtu. The place in degrees by cs2cs of 288679.5 5030925.
TEST(GeoPackages, HoldReadingsAtTheMeanPlaceOfTheirElectrodes) {
  Cut cut = FourMeasurements();
  cut.m(4).SenzaFix = true;  // no kept point behind 2
  const Packed p(cut);
  EXPECT_EQ(p("SELECT measurement, channel, file, resistivity, potential, current, chargeability, deviation,"
              " water_depth, distance, round(easting, 6), round(northing, 6), round(pseudo_depth, 6) FROM readings"),
            "1|2|1|-1.25|4.5|500.0|3.25|1.5|3.0|50.0|288679.5|5030925.0|3.486114\n"
            "2|1|1|" +
                p("SELECT resistivity FROM readings WHERE fid = 2") +
                "|1.5|1000.5|-|-|4.0|102.5|288711.0|5030967.0|2.079716");
  EXPECT_NEAR(std::stod(p("SELECT resistivity FROM readings WHERE fid = 2")), 2.01, 1e-6);
  const std::string blob = p("SELECT hex(geom) FROM readings WHERE fid = 1");
  ASSERT_EQ(blob.size(), 2U * 37U);
  EXPECT_EQ(blob.substr(0, 26),
            "47500001E6100000"
            "01E9030000");  // with z
  const auto number = [&blob](std::size_t byte) {
    std::uint64_t bits = 0;
    for (std::size_t k = 8; k-- > 0;) bits = bits << 8U | std::stoul(blob.substr(2 * (byte + k), 2), nullptr, 16);
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  };
  EXPECT_NEAR(number(13), 12.29992646043, 1e-9);
  EXPECT_NEAR(number(21), 45.39992294542, 1e-9);
  EXPECT_NEAR(number(29), -3.4861144802, 1e-6);
}

TEST(GeoPackages, WithoutPositionsHaveTablesWithoutGeometry) {
  Cut cut({{0, 0, 1}, {0, 0, 2}});
  const Packed p(cut);
  EXPECT_EQ(
      p("SELECT table_name, data_type FROM gpkg_contents"),
      "measurements|attributes\nlines|attributes\nsection|attributes\nreadings|attributes\nlayer_styles|attributes");
  EXPECT_EQ(p("SELECT count(*), max(n), max(rho3) > 2 FROM measurements"), "2|2|1");
  EXPECT_EQ(p("SELECT count(*) FROM gpkg_geometry_columns"), "0");
  EXPECT_EQ(p("SELECT count(*) FROM pragma_table_info('measurements') WHERE name = 'geom'"), "0");
  EXPECT_EQ(test::Told(cut.findings), "-none of 2 measurements has a position: the tables have no geometry\n");
}

TEST(GeoPackages, OfOneMeasurementHaveNoLine) {
  Cut cut({{288685.5, 5030933}});
  const Packed p(cut);
  EXPECT_EQ(p("SELECT part, geom IS NULL FROM section"), "line|1\nfirst|0\nlast|0");
  EXPECT_EQ(p("SELECT geom IS NULL, measurements FROM lines"), "1|1");
  EXPECT_EQ(p("SELECT count(*), count(geom) FROM readings"), "10|10");
  EXPECT_EQ(p("SELECT min_x = max_x, round(min_x, 9), round(max_y, 9) FROM gpkg_contents WHERE table_name = 'section'"),
            "1|12.299999609|45.399996687");  // cs2cs
}

TEST(GeoPackages, AreTheSameBytesWhateverTheLibrary) {
  Cut cut = FourMeasurements();
  const std::string first = test::Slurp(Packed(cut).file), second = test::Slurp(Packed(cut).file);
  EXPECT_EQ(first, second);
  EXPECT_EQ(first.substr(96, 4), std::string("\0\x2E\x63\x01", 4)) << "3040001, not the library's own number";
  const std::string later = test::Slurp(Packed(cut, {{{1, 3}}, {2026, 6, 5, 7, 8, 10}}).file);
  EXPECT_NE(first, later) << "the time of writing is handed in";
}

#ifndef _WIN32
TEST(GeoPackages, TellWhyTheyCannotBegin) {
  Cut cut = FourMeasurements();
  const Section section = cut.section();
  EXPECT_EQ(test::Reason([&] {
              FileWriter out("/dev/null");
              SalvaGeoPackage(out, cut.survey, section, {}, cut.findings);
            }),
            "is no regular file: this format cannot be written there");
  const test::TempFolder folder;
  // The file's own name taken away from under it: SQLite cannot open it, and says so of the file that was asked for.
  EXPECT_EQ(test::Reason([&] {
              FileWriter out(folder / "p.gpkg");
              std::filesystem::remove(out.nascosto());
              SalvaGeoPackage(out, cut.survey, section, {}, cut.findings);
            }),
            "unable to open database file");
}
#endif

TEST(GeoPackages, LeaveTheOlderFileWhereTheyFail) {
  Cut cut = FourMeasurements();
  const Section section = cut.section();
  const test::TempFolder folder;
  folder.write("p.gpkg", "older");
  try {
    FileWriter out(folder / "p.gpkg", [](std::uintmax_t) { throw Interrotto(); });
    for (int k = 0; k < 1500; ++k) cut.survey.Misure.append(cut.m(1));
    SalvaGeoPackage(out, cut.survey, section, {}, cut.findings);
    ADD_FAILURE() << "nobody was asked";
  } catch (const Interrotto&) {
  }
  EXPECT_EQ(test::Slurp(folder / "p.gpkg"), "older");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1) << "no stump";
}

// Trees of one to four levels: SQLite's own check, and a window query against all rows.
TEST(SpatialIndexes, FindWhatLiesInAWindow) {
  for (const int rows : {0, 1, 51, 52, 102, 2601, 2602, 140'000}) {
    const test::TempFolder folder;
    const std::filesystem::path file = folder.write("t.db", "");
    {
      Database database(file);
      database.esegui(
          "BEGIN; CREATE VIRTUAL TABLE x USING rtree(id, minx, maxx, miny, maxy);"
          "CREATE TABLE p (id INTEGER PRIMARY KEY, w, e, s, n)");
      SpatialIndex index(database, "x");
      Statement row(database, "INSERT INTO p VALUES (?, ?, ?, ?, ?)");
      for (int k = 1; k <= rows; ++k) {
        Extent extent;
        extent.prendi(12.1 + 1e-5 * k, 45.3 + 1e-5 * (k * 7919 % 100));
        if (k % 3 == 0) extent.prendi(12.1003 + 1e-5 * k, 45.2997);
        index.aggiungi(k, extent);
        row.intero(k).numero(extent.west).numero(extent.east).numero(extent.south).numero(extent.north).esegui();
      }
      index.chiudi();
      database.esegui("COMMIT");
    }
    EXPECT_EQ(Ask(file, "SELECT rtreecheck('x')"), "ok") << rows;
    EXPECT_EQ(Ask(file, "SELECT count(*), coalesce(sum(id), 0) FROM x"),
              Ask(file, "SELECT count(*), coalesce(sum(id), 0) FROM p"));
    // Half-way between two rows, where rounding outwards brings no other.
    const std::string window = "< 12.1 + 1e-5 * (" + std::to_string(rows * 4 / 10) + " + 0.5) AND ";
    EXPECT_EQ(Ask(file, "SELECT count(*) FROM p JOIN x USING (id) WHERE minx > w OR maxx < e OR miny > s OR maxy < n"),
              "0")
        << "every box holds its row";
    EXPECT_EQ(Ask(file, "SELECT count(*) FROM x WHERE minx " + window + "maxy > 45.300505"),
              Ask(file, "SELECT count(*) FROM p WHERE w " + window + "n > 45.300505"));
  }
}

// Classes by hand: 1 to 3 in sixteenths; the spectrum's first class takes colour 8 of 256, which is 0x5D00FE.
TEST(LayerStyles, FollowTheScale) {
  const std::string linear = StileQml("rho1", {{1, 3}});
  EXPECT_NE(linear.find("upper=\"1.125\" symbol=\"0\" label=\"1.0 - 1.125\""), std::string::npos) << linear;
  EXPECT_NE(linear.find("<range lower=\"1.125\" upper=\"1.25\" symbol=\"1\""), std::string::npos);
  EXPECT_NE(linear.find("<range lower=\"2.875\" upper=\"1000000"), std::string::npos) << "open above";
  EXPECT_NE(linear.find("name=\"0\" alpha=\"1\" clip_to_extent=\"1\"><layer class=\"SimpleMarker\" enabled=\"1\" "
                        "locked=\"0\" pass=\"0\"><prop k=\"color\" v=\"93,0,254,255\"/>"),
            std::string::npos);
  EXPECT_NE(StileQml("rho1", {{1, 65536}, PaletteName::Spectrum, false, true})
                .find("lower=\"2.0\" upper=\"4.0\" symbol=\"1\""),
            std::string::npos)
      << "a logarithmic scale has logarithmic classes";
  const std::string falling = StileQml("rho1", {{3, 1}});
  EXPECT_NE(falling.find("<range lower=\"2.875\" upper=\"1000000"), std::string::npos);
  EXPECT_NE(falling.find("upper=\"1.125\" symbol=\"15\""), std::string::npos) << "bounds in reverse order";
}

}  // namespace
}  // namespace corvan

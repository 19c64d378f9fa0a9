#include "exchange/PackageLayer.h"

#include <bit>
#include <cstddef>

namespace corvan {
namespace {

constexpr const char* Geometry = "geom";

// The definition of EPSG:4326 as the standard's clause 1.1.2 asks for it.
constexpr const char* Wgs84 =
    R"(GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563,AUTHORITY["EPSG","7030"]],)"
    R"(AUTHORITY["EPSG","6326"]],PRIMEM["Greenwich",0,AUTHORITY["EPSG","8901"]],)"
    R"(UNIT["degree",0.0174532925199433,AUTHORITY["EPSG","9122"]],AUTHORITY["EPSG","4326"]])";

constexpr const char* CoreTables = R"(
CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER PRIMARY KEY, organization TEXT NOT NULL,
  organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT);
CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL, identifier TEXT UNIQUE,
  description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')),
  min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE, srs_id INTEGER,
  CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,
  geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL,
  CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name), CONSTRAINT uk_gc_table_name UNIQUE (table_name),
  CONSTRAINT fk_gc_tn FOREIGN KEY (table_name) REFERENCES gpkg_contents(table_name),
  CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
CREATE TABLE gpkg_extensions (table_name TEXT, column_name TEXT, extension_name TEXT NOT NULL,
  definition TEXT NOT NULL, scope TEXT NOT NULL,
  CONSTRAINT ge_tce UNIQUE (table_name, column_name, extension_name));
INSERT INTO gpkg_spatial_ref_sys VALUES
  ('Undefined Cartesian', -1, 'NONE', -1, 'undefined', 'undefined Cartesian coordinate reference system'),
  ('Undefined geographic', 0, 'NONE', 0, 'undefined', 'undefined geographic coordinate reference system'),
)";

/// What the R-tree extension (annex F.3) asks for, so that programs that edit the layer keep the index true. @N is the
/// table, @C its column of geometries.
constexpr const char* Triggers = R"(
CREATE TRIGGER "rtree_@N_@C_insert" AFTER INSERT ON "@N" WHEN (NEW."@C" NOT NULL AND NOT ST_IsEmpty(NEW."@C")) BEGIN
  INSERT OR REPLACE INTO "rtree_@N_@C" VALUES (NEW."fid", ST_MinX(NEW."@C"), ST_MaxX(NEW."@C"), ST_MinY(NEW."@C"),
  ST_MaxY(NEW."@C")); END;
CREATE TRIGGER "rtree_@N_@C_update1" AFTER UPDATE OF "@C" ON "@N" WHEN OLD."fid" = NEW."fid" AND
  (NEW."@C" NOTNULL AND NOT ST_IsEmpty(NEW."@C")) BEGIN
  INSERT OR REPLACE INTO "rtree_@N_@C" VALUES (NEW."fid", ST_MinX(NEW."@C"), ST_MaxX(NEW."@C"), ST_MinY(NEW."@C"),
  ST_MaxY(NEW."@C")); END;
CREATE TRIGGER "rtree_@N_@C_update2" AFTER UPDATE OF "@C" ON "@N" WHEN OLD."fid" = NEW."fid" AND
  (NEW."@C" ISNULL OR ST_IsEmpty(NEW."@C")) BEGIN DELETE FROM "rtree_@N_@C" WHERE id = OLD."fid"; END;
CREATE TRIGGER "rtree_@N_@C_update3" AFTER UPDATE ON "@N" WHEN OLD."fid" != NEW."fid" AND
  (NEW."@C" NOTNULL AND NOT ST_IsEmpty(NEW."@C")) BEGIN DELETE FROM "rtree_@N_@C" WHERE id = OLD."fid";
  INSERT OR REPLACE INTO "rtree_@N_@C" VALUES (NEW."fid", ST_MinX(NEW."@C"), ST_MaxX(NEW."@C"), ST_MinY(NEW."@C"),
  ST_MaxY(NEW."@C")); END;
CREATE TRIGGER "rtree_@N_@C_update4" AFTER UPDATE ON "@N" WHEN OLD."fid" != NEW."fid" AND
  (NEW."@C" ISNULL OR ST_IsEmpty(NEW."@C")) BEGIN
  DELETE FROM "rtree_@N_@C" WHERE id IN (OLD."fid", NEW."fid"); END;
CREATE TRIGGER "rtree_@N_@C_delete" AFTER DELETE ON "@N" WHEN OLD."@C" NOT NULL BEGIN
  DELETE FROM "rtree_@N_@C" WHERE id = OLD."fid"; END;
)";

std::string Sostituisci(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

std::string NomeIndice(const LayerSpec& spec) { return "rtree_" + std::string(spec.name) + "_" + Geometry; }

/// The table itself and, with geometries, its empty index. @return the statement that fills a row
std::string CreaTabella(Database& database, const LayerSpec& spec, bool spatial) {
  std::string columns, places = "?";
  if (spatial) {
    columns += ", \"" + std::string(Geometry) + "\" " + spec.geometry;
    places += ", ?";
  }
  for (const std::string& column : spec.columns) {
    columns += ", " + column;
    places += ", ?";
  }
  database.esegui("CREATE TABLE \"" + std::string(spec.name) + "\" (fid INTEGER PRIMARY KEY NOT NULL" + columns + ")");
  if (spatial) {
    database.esegui("CREATE VIRTUAL TABLE \"" + NomeIndice(spec) + "\" USING rtree(id, minx, maxx, miny, maxy)");
  }
  return "INSERT INTO \"" + std::string(spec.name) + "\" VALUES (" + places + ")";
}

/// The little-endian bytes of a number.
template <class Number>
void AggiungiBytes(std::string& out, Number value) {
  if constexpr (std::is_same_v<Number, double>) {
    AggiungiBytes(out, std::bit_cast<std::uint64_t>(value));
  } else {
    for (std::size_t k = 0; k < sizeof value; ++k) {
      out += static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * k) & 0xFFU);
    }
  }
}

constexpr std::uint32_t Epsg4326 = 4326;

/// @param envelope west, east, south, north follow
void Intesta(std::string& bytes, bool envelope) {
  bytes.assign("GP");
  bytes += '\0';
  bytes += envelope ? '\x03' : '\x01';  // little-endian
  AggiungiBytes(bytes, Epsg4326);
}

}  // namespace

void CreaTabelleDiPacchetto(Database& database) {
  database.esegui("PRAGMA application_id=0x47504B47; PRAGMA user_version=10300");  // "GPKG", 1.3
  database.esegui(std::string(CoreTables) + "('WGS 84 geodetic', 4326, 'EPSG', 4326, '" + Wgs84 +
                  "', 'longitude and latitude in decimal degrees on the WGS 84 spheroid')");
}

void ComponiPunto(std::string& bytes, const Geographic& place, std::optional<double> z) {
  Intesta(bytes, false);
  bytes += '\1';
  AggiungiBytes(bytes, z ? std::uint32_t{1001} : std::uint32_t{1});
  AggiungiBytes(bytes, place.longitude);
  AggiungiBytes(bytes, place.latitude);
  if (z) AggiungiBytes(bytes, *z);
}

void ComponiLinea(std::string& bytes, std::span<const Geographic> line, const Extent& extent) {
  Intesta(bytes, true);
  for (const double side : {extent.west, extent.east, extent.south, extent.north}) AggiungiBytes(bytes, side);
  bytes += '\1';
  AggiungiBytes(bytes, std::uint32_t{2});
  AggiungiBytes(bytes, static_cast<std::uint32_t>(line.size()));
  for (const Geographic& place : line) {
    AggiungiBytes(bytes, place.longitude);
    AggiungiBytes(bytes, place.latitude);
  }
}

PackageLayer::PackageLayer(Database& database, const LayerSpec& spec, bool spatial)
    : database_(database), spec_(spec), insert_(database, CreaTabella(database, spec, spatial)) {
  if (spatial) index_.emplace(database, NomeIndice(spec));
}

Statement& PackageLayer::inizia(const Extent& extent) {
  insert_.intero(++row_);
  if (!index_) return insert_;
  if (!extent.any) return insert_.vuoto();
  index_->aggiungi(row_, extent);
  all_.prendi(extent.west, extent.south);
  all_.prendi(extent.east, extent.north);
  return insert_.blob(bytes_);
}

Statement& PackageLayer::punto(const std::optional<Geographic>& place, std::optional<double> z) {
  Extent extent;
  if (place) {
    extent.prendi(place->longitude, place->latitude);
    ComponiPunto(bytes_, *place, z);
  }
  return inizia(extent);
}

/// A line has two places at least; fewer give none.
Statement& PackageLayer::linea(std::span<const Geographic> line) {
  Extent extent;
  if (line.size() >= 2) {
    for (const Geographic& place : line) extent.prendi(place.longitude, place.latitude);
    ComponiLinea(bytes_, line, extent);
  }
  return inizia(extent);
}

void PackageLayer::chiudi(const std::string& changed) {
  Statement list(database_, "INSERT INTO gpkg_contents VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  list.testo(spec_.name).testo(index_ ? "features" : "attributes").testo(spec_.name).testo(spec_.description);
  list.testo(changed);
  if (all_.any) {
    list.numero(all_.west).numero(all_.south).numero(all_.east).numero(all_.north);
  } else {
    list.vuoto().vuoto().vuoto().vuoto();
  }
  if (!index_) {
    list.vuoto().esegui();
    return;
  }
  list.intero(Epsg4326).esegui();
  index_->chiudi();
  Statement column(database_, "INSERT INTO gpkg_geometry_columns VALUES (?, ?, ?, ?, ?, 0)");
  column.testo(spec_.name).testo(Geometry).testo(spec_.geometry).intero(Epsg4326).intero(spec_.heights ? 2 : 0);
  column.esegui();
  Statement extension(database_, "INSERT INTO gpkg_extensions VALUES (?, ?, ?, ?, ?)");
  extension.testo(spec_.name).testo(Geometry).testo("gpkg_rtree_index");
  extension.testo("http://www.geopackage.org/spec120/#extension_rtree").testo("write-only").esegui();
  database_.esegui(Sostituisci(Sostituisci(Triggers, "@N", spec_.name), "@C", Geometry));
}

}  // namespace corvan

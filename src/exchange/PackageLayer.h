// The tables of a GeoPackage: those that describe it, and a layer under construction.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/Position.h"
#include "exchange/Database.h"
#include "exchange/SpatialIndex.h"

namespace corvan {

/// Makes the tables that every GeoPackage has, and the application's mark.
void CreaTabelleDiPacchetto(Database& database);

/// Geometries as GeoPackage stores them (clause 2.1.3), in EPSG:4326. @param bytes take the place of what was there
void ComponiPunto(std::string& bytes, const Geographic& place, std::optional<double> z = {});
void ComponiLinea(std::string& bytes, std::span<const Geographic> line, const Extent& extent);

/// What a layer is called and holds.
struct LayerSpec {
  const char* name;
  const char* geometry;  ///< POINT, LINESTRING or GEOMETRY
  bool heights;          ///< points may have z
  const char* description;
  std::vector<std::string> columns;  ///< name and type of each
};

/// One table of features, or of rows without geometry.
class PackageLayer {
 public:
  /// @param spatial with geometries and R-tree
  PackageLayer(Database& database, const LayerSpec& spec, bool spatial);

  /// Begins the next row, its geometry first. @param z of a point, m
  Statement& punto(const std::optional<Geographic>& place, std::optional<double> z = {});
  Statement& linea(std::span<const Geographic> line);
  /// Ends the row that was begun, when its values are bound.
  void chiudiRiga() { insert_.esegui(); }
  std::int64_t righe() const { return row_; }
  /// Lists the layer with its extent and what keeps its index true. @param changed ISO 8601, UTC
  void chiudi(const std::string& changed);

 private:
  Statement& inizia(const Extent& extent);

  Database& database_;
  LayerSpec spec_;
  std::optional<SpatialIndex> index_;
  Statement insert_;
  std::string bytes_;
  std::int64_t row_ = 0;
  Extent all_;
};

}  // namespace corvan

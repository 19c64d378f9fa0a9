// The R-tree of a layer, packed while its rows are written.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "exchange/Database.h"

namespace corvan {

/// The extent of geometries in degrees.
struct Extent {
  double west = 0, east = 0, south = 0, north = 0;
  bool any = false;

  void prendi(double longitude, double latitude);
};

/// Fills a new virtual table of SQLite's module rtree (two dimensions) level by level. Rows along a track lie beside
/// each other, so nodes that are filled in the order of the rows overlap little; entry by entry SQLite takes fifteen
/// times as long. The nodes' layout is that of the module's shadow tables: two bytes of depth (of the root), two bytes
/// of count, cells of an identifier (8 bytes) and west, east, south, north (singles, rounded outwards), all big-endian.
class SpatialIndex {
 public:
  /// @param name of the virtual table, which is there and empty
  SpatialIndex(Database& database, const std::string& name);

  void aggiungi(std::int64_t row, const Extent& extent);
  /// Writes what is left and the levels above the rows. Nothing may be added behind it.
  void chiudi();

 private:
  struct Box {
    float west, east, south, north;
  };
  struct Cell {
    std::int64_t id;
    Box box;
  };
  static constexpr std::size_t MostCells = 51;  ///< of a node, by the module's own bound
  static constexpr std::size_t NodeBytes = 4 + 24 * MostCells;

  void scriviNodo(std::int64_t node, int depth, const std::vector<Cell>& cells);
  void scriviFoglia(std::int64_t node);
  std::vector<Cell> sali(std::vector<Cell> children);

  Statement node_;
  Statement root_;
  Statement row_;
  Statement rows_;  ///< those of a full leaf in one go
  Statement parent_;
  std::vector<Cell> leaf_;    ///< the leaf under construction
  std::vector<Cell> leaves_;  ///< those that are written
  std::int64_t next_ = 2;     ///< number of the next node; the root is 1
  std::string bytes_;
};

}  // namespace corvan

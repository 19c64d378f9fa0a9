#include "exchange/SpatialIndex.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace corvan {
namespace {

/// The nearest single that is not greater; likewise not less.
float Sotto(double value) {
  const auto single = static_cast<float>(value);
  return static_cast<double>(single) <= value ? single : std::nextafter(single, -HUGE_VALF);
}
float Sopra(double value) { return -Sotto(-value); }

template <class Whole>
void AggiungiBytes(std::string& out, Whole value) {
  for (int shift = 8 * static_cast<int>(sizeof value) - 8; shift >= 0; shift -= 8) {
    out += static_cast<char>(static_cast<std::uint64_t>(value) >> static_cast<unsigned>(shift) & 0xFFU);
  }
}

void AggiungiBytes(std::string& out, float value) { AggiungiBytes(out, std::bit_cast<std::uint32_t>(value)); }

/// Places for so many rows of two values.
std::string Coppie(std::size_t count) {
  std::string text = "(?, ?)";
  for (std::size_t k = 1; k < count; ++k) text += ", (?, ?)";
  return text;
}

}  // namespace

void Extent::prendi(double longitude, double latitude) {
  west = any ? std::min(west, longitude) : longitude;
  east = any ? std::max(east, longitude) : longitude;
  south = any ? std::min(south, latitude) : latitude;
  north = any ? std::max(north, latitude) : latitude;
  any = true;
}

SpatialIndex::SpatialIndex(Database& database, const std::string& name)
    : node_(database, "INSERT INTO \"" + name + "_node\" VALUES (?, ?)"),
      root_(database, "UPDATE \"" + name + "_node\" SET data = ? WHERE nodeno = 1"),
      row_(database, "INSERT INTO \"" + name + "_rowid\" VALUES (?, ?)"),
      rows_(database, "INSERT INTO \"" + name + "_rowid\" VALUES " + Coppie(MostCells)),
      parent_(database, "INSERT INTO \"" + name + "_parent\" VALUES (?, ?)") {
  leaf_.reserve(MostCells);
}

void SpatialIndex::aggiungi(std::int64_t row, const Extent& extent) {
  if (leaf_.size() == MostCells) scriviFoglia(next_++);
  leaf_.push_back({row, {Sotto(extent.west), Sopra(extent.east), Sotto(extent.south), Sopra(extent.north)}});
}

void SpatialIndex::chiudi() {
  if (leaf_.empty()) return;  // the empty root is there
  if (leaves_.empty()) {
    scriviFoglia(1);
    return;
  }
  scriviFoglia(next_++);
  std::vector<Cell> level = std::move(leaves_);
  int depth = 1;
  for (; level.size() > MostCells; ++depth) level = sali(std::move(level));
  scriviNodo(1, depth, level);
  for (const Cell& child : level) parent_.intero(child.id).intero(1).esegui();
}

void SpatialIndex::scriviFoglia(std::int64_t node) {
  scriviNodo(node, 0, leaf_);
  if (leaf_.size() == MostCells) {
    for (const Cell& cell : leaf_) rows_.intero(cell.id).intero(node);
    rows_.esegui();
  } else {
    for (const Cell& cell : leaf_) row_.intero(cell.id).intero(node).esegui();
  }
  leaf_.clear();
}

/// One level up: nodes over these children. @return their own cells
std::vector<SpatialIndex::Cell> SpatialIndex::sali(std::vector<Cell> children) {
  leaves_.clear();
  for (std::size_t first = 0; first < children.size(); first += MostCells) {
    const auto from = children.begin() + static_cast<std::ptrdiff_t>(first);
    const std::vector<Cell> cells(from,
                                  from + static_cast<std::ptrdiff_t>(std::min(MostCells, children.size() - first)));
    const std::int64_t node = next_++;
    scriviNodo(node, 0, cells);
    for (const Cell& child : cells) parent_.intero(child.id).intero(node).esegui();
  }
  return std::move(leaves_);
}

/// Writes a node and, unless it is the root, keeps the cell that its parent holds of it. @param depth of the root
void SpatialIndex::scriviNodo(std::int64_t node, int depth, const std::vector<Cell>& cells) {
  bytes_.clear();
  AggiungiBytes(bytes_, static_cast<std::uint16_t>(depth));
  AggiungiBytes(bytes_, static_cast<std::uint16_t>(cells.size()));
  Box all = cells.front().box;
  for (const Cell& cell : cells) {
    AggiungiBytes(bytes_, cell.id);
    for (const float side : {cell.box.west, cell.box.east, cell.box.south, cell.box.north}) AggiungiBytes(bytes_, side);
    all = {std::min(all.west, cell.box.west), std::max(all.east, cell.box.east), std::min(all.south, cell.box.south),
           std::max(all.north, cell.box.north)};
  }
  bytes_.resize(NodeBytes);
  if (node == 1) {
    root_.blob(bytes_).esegui();
  } else {
    node_.intero(node).blob(bytes_).esegui();
    leaves_.push_back({node, all});
  }
}

}  // namespace corvan

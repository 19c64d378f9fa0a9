#include "exchange/VtuCurtain.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Errors.h"
#include "base/Text.h"
#include "exchange/ReadingDepths.h"
#include "exchange/ToolkitReadings.h"
#include "export/BlockComposer.h"
#include "export/CablePlaces.h"
#include "export/CellEdges.h"
#include "export/TruePositions.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaVtu";
constexpr std::size_t PointsPerBlock = 500;  // about 500 kB of corners
constexpr std::size_t Corners = 4;

template <class Number>
void AggiungiBytes(std::string& out, Number value) {
  if constexpr (std::is_same_v<Number, double>) {
    AggiungiBytes(out, std::bit_cast<std::uint64_t>(value));
  } else {
    std::array<char, sizeof(Number)> bytes;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    for (std::size_t k = 0; k < bytes.size(); ++k) {
      bytes.at(k) = static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * k) & 0xFFU);
    }
    out.append(bytes.data(), bytes.size());
  }
}

/// From where to where a channel's cell reaches below the surface, m.
struct Layer {
  double top = 0, bottom = 0;
};
using Layers = std::array<std::optional<Layer>, MaxChannels + 1>;

/// Channels of one depth share a layer.
Layers Strati(const ChannelDepths& depths) {
  std::vector<double> sorted;
  for (const std::optional<double>& depth : depths) {
    if (depth) sorted.push_back(*depth);
  }
  std::sort(sorted.begin(), sorted.end());
  sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
  Layers layers;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    if (!depths.at(c)) continue;
    const double depth = *depths.at(c);
    const auto at = std::find(sorted.begin(), sorted.end(), depth);
    const double top = at == sorted.begin() ? 0.0 : (*(at - 1) + depth) / 2.0;
    const double bottom = at + 1 == sorted.end() ? 2.0 * depth - top : (depth + *(at + 1)) / 2.0;
    layers.at(c) = Layer{top, bottom};
  }
  return layers;
}

/// One array of the file: its name and type, and what it holds of a cell.
struct DataArray {
  const char* type;
  const char* name;
  std::size_t components;  ///< 0: none stated
  std::size_t bytes;       ///< of a cell
  std::function<void(std::string& out, std::size_t point, std::size_t channel)> cell;
};

class Curtain {
 public:
  Curtain(const Survey& survey, const Section& section, const ToolkitReadings& readings)
      : survey_(survey), section_(section), points_(section.RecordOut.points()), places_(section), depths_(survey) {
    common_ = Strati(depths_(Misura{}));
    taken_.reserve(points_.size());
    before_.reserve(points_.size());
    for (std::size_t i = 1; i <= points_.size(); ++i) {
      const ReadingSet taken = readings.di(i);
      const Layers layers = strati(i);
      ReadingSet kept = 0;
      for (std::size_t c = 1; c <= MaxChannels; ++c) {
        if ((taken & BitDi(c)) == 0) continue;
        layers.at(c) ? kept = static_cast<ReadingSet>(kept | BitDi(c)) : ++deepless_;
      }
      taken_.push_back(kept);
      before_.push_back(cells_);
      cells_ += static_cast<std::size_t>(std::popcount(kept));
      if (points_(i).posta) placed_.push_back(i);
    }
    edges_.resize(points_.size());
    for (std::size_t k = 0; k < placed_.size(); ++k) edges_[placed_[k] - 1] = bordi(k);
  }

  std::size_t cells() const { return cells_; }
  std::size_t senzaProfondita() const { return deepless_; }
  void scrivi(FileWriter& out) const;

 private:
  Layers strati(std::size_t i) const {
    const Misura& m = survey_.Misure(static_cast<std::size_t>(points_(i).misura));
    return m.CavoProprio ? Strati(depths_(m)) : common_;
  }

  /// Of the k-th point that has a position.
  CellEdges bordi(std::size_t k) const {
    const SectionPoint* before = k > 0 ? &points_(placed_[k - 1]) : nullptr;
    const SectionPoint* behind = k + 1 < placed_.size() ? &points_(placed_[k + 1]) : nullptr;
    return BordiDiCella(points_(placed_[k]), before, behind, section_.Passo);
  }

  void angoli(std::string& out, std::size_t i, std::size_t c) const;
  std::vector<DataArray> campi() const;
  std::string testa(const std::vector<DataArray>& arrays) const;

  const Survey& survey_;
  const Section& section_;
  const Array1<SectionPoint>& points_;
  const CablePlaces places_;
  const ReadingDepths depths_;
  Layers common_;
  std::vector<ReadingSet> taken_;
  std::vector<std::size_t> before_;  ///< cells of the points before
  std::vector<std::size_t> placed_;  ///< points that have a position
  std::vector<CellEdges> edges_;
  std::size_t cells_ = 0;
  std::size_t deepless_ = 0;
};

void Curtain::angoli(std::string& out, std::size_t i, std::size_t c) const {
  const CellEdges& edges = edges_[i - 1];
  const Layer layer = strati(i).at(c).value_or(Layer{});
  const auto corner = [&out](const PlanPoint& plan, double depth) {
    for (const double value : {plan.est, plan.nord, 0.0 - depth}) AggiungiBytes(out, value);
  };
  corner(edges.before, layer.top);
  corner(edges.behind, layer.top);
  corner(edges.behind, layer.bottom);
  corner(edges.before, layer.bottom);
}

/// In the order of their bytes. Cells are counted through the channels of each point.
std::vector<DataArray> Curtain::campi() const {
  const auto number = [this](std::size_t i, std::size_t c) {
    const unsigned above = taken_[i - 1] & (BitDi(c) - 1U);
    return static_cast<std::int64_t>(before_[i - 1] + static_cast<std::size_t>(std::popcount(above)));
  };
  return {{"Float64", "Points", 3, Corners * 3 * sizeof(double),
           [this](std::string& out, std::size_t i, std::size_t c) { angoli(out, i, c); }},
          {"Int64", "connectivity", 0, Corners * sizeof(std::int64_t),
           [number](std::string& out, std::size_t i, std::size_t c) {
             for (std::int64_t k = 0; k < 4; ++k) AggiungiBytes(out, 4 * number(i, c) + k);
           }},
          {"Int64", "offsets", 0, sizeof(std::int64_t),
           [number](std::string& out, std::size_t i, std::size_t c) { AggiungiBytes(out, 4 * number(i, c) + 4); }},
          {"UInt8", "types", 0, 1, [](std::string& out, std::size_t, std::size_t) { out += '\x09'; }},  // VTK_QUAD
          {"Float64", "resistivity", 1, sizeof(double),
           [this](std::string& out, std::size_t i, std::size_t c) {
             AggiungiBytes(out, static_cast<double>(points_(i).resistivity.at(c)));
           }},
          {"Int32", "channel", 1, sizeof(std::int32_t),
           [](std::string& out, std::size_t, std::size_t c) { AggiungiBytes(out, static_cast<std::int32_t>(c)); }},
          {"Int32", "measurement", 1, sizeof(std::int32_t),
           [this](std::string& out, std::size_t i, std::size_t) { AggiungiBytes(out, points_(i).misura); }},
          {"Float64", "water_depth", 1, sizeof(double), [this](std::string& out, std::size_t i, std::size_t) {
             AggiungiBytes(out, places_.fondo(points_(i).misura).prof);
           }}};
}

std::string Curtain::testa(const std::vector<DataArray>& arrays) const {
  constexpr std::array<std::string_view, 3> groups{"Points", "Cells", "CellData"};
  constexpr std::array<std::size_t, 4> begin{0, 1, 4, 8};  // of the arrays of each group
  std::string text =
      "<?xml version=\"1.0\"?>\n"
      "<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\">\n"
      "<UnstructuredGrid>\n<Piece NumberOfPoints=\"" +
      std::to_string(Corners * cells_) + "\" NumberOfCells=\"" + std::to_string(cells_) + "\">\n";
  std::size_t offset = 0;
  for (std::size_t g = 0; g < groups.size(); ++g) {
    ((text += "<") += groups.at(g)) += g == 2 ? " Scalars=\"resistivity\">\n" : ">\n";
    for (std::size_t a = begin.at(g); a < begin.at(g + 1); ++a) {
      const DataArray& array = arrays.at(a);
      text += std::string("<DataArray type=\"") + array.type + "\" Name=\"" + array.name + "\"";
      if (array.components > 0) text += " NumberOfComponents=\"" + std::to_string(array.components) + "\"";
      text += " format=\"appended\" offset=\"" + std::to_string(offset) + "\"/>\n";
      offset += sizeof(std::uint64_t) + array.bytes * cells_;
    }
    ((text += "</") += groups.at(g)) += ">\n";
  }
  return text + "</Piece>\n</UnstructuredGrid>\n<AppendedData encoding=\"raw\">\n_";
}

void Curtain::scrivi(FileWriter& out) const {
  const std::vector<DataArray> arrays = campi();
  out.write(testa(arrays));
  for (const DataArray& array : arrays) {
    std::string size;
    AggiungiBytes(size, std::uint64_t{array.bytes * cells_});
    out.write(size);
    const auto compose = [&](std::string& bytes, std::size_t first, std::size_t end) {
      for (std::size_t i = first + 1; i <= end; ++i) {
        for (std::size_t c = 1; c <= MaxChannels; ++c) {
          if ((taken_[i - 1] & BitDi(c)) != 0) array.cell(bytes, i, c);
        }
      }
    };
    ComponiBlocchi({points_.size(), PointsPerBlock}, compose, [&out](std::string_view bytes) { out.write(bytes); });
  }
  out.write("\n</AppendedData>\n</VTKFile>\n");
}

}  // namespace

void SalvaVtu(FileWriter& out, const Survey& survey, const Section& section, Findings& findings) {
  const ToolkitReadings readings(survey, section, CablePlaces(section));
  readings.rileva(Procedure, findings);
  const Curtain curtain(survey, section, readings);
  if (const std::size_t without = curtain.senzaProfondita(); without > 0) {
    findings.note(Procedure,
                  Quanti(without, "reading", "readings") + " left out: their electrodes give no pseudo-depth");
  }
  if (curtain.cells() == 0) throw RunTimeError("no reading is left to write: the file is not made");
  curtain.scrivi(out);
}

}  // namespace corvan

#include "view2d/SectionPicking.h"

#include <cmath>
#include <vector>

#include "base/NumberText.h"
#include "survey/GeometricFactor.h"
#include "view2d/SectionColumns.h"

namespace corvan {
namespace {

bool Dentro(const PixelArea& area, const PuntoPixel& p) {
  return p.X >= area.left && p.X < area.right && p.Y >= area.top && p.Y < area.bottom;
}

/// A number to three or so significant digits.
std::string Breve(double value) {
  const double size = std::abs(value);
  return FormattaNumero(value, size >= 100.0  ? Mask("0")
                               : size >= 10.0 ? Mask("0.0")
                               : size >= 1.0  ? Mask("0.00")
                                              : Mask("0.0000"));
}

}  // namespace

std::optional<ReadingUnder> LetturaSotto(const SectionModel& model, const SectionLayout& layout,
                                         const PuntoPixel& pixel) {
  for (const SectionBlock& block : layout.blocks) {
    if (!Dentro(block.plot, pixel)) continue;
    std::optional<ReadingUnder> found;
    std::vector<std::uint32_t> shown;
    for (const SectionRow& row : RigheDi(model, layout)) {
      const auto [top, bottom] = RigheDiPixel(layout, block, row);
      if (pixel.Y < top || pixel.Y >= bottom) continue;
      CelleDi(model, layout, block, row.channel, shown);
      const std::uint32_t measurement = shown[static_cast<std::size_t>(pixel.X - block.plot.left)];
      if (measurement != 0) found = ReadingUnder{static_cast<std::int32_t>(measurement), row.channel};
    }
    return found;
  }
  return std::nullopt;
}

const SectionBlock* BloccoSotto(const SectionLayout& layout, const PuntoPixel& pixel) {
  for (const SectionBlock& block : layout.blocks) {
    const std::int32_t bottom = block.curves.empty() ? block.plot.bottom : block.curves.back().plot.bottom;
    if (pixel.Y >= block.title && pixel.Y <= bottom) return &block;
  }
  return nullptr;
}

std::int32_t MisuraVicina(const SectionModel& model, const SectionBlock& block, double distance) {
  std::int32_t nearest = 0;
  double least = HUGE_VAL;
  if (model.lines.empty()) return 0;
  for (std::size_t k = model.lines[block.firstLine].first; k <= model.lines[block.lastLine].last; ++k) {
    const double away = std::abs(model.distance[k - 1] - distance);
    if (!model.tenuta(k) || away >= least) continue;
    least = away;
    nearest = static_cast<std::int32_t>(k);
  }
  return nearest;
}

std::string DescriviLettura(const Survey& survey, const SectionModel& model, const ReadingUnder& reading) {
  const auto k = static_cast<std::size_t>(reading.measurement);
  const std::size_t c = reading.channel;
  if (!survey.Misure.contains(k) || c < 1 || c > MaxChannels || k > model.size()) return {};
  const Misura& m = survey.Misure(k);
  const SectionLine& line = model.lines[model.line[k - 1]];
  const double along = model.distance[k - 1] - model.behind.at(c);
  std::string text = "Measurement " + std::to_string(k) + ", channel " + std::to_string(c) + ": " + Breve(m.Rho.at(c)) +
                     " Ohm\u00B7m at " + FormattaNumero(along - line.start, "0.0") + " m";
  if (model.metric) text += ", pseudo-depth " + FormattaNumero(model.pseudoDepth.at(c), "0.0") + " m";
  text += "; V " + Breve(m.CanaleA.at(c)) + " mV, I " + Breve(m.Val180) + " mA, K " +
          Breve(FattoreDi(m, c, survey.traccia)) + " m; boat at " + FormattaNumero(m.UTMx, "0.0") + " E, " +
          FormattaNumero(m.UTMy, "0.0") + " N";
  if (m.ConQualita) {
    text += "; deviation " + Breve(m.Deviazione.at(c)) + " %, chargeability " + Breve(m.Caricabilita.at(c)) + " mV/V";
  }
  if (!InUso(m, c)) text += "; excluded";
  return text;
}

}  // namespace corvan

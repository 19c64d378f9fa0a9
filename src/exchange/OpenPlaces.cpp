#include "exchange/OpenPlaces.h"

#include <map>
#include <utility>
#include <variant>

#include "geo/ExactUtm.h"
#include "geo/Plane.h"
#include "survey/MeasurementText.h"

namespace corvan {

std::optional<Geographic> GradiDi(const Survey& survey, const Misura& m) {
  if (!HaPosizione(m)) return std::nullopt;
  if (const auto* read = std::get_if<Geographic>(&m.sorgente)) return *read;
  return GradiDi(survey.settings.griglia, m.UTMx, m.UTMy);
}

std::optional<Geographic> GradiDi(const GridZone& grid, double easting, double northing) {
  return DaUTMEsatto({easting, northing, grid.zone, grid.hemisphere});
}

std::optional<Geographic> GradiDi(const Survey& survey, const Misura& m, double easting, double northing) {
  const bool moved = easting != m.UTMx || northing != m.UTMy;
  return moved ? GradiDi(survey.settings.griglia, easting, northing) : GradiDi(survey, m);
}

std::optional<Geographic> GradiVeri(const Survey& survey, const SectionPoint& point) {
  if (!point.posta) return std::nullopt;
  return GradiDi(survey, survey.Misure(static_cast<std::size_t>(point.misura)), point.estVero, point.nordVero);
}

std::vector<FileLine> LineeDeiFile(const Survey& survey) {
  struct Run {
    FileLine line;
    const Misura* last = nullptr;
  };
  std::map<std::pair<std::int16_t, std::int32_t>, Run> runs;
  for (const Misura& m : survey.Misure) {
    if (survey.fileDi(m) == nullptr) continue;
    Run& run = runs[{m.NumFile, m.Linea}];
    if (run.line.measurements++ == 0) run.line.name = NomeLinea(survey, m);
    const std::optional<Geographic> place = Tenuta(m) ? GradiDi(survey, m) : std::nullopt;
    if (!place) continue;
    run.line.track.push_back(*place);
    if (run.last != nullptr) run.line.length += dist(run.last->UTMx, run.last->UTMy, m.UTMx, m.UTMy);
    run.last = &m;
  }
  std::vector<FileLine> lines;
  auto next = runs.begin();
  for (std::size_t k = 1; k <= survey.files.size(); ++k) {
    const auto file = static_cast<std::int16_t>(k);
    if (next == runs.end() || next->first.first != file) {  // a file without measurements
      lines.push_back({file, survey.files[k - 1].path.filename().string(), 0, 0.0, {}});
    }
    for (; next != runs.end() && next->first.first == file; ++next) {
      lines.push_back(std::move(next->second.line));
      lines.back().file = file;
    }
  }
  return lines;
}

std::vector<Geographic> LineaDiSezione(const Survey& survey, const Section& section) {
  std::vector<Geographic> line;
  for (const SectionPoint& point : section.RecordOut.points()) {
    if (const auto place = GradiVeri(survey, point)) line.push_back(*place);
  }
  return line;
}

}  // namespace corvan

#include "exchange/OpenPlaces.h"

#include <variant>

#include "geo/ExactUtm.h"
#include "geo/Plane.h"

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
  std::vector<FileLine> lines(survey.files.size());
  std::vector<const Misura*> last(lines.size());
  for (std::size_t k = 0; k < lines.size(); ++k) {
    lines[k].file = static_cast<std::int16_t>(k + 1);
    lines[k].name = survey.files[k].path.filename().string();
  }
  for (const Misura& m : survey.Misure) {
    if (survey.fileDi(m) == nullptr) continue;
    const auto k = static_cast<std::size_t>(m.NumFile) - 1;
    ++lines[k].measurements;
    const std::optional<Geographic> place = Tenuta(m) ? GradiDi(survey, m) : std::nullopt;
    if (!place) continue;
    lines[k].track.push_back(*place);
    if (last[k] != nullptr) lines[k].length += dist(last[k]->UTMx, last[k]->UTMy, m.UTMx, m.UTMy);
    last[k] = &m;
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

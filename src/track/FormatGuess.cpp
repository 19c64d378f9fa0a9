#include "track/FormatGuess.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "base/NumberText.h"
#include "geo/AngleText.h"
#include "geo/Place.h"
#include "geo/Plane.h"
#include "track/Cable.h"

namespace corvan {
namespace {

constexpr double CableLengths = 20.0;  // a mean step longer than so many cables is none

struct Layout {
  AngleFormat format;
  double
      least;  // the largest number of a survey is no less, or it would lie within a degree of the equator and Greenwich
  const char* entry;  // of the list in the window
};
constexpr std::array Layouts{Layout{AngleFormat::D_DDDD, 1.0, "DD.DDDDD"},
                             Layout{AngleFormat::DMM_MMM, 100.0, "DDMM:MMM"},
                             Layout{AngleFormat::DMMSS, 10000.0, "DDMMSS"}};

/// The largest latitude or longitude as read.
double NumeroMaggiore(const Survey& survey) {
  double most = 0.0;
  for (const Misura& m : survey.Misure) {
    if (std::holds_alternative<Geographic>(m.sorgente)) most = std::max({most, std::abs(m.Lat), std::abs(m.Lon)});
  }
  return most;
}

/// Mean step within the lines if the numbers as read were of this layout; infinite where they cannot be.
double PassoCon(const Survey& survey, AngleFormat format) {
  constexpr double none = std::numeric_limits<double>::infinity();
  double length = 0.0;
  std::size_t steps = 0;
  std::optional<GridZone> grid;
  std::optional<Grid> before;
  const Misura* from = nullptr;
  for (const Misura& m : survey.Misure) {
    if (!std::holds_alternative<Geographic>(m.sorgente) || m.Interpolata) continue;
    const Geographic g{GradiDaNumero(m.Lat, format), GradiDaNumero(m.Lon, format)};
    if (std::abs(g.latitude) > 90.0 || std::abs(g.longitude) > 180.0) return none;
    if (!grid) grid = GrigliaDi(g);
    const std::optional<Place> place = grid ? Colloca(g, *grid) : std::nullopt;
    if (!place) return none;
    if (before && StessaLinea(*from, m)) {
      length += dist(before->easting, before->northing, place->grid.easting, place->grid.northing);
      ++steps;
    }
    before = place->grid;
    from = &m;
  }
  return steps == 0 ? none : length / static_cast<double>(steps);
}

}  // namespace

void RilevaFormato(const Survey& survey, Findings& findings) {
  const double most = CableLengths * LunghezzaCavo(survey.cavo);
  const double step = survey.traccia.AltezzaCella;
  if (most == 0.0 || step <= most) return;
  const std::string apart =
      "the measurements lie " + TestoDecimi(step) + " m apart in the mean, over 20 cable lengths: ";
  const bool own =
      std::all_of(survey.Misure.begin(), survey.Misure.end(), [](const Misura& m) { return m.CavoProprio; });
  if (own) {  // columns say what they hold, and nobody says that the rows follow one boat
    findings.note("AnalisiFile", apart + "are the units of positions and electrodes right?");
    return;
  }
  std::string likely = "another coordinate format or zone";
  const double largest = NumeroMaggiore(survey);
  for (const auto& [format, least, entry] : Layouts) {
    if (format == survey.settings.layout || largest < least || PassoCon(survey, format) > most) continue;
    const AngleFormatName called = NomeFormato(format);
    likely = std::string(called.name) + " (" + entry + ", --coords " + called.word + ")";
    break;
  }
  findings.fault("AnalisiFile", apart + "the coordinates look like " + likely);
}

}  // namespace corvan

#include "export/SurveyKml.h"

#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "base/Text.h"
#include "export/BlockComposer.h"
#include "export/CellEdges.h"
#include "export/KmlText.h"
#include "export/TruePositions.h"
#include "geo/ExactUtm.h"
#include "geo/Utm.h"

namespace corvan {
namespace {

constexpr std::size_t PointsPerBlock = 50;  // about 330 kB

/// The cells of one channel: what all of them share.
struct Level {
  std::string name;         ///< end of the name
  std::string description;  ///< end of the description
  std::string top, bottom;  ///< altitudes of the corners
};

std::array<Level, MaxChannels + 1> Livelli(double height, double offset) {
  std::array<Level, MaxChannels + 1> levels;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const auto number = static_cast<double>(c);
    Level& level = levels.at(c);
    level.name = " - " + TestoConSegno(number);
    level.description = " Level: " + FormattaNumero(number, "#0");
    AggiungiQuota(level.top, (11.0 - number) * height + offset);
    AggiungiQuota(level.bottom, (10.0 - number) * height + offset);
  }
  return levels;
}

/// One export: what all its cells share. A point's ten cells and neighbouring points share most of their numbers, so
/// each is turned into text once: 16 million instead of 80 for 200,000 points.
class Curtain {
 public:
  Curtain(const KmlGoogle& kml, const Section& section, const CurtainRequest& request)
      : kml_(kml),
        section_(section),
        colours_(request.colours),
        levels_(Livelli(section.altezza, request.offset)),
        exact_(request.positions == KmlPositions::Exact) {
    for (const SectionPoint& point : section.RecordOut.points()) {
      if (!point.posta) continue;
      points_.push_back(&point);
      excluded_ += static_cast<std::size_t>(std::popcount(static_cast<unsigned>(point.letture & ~point.inUso)));
    }
  }

  std::size_t points() const { return points_.size(); }
  std::size_t excluded() const { return excluded_; }  ///< readings without a cell because they are bad

  /// Appends the cells of points first to end - 1 of those that have a position, from 0. For several threads at once.
  void compose(std::string& out, std::size_t first, std::size_t end) {
    Scratch work;
    for (std::size_t i = first; i < end; ++i) addPoint(out, work, i);
    skipped_ += work.skipped;
  }
  std::size_t skipped() const { return skipped_; }

 private:
  CellEdges edges(std::size_t i) const {
    const SectionPoint* before = i > 0 ? points_[i - 1] : nullptr;
    const SectionPoint* behind = i + 1 < points_.size() ? points_[i + 1] : nullptr;
    return BordiDiCella(*points_[i], before, behind, section_.Passo);
  }

  /// A place of the plane and its text; empty where it has none.
  struct Place {
    PlanPoint plan;
    std::string text;
  };

  /// The texts under construction, with memory that lasts for a block.
  struct Scratch {
    Place before, behind;
    std::string name, description, ring, cellName, cellDescription;
    std::size_t skipped = 0;
  };

  /// To the digits that documents have always held.
  void convert(Place& place, const PlanPoint& p) const {
    constexpr int places = 10;
    place.plan = p;
    place.text.clear();
    const Grid grid{p.est, p.nord, section_.griglia.zone, section_.griglia.hemisphere};
    const std::optional<Geographic> g = exact_ ? DaUTMEsatto(grid) : DaUTM(grid);
    if (g) AggiungiPosto(place.text, ArrotondaDecimale(g->longitude, places), ArrotondaDecimale(g->latitude, places));
  }

  void addPoint(std::string& out, Scratch& work, std::size_t i) const {
    const CellEdges utm = edges(i);
    const bool joined = !work.behind.text.empty() && work.behind.plan.est == utm.before.est &&
                        work.behind.plan.nord == utm.before.nord;  // where the point before it ends
    if (joined) {
      std::swap(work.before, work.behind);
    } else {
      convert(work.before, utm.before);
    }
    convert(work.behind, utm.behind);
    const SectionPoint& point = *points_[i];
    work.name = "n. " + TestoConSegno(static_cast<double>(point.misura));
    work.description = "UTMx: " + FormattaNumero(point.estVero, "######0.0#") +
                       " UTMy: " + FormattaNumero(point.nordVero, "######0.0#") + " Rho: ";
    const bool placed = !work.before.text.empty() && !work.behind.text.empty();
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if ((point.inUso & BitDi(c)) == 0) continue;
      if (!placed || !std::isfinite(point.resistivity.at(c))) {
        ++work.skipped;
      } else {
        addCell(out, work, point.resistivity.at(c), levels_.at(c));
      }
    }
  }

  void addCell(std::string& out, Scratch& work, float rho, const Level& level) const {
    (work.cellName = work.name) += level.name;
    work.cellDescription = work.description;
    AggiungiNumero(work.cellDescription, static_cast<double>(rho), "###0.0##");
    work.cellDescription += level.description;
    (work.ring = work.before.text) += level.top;
    (work.ring += work.behind.text) += level.top;
    (work.ring += work.behind.text) += level.bottom;
    (work.ring += work.before.text) += level.bottom;
    (work.ring += work.before.text) += level.top;
    AggiungiPoligono(out, {work.cellName, work.cellDescription, kml_.AltitudeMode(), work.ring,
                           RossoInBasso(colours_(rho)), kml_.Opacity()});
  }

  const KmlGoogle& kml_;
  const Section& section_;
  const ColourLookup colours_;
  const std::array<Level, MaxChannels + 1> levels_;
  const bool exact_;
  std::vector<const SectionPoint*> points_;
  std::size_t excluded_ = 0;
  std::atomic<std::size_t> skipped_{0};
};

}  // namespace

void SalvaKML(KmlGoogle& kml, const Section& section, const CurtainRequest& request, Findings& findings) {
  kml.OpenKml();
  kml.LineColour(0);
  kml.AltitudeMode("relativeToGround");
  Curtain curtain(kml, section, request);
  ComponiBlocchi(
      {curtain.points(), PointsPerBlock},
      [&curtain](std::string& out, std::size_t first, std::size_t end) { curtain.compose(out, first, end); },
      [&kml](std::string_view text) { kml.PolygonsToKml(text); });
  kml.CloseKml();
  if (curtain.excluded() > 0) {
    findings.note("SalvaKML",
                  Quanti(curtain.excluded(), "excluded reading has", "excluded readings have") + " no cell");
  }
  if (curtain.skipped() > 0) {
    findings.fault("SalvaKML",
                   "cells without a finite resistivity or place left out: " + std::to_string(curtain.skipped()));
  }
}

}  // namespace corvan

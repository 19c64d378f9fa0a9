#include "export/SurveyKml.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "export/TruePositions.h"
#include "geo/Utm.h"

namespace corvan {
namespace {

PlanPoint Mezzo(const PlanPoint& a, const PlanPoint& b) { return {(a.est + b.est) * 0.5, (a.nord + b.nord) * 0.5}; }

/// The two vertical edges of a point's cells, in UTM.
struct Edges {
  PlanPoint before;
  PlanPoint behind;
};

/// One export: what all its cells share.
class Curtain {
 public:
  Curtain(KmlGoogle& kml, const Section& section, const CurtainRequest& request)
      : kml_(kml), section_(section), request_(request) {
    for (const SectionPoint& point : section.RecordOut.points()) {
      if (point.posta) points_.push_back(&point);
    }
  }

  void write() {
    for (std::size_t i = 0; i < points_.size(); ++i) writePoint(i);
  }
  std::size_t skipped() const { return skipped_; }

 private:
  static PlanPoint vero(const SectionPoint& p) { return {p.estVero, p.nordVero}; }

  /// The neighbour on one side, when it belongs to the same file.
  const SectionPoint* neighbour(std::size_t i, std::ptrdiff_t side) const {
    const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(i) + side;
    if (at < 0 || at >= static_cast<std::ptrdiff_t>(points_.size())) return nullptr;
    const SectionPoint* other = points_[static_cast<std::size_t>(at)];
    return other->file == points_[i]->file ? other : nullptr;
  }

  Edges edges(std::size_t i) const {
    const PlanPoint own = vero(*points_[i]);
    const SectionPoint* before = neighbour(i, -1);
    const SectionPoint* behind = neighbour(i, 1);
    if (before == nullptr && behind == nullptr) {
      const double half = (section_.Passo > 0.0 ? section_.Passo : 1.0) / 2.0;
      return {{own.est - half, own.nord}, {own.est + half, own.nord}};
    }
    return {before != nullptr ? Mezzo(vero(*before), own) : own, behind != nullptr ? Mezzo(own, vero(*behind)) : own};
  }

  /// Longitude and latitude of a place in the plane, to the digits that documents have always held; nothing when it has
  /// none.
  std::optional<KmlPoint> geographic(const PlanPoint& p) const {
    constexpr int places = 10;
    const std::optional<Geographic> g = DaUTM({p.est, p.nord, section_.griglia.zone, section_.griglia.hemisphere});
    if (!g) return std::nullopt;
    return KmlPoint{ArrotondaDecimale(g->longitude, places), ArrotondaDecimale(g->latitude, places), 0.0};
  }

  void writePoint(std::size_t i) {
    const Edges utm = edges(i);
    const auto before = geographic(utm.before);
    const auto behind = geographic(utm.behind);
    const SectionPoint& point = *points_[i];
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if ((point.letture & BitDi(c)) == 0) continue;
      if (!before || !behind || !std::isfinite(point.resistivity.at(c))) {
        ++skipped_;
      } else {
        writeCell(point, c, *before, *behind);
      }
    }
  }

  void writeCell(const SectionPoint& point, std::size_t c, const KmlPoint& before, const KmlPoint& behind) {
    const float rho = point.resistivity.at(c);
    const double top = (11.0 - static_cast<double>(c)) * section_.altezza + request_.offset;
    const double bottom = (10.0 - static_cast<double>(c)) * section_.altezza + request_.offset;
    const std::array<KmlPoint, 5> ring{{{before.x, before.y, top},
                                        {behind.x, behind.y, top},
                                        {behind.x, behind.y, bottom},
                                        {before.x, before.y, bottom},
                                        {before.x, before.y, top}}};
    float colour = 0.0F;
    CreaColore(request_.range.ScalaMax, request_.range.ScalaMin, rho, colour);
    kml_.SetPolygon(
        "n. " + TestoConSegno(static_cast<double>(point.misura)) + " - " + TestoConSegno(static_cast<double>(c)),
        "UTMx: " + FormattaNumero(point.estVero, "######0.0#") +
            " UTMy: " + FormattaNumero(point.nordVero, "######0.0#") +
            " Rho: " + FormattaNumero(static_cast<double>(rho), "###0.0##") +
            " Level: " + FormattaNumero(static_cast<double>(c), "#0"),
        ring);
    kml_.PolygonColour(static_cast<std::int32_t>(colour));
    kml_.PolygonToKml();
  }

  KmlGoogle& kml_;
  const Section& section_;
  const CurtainRequest& request_;
  std::vector<const SectionPoint*> points_;
  std::size_t skipped_ = 0;
};

}  // namespace

void SalvaKML(KmlGoogle& kml, const Section& section, const CurtainRequest& request, Findings& findings) {
  kml.OpenKml();
  kml.LineColour(0);
  kml.AltitudeMode("relativeToGround");
  Curtain curtain(kml, section, request);
  curtain.write();
  kml.CloseKml();
  if (curtain.skipped() > 0) {
    findings.fault("SalvaKML",
                   "cells without a finite resistivity or place left out: " + std::to_string(curtain.skipped()));
  }
}

}  // namespace corvan

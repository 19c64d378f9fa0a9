#include "export/SurveyKml.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

/// Gives the converter its format back.
class FormatGuard {
 public:
  explicit FormatGuard(GeoGeo& geo) : geo_(geo), format_(geo.LatLonFormat()) { geo_.LatLonFormat("D.DDDD"); }
  FormatGuard(const FormatGuard&) = delete;
  FormatGuard& operator=(const FormatGuard&) = delete;
  ~FormatGuard() {
    if (!format_.empty()) geo_.LatLonFormat(format_);
  }

 private:
  GeoGeo& geo_;
  std::string format_;
};

struct PlanPoint {
  double x = 0;
  double y = 0;
};

PlanPoint Vero(const Misura& m) { return {m.Deriv[3], m.Deriv[4]}; }

PlanPoint Mezzo(const PlanPoint& a, const PlanPoint& b) { return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5}; }

/// The two vertical edges of a point's cells, in UTM.
struct Edges {
  PlanPoint before;
  PlanPoint behind;
};

void ChiediZona(GeoGeo& geo, Dialogs& dialogs) {
  if (geo.UTMzone() != 0) return;
  const double zone = ArrotondaPari(Val(dialogs.InputBox({"UTM Zone (1- 60)", "UTM Zone n.", ""})));
  if (zone >= 1.0 && zone <= 60.0) geo.UTMzone(AInt16(zone));
}

double ChiediAltezza(Dialogs& dialogs) {
  const std::string answer = dialogs.InputBox({"Add vertical offset [m]", "OffSet Z", ""});
  return Rifila(answer).empty() ? 0.0 : Val(answer);
}

/// One export: what all its cells share.
class Curtain {
 public:
  Curtain(KmlGoogle& kml, const Survey& survey, GeoGeo& geo, const CurtainRequest& request, double offset)
      : kml_(kml), survey_(survey), geo_(geo), request_(request), offset_(offset) {
    const double spacing = survey.traccia.PassoMedio;
    height_ = spacing > 0.0 ? spacing : width();
    for (std::int32_t p = request.Primo; p <= request.Ultimo; ++p) {
      if (Tenuta(misura(p))) kept_.push_back(p);
    }
  }

  void write() {
    for (std::size_t i = 0; i < kept_.size(); ++i) writePoint(i);
  }
  std::size_t skipped() const { return skipped_; }

 private:
  const Misura& misura(std::int32_t p) const { return survey_.Misure(static_cast<std::size_t>(p)); }
  double width() const { return request_.Passo > 0.0 ? request_.Passo : 1.0; }

  /// The kept neighbour on one side, when it belongs to the same file.
  const Misura* neighbour(std::size_t i, std::ptrdiff_t side) const {
    const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(i) + side;
    if (at < 0 || at >= static_cast<std::ptrdiff_t>(kept_.size())) return nullptr;
    const Misura& other = misura(kept_[static_cast<std::size_t>(at)]);
    return other.NumFile == misura(kept_[i]).NumFile ? &other : nullptr;
  }

  Edges edges(std::size_t i) const {
    const PlanPoint own = Vero(misura(kept_[i]));
    const Misura* before = neighbour(i, -1);
    const Misura* behind = neighbour(i, 1);
    if (before == nullptr && behind == nullptr) {
      return {{own.x - width() / 2.0, own.y}, {own.x + width() / 2.0, own.y}};
    }
    return {before != nullptr ? Mezzo(Vero(*before), own) : own, behind != nullptr ? Mezzo(own, Vero(*behind)) : own};
  }

  /// Longitude and latitude of a place in the plane; nothing when it has none.
  std::optional<KmlPoint> geographic(const PlanPoint& p) {
    geo_.UTMx(p.x);
    geo_.UTMy(p.y);
    if (!geo_.UTM2Geo()) return std::nullopt;
    return KmlPoint{Val(geo_.Lon()), Val(geo_.Lat()), 0.0};
  }

  void writePoint(std::size_t i) {
    const Edges utm = edges(i);
    const auto before = geographic(utm.before);
    const auto behind = geographic(utm.behind);
    if (!before || !behind) {
      skipped_ += MaxChannels;
      return;
    }
    for (std::size_t c = 1; c <= MaxChannels; ++c) writeCell(kept_[i], c, *before, *behind);
  }

  void writeCell(std::int32_t p, std::size_t c, const KmlPoint& before, const KmlPoint& behind) {
    const Misura& m = misura(p);
    const float rho = m.Rho.at(c);
    if (!std::isfinite(rho)) {
      ++skipped_;
      return;
    }
    const double top = (11.0 - static_cast<double>(c)) * height_ + offset_;
    const double bottom = (10.0 - static_cast<double>(c)) * height_ + offset_;
    const std::array<KmlPoint, 5> ring{{{before.x, before.y, top},
                                        {behind.x, behind.y, top},
                                        {behind.x, behind.y, bottom},
                                        {before.x, before.y, bottom},
                                        {before.x, before.y, top}}};
    float colour = 0.0F;
    CreaColore(request_.range.ScalaMax, request_.range.ScalaMin, rho, colour);
    kml_.SetPolygon("n. " + TestoConSegno(static_cast<double>(p)) + " - " + TestoConSegno(static_cast<double>(c)),
                    "UTMx: " + FormattaNumero(m.Deriv[3], "######0.0#") +
                        " UTMy: " + FormattaNumero(m.Deriv[4], "######0.0#") +
                        " Rho: " + FormattaNumero(static_cast<double>(rho), "###0.0##") +
                        " Level: " + FormattaNumero(static_cast<double>(c), "#0"),
                    ring);
    kml_.PolygonColour(static_cast<std::int32_t>(colour));
    kml_.PolygonToKml();
  }

  KmlGoogle& kml_;
  const Survey& survey_;
  GeoGeo& geo_;
  const CurtainRequest& request_;
  double offset_;
  double height_ = 1.0;
  std::vector<std::int32_t> kept_;
  std::size_t skipped_ = 0;
};

}  // namespace

void SalvaKML(KmlGoogle& kml, const Survey& survey, GeoGeo& geo, const CurtainRequest& request, Dialogs& dialogs,
              Findings& findings) {
  const FormatGuard format(geo);
  ChiediZona(geo, dialogs);
  const double offset = ChiediAltezza(dialogs);
  kml.OpenKml();
  kml.LineColour(0);
  kml.AltitudeMode("relativeToGround");
  Curtain curtain(kml, survey, geo, request, offset);
  curtain.write();
  kml.CloseKml();
  if (curtain.skipped() > 0) {
    findings.fault("SalvaKML",
                   "cells without a finite resistivity or place left out: " + std::to_string(curtain.skipped()));
  }
}

}  // namespace corvan

#include "track/TrackAnalysis.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "geo/Plane.h"
#include "track/BadFixes.h"
#include "track/Cable.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "AnalisiFile";

void CalcolaFattori(Survey& survey, Findings& findings) {
  const auto& p = survey.cavo.PosCavo;
  std::string without;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    try {
      const float factor = FattoreGeometrico(p[12], p[13], p.at(c), p.at(c + 1));
      survey.traccia.FattoreK.at(c) = factor;
      if (factor == 0.0F) without += (without.empty() ? "" : ", ") + std::to_string(c);
    } catch (const RunTimeError& error) {
      findings.fault(Procedure, "geometric factor of channel " + std::to_string(c) + ": " + error.what());
    }
  }
  if (without.empty()) return;
  findings.note(Procedure, "electrodes coincide, geometric factor and resistivity are 0: channels " + without);
}

/// Widens [low, high] by a value; one that is not finite takes no part.
template <class Number>
void Allarga(Number& low, Number& high, Number value) {
  if (!std::isfinite(value)) return;
  low = std::min(low, value);
  high = std::max(high, value);
}

/// Starts the extremes of depth and resistivity: the depth from the first positioned measurement, the resistivity from
/// the first channel of measurement 1, each from the next finite value when that one is not.
void AvviaEstremi(Survey& survey) {
  TrackExtent& t = survey.traccia;
  const std::size_t first = std::max<std::size_t>(PrimaPosizione(survey), 1);
  t.MinVal12 = t.MaxVal12 = t.RhoMin = t.RhoMax = 0.0F;
  for (std::size_t k = first; k <= survey.Misure.size(); ++k) {
    t.MinVal12 = t.MaxVal12 = survey.Misure(k).Val12;
    if (std::isfinite(t.MinVal12)) break;
    t.MinVal12 = t.MaxVal12 = 0.0F;
  }
  for (const Misura& m : survey.Misure) {
    const auto finite = std::find_if(m.Rho.begin() + 1, m.Rho.end(), [](float rho) { return std::isfinite(rho); });
    if (finite == m.Rho.end()) continue;
    t.RhoMin = t.RhoMax = *finite;
    break;
  }
}

/// Recomputes the apparent resistivities from potentials and currents of both signs.
void CalcolaRho(Misura& m, const TrackExtent& t) {
  if (m.Val180 == 0.0F || m.Val184 == 0.0F) return;
  const double i1 = m.Val180;
  const double i2 = m.Val184;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const double a = m.CanaleA.at(c), b = m.CanaleB.at(c), factor = t.FattoreK.at(c);
    m.Rho.at(c) = SingoloOppure((a / i1 + b / i2) * factor / 2.0, m.Rho.at(c));
  }
}

/// Tells of firings without current, whose resistivities cannot be computed anew.
void RilevaCorrentiNulle(const Survey& survey, Findings& findings) {
  const auto idle = [](const Misura& m) { return !m.SenzaFix && (m.Val180 == 0.0F || m.Val184 == 0.0F); };
  const auto first = std::find_if(survey.Misure.begin(), survey.Misure.end(), idle);
  if (first == survey.Misure.end()) return;
  const auto file = static_cast<std::size_t>(first->NumFile);
  const std::string name =
      file >= 1 && file <= survey.files.size() ? " of " + survey.files[file - 1].path.string() : std::string();
  findings.note(Procedure, std::to_string(std::count_if(first, survey.Misure.end(), idle)) +
                               " measurement(s) with a current of 0 keep the resistivities that were read, the first "
                               "is measurement " +
                               std::to_string(first - survey.Misure.begin() + 1) + name);
}

/// The scene holds positions and distances as singles: a place whose distance from another may exceed them has none.
bool InScena(double x, double y) {
  constexpr double limit = static_cast<double>(std::numeric_limits<float>::max()) / 4.0;
  return std::abs(x) <= limit && std::abs(y) <= limit;
}

/// The pair of coordinates that the source does not give. @return false when it cannot be derived
bool DerivaPosizione(Misura& m, GeoGeo& geo) {
  try {
    if (m.SorgenteUTM) {
      geo.UTMy(m.UTMy);
      geo.UTMx(m.UTMx);
      if (!InScena(m.UTMx, m.UTMy) || !geo.UTM2Geo()) return false;
      m.Lat = Val(geo.Lat());
      m.Lon = Val(geo.Lon());
      return true;
    }
    geo.Lat(TestoNumero(m.Lat));
    geo.Lon(TestoNumero(m.Lon));
    if (!geo.Geo2UTM() || !InScena(geo.UTMx(), geo.UTMy())) return false;
    m.UTMy = geo.UTMy();
    m.UTMx = geo.UTMx();
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

/// Positions of all measurements; those that cannot be converted lose theirs.
void DerivaPosizioni(Survey& survey, GeoGeo& geo, Findings& findings) {
  std::size_t failed = 0;
  std::size_t impossible = 0;
  bool hemisphereSet = false;
  for (Misura& m : survey.Misure) {
    if (!m.SenzaFix && !m.SorgenteUTM && !hemisphereSet) {
      geo.Nord(geo.Gradi(m.Lat) >= 0.0);
      hemisphereSet = true;
    }
    if (!m.SenzaFix && !DerivaPosizione(m, geo)) {
      m.SenzaFix = true;
      ++failed;
    }
    if (m.SenzaFix) m.Lat = m.Lon = m.UTMx = m.UTMy = 0.0;
    if (!m.SenzaFix && (std::abs(geo.LatGradi()) > 90.0 || std::abs(geo.LonGradi()) > 180.0)) ++impossible;
    m.Deriv[3] = m.UTMx;
    m.Deriv[4] = m.UTMy;
    m.Scartata = m.Interpolata = false;
  }
  if (failed > 0) {
    findings.fault(Procedure, "positions that cannot be converted count as lost: " + std::to_string(failed));
  }
  if (impossible > 0) {
    findings.note(Procedure, "positions outside 90 degrees of latitude or 180 of longitude: " +
                                 std::to_string(impossible) + " (is the coordinate format right?)");
  }
}

/// Bounding box of the measurements with a position of their own, and the scene origin in its middle.
void CalcolaEstensione(Survey& survey) {
  TrackExtent& t = survey.traccia;
  t.XMin = t.XMax = t.YMin = t.YMax = 0.0;
  bool started = false;
  for (const Misura& m : survey.Misure) {
    if (m.SenzaFix) continue;
    if (!started) {
      t.XMin = t.XMax = m.UTMx;
      t.YMin = t.YMax = m.UTMy;
      started = true;
    }
    Allarga(t.XMin, t.XMax, m.UTMx);
    Allarga(t.YMin, t.YMax, m.UTMy);
  }
  t.CentroX = ASingolo((t.XMin + t.XMax) / 2.0);
  t.CentroY = ASingolo((t.YMin + t.YMax) / 2.0);
  t.CentroZ = t.MaxVal12 / 2.0F;
  t.EstensioneY = t.YMax - t.YMin;
  t.EstensioneX = t.XMax - t.XMin;
}

/// Position relative to the scene origin, as the scene stores it.
Punto3D Relativo(const Misura& m, const TrackExtent& t) {
  return {ASingolo(m.UTMx - static_cast<double>(t.CentroX)), ASingolo(m.UTMy - static_cast<double>(t.CentroY)), 0.0F,
          0.0F};
}

/// The points of the track: translated where the position is the measurement's own, zero where it has none.
void GeneraPuntiGPS(Survey& survey) {
  TrackExtent& t = survey.traccia;
  const Settings& s = survey.settings;
  t.PuntiGPS = Array1<Punto3D>(survey.Misure.size());
  for (std::size_t k = 1; k <= survey.Misure.size(); ++k) {
    const Misura& m = survey.Misure(k);
    Punto3D& p = t.PuntiGPS(k);
    if (HaPosizione(m)) p = Relativo(m, t);
    if (m.SenzaFix) continue;
    p.x = ASingolo(m.UTMx - static_cast<double>(t.CentroX) + s.TraslDatiEst);
    p.y = ASingolo(m.UTMy - static_cast<double>(t.CentroY) + s.TraslDatiNord);
    p.w = m.Val12;
  }
  t.PuntiGPS0 = t.PuntiGPS;
}

/// Progressive distance between positioned measurements, untranslated; those without a position repeat the value
/// before them.
void CalcolaDistanze(Survey& survey) {
  TrackExtent& t = survey.traccia;
  t.Lunghezza = 0.0;
  const Misura* previous = nullptr;
  for (Misura& m : survey.Misure) {
    if (HaPosizione(m)) {
      if (previous != nullptr) {
        const Punto3D a = Relativo(*previous, t);
        const Punto3D b = Relativo(m, t);
        t.Lunghezza += dist(a.x, a.y, b.x, b.y);
      }
      previous = &m;
    }
    m.Distanza = t.Lunghezza;
  }
  const std::size_t count = survey.Misure.size();
  t.PassoMedio = count < 2 ? 0.0F : ASingolo(t.Lunghezza / static_cast<double>(count - 1));
}

}  // namespace

std::size_t PrimaPosizione(const Survey& survey) {
  const auto found =
      std::find_if(survey.Misure.begin(), survey.Misure.end(), [](const Misura& m) { return !m.SenzaFix; });
  return found == survey.Misure.end() ? 0 : static_cast<std::size_t>(found - survey.Misure.begin()) + 1;
}

TrackResult AnalisiFile(Survey& survey, GeoGeo& geo, Findings& findings) {
  TrackExtent& t = survey.traccia;
  CalcolaFattori(survey, findings);
  AvviaEstremi(survey);
  for (Misura& m : survey.Misure) {
    Allarga(t.MinVal12, t.MaxVal12, m.Val12);
    CalcolaRho(m, t);
    for (std::size_t c = 1; c <= MaxChannels; ++c) Allarga(t.RhoMin, t.RhoMax, m.Rho.at(c));
  }
  RilevaCorrentiNulle(survey, findings);
  DerivaPosizioni(survey, geo, findings);
  CalcolaEstensione(survey);
  survey.settings.CoordUTM = true;
  const TrackResult result = TrattaFixPersi(survey, geo);
  GeneraPuntiGPS(survey);
  CalcolaDistanze(survey);
  return result;
}

}  // namespace corvan

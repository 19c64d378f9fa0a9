#include "track/TrackAnalysis.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <utility>

#include "base/Errors.h"
#include "base/Halves.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "geo/AngleText.h"
#include "geo/Place.h"
#include "geo/Plane.h"
#include "survey/MeasurementText.h"
#include "track/BadFixes.h"
#include "track/Cable.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "AnalisiFile";

void CalcolaFattori(Survey& survey, Findings& findings) {
  const auto& p = survey.cavo.PosCavo;
  const bool idle = !survey.Misure.empty() && std::all_of(survey.Misure.begin(), survey.Misure.end(),
                                                          [](const Misura& m) { return m.CavoProprio; });
  std::string without, negative;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    try {
      const float factor = FattoreGeometrico(p[12], p[13], p.at(c), p.at(c + 1));
      survey.traccia.FattoreK.at(c) = factor;
      if (factor == 0.0F) without += (without.empty() ? "" : ", ") + std::to_string(c);
      if (factor < 0.0F) negative += (negative.empty() ? "" : ", ") + std::to_string(c);
    } catch (const RunTimeError& error) {
      findings.fault(Procedure, "geometric factor of channel " + std::to_string(c) + ": " + error.what());
    }
  }
  if (idle) return;  // no reading follows from these
  if (!without.empty()) {
    findings.note(Procedure, "electrodes coincide, geometric factor and resistivity are 0: channels " + without);
  }
  if (!negative.empty()) {
    findings.note(Procedure, "geometric factors are negative (C1 and C2 in reverse order?): channels " + negative);
  }
}

/// Widens [low, high] by a value; one that is not finite takes no part.
template <class Number>
void Allarga(Number& low, Number& high, Number value) {
  if (!std::isfinite(value)) return;
  low = std::min(low, value);
  high = std::max(high, value);
}

/// Extremes of the depths, started from the first positioned measurement whose depth is finite.
void CalcolaProfondita(Survey& survey) {
  TrackExtent& t = survey.traccia;
  t.MinVal12 = t.MaxVal12 = 0.0F;
  const auto start = std::find_if(survey.Misure.begin(), survey.Misure.end(),
                                  [](const Misura& m) { return !m.SenzaFix && !Vuota(m) && std::isfinite(m.Val12); });
  if (start != survey.Misure.end()) t.MinVal12 = t.MaxVal12 = start->Val12;
  for (const Misura& m : survey.Misure) {
    if (!Vuota(m)) Allarga(t.MinVal12, t.MaxVal12, m.Val12);
  }
}

/// Recomputes the apparent resistivities from potentials and currents of both signs.
void CalcolaRho(Misura& m, const TrackExtent& t) {
  if (m.Val180 == 0.0F || m.Val184 == 0.0F) return;
  const double i1 = m.Val180;
  const double i2 = m.Val184;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    if (!HaLettura(m, c)) continue;
    const double a = m.CanaleA.at(c), b = m.CanaleB.at(c), factor = FattoreDi(m, c, t);
    m.Rho.at(c) = SingoloOppure((a / i1 + b / i2) * factor / 2.0, m.Rho.at(c));
  }
}

/// Tells of firings without current, whose resistivities cannot be computed anew.
/// @param count how many @param first the first of them, 1-based
void RilevaCorrentiNulle(const Survey& survey, std::size_t count, std::size_t first, Findings& findings) {
  if (count == 0) return;
  std::string told = Quanti(count, "measurement with a current of 0 keeps", "measurements with a current of 0 keep") +
                     " the resistivities that were read";
  told += IlPrimo(count);
  findings.note(Procedure, told + "measurement " + std::to_string(first), FileDi(survey, survey.Misure(first)));
}

/// The scene holds positions and distances as singles: a place whose distance from another may exceed them has none.
bool InScena(double x, double y) {
  constexpr double limit = static_cast<double>(std::numeric_limits<float>::max()) / 4.0;
  return std::abs(x) <= limit && std::abs(y) <= limit;
}

/// Both forms of a measurement's position, from its source. @return false when they cannot be derived
bool DerivaPosizione(Misura& m, const Settings& s) {
  const std::optional<Place> place = Colloca(m.sorgente, s.griglia);
  if (!place || !InScena(place->grid.easting, place->grid.northing)) return false;
  m.UTMx = place->grid.easting;
  m.UTMy = place->grid.northing;
  if (std::holds_alternative<Geographic>(m.sorgente)) return true;  // Lat and Lon are as read
  const Geographic& g = place->geographic;
  constexpr double most = 1e9;  // degrees: what a layout can hold
  if (!(std::abs(g.latitude) <= most && std::abs(g.longitude) <= most)) return false;
  m.Lat = NumeroScritto(g.latitude, s.layout);
  m.Lon = NumeroScritto(g.longitude, s.layout);
  return true;
}

bool FuoriDallaTerra(const Misura& m, AngleFormat layout) {
  if (!std::holds_alternative<Grid>(m.sorgente)) return false;  // the readers look at geographic ones
  return std::abs(GradiDaNumero(m.Lat, layout)) > 90.0 || std::abs(GradiDaNumero(m.Lon, layout)) > 180.0;
}

/// What the measurements of one stretch give by themselves.
struct Stretch {
  std::size_t failed = 0;      ///< positions that cannot be converted
  std::size_t impossible = 0;  ///< positions that are nowhere on the earth
  std::size_t idle = 0;        ///< positioned firings with readings and without current
  std::size_t firstIdle = 0;
  float RhoMin = 0, RhoMax = 0;
  bool anyRho = false;

  /// Extremes of the resistivities that stand, in readings that exist; 0 without any.
  void allarga(float low, float high) {
    if (!anyRho) RhoMin = low, RhoMax = high;
    anyRho = true;
    Allarga(RhoMin, RhoMax, low);
    Allarga(RhoMin, RhoMax, high);
  }
};

/// The position of a measurement; one that cannot be converted is lost. What was interpolated is no source.
void DerivaPosizione(Misura& m, const Settings& settings, Stretch& stretch) {
  if (m.Interpolata) m.sorgente = {};
  m.Scartata = m.Interpolata = false;
  m.SenzaFix = !HaSorgente(m.sorgente);
  if (!m.SenzaFix && !DerivaPosizione(m, settings)) {
    m.SenzaFix = true;
    ++stretch.failed;
  }
  if (m.SenzaFix) {
    m.Lat = m.Lon = m.UTMx = m.UTMy = 0.0;
  } else if (FuoriDallaTerra(m, settings.layout)) {
    ++stretch.impossible;
  }
  m.Deriv[3] = m.UTMx;
  m.Deriv[4] = m.UTMy;
}

/// Resistivities and positions of all measurements: what each has by itself, in one pass, since the survey is longer
/// than any cache.
void DerivaMisure(Survey& survey, Findings& findings) {
  const auto work = [&survey](std::size_t from, std::size_t to) {
    Stretch stretch;
    for (std::size_t k = from + 1; k <= to; ++k) {
      Misura& m = survey.Misure(k);
      CalcolaRho(m, survey.traccia);
      DerivaPosizione(m, survey.settings, stretch);
      if (!m.SenzaFix && !Vuota(m) && (m.Val180 == 0.0F || m.Val184 == 0.0F)) {
        if (stretch.idle++ == 0) stretch.firstIdle = k;
      }
      for (std::size_t c = 1; c <= MaxChannels; ++c) {
        const float rho = m.Rho.at(c);
        if (HaLettura(m, c) && std::isfinite(rho)) stretch.allarga(rho, rho);
      }
    }
    return stretch;
  };
  auto [all, behind] = InDueMeta(survey.Misure.size(), work);
  if (behind.anyRho) all.allarga(behind.RhoMin, behind.RhoMax);
  survey.traccia.RhoMin = all.RhoMin;
  survey.traccia.RhoMax = all.RhoMax;
  const std::size_t failed = all.failed + behind.failed, impossible = all.impossible + behind.impossible;
  if (failed > 0) {
    findings.fault(Procedure, "positions that cannot be converted count as lost: " + std::to_string(failed));
  }
  if (impossible > 0) {
    findings.fault(Procedure, "positions outside 90 degrees of latitude or 180 of longitude: " +
                                  std::to_string(impossible) + " (is the coordinate format right?)");
  }
  RilevaCorrentiNulle(survey, all.idle + behind.idle, all.idle > 0 ? all.firstIdle : behind.firstIdle, findings);
}

/// Bounding box of the measurements with a position of their own, and the scene origin in its middle.
void CalcolaEstensione(Survey& survey) {
  TrackExtent& t = survey.traccia;
  struct Box {
    double XMin = 0, XMax = 0, YMin = 0, YMax = 0;
    bool any = false;
    void allarga(double x, double y) {
      if (!any) *this = {x, x, y, y, true};
      Allarga(XMin, XMax, x);
      Allarga(YMin, YMax, y);
    }
  };
  auto [box, behind] = InDueMeta(survey.Misure.size(), [&survey](std::size_t from, std::size_t to) {
    Box part;
    for (std::size_t k = from + 1; k <= to; ++k) {
      const Misura& m = survey.Misure(k);
      if (!m.SenzaFix) part.allarga(m.UTMx, m.UTMy);
    }
    return part;
  });
  if (behind.any) {
    box.allarga(behind.XMin, behind.YMin);
    box.allarga(behind.XMax, behind.YMax);
  }
  t.XMin = box.XMin;
  t.XMax = box.XMax;
  t.YMin = box.YMin;
  t.YMax = box.YMax;
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
  InDueMeta(survey.Misure.size(), [&](std::size_t from, std::size_t to) {
    for (std::size_t k = from + 1; k <= to; ++k) {
      const Misura& m = survey.Misure(k);
      Punto3D& p = t.PuntiGPS(k);
      if (HaPosizione(m)) p = Relativo(m, t);
      if (m.SenzaFix) continue;
      p.x = ASingolo(m.UTMx - static_cast<double>(t.CentroX) + s.TraslDatiEst);
      p.y = ASingolo(m.UTMy - static_cast<double>(t.CentroY) + s.TraslDatiNord);
      p.w = m.Val12;
    }
    return true;
  });
  t.PuntiGPS0 = t.PuntiGPS;
}

/// Lines of files that gave a measurement with a stored reading.
std::size_t LineePresenti(const Survey& survey) {
  std::set<std::pair<std::int16_t, std::int32_t>> lines;
  const Misura* last = nullptr;
  for (const Misura& m : survey.Misure) {
    if (m.NumFile != 0 && (last == nullptr || !StessaLinea(*last, m))) lines.emplace(m.NumFile, m.Linea);
    last = &m;
  }
  return std::max<std::size_t>(lines.size(), 1);
}

/// Height of a level: the mean step within the lines, so that a jump from one line to the next does not raise towers.
/// Of one file it is PassoMedio. Where there is none, the electrode spacing, and 1 m at last.
void CalcolaAltezza(Survey& survey, double within) {
  const std::size_t count = survey.Misure.size(), lines = LineePresenti(survey);
  const auto& p = survey.cavo.PosCavo;
  const double spacing = std::abs(static_cast<double>(p[13]) - static_cast<double>(p[12]));
  double& height = survey.traccia.AltezzaCella;
  height = count > lines ? static_cast<double>(ASingolo(within / static_cast<double>(count - lines))) : 0.0;
  if (height == 0.0 && std::isfinite(spacing)) height = spacing;
  if (height == 0.0) height = 1.0;
}

/// Straight distance as the scene sees it, in singles.
double PassoTra(const Misura& a, const Misura& b, const TrackExtent& t) {
  const Punto3D p = Relativo(a, t);
  const Punto3D q = Relativo(b, t);
  return dist(p.x, p.y, q.x, q.y);
}

/// Progressive distance between positioned measurements, untranslated; those without a position repeat the value
/// before them.
void CalcolaDistanze(Survey& survey) {
  TrackExtent& t = survey.traccia;
  t.Lunghezza = 0.0;
  double within = 0.0;  // the steps that stay in one line
  const Misura* previous = nullptr;
  for (Misura& m : survey.Misure) {
    if (HaPosizione(m)) {
      const double step = previous == nullptr ? 0.0 : PassoTra(*previous, m, t);
      t.Lunghezza += step;
      if (previous != nullptr && StessaLinea(*previous, m)) within += step;
      previous = &m;
    }
    m.Distanza = t.Lunghezza;
  }
  const std::size_t count = survey.Misure.size();
  t.PassoMedio = count < 2 ? 0.0F : ASingolo(t.Lunghezza / static_cast<double>(count - 1));
  CalcolaAltezza(survey, within);
}

}  // namespace

std::optional<GridZone> GrigliaDelPrimoFix(const Survey& survey) {
  for (const Misura& m : survey.Misure) {
    const auto* source = std::get_if<Geographic>(&m.sorgente);
    const std::optional<GridZone> grid = source == nullptr ? std::nullopt : GrigliaDi(*source);
    if (grid && Colloca(*source, *grid)) return grid;
  }
  return std::nullopt;
}

bool SenzaZona(const Survey& survey) {
  return std::any_of(survey.Misure.begin(), survey.Misure.end(), [](const Misura& m) {
    const auto* source = std::get_if<Grid>(&m.sorgente);
    return source != nullptr && source->zone == 0;
  });
}

TrackResult AnalisiFile(Survey& survey, Findings& findings) {
  CalcolaFattori(survey, findings);
  DerivaMisure(survey, findings);
  CalcolaProfondita(survey);
  CalcolaEstensione(survey);
  survey.settings.CoordUTM = true;
  const TrackResult result = TrattaFixPersi(survey);
  GeneraPuntiGPS(survey);
  CalcolaDistanze(survey);
  return result;
}

}  // namespace corvan

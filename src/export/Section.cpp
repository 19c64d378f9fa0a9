#include "export/Section.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "export/OwnCables.h"
#include "export/PathFindings.h"
#include "export/TruePositions.h"
#include "geo/Plane.h"
#include "geo/Utm.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaEstrattoFile";
constexpr std::size_t C1 = 12;

/// The electrode grid along the section.
class ElectrodeGrid {
 public:
  ElectrodeGrid(const CableGeometry& cable, double offset) : cable_(cable), offset_(offset) {}

  /// Place of electrode e along the section when the point lies D metres from its start, snapped to the grid.
  std::optional<double> place(std::size_t e, double D) const {
    const double steps = std::trunc((cable_.PosRelative.at(e) + D - cable_.Span) / cable_.Passo);
    const double x = steps * cable_.Passo + offset_;
    return std::isfinite(x) ? std::optional(x) : std::nullopt;
  }
  /// The same for a firing that names its own electrodes: its head is snapped, so that its distances stay as they are.
  /// @param behind position of the electrode along the cable minus the head's
  double ownPlace(double behind, double D) const {
    const double head = std::trunc((D - cable_.Span) / cable_.Passo) * cable_.Passo;
    const double x = head + behind + offset_;
    return std::isfinite(x) ? x : 0.0;
  }

 private:
  const CableGeometry& cable_;
  double offset_;
};

/// Everything that one extraction works on.
struct Extraction {
  const SectionRequest& request;
  const CableGeometry cable;
  const ElectrodeGrid grid;
  const OwnCables own;
  Section section;
  SailedLines lines;  ///< until the section takes them

  bool along() const { return request.shape == CableShape::AlongTrack; }
  /// Place of electrode e of a firing D metres from the section's start, on the straight cable.
  double place(const Misura& m, std::size_t e, double D) const {
    return m.CavoProprio ? grid.ownPlace(own.dietro(m, e), D) : grid.place(e, D).value_or(0.0);
  }
  /// How far behind the antenna, along the path, electrode e of a firing lies, and the middle of its current dipole, m.
  /// The survey's one cable serves all firings but those that name their own electrodes.
  double dietro(const Misura& m, std::size_t e) const {
    return m.CavoProprio ? request.OffsetCavo - own.dietro(m, e) : cable.Dietro(e, request.OffsetCavo);
  }
  double lag(const Misura& m) const {
    return m.CavoProprio ? own.lag(m) + request.OffsetCavo : cable.Lag(request.OffsetCavo);
  }
};

/// Positions that were interpolated in degrees lie on the straight line between them on the sphere, not on the grid.
void RicalcolaUTM(Survey& survey) {
  for (Misura& m : survey.Misure) {
    const auto* degrees = std::get_if<Geographic>(&m.sorgente);
    if (degrees == nullptr || !m.Interpolata) continue;
    const std::optional<Grid> place = VersoUTM(*degrees, survey.settings.griglia);
    if (!place) continue;
    m.UTMx = place->easting;
    m.UTMy = place->northing;
  }
}

Misura& Punto(Survey& survey, std::int32_t p) { return survey.Misure(static_cast<std::size_t>(p)); }

std::vector<std::int32_t> PuntiTenuti(const Survey& survey, std::int32_t E1, std::int32_t E2) {
  std::vector<std::int32_t> kept;
  for (std::int32_t p = E1; p <= E2; ++p) {
    if (Tenuta(survey.Misure(static_cast<std::size_t>(p)))) kept.push_back(p);
  }
  return kept;
}

/// Gives every point of a profile between the kept ones the values of the kept one before it, those at the start the
/// values of the first.
void RipetiTenuti(Profile& profile, const std::vector<std::int32_t>& kept) {
  ProfilePoint last = profile(kept.front());
  std::size_t next = 0;
  for (std::int32_t p = profile.Primo(); p <= profile.Ultimo(); ++p) {
    if (next < kept.size() && kept[next] == p) {
      last = profile(p);
      ++next;
    }
    profile(p) = last;
  }
}

Profile CreaProfilo(Survey& survey, const Extraction& x, const std::vector<std::int32_t>& kept) {
  Profile profile(x.section.E1, x.section.E2);
  const ProfilePoint* previous = nullptr;
  for (const std::int32_t p : kept) {
    const Misura& m = Punto(survey, p);
    ProfilePoint& point = profile(p);
    point = {m.UTMx, m.UTMy, std::isfinite(m.Val12) ? std::abs(static_cast<double>(m.Val12)) : 0.0, 0.0};
    if (previous != nullptr)
      point.distanza = previous->distanza + dist(previous->est, previous->nord, point.est, point.nord);
    if (x.along()) point.distanza = x.lines.fix(p).x();
    previous = &point;
  }
  RipetiTenuti(profile, kept);
  return profile;
}

/// x of a firing's true position on the path: that of its current dipole, or of its own where that is the true one.
double LuogoVero(const Misura& m, const Extraction& x, const LineFix& fix) {
  return x.request.position == TruePosition::ExternalGps ? fix.x() : fix.x() - x.lag(m);
}

/// Depth under a place on the section, as the echo sounder ahead of or behind it saw it.
float Profondita(const Extraction& x, double place) {
  return AssegnaZ(x.section.Profilo, x.section.E1, x.section.E2, place + x.request.OffsetEco + x.cable.Span);
}

double DistanzaDaE1(const Section& section, std::int32_t p) {
  const ProfilePoint& a = section.Profilo(section.E1);
  const ProfilePoint& b = section.Profilo(p);
  return dist(a.est, a.nord, b.est, b.nord);
}

void CreaProfiloVero(const Survey& survey, Extraction& x, const std::vector<std::int32_t>& kept) {
  x.section.ProfiloVero = x.section.Profilo;
  for (const std::int32_t p : kept) {
    const Misura& m = survey.Misure(static_cast<std::size_t>(p));
    if (x.along()) {
      const LineFix fix = x.lines.fix(p);
      const double at = LuogoVero(m, x, fix);
      x.section.ProfiloVero(p) = {m.Deriv[3], m.Deriv[4], fix.profondita(at, x.request.OffsetEco), at};
      continue;
    }
    const double place = x.place(m, C1, DistanzaDaE1(x.section, p));
    x.section.ProfiloVero(p) = {m.Deriv[3], m.Deriv[4], static_cast<double>(Profondita(x, place)),
                                x.section.Profilo(p).distanza};
  }
  RipetiTenuti(x.section.ProfiloVero, kept);
}

/// A coordinate as the files hold it: rounded to centimetres through its text, then a single.
float CoordinataScritta(double value) { return SingoloOppure(Val(FormattaNumero(value, "#######0.00")), 0.0F); }

/// Electrodes of the straight cable, D metres from the section's start.
void PoniSullaGriglia(SectionPoint& point, const Misura& m, const Extraction& x, double D) {
  for (std::size_t e = 1; e <= CableElectrodes; ++e) {
    point.x.at(e) = SingoloOppure(x.place(m, e, D), 0.0F);
    if (x.request.echoSounder) point.z.at(e) = Profondita(x, point.x.at(e));
  }
}

/// Electrodes behind the antenna's place on its path, as far as the cable says.
void PoniLungoTraccia(SectionPoint& point, const Misura& m, const Extraction& x, const LineFix& fix) {
  for (std::size_t e = 1; e <= CableElectrodes; ++e) {
    const double at = fix.x() - x.dietro(m, e);
    point.x.at(e) = SingoloOppure(at, 0.0F);
    if (x.request.echoSounder) point.z.at(e) = SingoloOppure(fix.profondita(at, x.request.OffsetEco), 0.0F);
  }
}

/// Readings of one firing; where it and its electrodes lie is another's matter.
SectionPoint CreaPunto(const Misura& m) {
  SectionPoint point;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const double a = m.CanaleA.at(c), b = m.CanaleB.at(c);
    point.potential.at(c) = SingoloOppure((a - b) / 2.0, 0.0F);
  }
  point.file = m.NumFile;
  point.linea = m.Linea;
  point.letture = m.letture;
  point.inUso = InUso(m);
  point.caricabilita = m.Caricabilita;
  point.deviazione = m.Deviazione;
  point.conQualita = m.ConQualita;
  point.posta = HaPosizione(m);
  point.resistivity = m.Rho;
  point.current = SingoloOppure((static_cast<double>(m.Val180) - static_cast<double>(m.Val184)) / 2.0, 0.0F);
  return point;
}

/// Ten records for each point that is not left out; one without a position takes the true place of the kept one before.
void CreaRecord(const Survey& survey, Extraction& x, std::int32_t firstKept) {
  Section& section = x.section;
  section.RecordOut.reserve(static_cast<std::size_t>(section.E2 - section.E1) + 1);
  const Misura* place = &survey.Misure(static_cast<std::size_t>(firstKept));
  for (std::int32_t p = section.E1; p <= section.E2; ++p) {
    const Misura& m = survey.Misure(static_cast<std::size_t>(p));
    if (m.Scartata) continue;
    if (HaPosizione(m)) place = &m;
    SectionPoint point = CreaPunto(m);
    x.along() ? PoniLungoTraccia(point, m, x, x.lines.fix(p)) : PoniSullaGriglia(point, m, x, DistanzaDaE1(section, p));
    point.misura = p;
    point.estVero = place->Deriv[3];
    point.nordVero = place->Deriv[4];
    point.est = CoordinataScritta(point.estVero);
    point.nord = CoordinataScritta(point.nordVero);
    ++section.points;
    section.RecordOut.append(point);
  }
}

/// Puts the kept points where the path says that the current dipole's middle was.
void PonePosizioniSulPercorso(Survey& survey, const std::vector<std::int32_t>& kept, const Extraction& x) {
  for (const std::int32_t p : kept) {
    Misura& m = Punto(survey, p);
    const LineFix fix = x.lines.fix(p);
    const bool asStored = x.request.position == TruePosition::ExternalGps;
    const PlanPoint place = asStored ? PlanPoint{m.UTMx, m.UTMy} : fix.luogo(LuogoVero(m, x, fix));
    m.Deriv[3] = place.est;
    m.Deriv[4] = place.nord;
  }
}

/// Moves the kept points and writes their true places back.
void PonePosizioniVere(Survey& survey, const std::vector<std::int32_t>& kept, const Extraction& x, Findings& findings) {
  if (x.along()) return PonePosizioniSulPercorso(survey, kept, x);
  std::vector<PlanPoint> stored;
  std::vector<double> lags;
  stored.reserve(kept.size());
  lags.reserve(kept.size());
  for (const std::int32_t p : kept) {
    stored.push_back({Punto(survey, p).UTMx, Punto(survey, p).UTMy});
    lags.push_back(x.lag(Punto(survey, p)));
  }
  const double lag = lags.front();
  const TruePlaces moved = CalcolaPosizioniVere(stored, x.request.position, lags);
  for (std::size_t i = 0; i < kept.size(); ++i) {
    Punto(survey, kept[i]).Deriv[3] = moved.places[i].est;
    Punto(survey, kept[i]).Deriv[4] = moved.places[i].nord;
  }
  if (moved.bend > std::abs(lag)) {
    findings.note(Procedure, "the section bends: a point lies " + TestoDecimi(moved.bend) +
                                 " m from the straight line along which true positions were moved back by " +
                                 TestoDecimi(lag) + " m");
  }
}

/// Records whose potential electrodes fall on one place of the grid.
void RilevaCoincidenti(const Section& section, Findings& findings) {
  if (section.Passo == 0.0) return;
  std::size_t count = 0, unread = 0;  // and those of channels without a reading
  const SectionPoint* first = nullptr;
  std::size_t channel = 0;
  for (const SectionPoint& point : section.RecordOut.points()) {
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if (point.x.at(c) != point.x.at(c + 1)) continue;
      unread += (point.letture & BitDi(c)) == 0 ? 1U : 0U;
      if (count++ > 0) continue;
      first = &point;
      channel = c;
    }
  }
  if (first == nullptr) return;
  std::string told = std::to_string(count) + " of " + std::to_string(section.NqpBin()) + " records " +
                     (count == 1 ? "has" : "have") + " both potential electrodes at one place";
  const std::string place = std::string(IlPrimo(count)) + "channel " + std::to_string(channel) + " of measurement " +
                            std::to_string(first->misura);
  if (unread == count) {  // a survey of few channels is none the worse for it
    findings.note(Procedure, told + ", of channels without a reading" + place);
    return;
  }
  if (section.shape == CableShape::Straight) {
    told += ", since places are multiples of the distance of C1 and C2 (" +
            TestoNumero(std::round(section.Passo * 1000.0) / 1000.0) + " m)";
  }
  if (unread > 0) told += "; " + std::to_string(unread) + " of them without a reading";
  findings.fault(Procedure, told + place);
}

/// Measurements that are written although nobody knows where they were.
void RilevaSenzaPosizione(const Section& section, Findings& findings) {
  const auto& points = section.RecordOut.points();
  const auto lost = std::count_if(points.begin(), points.end(), [](const SectionPoint& p) { return !p.posta; });
  if (lost == 0) return;
  findings.fault(Procedure, std::to_string(lost) + " of " + std::to_string(section.points) + " measurements " +
                                (lost == 1 ? "has no position and is" : "have no position and are") +
                                " written at that of the one before: \"Skip bad GPS\" leaves out what has none, "
                                "\"Interpolate bad GPS\" places it");
}

}  // namespace

Section EstraiSezione(Survey& survey, const SectionRequest& request, Findings& findings) {
  const CableGeometry cable = MisuraCavo(survey.cavo);
  Extraction x{request, cable, ElectrodeGrid(x.cable, request.OffsetCavo), OwnCables(survey), {}, {}};
  x.section.E1 = request.E1;
  x.section.E2 = request.E2;
  x.section.Passo = cable.Passo;
  x.section.Lunghezza = -cable.Span;
  x.section.OffsetCavo = request.OffsetCavo;
  x.section.OffsetEco = request.OffsetEco;
  x.section.griglia = survey.settings.griglia;
  x.section.altezza = survey.traccia.AltezzaCella;
  x.section.shape = request.shape;
  RicalcolaUTM(survey);
  const std::vector<std::int32_t> kept = PuntiTenuti(survey, request.E1, request.E2);
  if (kept.empty()) {
    findings.fault(Procedure, "no measurement of the section has a position: no records");
    return std::move(x.section);
  }
  if (cable.Passo == 0.0 && !x.along()) {
    findings.fault(Procedure, "C1 and C2 coincide, the electrode spacing is 0: places along the section are left 0");
  }
  x.lines = SailedLines(survey, request.E1, request.E2, request.smoothing.value_or(cable.Passo));
  x.section.Profilo = CreaProfilo(survey, x, kept);
  PonePosizioniVere(survey, kept, x, findings);
  if (request.echoSounder) CreaProfiloVero(survey, x, kept);
  CreaRecord(survey, x, kept.front());
  const auto dietro = [&](std::int32_t p, std::size_t e) { return x.dietro(Punto(survey, p), e); };
  const CableOnPath behind{survey, x.section, x.lines, kept, dietro};
  if (x.along()) RilevaPercorso(behind, findings);
  RilevaDifferenza(behind, findings);
  if (x.along()) x.section.lines = std::move(x.lines);
  RilevaCoincidenti(x.section, findings);
  RilevaSenzaPosizione(x.section, findings);
  return std::move(x.section);
}

}  // namespace corvan

#include "view3d/Scene.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <limits>

#include "base/Halves.h"
#include "base/Rounding.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

/// Coordinates of the scene stay below this, so that no rotation leaves the range of singles.
constexpr double SceneLimit = static_cast<double>(std::numeric_limits<float>::max()) / 4.0;

/// A coordinate of the scene; a place that is out of its range has none and falls on the origin.
float Coordinata(double value) { return std::abs(value) <= SceneLimit ? static_cast<float>(value) : 0.0F; }

struct Place {
  float x = 0, y = 0;
};

/// Positions relative to the scene's origin, with the translation of the data.
class Origin {
 public:
  explicit Origin(const Survey& survey)
      : x0_(survey.traccia.CentroX),
        y0_(survey.traccia.CentroY),
        tx_(survey.settings.TraslDatiEst),
        ty_(survey.settings.TraslDatiNord) {}

  Place of(const Misura& m) const { return {Coordinata(m.UTMx - x0_ + tx_), Coordinata(m.UTMy - y0_ + ty_)}; }
  Place between(const Misura& a, const Misura& b) const {
    return {Coordinata((a.UTMx + b.UTMx) / 2.0 - x0_ + tx_), Coordinata((a.UTMy + b.UTMy) / 2.0 - y0_ + ty_)};
  }

 private:
  double x0_, y0_, tx_, ty_;
};

/// The neighbour shares an edge: it is kept and of the same line.
bool Confina(const Survey& survey, std::size_t neighbour, const Misura& m) {
  if (!survey.Misure.contains(neighbour)) return false;
  const Misura& other = survey.Misure(neighbour);
  return Tenuta(other) && StessaLinea(other, m);
}

/// The cell of a reading that does not exist: what is not finite is not drawn.
constexpr float NoCell = std::numeric_limits<float>::quiet_NaN();

CellColumn CreaColonna(const Survey& survey, const Origin& origin, std::size_t i) {
  const Misura& m = survey.Misure(i);
  CellColumn column;
  if (!Tenuta(m)) return column;
  const Place before = Confina(survey, i - 1, m) ? origin.between(survey.Misure(i - 1), m) : origin.of(m);
  const Place behind = Confina(survey, i + 1, m) ? origin.between(m, survey.Misure(i + 1)) : origin.of(m);
  column = {before.x, before.y, behind.x, behind.y, {}, true, static_cast<ReadingSet>(m.letture & m.escluse)};
  for (std::size_t c = 1; c <= MaxChannels; ++c) column.rho.at(c - 1) = HaLettura(m, c) ? m.Rho.at(c) : NoCell;
  return column;
}

/// Height of a level as it is shown, m.
double Spessore(const Scene& scene, const Survey& survey) { return survey.traccia.AltezzaCella * scene.esagerazione; }

/// Height of the bottom under a depth, m of the scene: depths count in levels of the curtain.
float Fondo(double depth, double level) { return std::isfinite(depth) ? Coordinata(-std::abs(depth) * level) : 0.0F; }

Array1<Punto3D> Aperto(std::size_t count) { return Array1<Punto3D>(count); }

/// Copies point 1 of a closed outline to its end.
void Chiudi(Array1<Punto3D>& outline) {
  if (outline.size() > 1) outline(outline.size()) = outline(1);
}

/// The arrow on its design grid: 1..8 its outline, 9..18 the letter N inside it; y grows southwards.
struct GridPoint {
  int x, y;
};
constexpr std::array<GridPoint, 18> Arrow{{{12, 13},
                                           {12, 9},
                                           {17, 4},
                                           {22, 9},
                                           {22, 32},
                                           {17, 27},
                                           {12, 32},
                                           {12, 13},
                                           {13, 13},
                                           {21, 21},
                                           {21, 13},
                                           {22, 13},
                                           {22, 23},
                                           {21, 23},
                                           {13, 15},
                                           {13, 23},
                                           {12, 23},
                                           {12, 13}}};

}  // namespace

Punto3D Curtain::QuadPunti(std::int32_t cell, std::size_t corner) const {
  const auto index = static_cast<std::size_t>(cell - 1);
  const CellColumn& column = columns(index / MaxChannels + 1);
  const std::size_t level = index % MaxChannels;
  if (!column.present) return {};
  const bool behind = corner == 2 || corner == 3;
  return {behind ? column.x2 : column.x1, behind ? column.y2 : column.y1, z.at(corner <= 2 ? level : level + 1),
          column.rho.at(level)};
}

void CreaFourArray(Scene& scene, const Survey& survey) {
  Curtain& cells = scene.cells;
  const Origin origin(survey);
  const std::size_t count = survey.Misure.size();
  cells.columns = Array1<CellColumn>(count);
  cells.NQuad = static_cast<std::int32_t>(MaxChannels * count);
  const double level = Spessore(scene, survey);
  for (std::size_t k = 0; k <= MaxChannels; ++k) cells.z.at(k) = Coordinata(-static_cast<double>(k) * level);
  InDueMeta(count, [&](std::size_t from, std::size_t to) {
    for (std::size_t i = from + 1; i <= to; ++i) cells.columns(i) = CreaColonna(survey, origin, i);
    return true;
  });
}

void GeneraTraiettoria(Scene& scene, const Survey& survey) {
  const Origin origin(survey);
  scene.trajectory = Aperto(survey.Misure.size());
  scene.est0 = survey.traccia.CentroX;
  scene.nord0 = survey.traccia.CentroY;
  scene.lineEnds.clear();
  scene.lineNames.clear();
  scene.placed.assign(survey.Misure.size(), false);
  // A measurement without position repeats the one before it, at the start the first that has one: outlines then run
  // on instead of turning off to the scene's origin.
  const auto start = std::find_if(survey.Misure.begin(), survey.Misure.end(), HaPosizione);
  const auto at = [&origin](const Misura& m) {
    const Place place = origin.of(m);
    return Punto3D{place.x, place.y, 0.0F, m.Val12};
  };
  Punto3D last = start == survey.Misure.end() ? Punto3D() : at(*start);
  // A line ends before the first measurement with a position that is of another line: empty firings name none.
  const Misura* line = nullptr;  // its first
  for (std::size_t k = 1; k <= survey.Misure.size(); ++k) {
    const Misura& m = survey.Misure(k);
    const bool placed = HaPosizione(m);
    scene.placed[k - 1] = placed;
    if (placed) last = at(m);
    scene.trajectory(k) = last;
    if (!placed || m.NumFile == 0) continue;
    if (line != nullptr && StessaLinea(*line, m)) continue;
    if (line != nullptr) scene.lineEnds.push_back(k - 1);
    scene.lineNames.push_back(NomeLinea(survey, m));
    line = &m;
  }
  if (!survey.Misure.empty()) scene.lineEnds.push_back(survey.Misure.size());
  scene.lineNames.resize(scene.lineEnds.size());
}

void GeneraGPS(Scene& scene, const Survey& survey) {
  scene.gps = Aperto(survey.tracciaEst.PuntiGPSEst.size());
  for (std::size_t k = 1; k <= scene.gps.size(); ++k) {
    const PuntoGPSEst& fix = survey.tracciaEst.PuntiGPSEst(k);
    scene.gps(k) = {Coordinata(fix.X - survey.traccia.CentroX), Coordinata(fix.Y - survey.traccia.CentroY), 0.0F, 0.0F};
  }
}

void GeneraGPSD(Scene& scene, const Survey& survey) {
  scene.gpsDepth = Aperto(survey.tracciaEst.PuntiGPSEst.size());
  const double level = Spessore(scene, survey);
  for (std::size_t k = 1; k <= scene.gpsDepth.size(); ++k) {
    const PuntoGPSEst& fix = survey.tracciaEst.PuntiGPSEst(k);
    scene.gpsDepth(k) = {Coordinata(fix.X - survey.traccia.CentroX), Coordinata(fix.Y - survey.traccia.CentroY),
                         Fondo(fix.Prof, level), SingoloOppure(fix.Prof, 0.0F)};
  }
}

void GeneraEchoSounder(Scene& scene, const Survey& survey) {
  const Settings& s = survey.settings;
  const std::size_t n = scene.trajectory.size();
  scene.echoSounder = Aperto(n == 0 ? 0 : 2 * n + 1);
  const double level = Spessore(scene, survey);
  for (std::size_t k = 1; k <= n; ++k) {
    Punto3D there = scene.trajectory(k);
    there.z = Fondo(there.w, level);
    scene.echoSounder(2 * n + 1 - k) = there;
    there.x = Coordinata(static_cast<double>(there.x) + s.TraslFondoEst);
    there.y = Coordinata(static_cast<double>(there.y) + s.TraslFondoNord);
    scene.echoSounder(k) = there;
  }
  Chiudi(scene.echoSounder);
}

void GeneraContorno(Scene& scene, const Survey& survey) {
  const std::size_t n = scene.trajectory.size();
  scene.livelli = std::clamp(survey.file.NumCanali, 0, static_cast<std::int32_t>(MaxChannels));
  const double levels = scene.livelli;
  scene.outline = Aperto(n == 0 ? 0 : 2 * n + 1);
  for (std::size_t k = 1; k <= n; ++k) {
    Punto3D& bottom = scene.outline(2 * n + 1 - k) = scene.trajectory(k);
    bottom.z = Coordinata(bottom.z - levels * Spessore(scene, survey));
    scene.outline(k) = scene.trajectory(k);
  }
  Chiudi(scene.outline);
}

void GeneraNordG(Scene& scene, double L) {
  const double window = L / 2.0;  // the offsets count in halves of the window: the arrow stands inside it
  scene.northArrow = Aperto(Arrow.size());
  for (std::size_t k = 1; k <= Arrow.size(); ++k) {
    const auto& [gx, gy] = Arrow.at(k - 1);
    scene.northArrow(k) = {Coordinata((gx - 17) * L / 200.0 - 0.75 * window),
                           Coordinata(-0.85 * window - (gy - 17) * L / 200.0), 0.0F, 0.0F};
  }
}

void GeneraCavoG(Scene& scene, const Survey& survey, double X, double Y, double Pendenza, bool Verticale) {
  const double sine = Pendenza / std::sqrt(Pendenza * Pendenza + 1.0);
  const double cosine = std::sqrt(1.0 - sine * sine);
  const double x0 = survey.traccia.CentroX, y0 = survey.traccia.CentroY;
  scene.cable = Aperto(CableElectrodes);
  for (std::size_t k = 1; k <= CableElectrodes; ++k) {
    const double d = survey.cavo.PosCavo.at(k);
    scene.cable(k) = {Coordinata((Verticale ? 0.0 : d * cosine) + X - x0),
                      Coordinata((Verticale ? d : d * sine) + Y - y0), 0.0F, 0.0F};
  }
}

void GeneraCavoDiMisura(Scene& scene, const Survey& survey, std::size_t k) {
  if (!survey.Misure.contains(k) || !Tenuta(survey.Misure(k))) return;
  const Misura& m = survey.Misure(k);
  const Misura& before = Confina(survey, k - 1, m) ? survey.Misure(k - 1) : m;
  const Misura& behind = Confina(survey, k + 1, m) ? survey.Misure(k + 1) : m;
  const double dx = behind.UTMx - before.UTMx, dy = behind.UTMy - before.UTMy;
  const bool vertical = dx == 0.0;
  GeneraCavoG(scene, survey, m.UTMx, m.UTMy, vertical ? 0.0 : dy / dx, vertical);
}

}  // namespace corvan

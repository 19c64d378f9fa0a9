// A winding survey and its cells painted the plain way, one by one.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "base/Rounding.h"
#include "picture/Palette.h"
#include "Pictures.h"
#include "view3d/Renderer.h"
#include "view3d/Routine3D.h"

namespace corvan::test {

/// A survey that winds about, with a lost fix, two lines and a reading that is not finite.
inline Survey Winding() {
  std::vector<Firing> firings;
  firings.reserve(60);
  for (int i = 0; i < 60; ++i) {
    firings.push_back({300000 + 40 * std::sin(i / 9.0), 5e6 + 1.5 * i - 40, static_cast<std::int16_t>(i < 35 ? 1 : 2)});
  }
  firings[20] = {0, 0};
  Survey survey = SurveyOf(firings);
  survey.traccia.AltezzaCella = 2.5;
  survey.Misure(5).Rho[3] = std::numeric_limits<float>::quiet_NaN();
  return survey;
}

struct Prepared {
  Survey survey;
  Scene scene;
  ColourScale colours{{0, 64}};
  ViewState view;

  explicit Prepared(Survey given) : survey(std::move(given)) {
    CreaFourArray(scene, survey);
    GeneraTraiettoria(scene, survey);
    GeneraContorno(scene, survey);
    view.AreaPixel = {0, 300, 0, 200};
    view.layers.MostraNomi = view.layers.MostraGriglia = view.layers.MostraAsse = view.layers.MostraScala = false;
    view.mappa.livello = 0;
    update();
  }
  /// A window that just holds the survey's larger extent, without the margin of a first view: numbers stay round.
  void update() {
    const double half = std::max({survey.traccia.EstensioneX, survey.traccia.EstensioneY, 10.0}) / 2;
    const double ratio = view.AreaPixel.width() / view.AreaPixel.height();
    ImpostaFinestra(view, survey.traccia);
    view.FinestraBase = {-half * ratio, half * ratio, -half, half};
    const auto single = [](double v) { return static_cast<float>(v); };
    view.FinestraIniziale = {single(-half * ratio), single(half * ratio), single(-half), single(half)};
    ImpostaProspettiva(view);
    AggiornaZoom(view);
  }
};

struct Painted : TestCanvas {
  explicit Painted(const Prepared& p) : TestCanvas(p.view.AreaPixel.right, p.view.AreaPixel.bottom) {
    Renderer().DisegnaImmagineQ(p.scene, p.view, p.colours, {}, *this);
  }
};

struct PlainCell {
  float depth;
  PixelQuad quad;
  std::int32_t number;  ///< of the cell, 1-based
};

/// The cells one by one, step by step, as the view is described: no shared edges, no culling, no tricks.
inline std::vector<PlainCell> PlainCells(const Prepared& p) {
  const ViewState& v = p.view;
  std::vector<PlainCell> cells;
  for (std::int32_t c = 1; c <= p.scene.cells.NQuad; ++c) {
    if (!p.scene.cells.columns(static_cast<std::size_t>(c - 1) / 10 + 1).present) continue;
    std::array<Punto3D, 4> turned;
    PixelQuad quad;
    for (std::size_t i = 0; i < 4; ++i) {
      const Punto3D q = p.scene.cells.QuadPunti(c, i + 1);
      turned[i] = RuotaZ(RuotaY(RuotaX(q, v.CentroVista, v.AngoloVista), v.CentroVista, v.AngoloGamma), v.CentroVista,
                         v.AngoloPhi);
      Punto3D seen{turned[i].x, turned[i].z, 0, 0};
      if (v.projection == Projection::Perspective) {
        const double shifted = turned[i].x + (static_cast<double>(v.FinestraIniziale.zmax) - turned[i].y);
        Punto3D p1 = seen, p2{static_cast<float>(shifted), seen.y, 0, 0};
        Punto3D p3{v.marker.FugaX, v.marker.OrizzonteZ, 0, 0},
            p4{v.marker.FugaX - v.marker.DistanzaFuga, v.marker.OrizzonteZ, 0, 0};
        seen = IntersecaRette(p1, p2, p3, p4);
      }
      const auto& w = v.Finestra;
      const PixelArea& a = v.AreaPixel;
      const auto pixel = [](double x, double w1, double w2, int p1, int p2) {
        return static_cast<std::int32_t>(p1 + ArrotondaPari((x - w1) * (p2 - p1) / (w2 - w1)));
      };
      quad.corner[i] = {pixel(seen.x, w.xmin, w.xmax, a.left, a.right), pixel(seen.y, w.zmin, w.zmax, a.top, a.bottom)};
    }
    const auto mean = [&](float Punto3D::*part) {
      double sum = 0;
      for (const Punto3D& q : turned) sum += q.*part;
      return static_cast<float>(sum / 4);
    };
    const Punto3D m{mean(&Punto3D::x), mean(&Punto3D::y), mean(&Punto3D::z), 0};
    const auto minus = [&m](const Punto3D& q) { return Punto3D{q.x - m.x, q.y - m.y, q.z - m.z, 0}; };
    const Punto3D n = ProdottoVettore(minus(turned[0]), minus(turned[1]));
    const double f = std::abs(CosenoAngolo(n, {0, 1, 0, 0})) * 0.7 + 0.3;
    const float rho = p.scene.cells.QuadPunti(c, 4).w;
    if (!std::isfinite(rho)) continue;
    float colour = 0;
    CreaColore(p.colours.range.ScalaMax, p.colours.range.ScalaMin, rho, colour);
    const ColourParts parts = ScomponiColore(static_cast<std::int32_t>(colour));
    const auto shade = [f](int part) { return static_cast<Colour>(ArrotondaPari(part * f)); };
    quad.colour = shade(parts.Rosso) << 16U | shade(parts.Verde) << 8U | shade(parts.Blu);
    cells.push_back({turned[0].y, quad, c});
  }
  std::stable_sort(cells.begin(), cells.end(), [](const auto& a, const auto& b) { return a.depth < b.depth; });
  return cells;
}

}  // namespace corvan::test

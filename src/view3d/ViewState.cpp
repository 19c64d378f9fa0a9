#include "view3d/ViewState.h"

#include <algorithm>
#include <cmath>

#include "picture/Legend.h"

namespace corvan {
namespace {

constexpr float SmallestWindow = 10.0F;  // m: a survey at one place still has something to look at

/// Angle of a normalised position: -pi at edge 1, pi at edge 2.
double Angolo(double p, double edge1, double edge2) { return (2.0 * (p - edge1) / (edge2 - edge1) - 1.0) * Pi; }

/// -1 at the top of the picture, 1 at its bottom.
double Altezza(std::int32_t y, const PixelArea& area) {
  const double place = (2.0 * y - area.top - area.bottom) / area.height();
  return std::clamp(place, -1.0, 1.0);
}

/// A change that a picture without size would make meaningless is left out.
void Assegna(double& target, double value) {
  if (std::isfinite(value)) target = value;
}

}  // namespace

void AzzeraVista(ViewState& view) {
  view.AngoloVista = Pi / 2;
  view.AngoloPhi = view.AngoloGamma = 0.0;
  view.ZoomFattore = 1.0F;
  view.drag.LogZoom0 = 0.0F;
  const bool info = view.layers.MostraInfo;
  view.layers = Layers{};
  view.layers.MostraInfo = info;
}

double Margine(const PixelArea& area) {
  constexpr double least = 1.15, most = 1.7, lower = 0.6, whole = 1.1;  // window heights, see AggiornaZoom
  const auto text = static_cast<std::int32_t>(1.2 * AltezzaCarattere(static_cast<std::int32_t>(area.height())));
  const double band = (AltezzaLegenda(text) + 2.0 * text) / std::max(area.height(), 1.0);
  const double room = lower - whole * band;
  return room > 0.5 / most ? std::max(least, 0.5 / room) : most;
}

void ImpostaFinestra(ViewState& view, const TrackExtent& extent) {
  const float north = SingoloOppure(extent.EstensioneY, 0.0F);
  const float east = SingoloOppure(extent.EstensioneX, 0.0F);
  view.Lato = std::max({north, east, SmallestWindow});
  const PixelArea& area = view.AreaPixel;
  const double ratio = area.width() > 0.0 && area.height() > 0.0 ? area.width() / area.height() : 1.0;
  constexpr double sides = 1.15, lowered = 1.1;  // the window's height, once its lower edge is moved down
  const double half = 0.5 * std::max(view.Lato * Margine(area), sides * east / (lowered * ratio));
  const double across = half * lowered * ratio;
  const Punto3D& c = view.CentroVista;
  view.FinestraBase = {c.x - across, c.x + across, c.z - half, c.z + half};
  const ViewWindow<double>& base = view.FinestraBase;
  view.FinestraIniziale = {SingoloOppure(base.xmin, 0.0F), SingoloOppure(base.xmax, 0.0F),
                           SingoloOppure(base.zmin, 0.0F), SingoloOppure(base.zmax, 0.0F)};
  view.marker.OrizzonteMin = 0.0F;
  view.marker.OrizzonteMax = 0.01F;
  ImpostaProspettiva(view);
}

void AggiornaZoom(ViewState& view) {
  const ViewWindow<double>& base = view.FinestraBase;
  const double f = view.ZoomFattore;
  const double cx = (base.xmin + base.xmax) / 2.0, halfWidth = (base.xmax - base.xmin) / 2.0;
  const double cz = (base.zmin + base.zmax) / 2.0, halfHeight = (base.zmax - base.zmin) / 2.0;
  ViewWindow<float>& w = view.Finestra;
  w.xmax = SingoloOppure(cx + halfWidth * f, w.xmax);
  w.xmin = SingoloOppure(cx - halfWidth * f, w.xmin);
  w.zmax = SingoloOppure(cz + halfHeight * (f * 1.2), w.zmax);
  w.zmin = SingoloOppure(cz - halfHeight * f, w.zmin);
}

void ImpostaProspettiva(ViewState& view) {
  const PixelArea& a = view.AreaPixel;
  const ViewWindow<float>& w = view.FinestraIniziale;
  if (!view.marker.posto) {
    view.marker.MarcatoreX = UnitaMarcatore((static_cast<double>(a.left) + a.right) / 2.0, a.right);
    view.marker.MarcatoreY = UnitaMarcatore((static_cast<double>(a.top) + a.bottom) / 2.0, a.bottom);
  }
  const double qx = 4.0 * view.marker.MarcatoreX - a.right;
  const double qy = 4.0 * view.marker.MarcatoreY - a.bottom;
  const double range = static_cast<double>(view.marker.OrizzonteMax) - view.marker.OrizzonteMin;
  const double span = static_cast<double>(w.xmax) - w.xmin;
  view.marker.OrizzonteZ =
      SingoloOppure(view.marker.OrizzonteMin + range * (qy - a.top) / a.height(), view.marker.OrizzonteZ);
  view.marker.FugaX = SingoloOppure(w.xmin + span * (qx - a.left) / a.width(), view.marker.FugaX);
  view.marker.DistanzaFuga = SingoloOppure(static_cast<double>(view.marker.FugaX) - w.xmin, view.marker.DistanzaFuga);
}

void AdattaArea(ViewState& view, const PixelArea& area, const TrackExtent& extent) {
  const PixelArea before = view.AreaPixel;
  const ViewWindow<double>& base = view.FinestraBase;
  const bool seen = base.xmax > base.xmin && before.width() > 0.0 && before.height() > 0.0;
  const double east = (base.xmin + base.xmax) / 2.0 - view.CentroVista.x;
  const double down = (base.zmin + base.zmax) / 2.0 - view.CentroVista.z;
  ViewMarker& marker = view.marker;
  const double acrossMarker = (4.0 * marker.MarcatoreX - before.right - before.left) / before.width();
  const double downMarker = (4.0 * marker.MarcatoreY - before.bottom - before.top) / before.height();
  view.AreaPixel = area;
  if (marker.posto && seen) {
    marker.MarcatoreX = UnitaMarcatore(area.left + acrossMarker * area.width(), area.right);
    marker.MarcatoreY = UnitaMarcatore(area.top + downMarker * area.height(), area.bottom);
  }
  ImpostaFinestra(view, extent);
  if (seen) SpostaBase(view, view.FinestraBase, east, down);
  AggiornaZoom(view);
}

void SpostaBase(ViewState& view, const ViewWindow<double>& from, double east, double down) {
  view.FinestraBase = {from.xmin + east, from.xmax + east, from.zmin + down, from.zmax + down};
}

void CalcolaThetaPhi(ViewState& view, DragAxis axis, const FreeAngles& free) {
  if (axis == DragAxis::None) return;
  const PixelArea& a = view.AreaPixel;
  if (axis == DragAxis::Theta && free.theta) {  // edges reversed: dragging upwards increases theta
    Assegna(view.AngoloVista, view.drag.AngoloVista0 + Angolo(view.drag.YNow, a.bottom, a.top) -
                                  Angolo(view.drag.YDown, a.bottom, a.top));
  }
  if (axis == DragAxis::Gamma && free.gamma) {
    Assegna(view.AngoloGamma, view.drag.AngoloGamma0 + Angolo(view.drag.YNow, a.top, a.bottom) -
                                  Angolo(view.drag.YDown, a.top, a.bottom));
  }
  if (free.phi) {
    Assegna(view.AngoloPhi,
            view.drag.AngoloPhi0 + Angolo(view.drag.XNow, a.left, a.right) - Angolo(view.drag.XDown, a.left, a.right));
  }
}

void CalcolaZoom(ViewState& view) {
  const double a = Altezza(view.drag.YZoomDown, view.AreaPixel);
  const double b = Altezza(view.drag.YZoomNow, view.AreaPixel);
  const float zoom = SingoloOppure(std::pow(10.0, b + view.drag.LogZoom0 - a), 0.0F);
  if (zoom > 0.0F) view.ZoomFattore = zoom;
}

void PassoZoom(ViewState& view, double decades) {
  const double exponent = std::log10(static_cast<double>(view.ZoomFattore)) + decades;
  if (std::isnan(exponent)) return;
  view.ZoomFattore = static_cast<float>(std::pow(10.0, std::clamp(exponent, -1.0, 1.0)));
}

void PassoAngolo(double& angle, double degrees) { angle = std::clamp(angle + InRadianti(degrees), -Pi, Pi); }

}  // namespace corvan

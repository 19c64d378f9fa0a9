#include "session/ViewDesk.h"

#include <utility>

#include "base/NumberText.h"

namespace corvan {
namespace {

constexpr Mask AngleMask = "##0.#";
constexpr Mask ZoomMask = "##0.##";
constexpr Mask MaxZoomMask = "###0.##";

std::string Gradi(double radians) { return FormattaNumero(InGradi(radians), AngleMask); }

}  // namespace

void ViewDesk::azzera() {
  AzzeraVista(picture_.view());
  mostraAngoli();
}

double& ViewDesk::angolo(Axis axis) {
  ViewState& view = picture_.view();
  return axis == Axis::Theta ? view.AngoloVista : axis == Axis::Phi ? view.AngoloPhi : view.AngoloGamma;
}

std::string& ViewDesk::casella(Axis axis) {
  return axis == Axis::Theta ? FrameView.Thetatxt : axis == Axis::Phi ? FrameView.Phitxt : FrameView.GammaTxt;
}

void ViewDesk::mostraAngoli() {
  for (const Axis axis : {Axis::Theta, Axis::Phi, Axis::Gamma}) casella(axis) = Gradi(angolo(axis));
  FrameView.Zoomtxt = FormattaNumero(state().ZoomFattore, ZoomMask);
}

void ViewDesk::ruota(Axis axis, double degrees) {
  angolo(axis) = InRadianti(degrees);
  picture_.disegna();
}

void ViewDesk::passo(Axis axis, double degrees) {
  PassoAngolo(angolo(axis), degrees);
  casella(axis) = Gradi(angolo(axis));
  picture_.disegna();
}

void ViewDesk::zoom(float factor) {
  picture_.view().ZoomFattore = factor;
  AggiornaZoom(picture_.view());
  picture_.disegna();
}

void ViewDesk::passoZoom(double decades) {
  PassoZoom(picture_.view(), decades);
  FrameView.Zoomtxt = FormattaNumero(state().ZoomFattore, decades > 0.0 ? MaxZoomMask : ZoomMask);
  AggiornaZoom(picture_.view());
  picture_.disegna();
}

void ViewDesk::proietta(Projection projection) {
  picture_.view().projection = projection;
  picture_.disegna();
}

void ViewDesk::mappa() {
  picture_.view().AngoloVista = InRadianti(90.0);
  picture_.view().AngoloGamma = 0.0;
  mostraAngoli();
  proietta(Projection::Orthographic);
}

void ViewDesk::obliqua() {
  constexpr double theta = 120.0, phi = 25.0;
  picture_.view().AngoloVista = InRadianti(theta);
  picture_.view().AngoloPhi = InRadianti(phi);
  picture_.view().AngoloGamma = 0.0;
  mostraAngoli();
  picture_.disegna();
}

void ViewDesk::daSopra(double phi) {
  ViewState& view = picture_.view();
  view.AngoloVista = InRadianti(90.0);
  view.AngoloGamma = 0.0;
  view.AngoloPhi = InRadianti(phi);
  inquadra();
}

void ViewDesk::ricentra() { picture_.rifaiFinestra(); }

void ViewDesk::inquadra() {
  picture_.view().ZoomFattore = 1.0F;
  mostraAngoli();
  picture_.rifaiFinestra();
}

void ViewDesk::mostra(bool Layers::*layer, bool shown) {
  picture_.view().layers.*layer = shown;
  if (layer == &Layers::MostraElettrodi) picture_.togliCavo();
  if (layer == &Layers::MostraInfo) annota();
  if (layer != &Layers::MostraTraslazione) picture_.disegna();
}

void ViewDesk::informa(const std::string& text, bool warns) {
  info_ = text;
  if (warns) picture_.view().layers.MostraInfo = true;
  annota();
}

void ViewDesk::segna(std::vector<std::int32_t> measurements, std::vector<std::int32_t> fixes) {
  notes_.picked = std::move(measurements);
  notes_.pickedFixes = std::move(fixes);
  annota();
  picture_.disegna();
}

void ViewDesk::annota() {
  notes_.info = state().layers.MostraInfo ? info_ : "";
  picture_.segna(notes_);
}

}  // namespace corvan

#include "session/ViewDesk.h"

#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "session/Caption.h"
#include "view3d/MapBand.h"

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
  inquadra();
}

void ViewDesk::daSopra(double phi) {
  ViewState& view = picture_.view();
  view.AngoloVista = InRadianti(90.0);
  view.AngoloGamma = 0.0;
  view.AngoloPhi = InRadianti(phi);
  view.ZoomFattore = 1.0F;
  mostraAngoli();
  picture_.rifaiFinestra();
}

void ViewDesk::ricentra() { picture_.rifaiFinestra(); }

void ViewDesk::inquadra() {
  picture_.inquadra();
  mostraAngoli();
}

void ViewDesk::mostraBanda(const MapColours& band) {
  picture_.view().mappa = band;
  if (band.livello > 0) level_ = band.livello;
  const std::int32_t channels = picture_.survey().file.NumCanali;
  if (channels > 0 && band.livello > channels) {
    desk_.findings.note("MapLevel", "there are " + std::to_string(channels) +
                                        " channels: the map shows nothing of level " + std::to_string(band.livello));
  }
  picture_.disegna();
}

void ViewDesk::alternaBanda() {
  const MapColours& shown = state().mappa;
  mostraBanda({shown.livello > 0 ? 0 : level_, shown.larghezza});
}

void ViewDesk::chiediBanda() {
  Trappola(desk_.findings, "MapLevel", [this] {
    const MapColours& shown = state().mappa;
    const std::string now = std::to_string(shown.livello) + ";" + std::to_string(shown.larghezza);
    const auto answer =
        desk_.dialogs.InputBox({.question = Question::MapLevel,
                                .defaultAnswer = now,
                                .details = "Level 1 to 10, 0 for none. A width of 0 fits the picture."});
    if (!answer || Rifila(*answer).empty()) return;
    const auto separator = answer->find(';');
    const auto level = NumeroDaCasella<std::int32_t>(answer->substr(0, separator), BandLevelBox, desk_.findings);
    if (!level) return;
    const auto width = separator == std::string::npos
                           ? std::optional(shown.larghezza)
                           : NumeroDaCasella<std::int32_t>(answer->substr(separator + 1), BandWidthBox, desk_.findings);
    if (width) mostraBanda({*level, *width});
  });
}

void ViewDesk::esagera(double factor) { picture_.esagera(factor); }

void ViewDesk::chiediEsagerazione() {
  Trappola(desk_.findings, "Exaggeration", [this] {
    const auto answer = desk_.dialogs.InputBox({.question = Question::Exaggeration,
                                                .defaultAnswer = TestoNumero(picture_.scene().esagerazione),
                                                .details = "1 shows the curtain as high as it is.",
                                                .number = true});
    if (!answer || Rifila(*answer).empty()) return;
    const auto factor = NumeroDaCasella<double>(*answer, ExaggerationBox, desk_.findings);
    if (factor) esagera(*factor);
  });
}

void ViewDesk::rotazioneViva(bool live, std::function<double()> milliseconds) {
  picture_.viva(live, std::move(milliseconds));
}

Caption ViewDesk::didascalia() const {
  const Scene& scene = picture_.scene();
  return DidascaliaVista(picture_.survey(), state(), MostraBanda(scene.cells, state()), scene.esagerazione);
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

void ViewDesk::segna(std::vector<std::int32_t> measurements, std::vector<std::int32_t> fixes,
                     std::optional<std::int32_t> E1, std::optional<std::int32_t> E2) {
  notes_.picked = std::move(measurements);
  notes_.pickedFixes = std::move(fixes);
  notes_.E1 = E1;
  notes_.E2 = E2;
  annota();
  picture_.disegna();
}

void ViewDesk::annota() {
  notes_.info = state().layers.MostraInfo ? info_ : "";
  picture_.segna(notes_);
}

}  // namespace corvan

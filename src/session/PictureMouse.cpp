#include "session/PictureMouse.h"

#include <cmath>
#include <cstdlib>

#include "base/Rounding.h"
#include "survey/MeasurementText.h"

namespace corvan {

PictureRequest PictureMouse::premi(const MouseEvent& mouse) {
  if (dragging_ != Dragging::Nothing) return {};  // the other button of a drag that runs
  const bool left = mouse.button == MouseButton::Left, plain = !mouse.shift && !mouse.ctrl;
  const ViewState& view = desk_.state();
  press_ = mouse;
  before_ = view;
  if (view.projection == Projection::Perspective && left && mouse.shift) {
    dragging_ = Dragging::Marker;
    muovi(mouse);
    return {};
  }
  const std::optional<std::int32_t> measurement = left ? std::nullopt : misura(mouse.x, mouse.y);
  if (measurement && mouse.shift && view.layers.MostraGPS2) {
    return {PictureAct::Connect, {TargetKind::Measurement, *measurement}};
  }
  if (measurement && plain) {
    dragging_ = Dragging::Cable;
    desk_.picture().mostraCavo(*measurement);
    return {};
  }
  pressed_ = left && plain ? bersaglio(mouse.x, mouse.y) : Target{};
  if (pressed_.kind != TargetKind::Nothing) {
    dragging_ = Dragging::Label;
  } else if (left && mouse.ctrl) {
    inizia(Dragging::Move, mouse);
  } else {
    inizia(left ? Dragging::Rotation : Dragging::Zoom, mouse);
  }
  return {};
}

void PictureMouse::inizia(Dragging kind, const MouseEvent& mouse) {
  dragging_ = kind;
  ViewState& view = desk_.picture().view();
  ViewDrag& drag = view.drag;
  drag.XDown = drag.XNow = static_cast<float>(mouse.x);
  drag.YDown = drag.YNow = static_cast<float>(mouse.y);
  drag.YZoomDown = drag.YZoomNow = mouse.y;
  drag.AngoloVista0 = view.AngoloVista;
  drag.AngoloPhi0 = view.AngoloPhi;
  drag.AngoloGamma0 = view.AngoloGamma;
  drag.LogZoom0 = SingoloOppure(std::log10(static_cast<double>(view.ZoomFattore)), 0.0F);
  drag.base = view.FinestraBase;
  desk_.picture().togliEtichette();
  if (kind == Dragging::Move) return;
  AggiornaZoom(view);
  desk_.picture().contorno();
}

/// A pressed label was dragged farther than a hand shakes.
bool PictureMouse::oltre(const MouseEvent& mouse) const {
  return dragging_ == Dragging::Label && std::abs(mouse.x - press_.x) + std::abs(mouse.y - press_.y) > slack_;
}

void PictureMouse::muovi(const MouseEvent& mouse) {
  if (oltre(mouse)) inizia(Dragging::Rotation, press_);
  ViewState& view = desk_.picture().view();
  view.drag.XNow = static_cast<float>(mouse.x);
  view.drag.YNow = static_cast<float>(mouse.y);
  switch (dragging_) {
    case Dragging::Nothing:
    case Dragging::Label:
    case Dragging::Cable:
      return;
    case Dragging::Marker:
      view.marker.MarcatoreX = UnitaMarcatore(mouse.x, view.AreaPixel.right);
      view.marker.MarcatoreY = UnitaMarcatore(mouse.y, view.AreaPixel.bottom);
      view.marker.posto = true;
      return;
    case Dragging::Move:
      SpostaFinestra(view);
      AggiornaZoom(view);
      break;
    case Dragging::Rotation: {
      const DragAxis axis = mouse.ctrl ? DragAxis::Gamma : mouse.shift ? DragAxis::None : DragAxis::Theta;
      const ViewPanel& panel = desk_.FrameView;
      CalcolaThetaPhi(view, axis, {panel.ThetaChk, panel.PhiChk, panel.GammaChk});
      break;
    }
    case Dragging::Zoom:
      view.drag.YZoomNow = mouse.y;
      CalcolaZoom(view);
      AggiornaZoom(view);
      break;
  }
  mostraLetture();
  desk_.picture().contorno();
}

PictureRequest PictureMouse::rilascia(const MouseEvent& mouse) {
  const Dragging ended = dragging_;
  lascia();
  if (ended == Dragging::Marker) ImpostaProspettiva(desk_.picture().view());
  if (ended != Dragging::Label || bersaglio(mouse.x, mouse.y) != pressed_) return {};
  if (pressed_.kind == TargetKind::Depth) return {};  // it takes double clicks only
  return {PictureAct::Pick, pressed_};
}

void PictureMouse::lascia() {
  const Dragging ended = std::exchange(dragging_, Dragging::Nothing);
  desk_.FrameView.angleLabelsVisible = desk_.FrameView.ZoomlblVisible = false;
  if (ended == Dragging::Cable) desk_.picture().togliCavo();
  if (ended != Dragging::Nothing && ended != Dragging::Label) desk_.picture().disegna();
}

void PictureMouse::rinuncia() {
  if (dragging_ == Dragging::Rotation || dragging_ == Dragging::Move || dragging_ == Dragging::Zoom) {
    ViewState& view = desk_.picture().view();
    view.AngoloVista = before_.AngoloVista;
    view.AngoloPhi = before_.AngoloPhi;
    view.AngoloGamma = before_.AngoloGamma;
    view.ZoomFattore = before_.ZoomFattore;
    view.FinestraBase = before_.FinestraBase;
    view.Finestra = before_.Finestra;
    desk_.mostraAngoli();
  }
  if (dragging_ == Dragging::Marker) desk_.picture().view().marker = before_.marker;
  lascia();
}

PictureRequest PictureMouse::doppio(const MouseEvent& mouse) {
  const Target target = bersaglio(mouse.x, mouse.y);
  if (target.kind == TargetKind::Depth) return {PictureAct::CorrectDepth, target};
  if (target.kind == TargetKind::Nothing && !cella(mouse.x, mouse.y)) desk_.inquadra();
  return {};
}

void PictureMouse::rotella(std::int32_t x, std::int32_t y, double notches) {
  if (dragging_ != Dragging::Nothing) return;
  constexpr double notch = 1.2;
  ZoomaVerso(desk_.picture().view(), {x, y}, std::pow(notch, -notches));
  desk_.mostraAngoli();
  desk_.picture().disegna();
}

void PictureMouse::mostraLetture() {
  ViewPanel& panel = desk_.FrameView;
  desk_.mostraAngoli();
  panel.thetalbl = "Theta= " + panel.Thetatxt;
  panel.philbl = "Phi= " + panel.Phitxt;
  panel.gammalbl = "Gamma= " + panel.GammaTxt;
  panel.Zoomlbl = "Zoom= " + panel.Zoomtxt;
  panel.angleLabelsVisible = dragging_ == Dragging::Rotation;
  panel.ZoomlblVisible = dragging_ == Dragging::Zoom;
}

std::optional<std::int32_t> PictureMouse::misura(std::int32_t x, std::int32_t y) {
  const auto hit = desk_.picture().etichette().ptlbl().cerca({x, y}, reach_);
  return hit ? std::optional(hit->index) : std::nullopt;
}

Pointed PictureMouse::puntato(std::int32_t x, std::int32_t y) {
  const Renderer& labels = desk_.picture().etichette();
  Pointed found;
  std::int32_t best = 0;
  const auto look = [&](const PointLayer& layer, TargetKind kind) {
    const auto hit = layer.cerca({x, y}, reach_);
    if (!hit || (found.target.kind != TargetKind::Nothing && hit->distance2 >= best)) return;
    best = hit->distance2;
    found = {{kind, hit->index}, hit->at};
  };
  look(labels.dptlbl(), TargetKind::Depth);
  look(labels.ptlbl(), TargetKind::Measurement);
  look(labels.gpslbl(), TargetKind::Fix);
  return found;
}

std::optional<CellaVista> PictureMouse::cella(std::int32_t x, std::int32_t y) const {
  if (desk_.picture().soloContorno()) return std::nullopt;
  return CellaSotto(desk_.picture().scene(), desk_.state(), {x, y});
}

std::string PictureMouse::suggerimento(std::int32_t x, std::int32_t y) {
  const Target target = bersaglio(x, y);
  const Survey& survey = desk_.picture().survey();
  const auto k = static_cast<std::size_t>(target.index);
  switch (target.kind) {
    case TargetKind::Measurement:
      return DescriviMisura(survey, k);
    case TargetKind::Depth:
      return DescriviFondo(survey, k);
    case TargetKind::Fix:
      return DescriviFix(survey, k);
    case TargetKind::Nothing:
      break;
  }
  return "";
}

std::optional<std::pair<double, double>> PictureMouse::posto(std::int32_t x, std::int32_t y) const {
  const Survey& survey = desk_.picture().survey();
  if (survey.Misure.empty()) return std::nullopt;
  const std::optional<Punto3D> place = SuperficieSotto(desk_.state(), {x, y});
  if (!place) return std::nullopt;
  return std::pair(static_cast<double>(place->x) + survey.traccia.CentroX,
                   static_cast<double>(place->y) + survey.traccia.CentroY);
}

}  // namespace corvan

// The mouse on the picture: turning, moving and zooming the view, the perspective marker, and the labels.
#include <cmath>

#include "base/ErrorTrap.h"
#include "base/Rounding.h"
#include "session/Session.h"
#include "survey/MeasurementText.h"
#include "view3d/Picking.h"

namespace corvan {
void Session::CoordPic_MouseDown(const MouseEvent& mouse) {
  Trappola(findings_, "CoordPic_MouseDown", [&] {
    if (dragging_ != Dragging::Nothing) return;  // the other button of a drag that runs
    const bool left = mouse.button == MouseButton::Left;
    if (view_.projection == Projection::Perspective && left && mouse.shift) {
      dragging_ = Dragging::Marker;
      CoordPic_MouseMove(mouse);
      return;
    }
    const std::optional<std::int32_t> label = MisuraSotto(mouse.x, mouse.y);
    if (label && !left && mouse.shift && view_.MostraGPS2) {
      ptlbl_Collega(*label);
      return;
    }
    pressedFix_ = label ? 0 : renderer_.gpslbl().at({mouse.x, mouse.y}).value_or(0);
    if (pressedFix_ > 0 && left && !mouse.shift && !mouse.ctrl) {
      dragging_ = Dragging::Label;
      return;
    }
    if (label && !mouse.shift && !mouse.ctrl) {
      pressedLabel_ = *label;
      dragging_ = left ? Dragging::Label : Dragging::Cable;
      if (!left) mostraCavo(*label);
      return;
    }
    if (left && mouse.ctrl) {
      iniziaTrascinamento(Dragging::Move, mouse);
    } else {
      iniziaTrascinamento(left ? Dragging::Rotation : Dragging::Zoom, mouse);
    }
  });
}

void Session::iniziaTrascinamento(Dragging kind, const MouseEvent& mouse) {
  dragging_ = kind;
  view_.XDown = view_.XNow = static_cast<float>(mouse.x);
  view_.YDown = view_.YNow = static_cast<float>(mouse.y);
  view_.YZoomDown = view_.YZoomNow = mouse.y;
  view_.AngoloVista0 = view_.AngoloVista;
  view_.AngoloPhi0 = view_.AngoloPhi;
  view_.AngoloGamma0 = view_.AngoloGamma;
  view_.LogZoom0 = SingoloOppure(std::log10(static_cast<double>(view_.ZoomFattore)), 0.0F);
  renderer_.TraiettoriaNonVisibile();
  renderer_.GpsNonVisibile();
  renderer_.CavoGNonVisibile();
  if (kind == Dragging::Move) return;
  AggiornaZoom(view_);
  CreaFourArray();
  DisegnaContorno();
}

void Session::CoordPic_MouseMove(const MouseEvent& mouse) {
  Trappola(findings_, "CoordPic_MouseMove", [&] {
    view_.XNow = static_cast<float>(mouse.x);
    view_.YNow = static_cast<float>(mouse.y);
    switch (dragging_) {
      case Dragging::Nothing:
      case Dragging::Label:
      case Dragging::Cable:
        return;
      case Dragging::Marker:
        view_.MarcatoreX = UnitaMarcatore(mouse.x, view_.AreaPixel.right);
        view_.MarcatoreY = UnitaMarcatore(mouse.y, view_.AreaPixel.bottom);
        view_.marcatorePosto = true;
        return;
      case Dragging::Move:
        SpostaFinestra(view_);
        AggiornaZoom(view_);
        break;
      case Dragging::Rotation: {
        const DragAxis axis = mouse.ctrl ? DragAxis::Gamma : mouse.shift ? DragAxis::None : DragAxis::Theta;
        CalcolaThetaPhi(view_, axis, {FrameView.ThetaChk, FrameView.PhiChk, FrameView.GammaChk});
        break;
      }
      case Dragging::Zoom:
        view_.YZoomNow = mouse.y;
        CalcolaZoom(view_);
        AggiornaZoom(view_);
        break;
    }
    mostraTrascinamento();
    DisegnaContorno();
  });
}

void Session::CoordPic_MouseUp(const MouseEvent& mouse) {
  Trappola(findings_, "CoordPic_MouseUp", [&] {
    const Dragging ended = std::exchange(dragging_, Dragging::Nothing);
    FrameView.angleLabelsVisible = FrameView.ZoomlblVisible = false;
    switch (ended) {
      case Dragging::Nothing:
        return;
      case Dragging::Label:
        if (pressedFix_ > 0) {
          if (renderer_.gpslbl().at({mouse.x, mouse.y}) == pressedFix_) gpslbl_Click(pressedFix_);
        } else if (MisuraSotto(mouse.x, mouse.y) == pressedLabel_) {
          ptlbl_Click(pressedLabel_);
        }
        return;
      case Dragging::Cable:
        scene_.cable.clear();
        renderer_.CavoGNonVisibile();
        DisegnaImmagineQ();
        return;
      case Dragging::Marker:
        ImpostaProspettiva(view_);
        break;
      default:
        break;
    }
    DisegnaImmagineQ();
  });
}

void Session::CoordPic_DblClick(const MouseEvent& mouse) {
  if (const auto depth = renderer_.dptlbl().at({mouse.x, mouse.y})) dptlbl_DblClick(*depth);
}

void Session::DisegnaContorno() {
  if (canvas_ == nullptr) return;
  Trappola(findings_, "DisegnaContorno", [this] { renderer_.DisegnaContorno(scene_, view_, *canvas_); });
}

void Session::mostraCavo(std::int32_t index) {
  GeneraCavoDiMisura(scene_, survey_, static_cast<std::size_t>(index));
  if (canvas_ != nullptr) renderer_.DisegnaCavoG(scene_, view_, *canvas_);
}

void Session::mostraTrascinamento() {
  mostraAngoli();
  FrameView.thetalbl = "Theta= " + FrameView.Thetatxt;
  FrameView.philbl = "Phi= " + FrameView.Phitxt;
  FrameView.gammalbl = "Gamma= " + FrameView.GammaTxt;
  FrameView.Zoomlbl = "Zoom= " + FrameView.Zoomtxt;
  FrameView.angleLabelsVisible = dragging_ == Dragging::Rotation;
  FrameView.ZoomlblVisible = dragging_ == Dragging::Zoom;
}

std::optional<std::int32_t> Session::MisuraSotto(std::int32_t x, std::int32_t y) const {
  return renderer_.ptlbl().at({x, y});
}

std::string Session::Suggerimento(std::int32_t x, std::int32_t y) const {
  const PuntoPixel place{x, y};
  if (const auto electrode = renderer_.CableLbl().at(place)) return " Electrode: " + std::to_string(*electrode);
  if (const auto k = renderer_.ptlbl().at(place)) return DescriviMisura(survey_, static_cast<std::size_t>(*k));
  if (const auto k = renderer_.dptlbl().at(place)) return DescriviFondo(survey_, static_cast<std::size_t>(*k));
  if (const auto k = renderer_.gpslbl().at(place)) return DescriviFix(survey_, static_cast<std::size_t>(*k));
  return "";
}

std::optional<std::pair<double, double>> Session::PostoSotto(std::int32_t x, std::int32_t y) const {
  if (survey_.Misure.empty()) return std::nullopt;
  const std::optional<Punto3D> place = SuperficieSotto(view_, {x, y});
  if (!place) return std::nullopt;
  return std::pair(static_cast<double>(place->x) + survey_.traccia.CentroX,
                   static_cast<double>(place->y) + survey_.traccia.CentroY);
}

}  // namespace corvan

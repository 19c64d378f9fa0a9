// The view: angles, zoom, projection, layers, the picture and its file.
#include <string>

#include "base/ErrorTrap.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "picture/Bitmap.h"
#include "session/BoxNumbers.h"
#include "session/Session.h"

namespace corvan {
namespace {

constexpr Mask AngleMask = "##0.#";
constexpr Mask ZoomMask = "##0.##";
constexpr Mask MaxZoomMask = "###0.##";
constexpr double ZoomStep = 0.1;                 // decades
constexpr const char* PictureName = "img0.bmp";  // never counted on: each save replaces the one before

std::string Gradi(double radians) { return FormattaNumero(InGradi(radians), AngleMask); }

}  // namespace

void Session::Form_Resize(Canvas* canvas) {
  canvas_ = canvas;
  if (canvas_ == nullptr) return;
  view_.AreaPixel = canvas_->area();
  rifaiFinestra();
}

void Session::rifaiFinestra() {
  ImpostaFinestra(view_, survey_.traccia);
  AggiornaZoom(view_);
  DisegnaImmagineQ();
}

void Session::CreaFourArray() {
  Trappola(findings_, "CreaFourArray", [this] { corvan::CreaFourArray(scene_, survey_); });
}

void Session::rifaiScena() {
  CreaFourArray();
  DisegnaImmagineQ();
}

void Session::DisegnaImmagineQ() {
  if (canvas_ == nullptr) return;
  Trappola(findings_, "DisegnaImmagineQ", [this] {
    PictureNotes notes;
    for (const TaggedLabel* label : {&FrameExtrema.PrimoLbl, &FrameExtrema.SecondoLbl}) {
      if (!label->Tag.empty()) notes.picked.push_back(AInt32(Val(label->Tag)));
    }
    notes.pickedFixes = pickedFixes_;
    if (InfoLbl.Visible) notes.info = InfoLbl.Caption;
    renderer_.DisegnaImmagineQ(scene_, view_, colours_, notes, *canvas_);
  });
}

void Session::mostraAngoli() {
  FrameView.Thetatxt = Gradi(view_.AngoloVista);
  FrameView.Phitxt = Gradi(view_.AngoloPhi);
  FrameView.GammaTxt = Gradi(view_.AngoloGamma);
  FrameView.Zoomtxt = FormattaNumero(view_.ZoomFattore, ZoomMask);
}

void Session::leggiAngolo(int key, const std::string& box, double& angle) {
  if (key != EnterKey) return;
  constexpr double most = 1e6;  // degrees: beyond it the sines lose the angle's digits
  const auto degrees = NumeroDaCasella<double>(box, {"leggiAngolo", "angle", -most, most}, findings_);
  if (!degrees) return;
  angle = InRadianti(*degrees);
  DisegnaImmagineQ();
}

void Session::Thetatxt_KeyPress(int key) { leggiAngolo(key, FrameView.Thetatxt, view_.AngoloVista); }

void Session::Phitxt_KeyPress(int key) { leggiAngolo(key, FrameView.Phitxt, view_.AngoloPhi); }

void Session::GammaTxt_KeyPress(int key) { leggiAngolo(key, FrameView.GammaTxt, view_.AngoloGamma); }

void Session::Zoomtxt_KeyPress(int key) {
  if (key != EnterKey) return;
  constexpr double least = 1e-6, most = 1e6;  // beyond, the picture has no window
  const auto zoom = NumeroDaCasella<float>(FrameView.Zoomtxt, {"Zoomtxt_KeyPress", "zoom", least, most}, findings_);
  if (!zoom) return;
  view_.ZoomFattore = *zoom;
  AggiornaZoom(view_);
  DisegnaImmagineQ();
}

void Session::ruota(double& angle, double degrees, std::string& box) {
  PassoAngolo(angle, degrees);
  box = Gradi(angle);
  DisegnaImmagineQ();
}

void Session::MaxZoomcmd_Click() {
  PassoZoom(view_, ZoomStep);
  FrameView.Zoomtxt = FormattaNumero(view_.ZoomFattore, MaxZoomMask);
  AggiornaZoom(view_);
  DisegnaImmagineQ();
}

void Session::MinZoomcmd_Click() {
  PassoZoom(view_, -ZoomStep);
  FrameView.Zoomtxt = FormattaNumero(view_.ZoomFattore, ZoomMask);
  AggiornaZoom(view_);
  DisegnaImmagineQ();
}

void Session::scegliProiezione(Projection projection) {
  view_.projection = projection;
  DisegnaImmagineQ();
}

void Session::Mopt_Click() {
  view_.AngoloVista = InRadianti(90.0);
  view_.AngoloGamma = 0.0;
  mostraAngoli();
  scegliProiezione(Projection::Orthographic);
}

void Session::TopViewCmd_Click() {
  view_.AngoloVista = InRadianti(90.0);
  view_.AngoloGamma = 0.0;
  view_.AngoloPhi = InRadianti(Val(FrameView.Phitxt));
  view_.ZoomFattore = 1.0F;
  mostraAngoli();
  rifaiFinestra();
}

void Session::ResCmd_Click() { rifaiFinestra(); }

void Session::alterna(bool& shown) {
  shown = !shown;
  DisegnaImmagineQ();
}

void Session::SHelectrodes_Click() {
  scene_.cable.clear();
  renderer_.CavoGNonVisibile();
  alterna(view_.MostraElettrodi);
}

void Session::SH2ndGps_Click() { alterna(view_.MostraGPS2); }

void Session::SHdepth_Click() { alterna(view_.MostraProfondita); }

void Session::SHcolour_Click() { alterna(view_.MostraScalaColori); }

void Session::SHNord_Click() { alterna(view_.MostraNord); }

void Session::SHInfoLabel_Click() { alterna(InfoLbl.Visible); }

void Session::SaveCmd_Click() {
  if (canvas_ == nullptr) return;
  SalvaImmagine(PictureName, [this] { return ComponiBmp(canvas_->picture()); });
}

}  // namespace corvan

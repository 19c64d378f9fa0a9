#include "session/PaintedScene.h"

#include <utility>

#include "base/ErrorTrap.h"
#include "view3d/Framing.h"

namespace corvan {

void PaintedScene::tela(Canvas* canvas) {
  canvas_ = canvas;
  if (canvas_ == nullptr) return;
  AdattaArea(view_, canvas_->area(), survey_.traccia);
  disegna();
}

void PaintedScene::dipingi() {
  if (canvas_ == nullptr) return;
  const Wanted wanted = std::exchange(wanted_, Wanted::Nothing);
  if (wanted == Wanted::Picture) {
    dipingiImmagine();
    labelsHold_ = true;
  } else if (wanted == Wanted::Outline) {
    TrappolaUnaVolta(findings_, "DisegnaContorno", [this] { renderer_.DisegnaContorno(scene_, view_, *canvas_); });
  }
}

/// Repaints, and keeps how long that took.
void PaintedScene::dipingiImmagine() {
  const double before = live_ ? milliseconds_() : 0.0;
  TrappolaUnaVolta(findings_, "DisegnaImmagineQ",
                   [this] { renderer_.DisegnaImmagineQ(scene_, view_, colours_, notes_, *canvas_); });
  if (live_) took_ = milliseconds_() - before;
}

void PaintedScene::dipingiSu(Canvas& canvas, const Caption& caption) {
  PictureNotes notes = notes_;
  notes.caption = caption;
  TrappolaUnaVolta(findings_, "DisegnaImmagineQ",
                   [&] { renderer_.DisegnaImmagineQ(scene_, view_, colours_, notes, canvas); });
  labelsHold_ = true;
}

void PaintedScene::viva(bool live, std::function<double()> milliseconds) {
  live_ = live;
  milliseconds_ = std::move(milliseconds);
  took_ = 0;
}

void PaintedScene::disegna() {
  wanted_ = Wanted::Picture;
  outline_ = labelsHold_ = false;
}

void PaintedScene::contorno() {
  constexpr double frame = 16.0;  // ms: sixty pictures a second
  wanted_ = live_ && took_ < frame ? Wanted::Picture : Wanted::Outline;
  outline_ = true;
}

const Renderer& PaintedScene::etichette() {
  if (!labelsHold_ && canvas_ != nullptr) {
    TrappolaUnaVolta(findings_, "DisegnaTraiettoria", [this] { renderer_.Disponi(scene_, view_, notes_); });
    labelsHold_ = true;
  }
  return renderer_;
}

void PaintedScene::rifaiCelle() {
  TrappolaUnaVolta(findings_, "CreaFourArray", [this] { CreaFourArray(scene_, survey_); });
  disegna();
}

void PaintedScene::rifaiStrati() {
  ImpostaFinestra(view_, survey_.traccia);
  GeneraTraiettoria(scene_, survey_);
  GeneraContorno(scene_, survey_);
  GeneraEchoSounder(scene_, survey_);
  GeneraNordG(scene_, view_.Lato);
  AggiornaZoom(view_);
  GeneraGPS(scene_, survey_);
  GeneraGPSD(scene_, survey_);
  scene_.cable.clear();
}

void PaintedScene::esagera(double factor) {
  scene_.esagerazione = factor;
  GeneraContorno(scene_, survey_);
  GeneraEchoSounder(scene_, survey_);
  GeneraGPSD(scene_, survey_);
  rifaiCelle();
}

void PaintedScene::rifaiFondo() {
  GeneraTraiettoria(scene_, survey_);
  GeneraEchoSounder(scene_, survey_);
  disegna();
}

void PaintedScene::rifaiTraccia() {
  GeneraGPS(scene_, survey_);
  GeneraGPSD(scene_, survey_);
  rifaiFinestra();
}

void PaintedScene::rifaiFinestra() {
  ImpostaFinestra(view_, survey_.traccia);
  AggiornaZoom(view_);
  disegna();
}

void PaintedScene::inquadra() {
  InquadraScena(view_, scene_, survey_.traccia);
  disegna();
}

void PaintedScene::mostraCavo(std::int32_t measurement) {
  dipingi();
  GeneraCavoDiMisura(scene_, survey_, static_cast<std::size_t>(measurement));
  if (canvas_ != nullptr) renderer_.DisegnaCavoG(scene_, view_, *canvas_);
}

void PaintedScene::togliCavo() {
  scene_.cable.clear();
  renderer_.CavoGNonVisibile();
  disegna();
}

void PaintedScene::togliEtichette() {
  renderer_.TraiettoriaNonVisibile();
  renderer_.GpsNonVisibile();
  renderer_.CavoGNonVisibile();
  labelsHold_ = true;
}

}  // namespace corvan

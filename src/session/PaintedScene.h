// The survey as it is seen: scene, view, canvas, and whether what was painted still holds.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "picture/ColourScale.h"
#include "session/Desk.h"
#include "survey/Survey.h"
#include "view3d/Renderer.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// Repaints are asked for by those who change something and made once, when somebody looks.
class PaintedScene {
 public:
  PaintedScene(Findings& findings, const Survey& survey) : findings_(findings), survey_(survey) {}

  /// Paints from now on on this canvas, which must outlive its use, in its size. None: nothing is painted.
  void tela(Canvas* canvas);
  Canvas* tela() const { return canvas_; }
  /// The picture no longer shows what it should.
  void disegna();
  /// Paints it anew where it does not.
  void dipingi();
  /// Paints the same on another canvas of the same size, with a caption.
  void dipingiSu(Canvas& canvas, const Caption& caption);
  /// The outline of a drag is wanted in its place, until the next call of disegna(); of a live scene the picture itself
  /// for as long as it is painted fast enough.
  void contorno();
  /// The outline is shown, or about to be: no cells are seen.
  bool soloContorno() const { return outline_; }

  /// Drags show the picture itself. @param milliseconds a clock that never goes back
  void viva(bool live, std::function<double()> milliseconds);
  bool viva() const { return live_; }

  void rifaiCelle();            ///< cells of the curtain, then a repaint
  void rifaiStrati();           ///< window and all layers around the cells
  void esagera(double factor);  ///< all heights so many times as high as they are, then a repaint
  void rifaiFondo();            ///< depths and their profile, then a repaint
  void rifaiTraccia();          ///< the external track and a window that shows it, then a repaint
  void inquadra();              ///< the window around the whole curtain as it is seen, then a repaint
  void rifaiFinestra();         ///< the window around the data, then a repaint

  void mostraCavo(std::int32_t measurement);
  void togliCavo();
  /// No labels while the mouse drags: they are not found, nor painted.
  void togliEtichette();

  void segna(PictureNotes notes) { notes_ = std::move(notes); }
  void colora(const ColourScale& range) { colours_ = range; }

  ViewState& view() { return view_; }
  const ViewState& view() const { return view_; }
  const Scene& scene() const { return scene_; }
  /// The labels where the picture shows them, or will when it is painted next: finding them paints nothing.
  const Renderer& etichette();
  const Survey& survey() const { return survey_; }

 private:
  Findings& findings_;
  const Survey& survey_;
  ViewState view_;
  Scene scene_;
  Renderer renderer_;
  Canvas* canvas_ = nullptr;
  void dipingiImmagine();

  enum class Wanted { Nothing, Picture, Outline };
  Wanted wanted_ = Wanted::Picture;
  bool live_ = false;
  std::function<double()> milliseconds_;
  double took_ = 0;          ///< the last repaint of the whole picture, ms
  bool outline_ = false;     ///< what was asked for last is the outline
  bool labelsHold_ = false;  ///< the labels are those of the present view
  PictureNotes notes_;
  ColourScale colours_;
};

}  // namespace corvan

// The survey as it is seen: scene, view, canvas, and whether what was painted still holds.
#pragma once

#include <cstdint>
#include <string>

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
  void disegna() { stale_ = true; }
  /// Paints it anew where it does not.
  void dipingi();
  /// The outline of a drag in its place, until the next call of disegna().
  void contorno();

  void rifaiCelle();     ///< cells of the curtain, then a repaint
  void rifaiStrati();    ///< window and all layers around the cells
  void rifaiFondo();     ///< depths and their profile, then a repaint
  void rifaiTraccia();   ///< the external track and a window that shows it, then a repaint
  void rifaiFinestra();  ///< the window around the data, then a repaint

  void mostraCavo(std::int32_t measurement);
  void togliCavo();
  /// No labels while the mouse drags: they are not found, nor painted.
  void togliEtichette();

  void segna(PictureNotes notes) { notes_ = std::move(notes); }
  void colora(const ColourRange& range) { colours_ = range; }

  ViewState& view() { return view_; }
  const ViewState& view() const { return view_; }
  const Scene& scene() const { return scene_; }
  /// The labels as they were painted last.
  const Renderer& etichette() const { return renderer_; }
  const Survey& survey() const { return survey_; }

 private:
  Findings& findings_;
  const Survey& survey_;
  ViewState view_;
  Scene scene_;
  Renderer renderer_;
  Canvas* canvas_ = nullptr;
  bool stale_ = true;
  PictureNotes notes_;
  ColourRange colours_;
};

}  // namespace corvan

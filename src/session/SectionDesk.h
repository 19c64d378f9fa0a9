// The section laid flat: how it is looked at, what it shows, and where it was painted last.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "picture/ColourScale.h"
#include "session/Desk.h"
#include "survey/Survey.h"
#include "view2d/SectionPainter.h"

namespace corvan {

class SectionDesk {
 public:
  SectionDesk(const Desk& desk, const Survey& survey) : findings_(desk.findings), survey_(survey) {}

  const SectionView& view() const { return view_; }
  void scegli(SectionLines lines, std::size_t line = 1);  ///< and shows all of them
  void misura(DepthAxis axis);
  void mostra(Curve curve, bool shown);
  void mostra(const std::optional<TrackWindow>& window);
  /// Readings and their places, made when first asked for after a change.
  const SectionModel& modello();
  /// Places in the picture painted last.
  const SectionLayout& disposta() const { return layout_; }

  /// Another survey: all of it is shown.
  void azzera();
  /// Readings, positions or depths are others than before.
  void rifai();
  void colora(const ColourScale& colours);
  void segna(std::optional<std::int32_t> first, std::optional<std::int32_t> second);
  /// @param metres from the antenna to the head of the cable
  void impostaOffset(double metres);

  /// Paints all; what cannot be shown as asked for is told in the picture and in the findings.
  /// @param caption the line at the lower edge; empty for none
  void dipingi(Canvas& canvas, const Caption& caption);

  /// The same on a copy: the places stay those of the picture that is looked at.
  void dipingiCopia(Canvas& canvas, const Caption& caption);

  /// Paints from now on on this canvas, which must outlive its use. None: nothing is painted.
  void tela(Canvas* canvas);
  Canvas* tela() const { return canvas_; }
  /// Paints on it what was not painted yet.
  void dipingi();
  /// The window shows this picture, not the other one: it is the one that is saved.
  void mostrata(bool shown) { shown_ = shown; }
  bool mostrata() const { return shown_; }

 private:
  void rileva();

  Findings& findings_;
  const Survey& survey_;
  SectionView view_;
  SectionModel model_;
  SectionLayout layout_;
  SectionNotes notes_;
  ColourScale colours_;
  double offset_ = 0;
  bool holds_ = false;    ///< the model
  bool painted_ = false;  ///< the picture on the canvas
  bool shown_ = false;
  Canvas* canvas_ = nullptr;
};

}  // namespace corvan

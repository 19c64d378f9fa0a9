// The mouse on the flat section: choosing measurements and stretches of the track, moving along it and zooming.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "session/SectionDesk.h"
#include "view2d/SectionPicking.h"

namespace corvan {

/// What the pressed mouse is doing on the flat section. A press is a click until it has gone farther than a hand
/// shakes.
enum class SectionDrag { Nothing, Press, Scroll, Range };

/// What a release asks for: one measurement chosen, as by a click on its point, or both extremes at once.
struct SectionChoice {
  std::optional<std::int32_t> pick;
  std::optional<std::pair<std::int32_t, std::int32_t>> section;  ///< the first one is the smaller
  std::optional<ReadingUnder> toggle;                            ///< a reading to be excluded, or taken again
};

/// What a click is for.
enum class SectionPress { Choose, Toggle };

/// Places are pixels of the picture. A press on a line's strip of the track, which is the air above its water and the
/// axis below it, begins a stretch; any other one moves the section along. Either is a click where it goes no farther
/// than a hand shakes.
class SectionMouse {
 public:
  SectionMouse(SectionDesk& desk, const Survey& survey) : desk_(desk), survey_(survey) {}

  /// @param slack how far a press may be dragged and still be a click, pixels
  void portata(std::int32_t slack) { slack_ = slack; }

  void premi(const PuntoPixel& at, SectionPress why = SectionPress::Choose);
  void muovi(const PuntoPixel& at);
  SectionChoice rilascia(const PuntoPixel& at);
  /// Shows the whole line where a click would choose nothing.
  void doppio(const PuntoPixel& at);
  /// Zooms along the track, the place under the pixel stays. @param notches of the wheel; away from the user shows less
  void rotella(const PuntoPixel& at, double notches);
  /// Moves along the track. @param share of the window; over 0 shows what lies to the right
  void scorri(double share);
  /// Zooms about the middle. @param factor over 1 shows more
  void ingrandisci(double factor);
  void intera() { desk_.mostra(std::nullopt); }  ///< the whole line

  /// The press was taken away: nothing is dragged any more, nothing is chosen.
  void lascia();
  /// The same, and the window is again what it was at the press.
  void rinuncia();
  SectionDrag dragging() const { return dragging_; }
  /// The measurements that a stretch under way would choose.
  std::optional<std::pair<std::int32_t, std::int32_t>> tratto() const { return stretch_; }

  std::optional<ReadingUnder> lettura(const PuntoPixel& at);
  /// The measurement that a click would choose: that of the cell, on strips of the track and curves the nearest one.
  std::optional<std::int32_t> bersaglio(const PuntoPixel& at);
  /// What lies under a pixel, in one line: a reading, or the measurement nearest to the place. Empty beside the strips.
  std::string suggerimento(const PuntoPixel& at);
  bool suAsse(const PuntoPixel& at) const { return asse(at) != nullptr; }  ///< a press there begins a stretch

 private:
  const SectionBlock* asse(const PuntoPixel& at) const;
  std::int32_t vicina(const SectionBlock& block, std::int32_t X);
  void finestra(const TrackWindow& window);
  void tendi(const PuntoPixel& at);
  bool oltre(const PuntoPixel& at) const;

  SectionDesk& desk_;
  const Survey& survey_;
  std::int32_t slack_ = 10;
  SectionDrag dragging_ = SectionDrag::Nothing;
  SectionPress why_ = SectionPress::Choose;
  PuntoPixel press_;
  TrackWindow before_;                 ///< at the press
  std::optional<TrackWindow> wished_;  ///< likewise, as the view has it
  std::size_t block_ = 0;              ///< of a stretch
  std::optional<std::pair<std::int32_t, std::int32_t>> stretch_;
};

}  // namespace corvan

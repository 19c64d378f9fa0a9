// The mouse on the picture: turning, moving and zooming the view, the perspective marker, and the labels.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "session/ViewDesk.h"
#include "view3d/Picking.h"

namespace corvan {

enum class MouseButton { Left, Right };

/// The mouse on the picture, in its pixels.
struct MouseEvent {
  MouseButton button = MouseButton::Left;
  bool shift = false;
  bool ctrl = false;
  std::int32_t x = 0;
  std::int32_t y = 0;
};

/// What the pressed mouse is doing on the picture.
enum class Dragging { Nothing, Rotation, Zoom, Move, Marker, Label, Cable };

/// What the pointer is on.
enum class TargetKind { Nothing, Measurement, Fix, Depth };
struct Target {
  TargetKind kind = TargetKind::Nothing;
  std::int32_t index = 0;  ///< 1-based

  friend bool operator==(const Target&, const Target&) = default;
};

/// The same with the centre of the label on the picture.
struct Pointed {
  Target target;
  PuntoPixel at;

  friend bool operator==(const Pointed&, const Pointed&) = default;
};

/// What a press, a release or a double click asks for beyond the view.
enum class PictureAct { Nothing, Pick, Connect, CorrectDepth };
struct PictureRequest {
  PictureAct act = PictureAct::Nothing;
  Target target;
};

class PictureMouse {
 public:
  explicit PictureMouse(ViewDesk& desk) : desk_(desk) {}

  /// In pixels of the picture.
  /// @param reach how far from a label it is still hit
  /// @param slack how far a pressed label may be dragged before the press turns the view instead
  void portata(std::int32_t reach, std::int32_t slack) {
    reach_ = reach;
    slack_ = slack;
  }

  // A label under the pointer takes the press; else the picture does.
  PictureRequest premi(const MouseEvent& mouse);
  void muovi(const MouseEvent& mouse);
  PictureRequest rilascia(const MouseEvent& mouse);
  /// On a depth point asks for its correction, on empty water frames the survey.
  PictureRequest doppio(const MouseEvent& mouse);
  /// Zooms at a pixel. @param notches of the wheel; away from the user shows less
  void rotella(std::int32_t x, std::int32_t y, double notches);
  /// The press was taken away (a box opened, the window lost the mouse): nothing is dragged any more.
  void lascia();
  /// Gives the drag up: the view is again what it was at the press.
  void rinuncia();
  Dragging dragging() const { return dragging_; }

  /// The nearest label within reach; of equally near ones a depth point, then a measurement.
  Pointed puntato(std::int32_t x, std::int32_t y);
  Target bersaglio(std::int32_t x, std::int32_t y) { return puntato(x, y).target; }
  /// The cell that a pixel shows; none while a drag shows the outline alone.
  std::optional<CellaVista> cella(std::int32_t x, std::int32_t y) const;
  /// What the label under a pixel stands for: its tool tip. Empty where there is none.
  std::string suggerimento(std::int32_t x, std::int32_t y);
  /// Easting and northing of the place on the water's surface under a pixel, m. None in perspective, for an empty
  /// survey and where the surface is seen edge-on.
  std::optional<std::pair<double, double>> posto(std::int32_t x, std::int32_t y) const;

 private:
  std::optional<std::int32_t> misura(std::int32_t x, std::int32_t y);
  void inizia(Dragging kind, const MouseEvent& mouse);
  bool oltre(const MouseEvent& mouse) const;
  void mostraLetture();

  ViewDesk& desk_;
  std::int32_t reach_ = 10, slack_ = 10;
  Dragging dragging_ = Dragging::Nothing;
  Target pressed_;    ///< the label that took the press
  MouseEvent press_;  ///< the press itself
  ViewState before_;  ///< the view at the press
};

}  // namespace corvan

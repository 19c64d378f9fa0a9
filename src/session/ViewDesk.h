// How the survey is looked at: angles, zoom, projection, layers.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "session/BoxNumbers.h"
#include "session/Desk.h"
#include "session/PaintedScene.h"
#include "session/Panels.h"

namespace corvan {

/// The angles of the view: theta about the X axis, phi about Z, gamma about Y.
enum class Axis { Theta, Phi, Gamma };

/// An angle in degrees as it may be typed: beyond it the sines lose its digits. A zoom: beyond it there is no window.
inline constexpr BoxNumber AngleBox{"leggiAngolo", "angle", -1e6, 1e6};
inline constexpr BoxNumber ZoomBox{"Zoomtxt_KeyPress", "zoom", 1e-6, 1e6};

inline constexpr BoxNumber BandLevelBox{"MapLevel", "level", 0, 10};
inline constexpr BoxNumber BandWidthBox{"MapLevel", "width", 0, 200};
inline constexpr BoxNumber ExaggerationBox{"Exaggeration", "vertical exaggeration", 0.001, 1000};

class ViewDesk {
 public:
  ViewDesk(Desk desk, const Survey& survey) : desk_(std::move(desk)), picture_(desk_.findings, survey) { azzera(); }

  ViewPanel FrameView;

  PaintedScene& picture() { return picture_; }
  const PaintedScene& picture() const { return picture_; }
  const ViewState& state() const { return picture_.view(); }

  void azzera();  ///< angles, zoom and layers back to those of the start
  void ruota(Axis axis, double degrees);
  void passo(Axis axis, double degrees);  ///< the same by steps, held to -180..180
  void zoom(float factor);                ///< a larger one shows more
  void passoZoom(double decades);         ///< the same by steps, held to 0.1..10
  void proietta(Projection projection);
  void mappa();              ///< from above, in the straight projection
  void obliqua();            ///< from above at a slant, so that the whole curtain hangs below the track
  void daSopra(double phi);  ///< from above at zoom 1, turned by phi degrees, around the middle of the data
  void ricentra();           ///< around the middle of the data
  void inquadra();           ///< the whole survey, at zoom 1 where that shows all of it

  /// The band of the map; one of a level that the survey has no readings of is noted.
  void mostraBanda(const MapColours& band);
  void alternaBanda();          ///< switches it off, or on with the level that it had
  void chiediBanda();           ///< "Map Level"
  void esagera(double factor);  ///< heights so many times as high as they are
  void chiediEsagerazione();    ///< "Vertical Exaggeration"
  void rotazioneViva(bool live, std::function<double()> milliseconds);  ///< drags show the curtain itself

  void mostra(bool Layers::*layer, bool shown);
  void alterna(bool Layers::*layer) { mostra(layer, !(state().layers.*layer)); }
  /// The line of information on the picture. @param warns shows it though it was hidden
  void informa(const std::string& text, bool warns);
  /// The chosen measurements and fixes, and the extremes that they give.
  void segna(std::vector<std::int32_t> measurements, std::vector<std::int32_t> fixes, std::optional<std::int32_t> E1,
             std::optional<std::int32_t> E2);

  /// The small line that explains the picture as it is.
  Caption didascalia() const;

  /// Puts angles and zoom into their boxes.
  void mostraAngoli();
  const std::string& info() const { return info_; }

 private:
  double& angolo(Axis axis);
  std::string& casella(Axis axis);
  void annota();

  Desk desk_;
  PaintedScene picture_;
  std::int32_t level_ = 1;  ///< of the band that was shown last
  std::string info_;
  PictureNotes notes_;
};

}  // namespace corvan

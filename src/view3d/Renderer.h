// Paints the scene on a canvas: the whole picture, the outline of a drag, and the labels of the point layers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "picture/Canvas.h"
#include "picture/ColourScale.h"
#include "view3d/CurtainPainter.h"
#include "view3d/PointLayer.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// What a repaint shows beside the scene.
struct PictureNotes {
  std::vector<std::int32_t> picked;       ///< measurements chosen as extremes: red labels
  std::vector<std::int32_t> pickedFixes;  ///< fixes that were clicked: red labels
  std::string info;                       ///< line in the upper left corner; empty for none
};

/// Red of the chosen labels.
inline constexpr Colour PickedColour = 0xFF0000;

class Renderer {
 public:
  /// Repaints everything: white ground, cells from far to near, labels, north arrow, colour scale, echo sounder and
  /// external track, as far as the view shows them.
  void DisegnaImmagineQ(const Scene& scene, const ViewState& view, const ColourScale& colours,
                        const PictureNotes& notes, Canvas& canvas);

  /// Only the labels of the picture, where DisegnaImmagineQ would paint them: what a click would hit. Some 5 ms for
  /// 100,000 measurements, against 100 of the whole.
  void Disponi(const Scene& scene, const ViewState& view, const PictureNotes& notes);

  /// The frame of a drag: white ground and the outline of the section, the north arrow where it is shown.
  void DisegnaContorno(const Scene& scene, const ViewState& view, Canvas& canvas);

  /// The electrodes of the scene's cable with their names; where these would touch, of the first and the last only.
  void DisegnaCavoG(const Scene& scene, const ViewState& view, Canvas& canvas);

  const PointLayer& ptlbl() const { return ptlbl_; }        ///< measurements
  const PointLayer& dptlbl() const { return dptlbl_; }      ///< echo-sounder points
  const PointLayer& gpslbl() const { return gpslbl_; }      ///< fixes of the external track
  const PointLayer& CableLbl() const { return CableLbl_; }  ///< electrodes

  void TraiettoriaNonVisibile() { ptlbl_.hide(); }
  void DepthNonVisibile() { dptlbl_.hide(); }
  void GpsNonVisibile() { gpslbl_.hide(); }
  void CavoGNonVisibile() { CableLbl_.hide(); }

 private:
  void DisponiTraiettoria(const Scene& scene, const ViewState& view, const PictureNotes& notes);
  void DisponiEchoSounder(const Scene& scene, const ViewState& view);
  void DisponiGPS(const Scene& scene, const ViewState& view, const PictureNotes& notes);
  void DisegnaEchoSounder(const Scene& scene, const ViewState& view, Canvas& canvas);
  void DisegnaGPS(const Scene& scene, const ViewState& view, Canvas& canvas);

  CurtainPainter curtain_;
  PointLayer ptlbl_, dptlbl_, gpslbl_, CableLbl_;
  std::vector<PuntoPixel> path_;  // working space
};

}  // namespace corvan

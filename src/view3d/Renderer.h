// Paints the scene on a canvas: the whole picture, the outline of a drag, and the labels of the point layers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "picture/Canvas.h"
#include "picture/Caption.h"
#include "picture/ColourScale.h"
#include "picture/TextLayout.h"
#include "view3d/CurtainPainter.h"
#include "view3d/MapBand.h"
#include "view3d/PointLayer.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// What a repaint shows beside the scene.
struct PictureNotes {
  std::vector<std::int32_t> picked;       ///< measurements chosen as extremes: red labels
  std::vector<std::int32_t> pickedFixes;  ///< fixes that were clicked: red labels
  std::optional<std::int32_t> E1, E2;     ///< the extremes, however they were chosen
  std::string info;                       ///< line in the upper left corner; empty for none
  Caption caption;                        ///< small line at the foot that explains the picture
};

/// Red of the chosen labels.
inline constexpr Colour PickedColour = 0xFF0000;

class Renderer {
 public:
  /// Repaints everything: white ground, map grid, cells from far to near or the map's band, lines, labels, and above
  /// all of them the texts, as far as the view shows them.
  void DisegnaImmagineQ(const Scene& scene, const ViewState& view, const ColourScale& colours,
                        const PictureNotes& notes, Canvas& canvas);

  /// Only the labels of the picture, where DisegnaImmagineQ would paint them: what a click would hit. Some 5 ms for
  /// 100,000 measurements, against 100 of the whole.
  void Disponi(const Scene& scene, const ViewState& view, const PictureNotes& notes);

  /// The frame of a drag: white ground and the outline of the section, the north arrow where it is shown.
  void DisegnaContorno(const Scene& scene, const ViewState& view, Canvas& canvas);

  /// The texts of the last picture, each at its place.
  std::vector<PlacedText> testi() const { return texts_ ? texts_->testi() : std::vector<PlacedText>(); }

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
  void DisponiTraiettoria(const ViewState& view, const PictureNotes& notes);
  void DisponiEchoSounder(const Scene& scene, const ViewState& view);
  void DisponiGPS(const Scene& scene, const ViewState& view, const PictureNotes& notes);
  void DisegnaCelle(const Scene& scene, const ViewState& view, const ColourScale& colours, const PictureNotes& notes,
                    Canvas& canvas);
  void ScriviPiede(const Scene& scene, const ViewState& view, const ColourScale& colours, const PictureNotes& notes,
                   Canvas& canvas);
  void ScriviEstremi(const ViewState& view, const PictureNotes& notes);
  void DisegnaGPS(const Scene& scene, const ViewState& view, Canvas& canvas);

  CurtainPainter curtain_;
  MapBand band_;
  std::optional<TextLayout> texts_;
  std::vector<PointLabel> track_;  // one for each measurement with a position
  PointLayer ptlbl_, dptlbl_, gpslbl_, CableLbl_;
  std::vector<PuntoPixel> path_;  // working space
};

}  // namespace corvan

// Lines of equal easting and northing under the survey seen from above.
#pragma once

#include <vector>

#include "picture/Canvas.h"
#include "picture/TextLayout.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// One line of the grid on the picture.
struct GridLine {
  PuntoPixel from, to;
  std::string text;  ///< the easting or northing, m
};

/// The view is the map: in the straight projection the vertical points at the viewer.
bool Mappa(const ViewState& view);

/// The grid's lines in round metres, about a hand's breadth of letters apart; none unless the view is the map.
/// @param letter height of a text, pixels
std::vector<GridLine> Reticolo(const Scene& scene, const ViewState& view, std::int32_t letter);

void DisegnaReticolo(const std::vector<GridLine>& lines, const ViewState& view, Canvas& canvas);
/// Each line's number where it leaves the picture: at the upper edge, of lines that run across at the left one.
void ScriviReticolo(const std::vector<GridLine>& lines, const ViewState& view, const Canvas& canvas, TextLayout& texts);

}  // namespace corvan

// The track on the picture: a line with ticks where its dots would touch, the chosen section, names and directions.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "picture/Canvas.h"
#include "picture/TextLayout.h"
#include "view3d/PointLayer.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// A thin line through the labels of each line of the survey, broken where a measurement has no label, with ticks
/// across it at round numbers of measurements.
void DisegnaTracciato(const std::vector<PointLabel>& labels, const Scene& scene, const ViewState& view, Colour colour,
                      Canvas& canvas);

/// The track between two measurements so many pixels wide.
void DisegnaTratto(const std::vector<PointLabel>& labels, std::int32_t from, std::int32_t to, const Scene& scene,
                   std::int32_t width, Colour colour, Canvas& canvas);

/// Width of thin lines: a pixel, more in pictures of over 1200 rows.
std::int32_t LineaSottile(const ViewState& view);

/// A line with a white casing, so that it stands out on cells of any colour.
void DisegnaBordato(const std::vector<PuntoPixel>& path, const ViewState& view, Colour colour, Canvas& canvas);

/// For each line that is seen: the name of its file and the number of its first measurement, the number of its last,
/// and an arrow in the middle that points where the boat sailed.
void DisegnaNomi(const std::vector<PointLabel>& labels, const Scene& scene, const ViewState& view, Canvas& canvas,
                 TextLayout& texts);

/// A number beside the label of a chosen extreme.
void ScriviEstremo(const PuntoPixel& at, std::string_view text, const ViewState& view, Colour colour,
                   TextLayout& texts);

}  // namespace corvan

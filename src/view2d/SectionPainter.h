// Paints the flat section: distance along the track to the right, depth downwards, one cell a reading.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "picture/Canvas.h"
#include "picture/Caption.h"
#include "picture/ColourScale.h"
#include "view2d/SectionLayout.h"

namespace corvan {

/// What stands on the picture beside the survey.
struct SectionNotes {
  std::optional<std::int32_t> first, second;  ///< the chosen extremes, measurements from 1 on
  Caption caption;                            ///< the line at the lower edge
};

/// Paints all and gives the places, for the mouse. Cells: CelleDi says which reading shows where several share a pixel.
/// Depths and distances have scales of their own; the lines share both.
SectionLayout DisegnaSezione(const SectionModel& model, const SectionView& view, const ColourScale& colours,
                             const SectionNotes& notes, Canvas& canvas);

/// Colour of the marks of firings that show no cells.
constexpr Colour ColoreDi(Loss kind) {
  return kind == Loss::NoFix ? 0xD02020 : kind == Loss::LeftOut ? 0xF08C00 : 0x7030A0;
}

}  // namespace corvan

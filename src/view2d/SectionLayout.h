// Where the parts of the flat section stand in a picture: strips, curves, axes, legend.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "picture/Canvas.h"
#include "view2d/SectionModel.h"
#include "view2d/SectionView.h"

namespace corvan {

/// A curve's place: its title in the line above the plot.
struct CurvePlot {
  Curve curve = Curve::Current;
  std::int32_t title = 0;  ///< upper edge of the title's line
  PixelArea plot;
};

/// A strip of cells and the curves below it.
struct SectionBlock {
  std::size_t firstLine = 0, lastLine = 0;  ///< indices into the model's lines
  double origin = 0;                        ///< m along the track of the axis' zero
  std::int32_t title = 0;                   ///< upper edge of the title's line
  PixelArea air;                            ///< above the water: marks and extremes
  PixelArea plot;                           ///< from the surface down
  std::vector<CurvePlot> curves;
};

/// Everything a painter or the mouse needs to know of the places in one picture.
struct SectionLayout {
  PixelArea area;
  bool levels = false;               ///< the vertical axis counts levels, not metres
  double deepest = 1;                ///< depth at the strips' lower edge, m or levels
  TrackWindow window, whole;         ///< m from the blocks' origins
  std::vector<SectionBlock> blocks;  ///< none where the picture is too small
  std::int32_t axis = 0;             ///< upper edge of the horizontal axis' numbers
  std::int32_t axisTitle = 0;        ///< likewise of its title
  std::int32_t notes = 0;            ///< upper edge of the first line of notes
  std::vector<std::string> told;     ///< what is shown otherwise than asked for, one line of text each
  bool marks = false;                ///< the marks are explained in a line below the notes
  PuntoPixel legend;                 ///< foot of the colour scale
  std::int32_t caption = 0;          ///< upper edge of the caption

  /// Pixels from a block's left edge to a place along the track, m; as a real number, not held to the plot.
  double colonna(const SectionBlock& block, double distance) const {
    return (distance - block.origin - window.from) / window.width() * block.plot.width();
  }
  /// The place along the track of a pixel, m.
  double distanza(const SectionBlock& block, double X) const {
    return block.origin + window.from + (X - block.plot.left) / block.plot.width() * window.width();
  }
  /// Pixel row of a depth in a block.
  double riga(const SectionBlock& block, double depth) const {
    return block.plot.top + depth / deepest * block.plot.height();
  }
};

/// The rows of cells that a layout shows.
inline const std::vector<SectionRow>& RigheDi(const SectionModel& model, const SectionLayout& layout) {
  return layout.levels ? model.levels : model.metres;
}

/// Pixel rows of a row of cells in a block, the second one being the first below it: one at least, held to the plot.
std::pair<std::int32_t, std::int32_t> RigheDiPixel(const SectionLayout& layout, const SectionBlock& block,
                                                   const SectionRow& row);

/// Lays the section out in the canvas' picture. Strips that would be lower than four lines of text give way to one axis
/// for all lines, and curves for which there is no room are left out: both are told.
/// @param caption there is a caption to leave room for
SectionLayout DisponiSezione(const SectionModel& model, const SectionView& view, bool caption, const Canvas& canvas);

}  // namespace corvan

// The curves below the flat section.
#pragma once

#include <array>

#include "picture/Canvas.h"
#include "picture/ColourScale.h"
#include "picture/TextLayout.h"
#include "view2d/SectionLayout.h"

namespace corvan {

/// Colours of channels 1..10 in the curves, dark to light; slot 0 is that of a curve that no channel has.
inline constexpr std::array<Colour, MaxChannels + 1> CurveColours{
    0x1F5FA8, 0x14123C, 0x3A1B7C, 0x7A1F87, 0x1C4FA3, 0xB0306A, 0x117A8B, 0xD6562B, 0x2E9E4F, 0xE59A1C, 0x9BC53D};

/// Paints a block's curves with their axes; titles and numbers get their places in the layout of texts.
/// @param colours resistivity is drawn on the scale's kind of axis
void DisegnaCurve(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block,
                  const ColourScale& colours, Canvas& canvas, TextLayout& texts);

}  // namespace corvan

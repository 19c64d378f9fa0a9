// What lies under a pixel of the flat section.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "view2d/SectionLayout.h"

namespace corvan {

struct ReadingUnder {
  std::int32_t measurement = 0;  ///< 1-based
  std::size_t channel = 0;       ///< 1..10
};

/// The reading whose cell is painted on a pixel.
std::optional<ReadingUnder> LetturaSotto(const SectionModel& model, const SectionLayout& layout,
                                         const PuntoPixel& pixel);

/// The block whose strip, air or curves a pixel lies in or, across, beside; from its title to below its last curve.
const SectionBlock* BloccoSotto(const SectionLayout& layout, const PuntoPixel& pixel);

/// The kept firing of a block's lines that the boat made nearest to a place along the track, m; 0 where none is kept.
/// Of equally near ones the first.
std::int32_t MisuraVicina(const SectionModel& model, const SectionBlock& block, double distance);

/// Distance along the track, place behind the boat and pseudo-depth of a reading, its resistivity, potential, current
/// and geometric factor, and the boat's position, in one line.
std::string DescriviLettura(const Survey& survey, const SectionModel& model, const ReadingUnder& reading);

}  // namespace corvan

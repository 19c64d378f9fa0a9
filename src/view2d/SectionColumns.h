// What each pixel column of a strip or a curve shows, however many readings share it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "view2d/SectionLayout.h"
#include "view2d/SectionModel.h"

namespace corvan {

/// The measurement (1-based) whose cell of a channel shows in each pixel column of a block, 0 where none does: the one
/// whose cell covers the column's middle, or, where none does, the last one that lies in the column. So where many
/// readings share a column one of them stands for all, and none that lies apart is lost. At the ends of a line cells
/// reach half a step.
/// Only readings that reach into the window are looked at.
/// @param shown one entry a column afterwards
void CelleDi(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block, std::size_t channel,
             std::vector<std::uint32_t>& shown);

/// The values of a series in one pixel column.
struct ColumnValues {
  float first = 0, last = 0;  ///< along the track
  float low = 0, high = 0;
  bool any = false;
  bool joined = false;  ///< nothing is missing between this column's first value and the value before it
};

/// A series along a block, each pixel column with its lowest and highest value, so that no spike is lost. Neighbours
/// are joined within a line where no firing is missing between them and they lie no more than 2.5 steps apart; where
/// the joining line enters or leaves the window its value there counts.
/// @param values of the series per measurement, NaN for none @param behind of the series' place behind the boat, m
/// @param columns one entry a column afterwards
void ColonneDi(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block,
               std::span<const float> values, double behind, std::vector<ColumnValues>& columns);

}  // namespace corvan

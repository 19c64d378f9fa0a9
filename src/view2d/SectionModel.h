// The survey laid flat: readings at their places along the track and below it, as numbers that can be drawn and picked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "survey/ReadingPlaces.h"
#include "survey/Survey.h"

namespace corvan {

/// What a firing that shows no cells lacks.
enum class Loss : std::uint8_t { NoFix, LeftOut, NoReadings };

struct LossMark {
  Loss kind = Loss::NoFix;
  std::uint32_t measurement = 0;  ///< 1-based
  double distance = 0;            ///< m along the track: evenly between the kept firings on both sides
};

/// The measurements of one file.
struct SectionLine {
  std::string name;                 ///< of the file, without its folder
  std::size_t first = 0, last = 0;  ///< measurements, 1-based
  double start = 0, end = 0;        ///< m along the track of its first and last kept firing
  double step = 1;                  ///< usual distance from one firing to the next: the median of those over 0, m
};

/// The band of depths that a channel's cells fill.
struct SectionRow {
  std::size_t channel = 1;
  double top = 0, bottom = 1;  ///< m, or levels, below the surface
};

/// Distances count from the survey's first firing, which `Misura::Distanza` gives to the boat. Series hold NaN for what
/// a kept firing has not, and for all of a firing that is not kept; the value of measurement k stands at k - 1.
struct SectionModel {
  std::vector<SectionLine> lines;
  std::vector<double> distance;                               ///< of the boat, m; never falls
  std::vector<std::uint32_t> line;                            ///< of the measurement, index into lines
  std::array<std::vector<float>, MaxChannels + 1> rho;        ///< ohm m, per channel; NaN for an excluded reading
  std::array<std::vector<float>, MaxChannels + 1> lette;      ///< likewise with the excluded ones; empty without any
  std::array<std::vector<float>, MaxChannels + 1> potential;  ///< its size without its sign, mV, likewise
  std::vector<float> current;                                 ///< mA
  std::vector<float> depth;                                   ///< of the water, m
  std::vector<float> speed;  ///< over ground since the kept firing before it in the same file, m/s
  std::vector<float> hours;  ///< since the first time of the survey
  std::vector<LossMark> marks;
  std::vector<bool> lost;  ///< of the measurement: it has a mark

  std::array<double, MaxChannels + 1> behind{};       ///< of each channel behind the boat, m
  std::array<double, MaxChannels + 1> pseudoDepth{};  ///< m
  std::vector<SectionRow> metres, levels;             ///< rows from the top down, of the channels that have readings
  bool metric = false;             ///< at least one channel has a pseudo-depth: depths in metres can be shown
  std::vector<std::string> lacks;  ///< what cannot be shown as it should, one sentence each

  std::size_t size() const { return distance.size(); }
  /// Resistivities of all readings of a channel that have a cell, if only its outline.
  const std::vector<float>& celle(std::size_t channel) const {
    return lette.at(channel).empty() ? rho.at(channel) : lette.at(channel);
  }
  /// The firing is kept: it can show cells. @param k 1-based
  bool tenuta(std::size_t k) const { return !lost[k - 1]; }
};

/// A channel without a pseudo-depth stands at its level: as deep for its number as the others are for theirs (median).
/// One without a place stands at the boat. Both are named in `lacks`, as are a survey without measurements or cable.
SectionModel CreaSezionePiana(const Survey& survey, const ReadingPlaces& places);

/// How far a cell reaches towards the next reading of its channel in the same line, before it or behind it: half-way,
/// but not over 1.25 of the line's steps; half a step where a firing between them is missing. So what is missing leaves
/// a gap. @param i,next indices of the two readings @return m, not negative
double Portata(const SectionModel& model, std::size_t i, std::size_t next);

}  // namespace corvan
